#include "model/LineChoice.h"

namespace varnow {

LineChoice parseLineChoice(const QString &text)
{
    LineChoice choice{.name = text};
    const qsizetype open = text.indexOf(u'(');
    if (open < 0)
        return choice;
    const qsizetype close = text.indexOf(u')', open);
    choice.isUnclosed = close < 0;
    choice.hasIndex = !choice.isUnclosed;
    if (choice.hasIndex) {
        choice.name = text.left(open);
        choice.index = text.mid(open + 1, close - open - 1);
    }
    return choice;
}

} // namespace varnow

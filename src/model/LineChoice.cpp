#include "model/LineChoice.h"

namespace varnow {

LineChoice parseLineChoice(const QString &text)
{
    const qsizetype open = text.indexOf(u'(');
    if (open < 0)
        return {text, {}, false};
    const qsizetype close = text.indexOf(u')', open);
    if (close < 0)
        return {text, {}, true};
    return {text.left(open), text.mid(open + 1, close - open - 1), false};
}

} // namespace varnow

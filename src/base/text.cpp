#include "base/text.h"

namespace varnow {

QString trim(const QString &text)
{
    const QStringView view = trimmedView(text);
    return view.size() == text.size() ? text : view.toString();
}

QString counted(qint64 count, const QString &noun)
{
    return QString::number(count) + u' ' + noun + (count == 1 ? "" : "s");
}

bool isBlank(QStringView text)
{
    return trimmedView(text).isEmpty();
}

} // namespace varnow

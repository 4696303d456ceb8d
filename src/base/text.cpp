#include "base/text.h"

namespace varnow {

QStringView trimmedView(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString trim(const QString &text)
{
    const QStringView view = trimmedView(text);
    return view.size() == text.size() ? text : view.toString();
}

bool isBlank(QStringView text)
{
    return trimmedView(text).isEmpty();
}

} // namespace varnow

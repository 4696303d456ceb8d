#include "base/text.h"

namespace varnow {

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

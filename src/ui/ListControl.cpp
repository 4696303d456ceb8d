#include "ui/ListControl.h"

#include "base/text.h"

namespace varnow::ui {

int ListControl::findItem(const QString &text, ItemMatch match) const
{
    const QString key = trim(text);
    if (key.isEmpty())
        return -1;
    for (int i = 0; i < itemCount(); ++i) {
        const QString item = itemText(i);
        if (match == ItemMatch::Prefix ? item.startsWith(key) : item.toLower() == key.toLower())
            return i;
    }
    return -1;
}

} // namespace varnow::ui

#include "ui/ListControl.h"

#include "base/text.h"

namespace varnow::ui {

int ListControl::findItem(const QString &text, ItemMatch match) const
{
    const QString key = trim(text);
    const auto matches = [&](const QString &item) {
        switch (match) {
        case ItemMatch::Exact:
            return item == key;
        case ItemMatch::Whole:
            return item.toLower() == key.toLower();
        case ItemMatch::Prefix:
            return item.startsWith(key);
        }
        Q_UNREACHABLE();
    };
    for (int i = 0; i < itemCount() && !key.isEmpty(); ++i) {
        if (matches(itemText(i)))
            return i;
    }
    return -1;
}

} // namespace varnow::ui

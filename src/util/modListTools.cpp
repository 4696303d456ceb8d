#include "util/modListTools.h"

#include "base/text.h"
#include "ui/ComboBox.h"
#include "ui/ListControl.h"
#include "util/modDiagnostics.h"

namespace varnow {

namespace {

QString textOfCombo(const ui::Control &control)
{
    const auto *combo = dynamic_cast<const ui::ComboBox *>(&control);
    return combo != nullptr ? combo->text() : QString();
}

} // namespace

bool IsInList(const ui::Control &control, QString text)
{
    const auto search = [&] {
        if (text.isEmpty())
            text = textOfCombo(control);
        const auto *list = dynamic_cast<const ui::ListControl *>(&control);
        if (text.isEmpty() || list == nullptr)
            return false;
        const QString key = trim(text).toLower();
        for (int i = 0; i < list->itemCount(); ++i) {
            if (trim(list->itemText(i)).toLower() == key)
                return true;
        }
        return false;
    };
    return guarded(search, [](const RuntimeError &) { return false; });
}

int FindListIndex(const ui::Control &control, const QString &text, bool prefixMatch)
{
    const auto search = [&] {
        const QString key = trim(isBlank(text) ? textOfCombo(control) : text);
        if (key.isEmpty())
            return -3;
        const auto *list = dynamic_cast<const ui::ListControl *>(&control);
        if (list == nullptr)
            return -2;
        for (int i = 0; i < list->itemCount(); ++i) {
            const QString item = list->itemText(i);
            if (prefixMatch ? item.startsWith(key) : item.toLower() == key.toLower())
                return i;
        }
        return -1;
    };
    return guarded(search, [](const RuntimeError &) { return -4; });
}

} // namespace varnow

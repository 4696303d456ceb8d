#include "editor/DataCheck.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "base/text.h"
#include "ui/MessageBox.h"

namespace varnow {

void DataCheck::failIf(bool failed, const QString &complaint)
{
    if (!failed)
        return;
    m_failed = true;
    m_message += lineBreak + "\t" + complaint;
}

bool DataCheck::passed() const
{
    if (m_failed)
        ui::show({m_message, "Data Checking", ui::Icon::Critical});
    return !m_failed;
}

int typedIndex(const QString &text)
{
    return isBlank(text) ? 0 : toLong(text);
}

bool isTooLarge(const QString &text)
{
    return guarded([&] { return leadingNumber(text), false; }, [](const RuntimeError &) { return true; });
}

} // namespace varnow

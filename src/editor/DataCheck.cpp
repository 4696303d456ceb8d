#include "editor/DataCheck.h"

#include "base/text.h"
#include "ui/MessageBox.h"

namespace varnow {

bool dataCheckPassed(const QString &header, const QStringList &problems)
{
    if (problems.isEmpty())
        return true;
    ui::show({(QStringList(header) + problems).join(lineBreak + "\t"), "Data Checking", ui::Icon::Critical});
    return false;
}

} // namespace varnow

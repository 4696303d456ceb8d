#include "lines/errorTraps.h"

#include "startup/modGlobals.h"
#include "startup/modIsCompiled.h"
#include "util/modDiagnostics.h"
#include "util/modMsgbox.h"

namespace varnow {

int debugTrap(const QString &trapName, const RuntimeError &error, const QStringList &details)
{
    if (gDebugMode)
        DebugPrint(trapText(trapName, error, details));
    return error.number();
}

int developmentTrap(const QString &trapName, const RuntimeError &error)
{
    if (!IsCompiled())
        ShowMessage(trapText(trapName, error));
    return error.number();
}

} // namespace varnow

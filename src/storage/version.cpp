#include "storage/version.h"

#include "db/drivers.h"

#include <QStringList>

namespace varnow {

QString versionText()
{
    QStringList lines{"varnow " VARNOW_VERSION, QStringLiteral("Qt ") + qVersion(),
                      "ODBC driver manager " + db::driverManagerVersion()};
    for (const db::Driver &driver : db::registeredDrivers())
        lines += "ODBC driver " + driver.name + " (" + driver.file + ')';
    return lines.join(u'\n');
}

} // namespace varnow

#include "db/drivers.h"

#include "db/odbc.h"

#include <sql.h>
#include <sqlext.h>

#include <array>

namespace varnow::db {

namespace {

/// The value of a key among a driver's attributes: texts "key=value", each ended by a zero, and a zero behind
/// the last one.
QString valueOf(const QString &key, const SQLCHAR *attributes)
{
    for (const char *text = reinterpret_cast<const char *>(attributes); *text != 0;
         text += qstrlen(text) + 1) {
        const QString attribute = QString::fromUtf8(text);
        if (attribute.startsWith(key + u'=', Qt::CaseInsensitive))
            return attribute.sliced(key.size() + 1);
    }
    return {};
}

} // namespace

std::vector<Driver> registeredDrivers()
{
    std::array<SQLCHAR, 256> name{};
    std::array<SQLCHAR, 4096> attributes{};
    std::vector<Driver> drivers;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    while (SQL_SUCCEEDED(SQLDrivers(environment().get(), direction, name.data(), SQLSMALLINT(name.size()),
                                    nullptr, attributes.data(), SQLSMALLINT(attributes.size()), nullptr))) {
        direction = SQL_FETCH_NEXT;
        drivers.push_back({QString::fromUtf8(name.data()), valueOf("Driver", attributes.data())});
    }
    return drivers;
}

QString driverManagerVersion()
{
    const Handle connection(SQL_HANDLE_DBC, environment().get());
    std::array<SQLCHAR, 64> version{};
    SQLGetInfo(connection.get(), SQL_DM_VER, version.data(), SQLSMALLINT(version.size()), nullptr);
    return QString::fromUtf8(version.data());
}

} // namespace varnow::db

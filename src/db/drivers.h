#pragma once

#include <QString>

#include <vector>

namespace varnow::db {

/// A driver as it is registered with the driver manager.
struct Driver
{
    QString name;
    QString file;
};

/// The registered drivers, in the driver manager's order.
std::vector<Driver> registeredDrivers();

/// The version of ODBC's driver manager, as it writes it.
QString driverManagerVersion();

} // namespace varnow::db

#pragma once

#include "db/ConnectionSettings.h"

#include <QString>

namespace varnow::db {

/// The ODBC connection string that leads SQLite's driver to an existing file; it waits `timeout` seconds
/// for a lock. Raises codes::Failure for a file that is missing, no database, or not to be named to the
/// driver.
QString sqliteConnectionString(const ConnectionSettings &settings, int timeout);

/// The ODBC connection string for SQL Server through the registered driver of this name. Server and database
/// are taken without blanks around them. The driver is told to log in encrypted or not at all, to this
/// machine only where VARNOW_ENCRYPTION says "always", to others unless it says "never"; what in the
/// environment would talk FreeTDS out of that is removed. Raises codes::Failure for a server name that makes
/// no sense or a value not to be named to the driver.
QString sqlServerConnectionString(const ConnectionSettings &settings, const QString &driver);

/// Whether the log-in may reach the server only encrypted.
bool requiresEncryption(const ConnectionSettings &settings);

} // namespace varnow::db

#pragma once

#include "db/dialect.h"

#include <QString>

namespace varnow::db {

/// What a connection string says.
struct ConnectionValues
{
    QString server;
    QString user;
    QString password;
    QString database;
    QString application;

    /// SQLite when the server is called "(sqlite)"; the database is then the path of its file.
    Dialect dialect() const;
};

/// Takes "Provider=sqloledb;server=…;uid=…;pwd=…;database=…" apart, with ";App=…" behind it or without.
/// Raises -2147467259 for any other text.
ConnectionValues parseConnectionString(const QString &text);

/// The ODBC connection string that leads SQLite's driver to an existing file; it waits `timeout` seconds
/// for a lock. Raises -2147467259 for a file that is missing, no database, or not to be named to the driver.
QString sqliteConnectionString(const ConnectionValues &values, int timeout);

/// The ODBC connection string for SQL Server through the registered driver of this name.
/// Raises -2147467259 for a server name that makes no sense or a value not to be named to the driver.
QString sqlServerConnectionString(const ConnectionValues &values, const QString &driver);

} // namespace varnow::db

#pragma once

#include "db/dialect.h"

#include <QString>

namespace varnow::db {

/// What leads to a database, exactly as it was typed.
struct ConnectionSettings
{
    QString server;   ///< "host", "host,port", "host\instance" or "(sqlite)"
    QString database; ///< its name, for SQLite the path of its file
    QString user;
    QString password;

    bool operator==(const ConnectionSettings &) const = default;

    /// True when nothing but the password may be missing.
    bool isComplete() const { return !server.isEmpty() && !database.isEmpty() && !user.isEmpty(); }
    /// SQLite when the server is called "(sqlite)".
    Dialect dialect() const;
    /// The same without space characters around the values.
    ConnectionSettings trimmed() const;
};

} // namespace varnow::db

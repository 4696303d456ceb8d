#pragma once

#include "db/dialect.h"

#include <QString>

namespace varnow::db {

/// Longest wait for a log-in and for a statement, in seconds.
inline constexpr int connectionTimeout = 30;

/// What leads to a database, exactly as it was typed.
struct ConnectionSettings
{
    QString server;   ///< "host", "host,port", "host\instance" or "(sqlite)"
    QString database; ///< its name, for SQLite the path of its file
    QString user;
    QString password;
    int timeout = connectionTimeout; ///< how long to wait for the log-in, and for each statement, in seconds

    bool operator==(const ConnectionSettings &) const = default;

    /// True when nothing but the password may be missing.
    bool isComplete() const { return !server.isEmpty() && !database.isEmpty() && !user.isEmpty(); }
    /// SQLite when the server is called "(sqlite)", in any letter case.
    Dialect dialect() const;
    /// The same without space characters around the values.
    ConnectionSettings trimmed() const;
};

} // namespace varnow::db

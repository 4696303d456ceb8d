#pragma once

#include "db/ConnectionSettings.h"
#include "db/ResultSet.h"

#include <QString>

#include <memory>

namespace varnow::db {

/// Time-out of a log-in in seconds, and the longest that a statement is waited for.
inline constexpr int connectionTimeout = 30;

/// One open connection to a database. It closes when this object goes.
class Connection
{
public:
    /// Opens the database. `timeout` is how long to wait for the log-in, and for a statement, in seconds; a
    /// statement is waited for at least one and never more than connectionTimeout seconds.
    /// Raises codes::Failure whatever the reason of the failure.
    explicit Connection(const ConnectionSettings &settings, int timeout = connectionTimeout);
    ~Connection();
    Connection(Connection &&) noexcept;
    Connection &operator=(Connection &&) noexcept;

    /// Runs one SQL statement and fetches all rows of its result; a statement without a result gives a
    /// closed result set. Raises the provider's error code.
    ResultSet execute(const QString &sql, const RowObserver &onRow = {});

private:
    struct Handles;
    std::unique_ptr<Handles> m_handles;
};

/// Runs one statement on a connection of its own. Raises what Connection raises.
ResultSet executeOnce(const ConnectionSettings &settings, const QString &sql, const RowObserver &onRow = {});

/// The text as an SQL literal: between apostrophes, those inside it doubled.
QString quoted(const QString &text);

} // namespace varnow::db

#pragma once

#include <QString>

#include <memory>

namespace varnow::db {

class Recordset;

/// One open connection to a database. It closes when its last reference goes.
class Connection
{
public:
    Connection();
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Opens the database that a connection string of this program names ("Provider=sqloledb;server=…").
    /// `timeout` is the log-in time-out in seconds. Raises -2147467259 whatever the reason of the failure.
    void open(const QString &connectionString, int timeout);

    /// Runs one SQL statement, waits for it as long as for the log-in but never longer than 30 seconds, and
    /// fetches all rows of its result. Raises the provider's error code.
    Recordset execute(const QString &sql);

private:
    struct Handles;
    std::unique_ptr<Handles> m_handles;
};

using ConnectionPtr = std::shared_ptr<Connection>;

} // namespace varnow::db

#pragma once

#include "db/ConnectionSettings.h"
#include "db/ResultSet.h"

#include <QString>

#include <memory>

namespace varnow::db {

/// One open connection to a database. It closes when this object goes.
class Connection
{
public:
    /// Opens the database. Raises codes::Failure whatever the reason of the failure.
    explicit Connection(const ConnectionSettings &settings);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Runs one SQL statement and fetches all rows of its result; a statement without a result gives a
    /// closed result set. Raises the provider's error code.
    ResultSet execute(const QString &sql, const RowObserver &onRow = {});

    /// Whether the connection is known to be lost, after a statement failed.
    bool isDead() const;

private:
    struct Handles;
    std::unique_ptr<Handles> m_handles;
};

/// The text as an SQL literal: between apostrophes, those inside it doubled.
QString quoted(const QString &text);

/// Appends that to a statement.
void appendQuoted(QString &sql, const QString &text);

} // namespace varnow::db

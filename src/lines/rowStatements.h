#pragma once

#include <QString>

#include <functional>

// The statements for one row of the configuration database that both stores share.

namespace varnow {

/// Runs a statement without rows on the configuration database; 0 when it is done.
int runStatement(const QString &statement);

/// The value in the first column of a query's first row as an identifier; `none` without rows or for Null.
/// Raises the error that kept the query from being read.
int identifierFrom(const QString &query, int none);

/// Updates the row `id`, or, when that is no identifier, inserts a row with the table's next one. `update`
/// and `insert` take the identifier and return 0 when they are done; otherwise error `failure` is raised.
void updateOrInsert(int id, const QString &table, int failure, const std::function<int(int)> &update,
                    const std::function<int(int)> &insert);

} // namespace varnow

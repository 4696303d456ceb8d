#pragma once

#include <QByteArray>

struct sqlite3_stmt;

namespace varnow::test::tds {

/// Appends the columns of a result, of the types that the tables declare, and its rows. `step` is what the
/// first step to a row gave, and is left as what the last one gave. Returns the number of rows.
qint64 putResult(QByteArray &out, sqlite3_stmt *result, int &step);

} // namespace varnow::test::tds

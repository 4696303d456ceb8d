#pragma once

#include <QString>

namespace varnow::db {

/// The two kinds of database that the program can talk to.
enum class Dialect { SqlServer, Sqlite };

/// The statement as the database understands it: the rest of the program writes it for both alike.
/// Raises the conversion code for a text that no driver passes on whole (U+0000, half a surrogate pair).
QString inDialect(const QString &sql, Dialect dialect);

} // namespace varnow::db

#pragma once

#include "db/Command.h"
#include "db/Connection.h"
#include "db/Recordset.h"

#include <QString>

// The one door to the database. No routine raises an error or shows one: each returns 0 for success or the
// error number, for database errors the provider's code (-2147467259 when the server cannot be reached).

namespace varnow::db {

/// Client-side cursors: the rows are fetched whole and counted. Every caller uses it.
inline constexpr int clientCursor = 3;
/// Time-out of every log-in in seconds.
inline constexpr int connectionTimeout = 30;
/// The type of every command: SQL text.
inline constexpr int textCommand = 1;
/// The cursor type that every caller asks for.
inline constexpr int keysetCursor = 1;

/// Connection string of the configuration database; empty when server, database or user is missing.
QString GetConfigConnectString();

/// Connection string of the Velmora database; empty when server, database or user is missing.
QString GetVelmoraConnectString();

/// Opens a new connection in place of the one given. `timeout` in seconds.
int OpenComnnection(ConnectionPtr &connection, QString connectString, int cursorLocation, int timeout);

/// Runs a command text on an open connection. On failure the recordset is left closed.
int GetRecordset(const ConnectionPtr &connection, CommandPtr &command, RecordsetPtr &recordset,
                 const QString &commandText, int commandType, int cursorLocation, int cursorType);

/// Runs a prepared command that returns no rows.
int ExecuteCommand(const CommandPtr &command);

/// Runs a query on a connection of its own.
int RetrieveRecordset(const QString &connectString, const QString &sql, RecordsetPtr &recordset);

/// Runs a statement that returns no rows on a connection of its own.
int CompleteCommand(const QString &connectString, const QString &sql);

/// Largest value of a table's column plus one, 1 for an empty table, -1 on any failure.
int GetNextRecordID(const QString &connectString, const QString &table, const QString &column);

/// The text as an SQL literal: between apostrophes, those inside it doubled.
QString quoted(const QString &text);

} // namespace varnow::db

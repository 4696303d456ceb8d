#pragma once

#include <QString>

// Writing the line table back to the database table LabLineConfig, one statement and one connection each.

namespace varnow {

/// Inserts or updates the row of every line and shows the summary. Returns 0, also when single lines
/// failed; else the number of the unexpected failure.
int SaveAllLabLineCfg();

/// Deletes the rows of the removed lines and shows the summary; without errors the removed lines are
/// forgotten. Returns 0 or the number of the unexpected failure.
int DeleteRemovedLabLineConfigFromDatabase();

/// Inserts or updates one row, found by its key. Returns 0 or the error number, 150080 when a statement or
/// the new identifier failed.
int SaveLabLineConfig(const QString &Configuration, const QString &Name, int NameIndex, int MsgIndex);

/// Identifier of the row with this key, 0 when there is none, -1 on failure.
int LabLineConfigExistsFor(const QString &strConfiguration, const QString &strName, int lngNameIndex);

/// Each returns the result of CompleteCommand (0 = done) or the error number.
int InsertLabLineConfig(int id, const QString &Configuration, const QString &Name, int NameIndex,
                        int MsgIndex);
int UpdateLabLineConfig(int id, const QString &Configuration, const QString &Name, int NameIndex,
                        int MsgIndex);
int DeleteLabLineConfig(int id);

/// Gives every line that has no database identifier yet (0 or -1) the identifier of its row, where it has
/// one. Called after a save.
void AdoptLabLineIds();

} // namespace varnow

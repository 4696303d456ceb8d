#pragma once

#include <QString>

// Writing the field table back to the database table LabLineFieldConfig, and the save of both stores.

namespace varnow {

/// Deletes the removed lines, saves the lines, deletes the removed fields, saves the fields. Returns 0, or
/// the result of the first save that did not end normally; the later steps then do not run. 18 when the user
/// stopped it.
int SaveAllLabLineData();

/// Gives every line and field that has no database identifier yet (0 or -1) the identifier of its row,
/// where it has one. Called after a save.
void AdoptLabLineDataIds();

/// Inserts or updates the row of every field and shows the summary. Returns 0, also when single fields
/// failed; else the number of the unexpected failure.
int SaveAllLabLineFldsCfg();

/// Deletes the rows of the removed fields and shows the summary; without errors the removed fields are
/// forgotten. Returns 0 or the number of the unexpected failure.
int DeleteRemovedLabLineFieldsFromDatabase();

/// Inserts or updates one row, found by configuration, name, name index, line and line index. The
/// validation text is written nowhere: its column holds FieldPosition. Returns 0 or the error number,
/// 150079 when a statement or the new identifier failed.
int SaveLabLineFldsCfg(const QString &Configuration, const QString &Name, int NameIndex, const QString &Line,
                       int LineIndex, int Position, int Length, const QString &DataType,
                       const QString &LookupString, const QString &FormatString, const QString &Constant,
                       const QString &ValidationText, int FixedLength, const QString &PadChar,
                       int PadDirection, int MsgIndex, int FieldPosition);

/// Identifier of the row with this key; -1 when there is none, when it is Null, and on failure.
int LabLineFldsCfgExistsFor(const QString &Configuration, const QString &strField, int lngFieldIndex,
                            const QString &strLine, int lngLineIndex);

/// Each returns the result of CompleteCommand (0 = done) or the error number.
int InsertLabLineFldsCfg(int id, const QString &Configuration, const QString &Name, int NameIndex,
                         const QString &Line, int LineIndex, int MsgIndex, int Position, int Length,
                         const QString &DataType, const QString &LookupString, const QString &FormatString,
                         const QString &Constant, const QString &ValidationText, int FixedLength,
                         const QString &PadChar, int PadDirection, int FieldPosition);
int UpdateLabLineFldsCfg(int id, const QString &Configuration, const QString &Name, int NameIndex,
                         const QString &Line, int LineIndex, int Position, int MsgIndex, int Length,
                         const QString &DataType, const QString &LookupString, const QString &FormatString,
                         const QString &Constant, const QString &ValidationText, int FixedLength,
                         const QString &PadChar, int PadDirection, int FieldPosition);
int DeleteLabLineFlds(int id);

} // namespace varnow

#pragma once

#include "db/Recordset.h"
#include "lines/RecordTable.h"

#include <QString>

#include <vector>

namespace varnow {

/// One field of a line. In memory its key is Configuration, Name and NameIndex; it belongs to the line
/// whose Configuration, Name and NameIndex equal its Configuration, Line and LineIndex.
struct LabLineFldCfgRecord
{
    int id = 0;
    QString Configuration;
    QString Name;
    int NameIndex = 0;
    QString Line;
    int LineIndex = 0;
    int Position = 0; ///< order number within the line: 1, 2, 3 …
    int Length = 0;   ///< characters
    QString DataType;
    QString LookupString;
    QString FormatString;
    QString Constant;
    int MsgIndex = 0;      ///< copy of the owning line's MsgIndex
    int FixedLength = 0;   ///< 1 for a fixed-length field, else 0
    QString PadChar;       ///< one blank or "0" for a fixed-length field, else empty; never trimmed
    int PadDirection = 0;  ///< 1 right, -1 left, 0 for a field that is not fixed-length
    int FieldPosition = 0; ///< character position; kept in the database column ValidationString
};

/// The fields of all configurations.
extern RecordTable<LabLineFldCfgRecord> LabLineFldTable;

/// The fields removed since the last deletion run without errors, in the order of their removal.
extern std::vector<LabLineFldCfgRecord> RemovedLabLineFldTable;

/// Loads the lines, then, when that went well, the fields. Returns 0 or the first nonzero result.
int LoadAllLabLineData();

/// Merges the rows of the database into LabLineFldTable by key. Returns 0, also after the message that the
/// query failed or gave no rows; else the error number that stopped the reading.
int GetAllLabLineFieldsConfig(db::RecordsetPtr &recordset);

/// Replaces the field with this key in place, or inserts a new one among the fields of its configuration by
/// MsgIndex, then Position. An id of 0 or less keeps the id of a replaced field. Configuration and Name are
/// trimmed in place. Returns 0 or the error number.
int StoreDataInLabLineFldCfgArray(QString &Configuration, QString &Name, const QString &Line, int Position,
                                  int MsgIndex, int NameIndex, int LineIndex, int id, int Length,
                                  const QString &DataType, const QString &LookupString,
                                  const QString &FormatString, const QString &Constant, int FixedLength,
                                  const QString &PadChar, int PadDirection, int FieldPosition);

/// Index of the first field from StartIndex on that matches all three, or -1. Configuration and Name are
/// trimmed in place, a negative StartIndex becomes 0. Every caller passes Direction 1.
int FindLabLineFldConfigIndexByName(QString &Configuration, QString &Name, int NameIndex, int &StartIndex,
                                    int Direction);

/// Index of the first field with this id, or -1.
int FindLabLineFldConfigIndexByID(int id);

/// Moves a field, found by id or else by name, to RemovedLabLineFldTable. Returns 0, 9 when no field
/// matches, else the result of the failing step.
int RemoveLabLineFldCfgRecord(int id, QString &Configuration, QString &Name, int NameIndex);

/// Appends a copy of the field at Index to RemovedLabLineFldTable. Returns 0 or the error number.
int AddRecordToRemovedFields(int Index);

/// Takes the field at Index out of LabLineFldTable. Returns 0 or the error number.
int RemoveLabLineFldCfgRecordFromArray(int Index);

/// Copies every line's message index into its fields. Returns 0 or the error number.
int SyncLabLineFldMsgIndices();

/// Highest position of a line's fields, taken no lower than 0, plus 1; a negative LineIndex takes the
/// fields of every line index. 0 on failure.
int GetNextFieldPositionForLine(const QString &Configuration, const QString &Line, int LineIndex);

} // namespace varnow

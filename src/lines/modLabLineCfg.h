#pragma once

#include "db/Recordset.h"
#include "lines/RecordTable.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace varnow {

/// One labelled line of the upload message. Its key is Configuration, Name and NameIndex.
struct LabLineConfigRecord
{
    int id = 0;
    QString Configuration;
    QString Name;
    int NameIndex = 0;
    int MsgIndex = 0;

    // Spare columns: loaded and kept, never written.
    int number1 = 0;
    QString string1;
    QString text1;
    QDateTime date1;
};

/// The lines of all configurations.
extern RecordTable<LabLineConfigRecord> LabLineTable;

/// The lines removed since the last deletion run without errors, in the order of their removal.
extern std::vector<LabLineConfigRecord> RemovedLabLineTable;

/// Replaces LabLineTable by the rows of the database; without rows the table stays as it is.
/// Returns 0, the code of the failed query, or the error number that stopped the reading.
int GetLabLineConfig(db::RecordsetPtr &recordset);

/// Index of the first line that matches, or -1. A NameIndex of 0 or less matches any name index.
/// Direction -1 searches from StartIndex down, any other up. Configuration is trimmed in place, a negative
/// StartIndex becomes 0.
int FindLabLineConfigIndex(QString &Configuration, const QString &Name, int NameIndex, int &StartIndex,
                           int Direction);

/// The same forward only, with Name trimmed in place instead of Configuration.
int FindLabLineConfigIndexByName(const QString &Configuration, QString &Name, int NameIndex, int &StartIndex);

/// Replaces the line with this key in place or appends a new one. An id of 0 or less keeps the id of a
/// replaced line. Configuration is trimmed in place. Returns 0 or the error number.
int StoreDataInLabLineConfigRecordArray(int id, QString &Configuration, const QString &Name, int NameIndex,
                                        int MsgIndex, int number1, const QString &string1,
                                        const QString &text1, const QDateTime &date1);

/// Moves the line with this key to RemovedLabLineTable. Returns 0, or 150076 when there is none.
int RemoveLabLineConfigRecord(QString &Configuration, const QString &Name, int NameIndex);

/// Moves the line at Index to RemovedLabLineTable. Returns 0 or the error number.
int RemoveLabLineConfigRecordFromArray(int Index);

/// Numbers the lines of a configuration 1, 2, 3 … in table order. Returns 0 or the error number.
int RenumberLabLineMsgIndices(const QString &Configuration);

/// Highest message index of a configuration, taken no lower than 0, plus 1.
int GetNextMsgIndexNumber(const QString &Configuration);

} // namespace varnow

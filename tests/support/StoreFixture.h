#pragma once

#include "fields/modLabLineFldCfg.h"
#include "lines/modLabLineCfg.h"
#include "startup/modGlobals.h"
#include "support/MessageLog.h"
#include "support/TestDatabase.h"

#include <gtest/gtest.h>

namespace varnow::test {

inline constexpr const char *linesSaved = "SaveAllLabLineCfg complete";
inline constexpr const char *linesDeleted = "DeleteRemovedLabLineConfigFromDatabase Complete";
inline constexpr const char *fieldsSaved = "SaveAllLabLineFldsCfg Complete.";
inline constexpr const char *fieldsDeleted = "DeleteRemovedLabLineFieldsFromDatabase Complete";

/// The summary of a run.
inline Box summary(const char *title, int errors, int correct)
{
    return {QString::asprintf("%s\r\n  %d errors occurred\r\n  %d records processed correctly.", title,
                              errors, correct)};
}

/// One number of every record of a table, in table order.
template <class Record> QList<int> columnOf(const auto &table, int Record::*number)
{
    QList<int> column;
    for (const Record &record : table)
        column += record.*number;
    return column;
}

/// Empty stores and recorded message boxes.
struct StoreFixture
{
    StoreFixture()
    {
        emptyStores();
        gMsgTitle = QStringLiteral("Configuration");
    }

    static void emptyStores()
    {
        LabLineTable.clear();
        RemovedLabLineTable.clear();
        LabLineFldTable.clear();
        RemovedLabLineFldTable.clear();
    }

    static int storeLine(int id, QString configuration, const QString &name, int nameIndex, int msgIndex)
    {
        return StoreDataInLabLineConfigRecordArray(id, configuration, name, nameIndex, msgIndex, 0, {}, {},
                                                   {});
    }

    static int storeField(LabLineFldCfgRecord field)
    {
        return StoreDataInLabLineFldCfgArray(
            field.Configuration, field.Name, field.Line, field.Position, field.MsgIndex, field.NameIndex,
            field.LineIndex, field.id, field.Length, field.DataType, field.LookupString, field.FormatString,
            field.Constant, field.FixedLength, field.PadChar, field.PadDirection, field.FieldPosition);
    }

    /// A field of line PID(0) with MsgIndex 1, with this key and position.
    static LabLineFldCfgRecord field(const QString &configuration, const QString &name, int position,
                                     int id = -1)
    {
        return {id, configuration, name, 0, "PID", 0, position, 0, {}, {}, {}, {}, 1, 0, {}, 0, 0};
    }

    /// The boxes shown since they were looked at last.
    void expectBoxes(const Boxes &expected) { EXPECT_EQ(messages.take(), expected); }

    MessageLog messages;
};

/// The stores on a database of their own, once per engine.
struct StoreTest : testing::TestWithParam<Engine>, StoreFixture
{
    explicit StoreTest(bool sample = false) : database(GetParam(), sample) {}

    TestDatabase database;
    db::RecordsetPtr result; ///< of a load
};

} // namespace varnow::test

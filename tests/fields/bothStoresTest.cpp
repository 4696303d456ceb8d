// What lines and fields have in common in their way to the database and back.

#include "base/RuntimeError.h"
#include "fields/modLabLineFldCfgDatabase.h"
#include "lines/modLabLineCfgDatabase.h"
#include "support/StoreFixture.h"

using namespace varnow;
using namespace varnow::test;

namespace {

constexpr const char *tables[] = {"LabLineConfig", "LabLineFieldConfig"};

struct BothStores : StoreTest
{
    static void storeBoth(int id, const QString &name, int place)
    {
        storeLine(id, "S", name, 1, place);
        storeField(field("S", name, place, id));
    }

    void expectRows(const QStringList &lineIds, const QStringList &fieldIds)
    {
        EXPECT_EQ(database.run("SELECT id FROM LabLineConfig ORDER BY id"), lineIds);
        EXPECT_EQ(database.run("SELECT id FROM LabLineFieldConfig ORDER BY id"), fieldIds);
    }
};

} // namespace

ON_EVERY_ENGINE(BothStores);

// Faults: a refused row that stops its run, is missing from the summary or is forgotten, a wrong result code,
// a removed line tried although it has no row.
TEST_P(BothStores, countRefusedRowsAndGoOn)
{
    for (const QString table : tables)
        database.run(QString("INSERT INTO %1 (id, Name) VALUES (-1, ''), (1, 'BAD'), (2, ''), (3, '');"
                             "CREATE TRIGGER %1Insert BEFORE INSERT ON %1 WHEN NEW.Name = 'BAD' %2;"
                             "CREATE TRIGGER %1Delete BEFORE DELETE ON %1 WHEN OLD.Name = 'BAD' %2;")
                         .arg(table, "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    for (const char *name : {"A", "BAD", "C"})
        storeBoth(0, name, 1);
    for (const int id : {-1, 1, 2}) {
        RemovedLabLineTable.emplace_back().id = id;
        RemovedLabLineFldTable.emplace_back().id = id;
    }
    const auto expectSummaries = [this](int errors, int correct) {
        EXPECT_EQ(SaveAllLabLineData(), 0);
        expectBoxes({summary(linesDeleted, errors, correct), summary(linesSaved, errors, correct),
                     summary(fieldsDeleted, errors, correct), summary(fieldsSaved, errors, correct)});
    };
    expectSummaries(1, 2);
    expectRows({"-1", "1", "3", "4", "5"}, {"1", "3", "4", "5"});
    EXPECT_EQ(SaveLabLineConfig("S", "BAD", 1, 1), 150080);
    EXPECT_EQ(SaveLabLineFldsCfg("S", "BAD", 0, "PID", 0, 1, 0, {}, {}, {}, {}, {}, 0, {}, 0, 1, 0), 150079);

    for (const QString table : tables)
        database.run(QStringLiteral("DROP TRIGGER %1Insert; DROP TRIGGER %1Delete").arg(table));
    expectSummaries(0, 3);
    expectRows({"-1", "3", "4", "5", "6"}, {"3", "4", "5", "6"});
    EXPECT_TRUE(RemovedLabLineTable.empty() && RemovedLabLineFldTable.empty());
}

// Faults: a removed record left in the database because its identifier was never learnt, a known identifier
// replaced, a record without a row given one, runs in another order.
TEST_P(BothStores, learnTheIdentifiersOfSavedRecords)
{
    EXPECT_EQ(SaveAllLabLineData(), 0);
    const Box nothing{"No records found to process."};
    expectBoxes({nothing, nothing});
    storeBoth(-1, "A", 1);
    storeBoth(77, "B", 2);
    EXPECT_EQ(SaveAllLabLineData(), 0);
    EXPECT_EQ(LabLineTable[0].id, -1);
    storeBoth(-1, "C", 3);
    AdoptLabLineDataIds();
    EXPECT_EQ(columnOf(LabLineTable, &LabLineConfigRecord::id), (QList{1, 77, -1}));
    EXPECT_EQ(columnOf(LabLineFldTable, &LabLineFldCfgRecord::id), (QList{1, 77, -1}));
    EXPECT_EQ(RemoveLabLineConfigRecordFromArray(0), 0);
    EXPECT_EQ(AddRecordToRemovedFields(0), 0);
    EXPECT_EQ(RemoveLabLineFldCfgRecordFromArray(0), 0);
    EXPECT_EQ(SaveAllLabLineData(), 0);
    expectBoxes({summary(linesSaved, 0, 2), summary(fieldsSaved, 0, 2), summary(linesDeleted, 0, 1),
                 summary(linesSaved, 0, 2), summary(fieldsDeleted, 0, 1), summary(fieldsSaved, 0, 2)});
    expectRows({"2", "3"}, {"2", "3"});
}

// Fault: a record that was removed and came back by a reload keeps the identifier of its deleted row, and its
// next removal deletes the row that has got it meanwhile.
TEST_P(BothStores, forgetTheIdentifiersOfDeletedRows)
{
    storeBoth(2, "A", 1);
    storeBoth(1, "B", 2);
    RemovedLabLineTable.assign(LabLineTable.begin(), LabLineTable.end());
    RemovedLabLineFldTable.assign(LabLineFldTable.begin(), LabLineFldTable.end());
    EXPECT_EQ(SaveAllLabLineData(), 0);
    messages.take();
    AdoptLabLineDataIds();
    EXPECT_EQ(columnOf(LabLineTable, &LabLineConfigRecord::id), (QList{1, 2}));
    EXPECT_EQ(columnOf(LabLineFldTable, &LabLineFldCfgRecord::id), (QList{1, 2}));
}

// Faults: an error outside the statements that ends in silence or in an exception, fields saved although the
// lines could not be.
TEST_P(BothStores, reportUnexpectedFailures)
{
    storeBoth(0, "A", 1);
    RemovedLabLineTable.resize(1);
    RemovedLabLineFldTable.resize(1);
    const auto recorder = ui::setMessageBoxHandler({});
    ui::setMessageBoxHandler([&](const QString &prompt, int style, const QString &title) {
        return prompt.startsWith("An unexpected error") ? recorder(prompt, style, title)
                                                        : throw RuntimeError(errors::Overflow);
    });
    EXPECT_EQ(SaveAllLabLineData(), 6);
    EXPECT_EQ(RemovedLabLineTable.size(), 1U);
    EXPECT_EQ(DeleteRemovedLabLineConfigFromDatabase(), 6);
    EXPECT_EQ(DeleteRemovedLabLineFieldsFromDatabase(), 6);
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 6);
    ui::setMessageBoxHandler(recorder);
    const QString deletion = "An unexpected error number 6\r\nOverflow\r\noccurred while deleting the "
                             "removed\r\nLabeled Line configuration records.";
    const QString lineSave = "An unexpected error number 6\r\nOverflow\r\noccurred while saving the Labeled "
                             "Line\r\nconfiguration records.";
    const QString fieldSave = "An unexpected error occurred while saving \r\nthe Labeled Line Fields "
                              "configuration.\r\nError: 6\r\nOverflow";
    expectBoxes({{deletion}, {lineSave}, {deletion}, {fieldSave}});
}

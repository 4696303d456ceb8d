// What lines and fields have in common in their way to the database and back.

#include "base/RuntimeError.h"
#include "db/codes.h"
#include "support/StorageFixture.h"

#include <QElapsedTimer>

namespace varnow::test {

namespace {

constexpr const char *tables[] = {"LabLineConfig", "LabLineFieldConfig"};

struct BothTables : StorageTest
{
    void storeBoth(int id, const QString &name, int place)
    {
        storeLine(id, "S", name, 1, place);
        fields.store(field("S", name, place, id));
    }

    /// Two rows in each table, their keys A and B.
    void addRows()
    {
        database.run(
            "INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) "
            "VALUES (1, 'S', 'A', 1, 1), (2, 'S', 'B', 1, 2);"
            "INSERT INTO LabLineFieldConfig (id, Configuration, Name, NameIndex, Line, LineIndex, "
            "MsgIndex, Position) VALUES (1, 'S', 'A', 0, 'PID', 0, 1, 1), (2, 'S', 'B', 0, 'PID', 0, 1, 2)");
    }

    void expectIds(const QList<int> &ids)
    {
        EXPECT_EQ(columnOf(lines, &Line::id), ids);
        EXPECT_EQ(columnOf(fields, &Field::id), ids);
    }

    void expectRows(const QStringList &lineIds, const QStringList &fieldIds)
    {
        EXPECT_EQ(database.run("SELECT id FROM LabLineConfig ORDER BY id"), lineIds);
        EXPECT_EQ(database.run("SELECT id FROM LabLineFieldConfig ORDER BY id"), fieldIds);
    }
};

} // namespace

ON_EVERY_ENGINE(BothTables);

// Faults: a refused row that stops its run, takes others of its group with it, is missing from the summary or
// is forgotten, a wrong result code, a removed line tried although it has no row, the row of another line
// deleted because it has the identifier of a deleted one.
TEST_P(BothTables, CountRefusedRowsAndGoOn)
{
    // SQLite gives up a whole group at the refusal of a deletion.
    for (const QString table : tables)
        database.run(QString("INSERT INTO %1 (id, Name) VALUES (-1, ''), (1, 'BAD'), (2, '');"
                             "CREATE TRIGGER %1Insert BEFORE INSERT ON %1 WHEN NEW.Name = 'BAD' "
                             "BEGIN SELECT RAISE(ABORT, 'refused'); END;"
                             "CREATE TRIGGER %1Delete BEFORE DELETE ON %1 WHEN OLD.Name = 'BAD' "
                             "BEGIN SELECT RAISE(ROLLBACK, 'refused'); END")
                         .arg(table));
    for (const char *name : {"A", "BAD", "C"})
        storeBoth(0, name, 1);
    for (const int id : {-1, 1, 2}) {
        Line line;
        line.id = id;
        lines.removeRow(line);
        Field field;
        field.id = id;
        fields.removeRow(field);
    }
    const auto expectSummaries = [this](int errors, int correct) {
        EXPECT_EQ(save(), 0);
        expectMessages({summary(linesDeleted, errors, correct), summary(linesSaved, errors, correct),
                        summary(fieldsDeleted, errors, correct), summary(fieldsSaved, errors, correct)});
    };
    expectSummaries(1, 2);
    expectRows({"-1", "1", "2", "3"}, {"1", "2", "3"});

    for (const QString table : tables)
        database.run(QStringLiteral("DROP TRIGGER %1Insert; DROP TRIGGER %1Delete").arg(table));
    expectSummaries(0, 3);
    expectRows({"-1", "2", "3", "4"}, {"2", "3", "4"});
    EXPECT_TRUE(lines.removed().empty() && fields.removed().empty());
}

// Faults: a removed record left in the database because its identifier was never learnt, a known identifier
// replaced, a record without a row given one, runs in another order.
TEST_P(BothTables, LearnTheIdentifiersOfSavedRecords)
{
    EXPECT_EQ(save(), 0);
    expectMessages({nothingToSave, nothingToSave});
    storeBoth(-1, "A", 1);
    storeBoth(77, "B", 2);
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(lines[0].id, -1);
    storeBoth(-1, "C", 3);
    adoptIds();
    expectIds({1, 77, -1});
    lines.remove(0);
    fields.remove(0);
    EXPECT_EQ(save(), 0);
    expectMessages({summary(linesSaved, 0, 2), summary(fieldsSaved, 0, 2), summary(linesDeleted, 0, 1),
                    summary(linesSaved, 0, 2), summary(fieldsDeleted, 0, 1), summary(fieldsSaved, 0, 2)});
    expectRows({"2", "3"}, {"2", "3"});
}

// Faults: a removed record that a reload brought back loses its row, and with it what only the database
// holds; its next removal is lost.
TEST_P(BothTables, LeaveTheRowsThatAReloadBroughtBack)
{
    addRows();
    EXPECT_EQ(load(), 0);
    lines.remove(0);
    fields.remove(0);
    EXPECT_EQ(load(), 0);
    database.run(
        "UPDATE LabLineConfig SET string1 = 'kept'; UPDATE LabLineFieldConfig SET DataType = 'kept'");
    EXPECT_EQ(save(), 0);
    expectMessages({summary(linesDeleted, 0, 1), summary(linesSaved, 0, 2), summary(fieldsDeleted, 0, 1),
                    summary(fieldsSaved, 0, 2)});
    EXPECT_EQ(database.run("SELECT id, string1 FROM LabLineConfig"), (QStringList{"1|kept", "2|kept"}));
    expectRows({"1", "2"}, {"1", "2"});
    lines.remove(0);
    fields.remove(0);
    EXPECT_EQ(save(), 0);
    expectRows({"2"}, {"2"});
}

// Faults: an error outside the statements that ends in silence or in an exception, fields saved although the
// lines could not be.
TEST_P(BothTables, ReportUnexpectedFailures)
{
    storeBoth(0, "A", 1);
    lines.removeRow({});
    fields.removeRow({});
    const auto failAt = [this](const QStringList &titles) {
        run.onMessage = [=](const QString &text) {
            if (titles.contains(text.section("\r\n", 0, 0)))
                throw RuntimeError(errors::Overflow);
        };
    };
    const QString deletion = "An unexpected error number 6\r\nOverflow\r\noccurred while deleting the "
                             "removed\r\nLabeled Line configuration records.";
    const QString lineSave = "An unexpected error number 6\r\nOverflow\r\noccurred while saving the Labeled "
                             "Line\r\nconfiguration records.";
    const QString fieldSave = "An unexpected error occurred while saving \r\nthe Labeled Line Fields "
                              "configuration.\r\nError: 6\r\nOverflow";
    failAt({linesDeleted, linesSaved});
    EXPECT_EQ(save(), errors::Overflow);
    expectMessages({summary(linesDeleted, 0, 1), deletion, summary(linesSaved, 0, 1), lineSave});
    failAt({fieldsDeleted, fieldsSaved});
    EXPECT_EQ(save(), errors::Overflow);
    expectMessages({summary(linesDeleted, 0, 1), summary(linesSaved, 0, 1), summary(fieldsDeleted, 0, 1),
                    summary(fieldsSaved, 0, 1), fieldSave});
    EXPECT_EQ(fields.removed().size(), 1U);
}

// Faults: fields loaded although the lines could not be, lines of an earlier load doubled, fields lost.
TEST_P(BothTables, LoadAgainAndAgain)
{
    addRows();
    EXPECT_EQ(load(), 0);
    database.run("UPDATE LabLineFieldConfig SET Name = 'C' WHERE id = 2");
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(lines.size(), 2);
    EXPECT_EQ(fields.size(), 3) << "a reload keeps what the database no longer has";
    emptyModel();
    database.run("DROP TABLE LabLineConfig");
    EXPECT_EQ(load(), db::codes::MissingTable);
    EXPECT_TRUE(fields.isEmpty());
    expectMessages({});
}

// Faults: a stop that is passed over, that the user has to wait for, that passes for the end of the rows or
// for a failure, or that loses what was there.
TEST_P(BothTables, StopWhereTheUserSaysSo)
{
    addRows();
    const auto stopAt = [this](const QString &part, int stopped) {
        run.goesOn = [=](const QString &current, int record) { return current != part || record < stopped; };
    };
    storeBoth(9, "Kept", 1);
    database.run("BEGIN EXCLUSIVE");
    stopAt(GetParam() == Engine::Sqlite ? "Connecting to (sqlite)" : "Reading the lines", 0);
    QElapsedTimer waited;
    waited.start();
    EXPECT_EQ(load(), errors::UserInterrupt);
    EXPECT_LT(waited.elapsed(), 5000);
    expectIds({9});
    database.run("COMMIT; ALTER TABLE LabLineFieldConfig RENAME TO few; CREATE VIEW LabLineFieldConfig AS "
                 "WITH RECURSIVE n(i) AS (SELECT 1 UNION SELECT i + 1 FROM n WHERE i < 20000) "
                 "SELECT few.* FROM few, n");
    stopAt("Reading the fields", 0);
    EXPECT_EQ(load(), errors::UserInterrupt);
    EXPECT_EQ(columnOf(fields, &Field::id), QList{9});
    database.run("DROP VIEW LabLineFieldConfig; ALTER TABLE few RENAME TO LabLineFieldConfig");
    emptyModel();
    stopAt("Arranging the fields", 1);
    EXPECT_EQ(load(), errors::UserInterrupt);
    EXPECT_EQ(columnOf(lines, &Line::id), (QList{1, 2}));
    EXPECT_EQ(columnOf(fields, &Field::id), QList{1});

    fields.removeRow(fields[0]);
    database.run("UPDATE LabLineConfig SET MsgIndex = 0");
    stopAt("Saving the lines", 1);
    EXPECT_EQ(save(), errors::UserInterrupt);
    expectMessages({summary(linesSaved, 1, 1), summary(fieldsDeleted, 1, 0), summary(fieldsSaved, 1, 0)});
    EXPECT_EQ(fields.removed().size(), 1U);
    EXPECT_EQ(database.run("SELECT MsgIndex FROM LabLineConfig"), (QStringList{"1", "0"}));
    expectRows({"1", "2"}, {"1", "2"});
}

} // namespace varnow::test

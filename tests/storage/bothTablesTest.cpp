// What lines and fields have in common in their way to the database and back.

#include "base/RuntimeError.h"
#include "db/codes.h"
#include "support/StorageFixture.h"

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
        database.run("INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex, MsgIndex) "
                     "VALUES (1, 'S', 'A', 1, 1), (2, 'S', 'B', 1, 2);"
                     "INSERT INTO LabLineFieldConfig (id, Configuration, Name, Line, MsgIndex, Position) "
                     "VALUES (1, 'S', 'A', 'PID', 1, 1), (2, 'S', 'B', 'PID', 1, 2)");
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

// Faults: a refused row that stops its run, is missing from the summary or is forgotten, a wrong result code,
// a removed line tried although it has no row.
TEST_P(BothTables, CountRefusedRowsAndGoOn)
{
    for (const QString table : tables)
        database.run(QString("INSERT INTO %1 (id, Name) VALUES (-1, ''), (1, 'BAD'), (2, ''), (3, '');"
                             "CREATE TRIGGER %1Insert BEFORE INSERT ON %1 WHEN NEW.Name = 'BAD' %2;"
                             "CREATE TRIGGER %1Delete BEFORE DELETE ON %1 WHEN OLD.Name = 'BAD' %2;")
                         .arg(table, "BEGIN SELECT RAISE(ABORT, 'refused'); END"));
    for (const char *name : {"A", "BAD", "C"})
        storeBoth(0, name, 1);
    for (const int id : {-1, 1, 2}) {
        lines.removed.emplace_back().id = id;
        fields.removed.emplace_back().id = id;
    }
    const auto expectSummaries = [this](int errors, int correct) {
        EXPECT_EQ(save(), 0);
        expectMessages({summary(linesDeleted, errors, correct), summary(linesSaved, errors, correct),
                        summary(fieldsDeleted, errors, correct), summary(fieldsSaved, errors, correct)});
    };
    expectSummaries(1, 2);
    expectRows({"-1", "1", "3", "4", "5"}, {"1", "3", "4", "5"});

    for (const QString table : tables)
        database.run(QStringLiteral("DROP TRIGGER %1Insert; DROP TRIGGER %1Delete").arg(table));
    expectSummaries(0, 3);
    expectRows({"-1", "3", "4", "5", "6"}, {"3", "4", "5", "6"});
    EXPECT_TRUE(lines.removed.empty() && fields.removed.empty());
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

// Fault: a record that was removed and came back by a reload keeps the identifier of its deleted row, and its
// next removal deletes the row that has got it meanwhile.
TEST_P(BothTables, ForgetTheIdentifiersOfDeletedRows)
{
    storeBoth(2, "A", 1);
    storeBoth(1, "B", 2);
    lines.removed.assign(lines.begin(), lines.end());
    fields.removed.assign(fields.begin(), fields.end());
    EXPECT_EQ(save(), 0);
    run.takeMessages();
    adoptIds();
    expectIds({1, 2});
}

// Faults: an error outside the statements that ends in silence or in an exception, fields saved although the
// lines could not be.
TEST_P(BothTables, ReportUnexpectedFailures)
{
    storeBoth(0, "A", 1);
    lines.removed.resize(1);
    fields.removed.resize(1);
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
    EXPECT_EQ(fields.removed.size(), 1U);
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

// Faults: a stop that is passed over, that passes for the end of the rows, or that loses what was there.
TEST_P(BothTables, StopWhereTheUserSaysSo)
{
    addRows();
    const auto stopAtSecond = [this](const QString &part) {
        run.goesOn = [=](const QString &current, int record) { return current != part || record == 0; };
    };
    storeBoth(9, "Kept", 1);
    stopAtSecond("Reading the lines");
    EXPECT_EQ(load(), errors::UserInterrupt);
    expectIds({9});
    stopAtSecond("Reading the fields");
    EXPECT_EQ(load(), 0);
    expectMessages({fieldsNotRetrieved(errors::UserInterrupt)});
    emptyModel();
    stopAtSecond("Arranging the fields");
    EXPECT_EQ(load(), errors::UserInterrupt);
    EXPECT_EQ(columnOf(lines, &Line::id), (QList{1, 2}));
    EXPECT_EQ(columnOf(fields, &Field::id), QList{1});

    fields.removed.push_back(fields[0]);
    stopAtSecond("Saving the lines");
    EXPECT_EQ(save(), errors::UserInterrupt);
    expectMessages({summary(linesSaved, 1, 1), summary(fieldsDeleted, 1, 0), summary(fieldsSaved, 1, 0)});
    EXPECT_EQ(fields.removed.size(), 1U);
    expectRows({"1", "2"}, {"1", "2"});
}

} // namespace varnow::test

#include "base/RuntimeError.h"
#include "lines/modLabLineCfgDatabase.h"
#include "support/StoreFixture.h"

using namespace varnow;
using namespace varnow::test;

namespace {

constexpr const char *saveTitle = "SaveAllLabLineCfg complete";
constexpr const char *deleteTitle = "DeleteRemovedLabLineConfigFromDatabase Complete";
const QString standard = QStringLiteral("Standard");

class LinePersistence : public StoreTest
{
protected:
    static int load()
    {
        auto recordset = std::make_shared<db::Recordset>();
        return GetLabLineConfig(recordset);
    }

    QStringList rows()
    {
        return database.rows(QStringLiteral(
            "SELECT id, Configuration, Name, NameIndex, MsgIndex FROM LabLineConfig ORDER BY id"));
    }
};

} // namespace

ON_EVERY_ENGINE(LinePersistence);

// Faults: Null taken for something else, another order, untrimmed names, spare columns mixed up.
TEST_P(LinePersistence, loadsEveryColumn)
{
    EXPECT_EQ(load(), 0);
    database.run(QStringLiteral(
        "INSERT INTO LabLineConfig VALUES (7, 'T ', ' PID ', 2, 1, 5, ' s ', ' t ', '2024-02-29 13:14:15');"
        "INSERT INTO LabLineConfig VALUES (8, 'S', NULL, NULL, NULL, NULL, NULL, NULL, NULL);"));
    EXPECT_EQ(load(), 0);
    ASSERT_EQ(LabLineTable.size(), 2);
    const QDateTime noDate(QDate(1900, 1, 1), QTime(0, 0));
    const LabLineConfigRecord &blank = LabLineTable[0];
    EXPECT_EQ(blank.id, 8);
    EXPECT_TRUE(blank.Name.isEmpty() && blank.string1.isEmpty() && blank.text1.isEmpty());
    EXPECT_TRUE(blank.NameIndex == 0 && blank.MsgIndex == 0 && blank.number1 == 0);
    EXPECT_EQ(blank.date1, noDate);
    const LabLineConfigRecord &full = LabLineTable[1];
    EXPECT_EQ(
        (QStringList{full.Configuration, full.Name, full.string1, full.text1}),
        (QStringList{QStringLiteral("T"), QStringLiteral("PID"), QStringLiteral("s"), QStringLiteral("t")}));
    EXPECT_TRUE(full.id == 7 && full.NameIndex == 2 && full.MsgIndex == 1 && full.number1 == 5);
    EXPECT_EQ(full.date1, QDateTime(QDate(2024, 2, 29), QTime(13, 14, 15)));

    database.run(QStringLiteral("DELETE FROM LabLineConfig"));
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(LabLineTable.size(), 2) << "a load without rows must leave the table alone";
    database.run(QStringLiteral("DROP TABLE LabLineConfig"));
    EXPECT_NE(load(), 0);
    EXPECT_EQ(LabLineTable.size(), 2);
    expectBoxes({});
}

// Faults: a row found by the id in memory, an id that changes, columns that the program does not own being
// overwritten, memory changed by the save.
TEST_P(LinePersistence, insertsAndUpdatesByKey)
{
    database.run(QStringLiteral(
        "INSERT INTO LabLineConfig VALUES (41, 'Standard', 'PID', 1, 1, 5, 's', 't', '2024-01-01');"));
    storeLine(3, standard, QStringLiteral("PID"), 1, 8);
    storeLine(41, standard, QStringLiteral("OBX"), -2, -3);
    EXPECT_EQ(SaveAllLabLineCfg(), 0);
    expectBoxes({summary(saveTitle, 0, 2)});
    EXPECT_EQ(rows(),
              (QStringList{QStringLiteral("41|Standard|PID|1|8"), QStringLiteral("42|Standard|OBX|-2|-3")}));
    EXPECT_EQ(
        database.value(QStringLiteral("SELECT number1 || string1 || text1 || date1 FROM LabLineConfig")),
        QStringLiteral("5st2024-01-01"));
    EXPECT_EQ(LabLineTable[0].id, 3);
}

TEST_P(LinePersistence, givesTheFirstRowIdentifierOne)
{
    EXPECT_EQ(SaveAllLabLineCfg(), 0);
    expectBoxes({QStringLiteral("No records found to process.")});
    storeLine(0, standard, QStringLiteral("PID"), 1, 1);
    EXPECT_EQ(SaveAllLabLineCfg(), 0);
    EXPECT_EQ(rows(), QStringList(QStringLiteral("1|Standard|PID|1|1")));
}

// Faults: one refused row stopping the run or missing from the summary, a wrong result code.
TEST_P(LinePersistence, countsRefusedRowsAndGoesOn)
{
    refuse(QStringLiteral("LabLineConfig"), QStringLiteral("BAD"));
    for (const char *name : {"A", "BAD", "C"})
        storeLine(0, standard, QString::fromLatin1(name), 1, 1);
    EXPECT_EQ(SaveAllLabLineCfg(), 0);
    expectBoxes({summary(saveTitle, 1, 2)});
    EXPECT_EQ(rows().size(), 2);
    EXPECT_EQ(LabLineTable.size(), 3);
    EXPECT_EQ(SaveLabLineConfig(standard, QStringLiteral("BAD"), 1, 1), 150080);
    EXPECT_EQ(LabLineConfigExistsFor(standard, QStringLiteral("BAD"), 1), 0);
    database.run(QStringLiteral("DROP TABLE LabLineConfig"));
    EXPECT_EQ(LabLineConfigExistsFor(standard, QStringLiteral("A"), 1), -1);
    EXPECT_EQ(SaveLabLineConfig(standard, QStringLiteral("A"), 1, 1), 150080);
}

// Faults: removed lines forgotten although one is still in the database, or tried although they have no row.
TEST_P(LinePersistence, keepsAllRemovedLinesUntilEveryDeletionWorks)
{
    EXPECT_EQ(DeleteRemovedLabLineConfigFromDatabase(), 0);
    expectBoxes({});
    database.run(
        QStringLiteral("INSERT INTO LabLineConfig (id, Name) VALUES (-1, 'N'), (1, 'A'), (2, 'BAD'), "
                       "(3, 'C')"));
    refuse(QStringLiteral("LabLineConfig"), QStringLiteral("BAD"));
    for (const int id : {-1, 1, 2})
        RemovedLabLineTable.push_back(
            {.id = id, .Configuration = {}, .Name = {}, .string1 = {}, .text1 = {}, .date1 = {}});
    EXPECT_EQ(DeleteRemovedLabLineConfigFromDatabase(), 0);
    expectBoxes({summary(deleteTitle, 1, 2)});
    EXPECT_EQ(RemovedLabLineTable.size(), 3U);
    accept(QStringLiteral("LabLineConfig"));
    EXPECT_EQ(DeleteRemovedLabLineConfigFromDatabase(), 0);
    expectBoxes({summary(deleteTitle, 0, 3)});
    EXPECT_TRUE(RemovedLabLineTable.empty());
    EXPECT_EQ(database.rows(QStringLiteral("SELECT id FROM LabLineConfig ORDER BY id")),
              (QStringList{QStringLiteral("-1"), QStringLiteral("3")}));
}

// Fault: a name that ends its literal, or that comes back changed.
TEST_P(LinePersistence, bringsEveryTextThere)
{
    for (const QString &name : hostileTexts())
        storeLine(0, name, name, 1, 1);
    EXPECT_EQ(SaveAllLabLineCfg(), 0);
    EXPECT_EQ(SaveAllLabLineCfg(), 0); // must find the rows of the first run
    const int count = static_cast<int>(hostileTexts().size());
    expectBoxes({summary(saveTitle, 0, count), summary(saveTitle, 0, count)});
    EXPECT_EQ(rows().size(), count);
    LabLineTable.clear();
    EXPECT_EQ(load(), 0);
    for (QString name : hostileTexts()) {
        int start = 0;
        EXPECT_GE(FindLabLineConfigIndex(name, name, 1, start, 1), 0) << qPrintable(name.left(40));
    }
}

// Faults: a known identifier replaced, another value changed, a line without a row given one.
TEST_P(LinePersistence, adoptsTheIdentifiersOfSavedLines)
{
    storeLine(0, standard, QStringLiteral("A"), 1, 1);
    storeLine(77, standard, QStringLiteral("B"), 1, 2);
    SaveAllLabLineCfg();
    messages.take();
    storeLine(-1, standard, QStringLiteral("C"), 1, 3);
    AdoptLabLineIds();
    EXPECT_EQ(LabLineTable[0].id, 1);
    EXPECT_EQ(LabLineTable[1].id, 77);
    EXPECT_EQ(LabLineTable[2].id, -1);
    expectBoxes({});
}

// Fault: an error outside the statements ending in silence or in an exception.
TEST_P(LinePersistence, reportsUnexpectedFailures)
{
    storeLine(0, standard, QStringLiteral("A"), 1, 1);
    RemovedLabLineTable.resize(1);
    QStringList prompts;
    const auto recorder = ui::setMessageBoxHandler([&](const QString &prompt, int, const QString &) {
        prompts.append(prompt);
        if (prompts.size() % 2 == 1)
            throw RuntimeError(errors::Overflow);
        return ui::answer::Ok;
    });
    EXPECT_EQ(SaveAllLabLineCfg(), 6);
    EXPECT_EQ(DeleteRemovedLabLineConfigFromDatabase(), 6);
    ui::setMessageBoxHandler(recorder);
    ASSERT_EQ(prompts.size(), 4);
    EXPECT_EQ(prompts[1],
              QStringLiteral("An unexpected error number 6\r\nOverflow\r\noccurred while saving the "
                             "Labeled Line\r\nconfiguration records."));
    EXPECT_EQ(prompts[3],
              QStringLiteral("An unexpected error number 6\r\nOverflow\r\noccurred while deleting "
                             "the removed\r\nLabeled Line configuration records."));
    EXPECT_EQ(RemovedLabLineTable.size(), 1U);
}

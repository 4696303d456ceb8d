#include "base/RuntimeError.h"
#include "db/codes.h"
#include "support/StorageFixture.h"

namespace varnow::test {

namespace {

using LinePersistence = StorageTest;

} // namespace

ON_EVERY_ENGINE(LinePersistence);

// Faults: Null taken for something else, another order, untrimmed names, spare columns mixed up, blank lines
// for rows that could not be read.
TEST_P(LinePersistence, LoadsEveryColumn)
{
    EXPECT_EQ(load(), 0);
    database.run("INSERT INTO LabLineConfig VALUES "
                 "(7, 'T ', ' PID ', 2, 1, 5, ' s ', ' t ', '2024-02-29 13:14:15'), "
                 "(8, 'S', NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    EXPECT_EQ(load(), 0);
    const auto expectLines = [this] {
        ASSERT_EQ(lines.size(), 2);
        const auto values = [](const Line &l) {
            return std::tuple(l.id, l.configuration, l.name, l.nameIndex, l.messageIndex, l.number1,
                              l.string1, l.text1, l.date1.toString(Qt::ISODate));
        };
        EXPECT_EQ(values(lines[0]), std::tuple(8, "S", "", 0, 0, 0, "", "", "1900-01-01T00:00:00Z"));
        EXPECT_EQ(values(lines[1]), std::tuple(7, "T", "PID", 2, 1, 5, "s", "t", "2024-02-29T13:14:15Z"));
    };
    expectLines();
    database.run("DELETE FROM LabLineConfig");
    EXPECT_EQ(load(), 0);
    expectLines(); // a load without rows leaves the table alone, as one that fails does
    expectMessages({noFieldRows, noFieldRows, noFieldRows});
    database.run("ALTER TABLE LabLineConfig RENAME TO elsewhere");
    EXPECT_EQ(load(), db::codes::MissingTable);
    expectLines();
    database.run("CREATE TABLE LabLineConfig AS SELECT * FROM elsewhere;"
                 "ALTER TABLE LabLineConfig DROP COLUMN number1;"
                 "ALTER TABLE LabLineConfig ADD COLUMN number1 bigint;"
                 "INSERT INTO LabLineConfig (id, Configuration, number1) VALUES (1, 'A', 1), (2, 'B', 1e10), "
                 "(3, 'C', 3)");
    EXPECT_EQ(load(), errors::Overflow);
    EXPECT_EQ(columnOf(lines, &Line::id), QList{1});
    expectMessages({});
}

// Faults: a row found by the id in memory, an id that changes, columns that the program does not own being
// overwritten, memory changed by the save, a row inserted with an identifier that is none.
TEST_P(LinePersistence, InsertsAndUpdatesByKey)
{
    database.run("INSERT INTO LabLineConfig VALUES (41, 'Standard', 'PID', 1, 1, 5, 's', 't', '2024-01-01')");
    storeLine(3, "Standard", "PID", 1, 8);
    storeLine(41, "Standard", "OBX", -2, -3);
    EXPECT_EQ(save(), 0);
    EXPECT_EQ(
        database.run("SELECT * FROM LabLineConfig ORDER BY id"),
        QStringList({"41|Standard|PID|1|8|5|s|t|2024-01-01", "42|Standard|OBX|-2|-3|NULL|NULL|NULL|NULL"}));
    EXPECT_EQ(columnOf(lines, &Line::id), (QList{3, 41}));
    run.takeMessages();
    for (const QString greatest : {"2147483647", "-2"}) {
        database.run("DELETE FROM LabLineConfig; INSERT INTO LabLineConfig (id) VALUES (" + greatest + ")");
        EXPECT_EQ(save(), 0);
        expectMessages({summary(linesSaved, 2, 0), nothingToSave});
        EXPECT_EQ(database.run("SELECT id FROM LabLineConfig"), QStringList(greatest));
    }
}

} // namespace varnow::test

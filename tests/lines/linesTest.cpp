// The lines in memory, and their way to the database and back.

#include "lines/modLabLineCfgDatabase.h"
#include "support/StoreFixture.h"

#include <limits>

using namespace varnow;
using namespace varnow::test;

namespace {

using Line = LabLineConfigRecord;

Line line(int id, const QString &configuration, const QString &name, int nameIndex, int msgIndex)
{
    return {id, configuration, name, nameIndex, msgIndex, 0, {}, {}, {}};
}

struct LineTable : testing::Test, StoreFixture
{
};

using LinePersistence = StoreTest;

} // namespace

ON_EVERY_ENGINE(LinePersistence);

// Fault: a search finding another line, for duplicates, for case and blanks that only one side has,
// for start indexes and directions. Each case is worked out by hand.
TEST_F(LineTable, searchesByKeyAndByName)
{
    LabLineTable.assign({line(0, "S", "A", 1, 0), line(1, "S", "A", 2, 0), line(2, "S", " A", 1, 0),
                         line(3, "s", "A", 1, 0), line(4, "S", "a", 1, 0), line(5, "S", "A", 1, 0)});
    const struct
    {
        QString configuration, name;
        int nameIndex, start, step, found, foundByName;
    } searches[] = {
        {"S", "A", 1, -2, 1, 0, 0},  {"S", "A", 1, 1, 1, 5, 2},   {"S", "A", 0, 1, 1, 1, 1},
        {"S", "A", 1, 4, -1, 0, 5},  {"S", "A", -1, 4, -1, 1, 5}, {" S", "A", 1, 0, 1, 0, -1},
        {"S", " A", 1, 0, 1, 2, 0},  {"S", "A ", 2, 0, 1, -1, 1}, {"s", "A", 0, 0, 1, 3, 3},
        {"S", "a", 1, 5, -1, 4, -1}, {"S", "A", 1, 7, 1, -1, -1}, {"T", "A", 1, 0, 1, -1, -1},
        {"S", "A", 3, 0, 1, -1, -1}, {"S", "", 0, 0, 1, -1, -1},  {"S", "A", 1, 7, -1, -1, -1},
    };
    for (const auto &[configuration, name, nameIndex, start, step, found, foundByName] : searches) {
        QString searched = configuration;
        int from = start;
        EXPECT_EQ(FindLabLineConfigIndex(searched, name, nameIndex, from, step), found) << start;
        EXPECT_EQ(searched, configuration.trimmed());
        EXPECT_EQ(from, std::max(start, 0));
        searched = name;
        EXPECT_EQ(FindLabLineConfigIndexByName(configuration, searched, nameIndex, from), foundByName)
            << start;
        EXPECT_EQ(searched, name.trimmed());
    }
}

// Faults: a store that moves a line, that loses the identifier needed to delete the row, or that leaves the
// line findable only under its old key.
TEST_F(LineTable, storesInPlaceOrAtTheEnd)
{
    LabLineTable.assign({line(1, "S", "PID", 3, 1), line(2, "S", "OBX", 1, 2), line(3, "T", "PID", 1, 1)});
    EXPECT_EQ(storeLine(0, " S ", "OBX", 1, 9), 0);
    EXPECT_EQ(storeLine(-1, "S", "obx", 1, 4), 0);
    EXPECT_EQ(storeLine(8, "T", "PID", 1, 5), 0);
    // Name index 0 takes the first PID whatever its name index, which is then overwritten.
    EXPECT_EQ(storeLine(0, "S", "PID", 0, 6), 0);
    EXPECT_EQ(storeLine(9, "S", "PID", 3, 7), 0);
    EXPECT_EQ(columnOf(LabLineTable, &Line::id), (QList{1, 2, 8, -1, 9}));
    EXPECT_EQ(columnOf(LabLineTable, &Line::MsgIndex), (QList{6, 9, 5, 4, 7}));
    EXPECT_EQ(columnOf(LabLineTable, &Line::NameIndex), (QList{0, 1, 1, 1, 3}));
    EXPECT_EQ(LabLineTable[1].Configuration, "S");
}

// Faults: a gap or another order after a removal, a removed line that is lost, numbers across configurations.
TEST_F(LineTable, removesAndRenumbers)
{
    LabLineTable.assign(
        {line(1, "S", "A", 1, 1), line(2, "T", "A", 1, 1), line(3, "S", "B", 1, 2), line(4, "S", "C", 1, 3)});
    QString configuration = " S ";
    EXPECT_EQ(RemoveLabLineConfigRecord(configuration, "B", 1), 0);
    EXPECT_EQ(RemoveLabLineConfigRecord(configuration, "B", 1), 150076);
    EXPECT_EQ(RemoveLabLineConfigRecordFromArray(3), 9);
    EXPECT_EQ(RemoveLabLineConfigRecordFromArray(-1), 9);
    EXPECT_EQ(RenumberLabLineMsgIndices(configuration), 0);
    EXPECT_EQ(columnOf(LabLineTable, &Line::id), (QList{1, 2, 4}));
    EXPECT_EQ(columnOf(LabLineTable, &Line::MsgIndex), (QList{1, 1, 2}));
    while (!LabLineTable.isEmpty())
        ASSERT_EQ(RemoveLabLineConfigRecordFromArray(0), 0);
    EXPECT_EQ(columnOf(RemovedLabLineTable, &Line::id), (QList{3, 1, 2, 4}));
}

TEST_F(LineTable, givesTheNextMessageIndexOfAConfiguration)
{
    constexpr int greatest = std::numeric_limits<int>::max();
    EXPECT_EQ(GetNextMsgIndexNumber("S"), 1);
    for (const auto &[msgIndex, next] : {std::pair{-5, 1}, {7, 8}, {3, 8}}) {
        LabLineTable.append(line(0, "S", "A", 1, msgIndex));
        LabLineTable.append(line(0, "T", "A", 1, 90));
        EXPECT_EQ(GetNextMsgIndexNumber("S"), next);
    }
    LabLineTable.append(line(0, "S", "A", 1, greatest));
    EXPECT_GT(GetNextMsgIndexNumber("S"), 0);
}

// Faults: Null taken for something else, another order, untrimmed names, spare columns mixed up.
TEST_P(LinePersistence, loadsEveryColumn)
{
    EXPECT_EQ(GetLabLineConfig(result), 0);
    database.run("INSERT INTO LabLineConfig VALUES "
                 "(7, 'T ', ' PID ', 2, 1, 5, ' s ', ' t ', '2024-02-29 13:14:15'), "
                 "(8, 'S', NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    EXPECT_EQ(GetLabLineConfig(result), 0);
    const auto expectLines = [] {
        ASSERT_EQ(LabLineTable.size(), 2);
        const auto values = [](const Line &l) {
            return std::tuple(l.id, l.Configuration, l.Name, l.NameIndex, l.MsgIndex, l.number1, l.string1,
                              l.text1, l.date1.toString(Qt::ISODate));
        };
        EXPECT_EQ(values(LabLineTable[0]), std::tuple(8, "S", "", 0, 0, 0, "", "", "1900-01-01T00:00:00Z"));
        EXPECT_EQ(values(LabLineTable[1]),
                  std::tuple(7, "T", "PID", 2, 1, 5, "s", "t", "2024-02-29T13:14:15Z"));
    };
    expectLines();
    database.run("DELETE FROM LabLineConfig");
    EXPECT_EQ(GetLabLineConfig(result), 0);
    expectLines(); // a load without rows leaves the table alone, as one that fails does
    database.run("DROP TABLE LabLineConfig");
    EXPECT_EQ(GetLabLineConfig(result), -2147217865);
    expectLines();
    expectBoxes({});
}

// Faults: a row found by the id in memory, an id that changes, columns that the program does not own being
// overwritten, memory changed by the save, a failed look-up taken for a row that is missing.
TEST_P(LinePersistence, insertsAndUpdatesByKey)
{
    database.run("INSERT INTO LabLineConfig VALUES (41, 'Standard', 'PID', 1, 1, 5, 's', 't', '2024-01-01')");
    storeLine(3, "Standard", "PID", 1, 8);
    storeLine(41, "Standard", "OBX", -2, -3);
    EXPECT_EQ(SaveAllLabLineCfg(), 0);
    EXPECT_EQ(
        database.run("SELECT * FROM LabLineConfig ORDER BY id"),
        QStringList({"41|Standard|PID|1|8|5|s|t|2024-01-01", "42|Standard|OBX|-2|-3|NULL|NULL|NULL|NULL"}));
    EXPECT_EQ(columnOf(LabLineTable, &Line::id), (QList{3, 41}));
    EXPECT_EQ(LabLineConfigExistsFor("Standard", "OBX", 1), 0);
    database.run("DROP TABLE LabLineConfig");
    EXPECT_EQ(LabLineConfigExistsFor("Standard", "OBX", -2), -1);
}

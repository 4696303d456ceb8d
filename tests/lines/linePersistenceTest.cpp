#include "lines/modLabLineCfgDatabase.h"
#include "support/StoreFixture.h"

using namespace varnow;
using namespace varnow::test;

namespace {

class LinePersistence : public StoreTest
{
protected:
    static int load()
    {
        auto recordset = std::make_shared<db::Recordset>();
        return GetLabLineConfig(recordset);
    }

    /// A line's values in the order of the database columns.
    static QString shown(const LabLineConfigRecord &line)
    {
        return QStringLiteral("%1|%2|%3|%4|%5|%6|%7|%8|%9")
            .arg(QString::number(line.id), line.Configuration, line.Name, QString::number(line.NameIndex),
                 QString::number(line.MsgIndex), QString::number(line.number1), line.string1, line.text1,
                 line.date1.toString("yyyy-MM-dd hh:mm:ss"));
    }
};

} // namespace

ON_EVERY_ENGINE(LinePersistence);

// Faults: Null taken for something else, another order, untrimmed names, spare columns mixed up.
TEST_P(LinePersistence, loadsEveryColumn)
{
    EXPECT_EQ(load(), 0);
    database.run("INSERT INTO LabLineConfig VALUES "
                 "(7, 'T ', ' PID ', 2, 1, 5, ' s ', ' t ', '2024-02-29 13:14:15'), "
                 "(8, 'S', NULL, NULL, NULL, NULL, NULL, NULL, NULL)");
    EXPECT_EQ(load(), 0);
    ASSERT_EQ(LabLineTable.size(), 2);
    EXPECT_EQ(shown(LabLineTable[0]), "8|S||0|0|0|||1900-01-01 00:00:00");
    EXPECT_EQ(shown(LabLineTable[1]), "7|T|PID|2|1|5|s|t|2024-02-29 13:14:15");

    database.run("DELETE FROM LabLineConfig");
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(LabLineTable.size(), 2) << "a load without rows must leave the table alone";
    database.run("DROP TABLE LabLineConfig");
    EXPECT_EQ(load(), -2147217865);
    EXPECT_EQ(LabLineTable.size(), 2);
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
    EXPECT_EQ(columnOf(LabLineTable, &LabLineConfigRecord::id), (QList{3, 41}));
    EXPECT_EQ(LabLineConfigExistsFor("Standard", "OBX", 1), 0);
    database.run("DROP TABLE LabLineConfig");
    EXPECT_EQ(LabLineConfigExistsFor("Standard", "OBX", -2), -1);
}

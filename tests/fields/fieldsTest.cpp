// The fields in memory, and their way to the database and back.

#include "fields/modLabLineFldCfgDatabase.h"
#include "support/StoreFixture.h"

#include <limits>

using namespace varnow;
using namespace varnow::test;

namespace {

struct FieldTable : testing::Test, StoreFixture
{
    FieldTable()
    {
        for (const int id : {1, 2, 3})
            storeField(field("S", "F" + QString::number(id), 2 * id, id));
    }
};

struct FieldPersistence : StoreTest
{
    void addRows(const QString &values)
    {
        database.run("INSERT INTO LabLineFieldConfig (id, Configuration, Name, Line, MsgIndex, Position, "
                     "ValidationString) VALUES " +
                     values);
    }

    void expectRows(const QStringList &rows)
    {
        EXPECT_EQ(database.run("SELECT * FROM LabLineFieldConfig ORDER BY id"), rows);
    }
};

} // namespace

ON_EVERY_ENGINE(FieldPersistence);

// Fault: the caller's texts trimmed before there is a record to compare them with.
TEST_F(FieldTable, trimsTheKeyInPlaceOnceItHasRecords)
{
    emptyStores();
    QString configuration = " x ";
    QString name = " x ";
    for (const QString expected : {" x  x ", "xx"}) {
        ASSERT_EQ(StoreDataInLabLineFldCfgArray(configuration, name, "PID", 1, 1, 0, 0, 1, 0, {}, {}, {}, {},
                                                0, {}, 0, 0),
                  0);
        EXPECT_EQ(configuration + name, expected);
        EXPECT_EQ(LabLineFldTable.size(), 1);
    }
}

// Faults: the wrong one of two candidates removed, a look-up by name with nothing to look for, a removed
// field that is lost.
TEST_F(FieldTable, removesByIdentifierElseByName)
{
    const auto remove = [](int id, QString configuration, QString name) {
        const int result = RemoveLabLineFldCfgRecord(id, configuration, name, 0);
        EXPECT_EQ(configuration, id == 1 ? " S " : "S") << "trimmed for a look-up by name alone";
        return result;
    };
    EXPECT_EQ(remove(1, " S ", " F2 "), 0);
    EXPECT_EQ(remove(99, " S ", " F2 "), 0);
    EXPECT_EQ(remove(-1, " S ", " F2 "), 9);
    EXPECT_EQ(remove(-1, " S ", "  "), 9);
    EXPECT_EQ(columnOf(LabLineFldTable, &LabLineFldCfgRecord::id), QList{3});
    EXPECT_EQ(AddRecordToRemovedFields(1), 9);
    EXPECT_EQ(RemoveLabLineFldCfgRecordFromArray(1), 9);
    EXPECT_EQ(remove(3, "S", ""), 0);
    EXPECT_EQ(remove(3, "S", "F3"), 9);
    EXPECT_EQ(columnOf(RemovedLabLineFldTable, &LabLineFldCfgRecord::id), (QList{1, 2, 3}));
}

TEST_F(FieldTable, givesTheNextPositionOfALine)
{
    storeField(field("T", "F4", 9));
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 0), 7);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", -1), 7);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 1), 1);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "pid", 0), 1);
    storeField(field("S", "F5", std::numeric_limits<int>::max()));
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 0), 0);
}

// Faults: another order, Null taken for something else, PadChar trimmed, a row of the same key kept twice,
// columns swapped in a statement, a row found by its id in memory, a field that moved to another line taken
// for the old one, a field without a name written.
TEST_P(FieldPersistence, loadsAndSavesEveryColumn)
{
    EXPECT_EQ(GetAllLabLineFieldsConfig(result), 0);
    expectBoxes({{"No configuration data returned from database."}});
    addRows("(1, ' S ', ' B ', ' PID ', 1, 7, NULL), (3, 'S', 'B', 'OBX', 2, 1, '  ')");
    database.run("INSERT INTO LabLineFieldConfig VALUES (2, 'S', ' A ', 3, ' PID ', 4, 1, 6, 5, ' String ', "
                 "' look ', ' f ', ' c ', ' 12 ', 7, ' ', -1)");
    EXPECT_EQ(GetAllLabLineFieldsConfig(result), 0);
    EXPECT_EQ(columnOf(LabLineFldTable, &LabLineFldCfgRecord::id), (QList{2, 3}));
    const QString first = "1|S|A|3|PID|4|1|6|5|String|look|f|c|12|7| |-1";
    const QString second = "2|S|B|0|OBX|0|2|1|0|||||0|0||0";
    database.run("DELETE FROM LabLineFieldConfig");
    for (int insertThenUpdate = 0; insertThenUpdate < 2; ++insertThenUpdate) {
        database.run("UPDATE LabLineFieldConfig SET MsgIndex = 0, Position = 0, Length = 0, DataType = '', "
                     "LookupString = '', FormatString = '', Constant = '', ValidationString = '', "
                     "FixedLength = 0, PadChar = '', PadDirection = 0");
        EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
        expectRows({first, second});
    }

    LabLineFldCfgRecord moved = LabLineFldTable[1];
    moved.Line = "NTE";
    storeField(moved);
    storeField(field("S", {}, 1));
    messages.take();
    EXPECT_EQ(SaveAllLabLineFldsCfg(), 0);
    expectBoxes({summary(fieldsSaved, 0, 3)});
    expectRows({first, second, "3|S|B|0|NTE|0|2|1|0|||||0|0||0"});
}

// Faults: a bad row taken for a good one, or the rows before it forgotten.
TEST_P(FieldPersistence, stopsTheLoadAtABadRow)
{
    // the change of the second row, the error, the fields loaded before it: Null sorts before numbers
    const std::tuple<const char *, int, int> badRows[] = {{"Configuration = NULL", 94, 1},
                                                          {"Name = NULL", 94, 1},
                                                          {"Line = NULL", 94, 1},
                                                          {"MsgIndex = NULL", 94, 0},
                                                          {"Position = NULL", 94, 0},
                                                          {"ValidationString = 'abc'", 13, 1},
                                                          {"ValidationString = '3000000000'", 6, 1}};
    for (const auto &[change, error, loadedBefore] : badRows) {
        emptyStores();
        database.run("DELETE FROM LabLineFieldConfig");
        addRows("(1, 'S', 'A', 'PID', -1, 1, NULL), (2, 'S', 'B', 'PID', -1, 2, NULL)");
        database.run(QStringLiteral("UPDATE LabLineFieldConfig SET %1 WHERE id = 2").arg(change));
        EXPECT_EQ(GetAllLabLineFieldsConfig(result), error) << change;
        EXPECT_EQ(LabLineFldTable.size(), loadedBefore) << change;
    }
    database.run("DROP TABLE LabLineFieldConfig");
    EXPECT_EQ(GetAllLabLineFieldsConfig(result), 0);
    expectBoxes({{"There was a problem retrieving the Line Field\r\n"
                  "configuration records.  Return code: -2147217865"}});
}

// Faults: fields loaded although the lines could not be, lines of an earlier load doubled, fields lost.
TEST_P(FieldPersistence, loadsBothStoresAgainAndAgain)
{
    database.run("INSERT INTO LabLineConfig (id, Configuration, Name) VALUES (1, 'S', 'PID')");
    addRows("(1, 'S', 'A', 'PID', 1, 1, NULL)");
    EXPECT_EQ(LoadAllLabLineData(), 0);
    database.run("UPDATE LabLineFieldConfig SET Name = 'B'");
    EXPECT_EQ(LoadAllLabLineData(), 0);
    EXPECT_EQ(LabLineTable.size(), 1);
    EXPECT_EQ(LabLineFldTable.size(), 2) << "a reload keeps what the database no longer has";
    emptyStores();
    database.run("DROP TABLE LabLineConfig");
    EXPECT_EQ(LoadAllLabLineData(), -2147217865);
    EXPECT_TRUE(LabLineFldTable.isEmpty());
    expectBoxes({});
}

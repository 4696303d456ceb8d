#include "support/StoreFixture.h"

#include <limits>

using namespace varnow;
using namespace varnow::test;

namespace {

using Field = LabLineFldCfgRecord;

/// A field of line PID(1).
Field field(int id, const QString &configuration, int msgIndex, int position)
{
    const QString name = "F" + QString::number(id);
    return {id, configuration, name, 0, "PID", 1, position, 0, {}, {}, {}, {}, msgIndex, 0, {}, 0, 0};
}

class FieldTable : public testing::Test, public StoreFixture
{
};

} // namespace

// Fault: the caller's texts trimmed before there is a record to compare them with.
TEST_F(FieldTable, trimsTheKeyInPlaceOnceItHasRecords)
{
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
    QString configuration = " S ";
    QString name = " F2 ";
    QString empty = "  ";
    EXPECT_EQ(RemoveLabLineFldCfgRecord(1, configuration, name, 0), 9);
    for (const Field &record : {field(1, "S", 1, 1), field(2, "S", 1, 2), field(3, "S", 1, 3)})
        storeField(record);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(1, configuration, name, 0), 0);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(99, configuration, name, 0), 0);
    EXPECT_EQ(configuration, "S");
    EXPECT_EQ(RemoveLabLineFldCfgRecord(-1, configuration, name, 0), 9);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(-1, configuration, empty, 0), 9);
    EXPECT_EQ(columnOf(LabLineFldTable, &Field::id), std::vector{3});
    EXPECT_EQ(AddRecordToRemovedFields(1), 9);
    EXPECT_EQ(RemoveLabLineFldCfgRecordFromArray(1), 9);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(3, configuration, name, 0), 0);
    EXPECT_EQ(columnOf(RemovedLabLineFldTable, &Field::id), (std::vector{1, 2, 3}));
}

TEST_F(FieldTable, givesTheNextPositionOfALine)
{
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 1), 1);
    for (const Field &record : {field(1, "S", 1, 1), field(2, "S", 1, 5), field(3, "T", 1, 7)})
        storeField(record);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 1), 6);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", -1), 6);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 0), 1);
    EXPECT_EQ(GetNextFieldPositionForLine("S", "pid", 1), 1);
    storeField(field(4, "S", 1, std::numeric_limits<int>::max()));
    EXPECT_EQ(GetNextFieldPositionForLine("S", "PID", 1), 0);
}

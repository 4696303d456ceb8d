#include "support/StoreFixture.h"

#include <limits>

using namespace varnow;
using namespace varnow::test;

namespace {

class FieldTable : public testing::Test, public StoreFixture
{
protected:
    FieldTable()
    {
        for (const int id : {1, 2, 3})
            storeField(field("S", "F" + QString::number(id), 2 * id, id));
    }
};

} // namespace

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

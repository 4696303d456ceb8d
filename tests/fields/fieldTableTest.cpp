#include "support/StoreFixture.h"

#include <limits>

using namespace varnow;
using namespace varnow::test;

namespace {

using Field = LabLineFldCfgRecord;

Field field(int id, const char *configuration, const char *name, int msgIndex, int position)
{
    Field record;
    record.id = id;
    record.Configuration = QString::fromLatin1(configuration);
    record.Name = QString::fromLatin1(name);
    record.Line = QStringLiteral("PID");
    record.LineIndex = 1;
    record.MsgIndex = msgIndex;
    record.Position = position;
    return record;
}

std::vector<int> ids()
{
    std::vector<int> result;
    for (const Field &record : LabLineFldTable)
        result.push_back(record.id);
    return result;
}

struct Insertion
{
    const char *fault;
    std::vector<Field> before; // stored in this order
    Field added;
    std::vector<int> after;
};

class FieldInsertion : public testing::TestWithParam<Insertion>, public StoreFixture
{
};

class FieldTable : public testing::Test, public StoreFixture
{
};

} // namespace

TEST_P(FieldInsertion, findsItsPlace)
{
    for (const Field &record : GetParam().before)
        ASSERT_EQ(storeField(record), 0);
    ASSERT_EQ(storeField(GetParam().added), 0);
    EXPECT_EQ(ids(), GetParam().after) << GetParam().fault;
}

INSTANTIATE_TEST_SUITE_P(Places, FieldInsertion,
                         testing::Values(Insertion{"not between its neighbours",
                                                   {field(1, "S", "A", 1, 1), field(2, "S", "B", 2, 1)},
                                                   field(3, "S", "C", 1, 2),
                                                   {1, 3, 2}},
                                         Insertion{"new configuration not at the top",
                                                   {field(1, "S", "A", 1, 1)},
                                                   field(2, "T", "A", 1, 1),
                                                   {2, 1}},
                                         Insertion{"equal place not before the older field",
                                                   {field(1, "S", "A", 1, 1), field(2, "S", "B", 1, 2)},
                                                   field(3, "S", "C", 1, 2),
                                                   {1, 3, 2}},
                                         Insertion{"below the top of the table not before the first field",
                                                   {field(1, "S", "A", 1, 5), field(2, "S", "B", 1, 6),
                                                    field(3, "T", "A", 9, 9)},
                                                   field(4, "S", "C", 1, 1),
                                                   {3, 4, 1, 2}},
                                         Insertion{"at the top of the table not behind the first field",
                                                   {field(1, "S", "A", 1, 5), field(2, "S", "B", 1, 6)},
                                                   field(3, "S", "C", 1, 1),
                                                   {1, 3, 2}},
                                         Insertion{"a changed field moved, or its identifier lost",
                                                   {field(1, "S", "A", 1, 1), field(2, "S", "B", 2, 1)},
                                                   field(-1, "S", "A", 9, 9),
                                                   {1, 2}}));

// Faults: texts stored untrimmed, PadChar trimmed, the caller's texts trimmed before there is a record to
// compare them with, arguments of the same type swapped.
TEST_F(FieldTable, keepsEveryValue)
{
    const QString blankPadded = QStringLiteral(" x ");
    QString configuration = blankPadded;
    QString name = blankPadded;
    for (const QString &expected : {blankPadded, QStringLiteral("x")}) {
        ASSERT_EQ(StoreDataInLabLineFldCfgArray(configuration, name, QStringLiteral(" l "), 1, 2, 3, 4, 5, 6,
                                                QStringLiteral(" d "), QStringLiteral(" u "),
                                                QStringLiteral(" f "), QStringLiteral(" c "), 7,
                                                QStringLiteral(" "), 8, 9),
                  0);
        EXPECT_EQ(configuration, expected);
        EXPECT_EQ(name, expected);
    }
    ASSERT_EQ(LabLineFldTable.size(), 1);
    const Field &kept = LabLineFldTable[0];
    EXPECT_EQ((QStringList{kept.Configuration, kept.Name, kept.Line, kept.DataType, kept.LookupString,
                           kept.FormatString, kept.Constant, kept.PadChar})
                  .join(u'|'),
              QStringLiteral("x|x|l|d|u|f|c| "));
    EXPECT_EQ((std::vector{kept.Position, kept.MsgIndex, kept.NameIndex, kept.LineIndex, kept.id, kept.Length,
                           kept.FixedLength, kept.PadDirection, kept.FieldPosition}),
              (std::vector{1, 2, 3, 4, 5, 6, 7, 8, 9}));
}

// Faults: the wrong one of two candidates removed, a look-up by name with nothing to look for, a removed
// field that is lost.
TEST_F(FieldTable, removesByIdentifierElseByName)
{
    QString configuration = QStringLiteral(" S ");
    QString name = QStringLiteral(" B ");
    QString empty = QStringLiteral("  ");
    EXPECT_EQ(RemoveLabLineFldCfgRecord(1, configuration, name, 0), 9);
    for (const Field &record : {field(1, "S", "A", 1, 1), field(2, "S", "B", 1, 2), field(3, "S", "C", 1, 3)})
        storeField(record);
    EXPECT_EQ(FindLabLineFldConfigIndexByID(3), 2);
    EXPECT_EQ(FindLabLineFldConfigIndexByID(4), -1);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(1, configuration, name, 0), 0);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(99, configuration, name, 0), 0);
    EXPECT_EQ(configuration, QStringLiteral("S"));
    EXPECT_EQ(RemoveLabLineFldCfgRecord(-1, configuration, name, 0), 9);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(-1, configuration, empty, 0), 9);
    EXPECT_EQ(ids(), std::vector{3});
    EXPECT_EQ(AddRecordToRemovedFields(1), 9);
    EXPECT_EQ(RemoveLabLineFldCfgRecord(3, configuration, name, 0), 0);
    EXPECT_TRUE(LabLineFldTable.isEmpty());
    ASSERT_EQ(RemovedLabLineFldTable.size(), 3U);
    EXPECT_EQ(RemovedLabLineFldTable[1].id, 2);
    EXPECT_EQ(SyncLabLineFldMsgIndices(), 0);
}

TEST_F(FieldTable, givesTheNextPositionOfALine)
{
    const QString configuration = QStringLiteral("S");
    const QString line = QStringLiteral("PID");
    EXPECT_EQ(GetNextFieldPositionForLine(configuration, line, 1), 1);
    for (const Field &record : {field(1, "S", "A", 1, 1), field(2, "S", "B", 1, 5), field(3, "T", "C", 1, 7)})
        storeField(record);
    EXPECT_EQ(GetNextFieldPositionForLine(configuration, line, 1), 6);
    EXPECT_EQ(GetNextFieldPositionForLine(configuration, line, -1), 6);
    EXPECT_EQ(GetNextFieldPositionForLine(configuration, line, 0), 1);
    EXPECT_EQ(GetNextFieldPositionForLine(configuration, QStringLiteral("pid"), 1), 1);
    storeField(field(4, "S", "D", 1, std::numeric_limits<int>::max()));
    EXPECT_EQ(GetNextFieldPositionForLine(configuration, line, 1), 0);
}

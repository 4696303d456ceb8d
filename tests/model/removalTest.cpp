// Faults to catch: a line removed from under its fields, the wrong record removed, lines or fields left with
// their old message indexes, those of another configuration changed.

#include "model/removal.h"

#include "support/ModelFixture.h"

namespace varnow::test {

namespace {

struct RemovalOfRecords : testing::Test, ModelFixture
{
    RemovalOfRecords()
    {
        storeLine(1, "S", "PID", 0, 1);
        storeLine(2, "S", "NTE", 1, 2);
        storeLine(3, "S", "NTE", 2, 3);
        storeLine(4, "T", "NTE", 2, 3);
        Field note = field("S", "Note", 1);
        note.line = "NTE";
        note.lineIndex = 2;
        note.messageIndex = 3;
        fields.store(note);
    }
};

} // namespace

TEST_F(RemovalOfRecords, SparesLinesThatHaveFields)
{
    storeLine(5, "S", "NTE", 0, 4);
    const std::pair<RecordKey, LineRemoval> cases[] = {
        {{"S", "NTE", 2}, LineRemoval::HasFields},  {{"S", "NTE", 0}, LineRemoval::HasFields},
        {{"S", "NTE", -1}, LineRemoval::HasFields}, {{"S", "nte", 2}, LineRemoval::NotFound},
        {{"T", "NTE", 0}, LineRemoval::NotFound},
    };
    for (const auto &[key, expected] : cases)
        EXPECT_EQ(removeLine(model, key), expected) << qPrintable(key.name) << key.nameIndex;
    EXPECT_EQ(lines.size(), 5);
}

TEST_F(RemovalOfRecords, RenumbersLinesAndTheirFields)
{
    EXPECT_EQ(removeLine(model, {"S", "NTE", 1}), LineRemoval::Done);
    EXPECT_EQ(columnOf(lines, &Line::messageIndex), QList<int>({1, 2, 3}));
    EXPECT_EQ(columnOf(fields, &Field::messageIndex), QList<int>({2}));
}

TEST_F(RemovalOfRecords, TakesTheFieldOfTheWholeKey)
{
    for (const RecordKey &none : {RecordKey{"S", "Note", 1}, {"S", "", 0}, {"", "Note", 0}, {"T", "Note", 0}})
        EXPECT_FALSE(removeField(model, none));
    EXPECT_TRUE(removeField(model, {"S", "Note", 0}));
    EXPECT_TRUE(fields.isEmpty());
}

} // namespace varnow::test

#include "support/ModelFixture.h"
#include "support/errorOf.h"

#include <limits>

namespace varnow::test {

namespace {

struct FieldTableTest : testing::Test, ModelFixture
{
    FieldTableTest()
    {
        for (const int id : {1, 2, 3})
            fields.store(field("S", "F" + QString::number(id), 2 * id, id));
    }
};

} // namespace

// Faults: a field kept twice because of blanks, one that moves, one that loses its identifier or takes it to
// another line, whose removal then deletes the old row, a pad character trimmed or
// another text not.
TEST_F(FieldTableTest, StoresTrimmedTexts)
{
    Field padded = field(" S ", " F2 ", 9);
    padded.line = " PID ";
    for (QString *text : {&padded.dataType, &padded.lookup, &padded.format, &padded.constant})
        *text = " x ";
    padded.padCharacter = " ";
    fields.store(padded);
    EXPECT_EQ(columnOf(fields, &Field::position), (QList{2, 9, 6}));
    const Field &stored = fields[1];
    EXPECT_EQ(stored.id, 2);
    EXPECT_EQ((QStringList{stored.configuration, stored.name, stored.line, stored.dataType, stored.lookup,
                           stored.format, stored.constant, stored.padCharacter}),
              (QStringList{"S", "F2", "PID", "x", "x", "x", "x", " "}));
    const std::tuple<QString, QString, int, int> searches[] = {
        {" S ", "F2", 0, -1}, {"S", "F2", 0, 1},  {"S", "F3", 0, 2},  {"S", "f3", 0, -1},
        {"s", "F3", 0, -1},   {"S", "F3", 1, -1}, {"S", "  ", 0, -1},
    };
    for (const auto &[configuration, name, nameIndex, found] : searches)
        EXPECT_EQ(fields.find(configuration, name, nameIndex), found) << qPrintable(name) << nameIndex;
    padded.lineIndex = 1;
    fields.store(padded);
    EXPECT_EQ(columnOf(fields, &Field::id), (QList{1, -1, 3}));
}

// Faults: the wrong one of two candidates removed, a removed field that is lost, one that is none.
TEST_F(FieldTableTest, KeepsWhatItRemoves)
{
    fields.remove(1);
    for (const int outside : {-1, 2})
        EXPECT_EQ(errorOf([&] { fields.remove(outside); }), errors::SubscriptOutOfRange);
    EXPECT_EQ(columnOf(fields, &Field::id), (QList{1, 3}));
    fields.remove(1);
    fields.remove(0);
    EXPECT_TRUE(fields.isEmpty());
    EXPECT_EQ(columnOf(fields.removed(), &Field::id), (QList{2, 3, 1}));
}

TEST_F(FieldTableTest, GivesTheNextPositionOfALine)
{
    fields.store(field("T", "F4", 9));
    EXPECT_EQ(fields.nextPosition("S", "PID", 0), 7);
    EXPECT_EQ(fields.nextPosition("S", "PID", -1), 7);
    EXPECT_EQ(fields.nextPosition("S", "PID", 1), 1);
    EXPECT_EQ(fields.nextPosition("S", "pid", 0), 1);
    fields.store(field("S", "F5", std::numeric_limits<int>::max()));
    EXPECT_EQ(fields.nextPosition("S", "PID", 0), 0);
}

} // namespace varnow::test

#include "support/ModelFixture.h"
#include "support/errorOf.h"

#include <limits>

namespace varnow::test {

namespace {

struct LineTableTest : testing::Test, ModelFixture
{
    void append(const std::vector<Line> &all)
    {
        for (const Line &each : all)
            lines.appendLoaded(each);
    }
};

} // namespace

// Fault: a search issue another line, for duplicates, for case and blanks that the line has not, for an
// index that only a click may leave open, for a line that has taken the place of a removed one. Each case is
// worked out by hand.
TEST_F(LineTableTest, FindsTheFirstLineOfAKeyOrName)
{
    append({line(0, "S", "A", 1, 0), line(1, "S", "A", 2, 0), line(2, "S", "A", 1, 0),
            line(3, "s", "A", 1, 0), line(4, "S", "a", 1, 0), line(5, "S", "A", 1, 0),
            line(6, "S", "A", 0, 0)});
    const std::tuple<QString, QString, int, int, int> searches[] = {
        {"S", "A", 1, 0, 0},   {"S", "A", 2, 1, 1},   {"S", "A", 0, 6, 0},    {"S", "A", -1, -1, 0},
        {"s", "A", 0, -1, 3},  {"S", "a", 1, 4, 4},   {" S", "A", 1, -1, -1}, {"S", " A", 1, -1, -1},
        {"T", "A", 1, -1, -1}, {"S", "A", 3, -1, -1}, {"S", "", 0, -1, -1},   {"S", "A ", 0, -1, -1},
    };
    for (const auto &[configuration, name, nameIndex, found, named] : searches) {
        EXPECT_EQ(lines.find(configuration, name, nameIndex), found) << qPrintable(name) << nameIndex;
        EXPECT_EQ(lines.findNamed(configuration, name, nameIndex), named) << qPrintable(name) << nameIndex;
    }
    lines.remove(0);
    EXPECT_EQ(lines.find("S", "A", 1), 1);
    EXPECT_EQ(lines.findNamed("S", "A", 0), 0);
    lines.remove(1);
    EXPECT_EQ(lines.find("S", "A", 1), 3);
}

// Faults: a store that moves a line or takes the place of another index, that loses the identifier needed to
// delete the row, or that leaves the line findable only under its old key.
TEST_F(LineTableTest, StoresInPlaceOrAtTheEnd)
{
    append({line(1, "S", "PID", 3, 1), line(2, "S", "OBX", 1, 2), line(3, "T", "PID", 1, 1)});
    storeLine(0, " S ", " OBX ", 1, 9);
    storeLine(-1, "S", "obx", 1, 4);
    storeLine(8, "T", "PID", 1, 5);
    storeLine(0, "S", "PID", 0, 6);
    storeLine(9, "S", "PID", 3, 7);
    EXPECT_EQ(columnOf(lines, &Line::id), (QList{9, 2, 8, -1, 0}));
    EXPECT_EQ(columnOf(lines, &Line::messageIndex), (QList{7, 9, 5, 4, 6}));
    EXPECT_EQ(columnOf(lines, &Line::nameIndex), (QList{3, 1, 1, 1, 0}));
    EXPECT_EQ(lines[1].configuration + lines[1].name, "SOBX");
    fields.store(field("S", "of PID(0)", 1));
    model.copyMessageIndexesToFields();
    EXPECT_EQ(fields[0].messageIndex, 6);
}

// Faults: a gap or another order after a removal, a removed line that is lost, numbers across configurations,
// an index outside the table that reads or removes something.
TEST_F(LineTableTest, RemovesAndRenumbers)
{
    append(
        {line(1, "S", "A", 1, 1), line(2, "T", "A", 1, 1), line(3, "S", "B", 1, 2), line(4, "S", "C", 1, 3)});
    lines.remove(lines.find("S", "B", 1));
    EXPECT_EQ(lines.find("S", "B", 1), -1);
    lines.renumber("S");
    EXPECT_EQ(columnOf(lines, &Line::messageIndex), (QList{1, 1, 2}));
    const auto expectNothingOutside = [this] {
        for (const int outside : {-1, lines.size()}) {
            const std::function<void()> uses[] = {[&] { lines[outside]; }, [&] { lines.remove(outside); },
                                                  [&] { lines.restore(outside, line(9, "S", "A", 1, 1)); }};
            for (const auto &use : uses)
                EXPECT_EQ(errorOf(use), errors::SubscriptOutOfRange) << outside;
        }
    };
    expectNothingOutside();
    EXPECT_EQ(columnOf(lines, &Line::id), (QList{1, 2, 4}));
    while (!lines.isEmpty())
        lines.remove(0);
    expectNothingOutside();
    EXPECT_EQ(columnOf(lines.removed(), &Line::id), (QList{3, 1, 2, 4}));
}

TEST_F(LineTableTest, GivesTheNextMessageIndexOfAConfiguration)
{
    constexpr int greatest = std::numeric_limits<int>::max();
    EXPECT_EQ(lines.nextMessageIndex("S"), 1);
    for (const auto &[messageIndex, next] : {std::pair{-5, 1}, {7, 8}, {3, 8}}) {
        lines.appendLoaded(line(0, "S", "A", 1, messageIndex));
        lines.appendLoaded(line(0, "T", "A", 1, 90));
        EXPECT_EQ(lines.nextMessageIndex("S"), next);
    }
    lines.appendLoaded(line(0, "S", "A", 1, greatest));
    EXPECT_EQ(lines.nextMessageIndex("S"), greatest);
}

} // namespace varnow::test

// Faults to catch: a node at another place than adding the lines one by one gives, a hidden line that counts,
// a place that does not follow from the node.

#include "model/TreeOrder.h"

#include "support/ModelFixture.h"

#include <algorithm>
#include <random>

namespace varnow::test {

namespace {

/// The message indexes as the tree shows them, each inserted by a walk over those added before.
std::vector<int> walk(const std::vector<int> &messageIndexes)
{
    std::vector<int> added;
    std::vector<int> shown;
    for (const int messageIndex : messageIndexes) {
        if (std::ranges::find(added, messageIndex) != added.end())
            continue;
        auto place = shown.end();
        for (const int before : added) {
            if (before > messageIndex)
                break;
            place = std::next(std::ranges::find(shown, before));
        }
        shown.insert(place, messageIndex);
        added.push_back(messageIndex);
    }
    return shown;
}

} // namespace

TEST(TreeOrder, IsThatOfAWalkOverTheNodes)
{
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::vector<Line> lines;
        std::vector<int> messageIndexes;
        for (int count = static_cast<int>(random() % 12); count > 0; --count) {
            messageIndexes.push_back(static_cast<int>(random() % 15) - 2);
            lines.push_back(line(0, "S", "L", count, messageIndexes.back()));
        }
        std::vector<const Line *> pointers;
        for (const Line &each : lines)
            pointers.push_back(&each);
        const TreeOrder order(pointers);
        std::vector<int> shown;
        for (const Line *each : order.lines()) {
            EXPECT_EQ(order.lineAt(each->messageIndex), each);
            EXPECT_EQ(order.placeOf(*each), (TreePlace{static_cast<int>(shown.size()), -1}));
            shown.push_back(each->messageIndex);
        }
        ASSERT_EQ(shown, walk(messageIndexes)) << round;
    }
}

TEST(TreeOrder, PutsFieldsBelowTheirNodeAndHiddenOnesLast)
{
    const Line second = line(1, "S", "B", 0, 2);
    const Line first = line(2, "S", "A", 0, 2);
    const TreeOrder order({&second, &first});
    EXPECT_EQ(order.lineAt(2), &second);
    EXPECT_EQ(order.lineAt(1), nullptr);
    EXPECT_EQ(order.placeOf(first), order.placeOf(second));
    Field shown = field("S", "x", 1);
    shown.messageIndex = 2;
    const Field hidden = field("S", "y", 1);
    EXPECT_LT(order.placeOf(second), order.placeOf(shown, 0));
    EXPECT_LT(order.placeOf(shown, 0), order.placeOf(shown, 1));
    EXPECT_LT(order.placeOf(shown, 9), order.placeOf(hidden, 0));
}

} // namespace varnow::test

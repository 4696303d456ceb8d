#include "support/ModelFixture.h"

#include "model/lineLayout.h"

#include <limits>

namespace varnow::test {

namespace {

struct LayoutTest : testing::Test, ModelFixture
{
    Field store(const QString &name, int start, int length, const QString &line = "PID")
    {
        Field made = field("Standard", name, 1);
        made.line = line;
        made.fixedLength = 1;
        made.characterPosition = start;
        made.length = length;
        fields.store(made);
        return made;
    }
};

} // namespace

// A proposal that another field has filled already, that counts a neighbour line's fields, or that overflows.
TEST_F(LayoutTest, FindsTheNextFreeCharacterBehindAField)
{
    constexpr int greatest = std::numeric_limits<int>::max();
    const Field first = store("A", 1, 10);
    EXPECT_EQ(nextCharacterPosition(fields, first), 11);
    store("Elsewhere", 11, 5, "OBX");
    store("Behind a gap", 30, 5);
    EXPECT_EQ(nextCharacterPosition(fields, first), 11);
    store("Overlapping", 5, 10);
    store("Touching", 15, 3);
    store("Without a length", 18, 0);
    EXPECT_EQ(nextCharacterPosition(fields, first), 18);
    EXPECT_EQ(nextCharacterPosition(fields, store("Within", 2, -3)), 18);
    EXPECT_EQ(nextCharacterPosition(fields, store("Endless", 40, greatest)), greatest);
}

} // namespace varnow::test

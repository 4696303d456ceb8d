// Faults to catch: the table's chunks, bounds and key index giving another order, another index or another
// record than walking the whole table would.

#include "support/StoreFixture.h"

#include <random>
#include <tuple>

using namespace varnow;
using namespace varnow::test;

namespace {

using Field = LabLineFldCfgRecord;

bool haveOneKey(const Field &a, const Field &b)
{
    return a.Name == b.Name && a.NameIndex == b.NameIndex && a.Configuration == b.Configuration;
}

/// Everything that the histories vary.
auto values(const Field &field)
{
    return std::tie(field.Configuration, field.Name, field.NameIndex, field.id, field.MsgIndex,
                    field.Position, field.LineIndex, field.Line);
}

/// A random history of the field table and of a plain list in which every look-up is a walk.
class History : StoreFixture
{
public:
    History(unsigned seed, int configurations, int names)
        : m_random(seed), m_configurations(configurations), m_names(names)
    {
    }

    void step()
    {
        Field field = pick(0, 9) == 0 && size() > 0 ? m_walk[pick(0, size() - 1)] : randomField();
        int start = pick(-1, size());
        const int direction = pick(0, 3) == 0 && start < size() ? -1 : 1;
        ASSERT_EQ(FindLabLineFldConfigIndexByName(field.Configuration, field.Name, field.NameIndex, start,
                                                  direction),
                  walkTo(field, start, direction));
        if (pick(1, 3 * m_names) == 1)
            syncWithLines();
        else if (pick(0, 3) > 0)
            store(field);
        else
            remove(field);
    }

    void compare() const
    {
        ASSERT_EQ(LabLineFldTable.size(), size());
        int index = 0;
        for (const Field &field : LabLineFldTable) {
            ASSERT_TRUE(values(field) == values(m_walk[index])) << "at " << index;
            ASSERT_EQ(&LabLineFldTable[index], &field);
            ASSERT_EQ(LabLineFldTable.indexOf(field), index);
            ++index;
        }
    }

private:
    int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(m_random); }
    int size() const { return static_cast<int>(m_walk.size()); }

    Field randomField()
    {
        Field field = StoreFixture::field(QChar(u'A' + pick(1, m_configurations)),
                                          "F" + QString::number(pick(1, m_names)), pick(0, 5));
        field.id = pick(0, 3) == 0 ? -1 : ++m_lastId;
        field.NameIndex = pick(0, 1);
        field.Line = "L" + QString::number(pick(0, 3));
        field.LineIndex = pick(0, 1);
        field.MsgIndex = pick(0, 5);
        return field;
    }

    int walkTo(const Field &key, int start = 0, int direction = 1) const
    {
        for (int i = std::max(start, 0); i >= 0 && i < size(); i += direction) {
            if (haveOneKey(m_walk[i], key))
                return i;
        }
        return -1;
    }

    int placeFor(const Field &field) const
    {
        int before = -1;
        for (int i = 0; i < size(); ++i) {
            const Field &other = m_walk[i];
            if (other.Configuration != field.Configuration)
                continue;
            if (before == -1)
                before = i - 1;
            if (other.MsgIndex > field.MsgIndex)
                break;
            if (other.MsgIndex < field.MsgIndex || other.Position < field.Position)
                before = i;
        }
        return before + 1;
    }

    void store(Field field)
    {
        ASSERT_EQ(storeField(field), 0);
        const int old = walkTo(field);
        if (old < 0) {
            m_walk.insert(placeFor(field), field);
            return;
        }
        if (field.id <= 0)
            field.id = m_walk[old].id;
        m_walk[old] = field;
    }

    void remove(Field field)
    {
        const int index = walkTo(field);
        ASSERT_EQ(RemoveLabLineFldCfgRecord(-1, field.Configuration, field.Name, field.NameIndex),
                  index < 0 ? 9 : 0);
        if (index >= 0)
            m_walk.removeAt(index);
    }

    /// Lines with random message indexes, some twice, some missing.
    void syncWithLines()
    {
        LabLineTable.clear();
        for (int count = pick(0, 20); count > 0; --count) {
            const Field owned = randomField();
            LabLineTable.append(
                {0, owned.Configuration, owned.Line, owned.LineIndex, owned.MsgIndex, 0, {}, {}, {}});
        }
        ASSERT_EQ(SyncLabLineFldMsgIndices(), 0);
        for (Field &field : m_walk) {
            const auto line = std::ranges::find_if(LabLineTable, [&](const LabLineConfigRecord &other) {
                return std::tie(other.Configuration, other.Name, other.NameIndex) ==
                       std::tie(field.Configuration, field.Line, field.LineIndex);
            });
            if (line != LabLineTable.end())
                field.MsgIndex = line->MsgIndex;
        }
    }

    std::mt19937 m_random;
    int m_configurations;
    int m_names;
    int m_lastId = 0;
    QList<Field> m_walk;
};

void expectAWalk(unsigned histories, int steps, int stepsPerComparison, int configurations, int names)
{
    for (unsigned seed = 0; seed < histories && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        History history(seed, configurations, names);
        for (int i = 1; i <= steps && !testing::Test::HasFailure(); ++i) {
            history.step();
            if (i % stepsPerComparison == 0)
                history.compare();
        }
    }
}

} // namespace

TEST(FieldOrder, equalsAWalk)
{
    expectAWalk(2000, 60, 1, 3, 7);
    // Many chunks: out of order, because stored fields change; in order, because none does.
    expectAWalk(1, 9000, 500, 2, 5000);
    expectAWalk(1, 9000, 500, 2, 100'000'000);
}

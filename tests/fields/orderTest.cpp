// Faults to catch: the table's chunks, bounds and key index giving another order, another index or another
// record than walking the whole table would.

#include "support/StoreFixture.h"

#include <random>
#include <tuple>

using namespace varnow;
using namespace varnow::test;

namespace {

using Field = LabLineFldCfgRecord;

auto keyOf(const Field &field)
{
    return std::tie(field.Name, field.NameIndex, field.Configuration);
}

/// Everything that the histories vary.
auto values(const Field &field)
{
    return std::tuple_cat(keyOf(field),
                          std::tie(field.id, field.MsgIndex, field.Position, field.LineIndex, field.Line));
}

/// A random history of the field table and of a plain list in which every look-up is a walk.
class History
{
public:
    History(unsigned seed, int configurations, int names)
        : m_random(seed), m_configurations(configurations), m_names(names)
    {
    }

    void step()
    {
        const int kind = pick(0, 18);
        if (pick(1, 3 * m_names) == 1)
            syncWithLines();
        else if (kind < 12)
            store();
        else if (kind < 16)
            remove();
        else
            find();
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
        Field field;
        field.id = pick(0, 3) == 0 ? -1 : ++m_lastId;
        field.Configuration = QChar(u'A' + pick(1, m_configurations));
        field.Name = "F" + QString::number(pick(1, m_names));
        field.NameIndex = pick(0, 1);
        field.Line = "L" + QString::number(pick(0, 3));
        field.LineIndex = pick(0, 1);
        field.MsgIndex = pick(0, 5);
        field.Position = pick(0, 5);
        return field;
    }

    int walkTo(const Field &key, int start = 0, int step = 1) const
    {
        for (int i = std::max(start, 0); i >= 0 && i < size(); i += step) {
            if (keyOf(m_walk[i]) == keyOf(key))
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

    void store()
    {
        Field field = randomField();
        ASSERT_EQ(StoreFixture::storeField(field), 0);
        const int old = walkTo(field);
        if (old < 0) {
            m_walk.insert(placeFor(field), field);
            return;
        }
        if (field.id <= 0)
            field.id = m_walk[old].id;
        m_walk[old] = field;
    }

    void remove()
    {
        const bool known = pick(0, 2) == 0 && size() > 0;
        Field field = known ? m_walk[pick(0, size() - 1)] : randomField();
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

    void find()
    {
        Field field = randomField();
        int start = pick(-1, size());
        const int step = pick(0, 3) == 0 && start < size() ? -1 : 1;
        const int found = walkTo(field, start, step);
        ASSERT_EQ(found, FindLabLineFldConfigIndexByName(field.Configuration, field.Name, field.NameIndex,
                                                         start, step));
    }

    std::mt19937 m_random;
    int m_configurations;
    int m_names;
    int m_lastId = 0;
    QList<Field> m_walk;
};

} // namespace

class FieldOrder : public testing::Test, public StoreFixture
{
protected:
    static void expectAWalk(unsigned histories, int steps, int stepsPerComparison, int configurations,
                            int names)
    {
        for (unsigned seed = 0; seed < histories && !HasFailure(); ++seed) {
            SCOPED_TRACE(seed);
            emptyStores();
            History history(seed, configurations, names);
            for (int i = 1; i <= steps && !HasFailure(); ++i) {
                history.step();
                if (i % stepsPerComparison == 0)
                    history.compare();
            }
        }
    }
};

TEST_F(FieldOrder, equalsAWalk)
{
    expectAWalk(2000, 60, 1, 3, 7);
    // Many chunks: out of order, because stored fields change; in order, because none does.
    expectAWalk(1, 9000, 500, 2, 5000);
    expectAWalk(1, 9000, 500, 2, 100'000'000);
}

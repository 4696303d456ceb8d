// Faults to catch: the table's chunks, bounds and key index giving another order, another index or another
// record than walking the whole table would; a configuration that is passed over although it was changed.

#include "support/ModelFixture.h"

#include <random>
#include <tuple>

namespace varnow::test {

namespace {

bool haveOneKey(const Field &a, const Field &b)
{
    return a.name == b.name && a.nameIndex == b.nameIndex && a.configuration == b.configuration;
}

/// Everything that the histories vary.
auto values(const Field &field)
{
    return std::tie(field.configuration, field.name, field.nameIndex, field.id, field.messageIndex,
                    field.position, field.lineIndex, field.line);
}

/// A random history of the field table and of a plain list in which every look-up is a walk.
class History : ModelFixture
{
public:
    History(unsigned seed, int configurations, int names, int stepsPerCopy)
        : m_random(seed), m_configurations(configurations), m_names(names), m_stepsPerCopy(stepsPerCopy)
    {
    }

    void step()
    {
        const Field chosen = pick(0, 9) == 0 && size() > 0 ? m_walk[pick(0, size() - 1)] : randomField();
        ASSERT_EQ(fields.find(chosen.configuration, chosen.name, chosen.nameIndex), walkTo(chosen));
        if (pick(1, m_stepsPerCopy) == 1)
            copyFromLines();
        else if (pick(0, 3) > 0)
            store(chosen);
        else
            remove(chosen);
    }

    void compare() const
    {
        ASSERT_EQ(fields.size(), size());
        int index = 0;
        for (const Field &field : fields) {
            ASSERT_TRUE(values(field) == values(m_walk[index])) << "at " << index;
            ASSERT_EQ(&fields[index], &field);
            ASSERT_EQ(fields.find(field.configuration, field.name, field.nameIndex), index);
            ++index;
        }
    }

private:
    int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(m_random); }
    int size() const { return static_cast<int>(m_walk.size()); }

    Field randomField()
    {
        Field made = field(QChar(u'A' + pick(1, m_configurations)), "F" + QString::number(pick(1, m_names)),
                           pick(0, 5));
        made.id = pick(0, 3) == 0 ? -1 : ++m_lastId;
        made.nameIndex = pick(0, 1);
        made.line = "L" + QString::number(pick(0, 3));
        made.lineIndex = pick(0, 1);
        made.messageIndex = pick(0, 5);
        return made;
    }

    int walkTo(const Field &key) const
    {
        for (int i = 0; i < size(); ++i) {
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
            if (other.configuration != field.configuration)
                continue;
            if (before == -1)
                before = i - 1;
            if (other.messageIndex > field.messageIndex)
                break;
            if (other.messageIndex < field.messageIndex || other.position < field.position)
                before = i;
        }
        return before + 1;
    }

    void store(Field field)
    {
        fields.store(field);
        const int old = walkTo(field);
        if (old < 0) {
            m_walk.insert(placeFor(field), field);
            return;
        }
        if (field.id <= 0 && field.line == m_walk[old].line && field.lineIndex == m_walk[old].lineIndex)
            field.id = m_walk[old].id;
        m_walk[old] = field;
    }

    void remove(const Field &field)
    {
        const int index = walkTo(field);
        if (index < 0)
            return;
        fields.remove(index);
        ASSERT_TRUE(values(fields.removed().back()) == values(m_walk[index]));
        m_walk.removeAt(index);
    }

    Line randomLine()
    {
        const Field owned = randomField();
        return line(0, owned.configuration, owned.line, owned.lineIndex, owned.messageIndex);
    }

    void changeLines()
    {
        switch (pick(0, 4)) {
        case 0:
            lines.assign({});
            for (int count = pick(0, 20); count > 0; --count)
                lines.appendLoaded(randomLine());
            return;
        case 1:
            lines.appendLoaded(randomLine());
            return;
        case 2:
            if (!lines.isEmpty())
                lines.remove(pick(0, lines.size() - 1));
            return;
        case 3:
            lines.renumber(randomLine().configuration);
            return;
        default:
            lines.store(randomLine());
        }
    }

    /// From lines with random message indexes, some twice, some missing. Most were there the last time.
    void copyFromLines()
    {
        changeLines();
        model.copyMessageIndexesToFields();
        for (Field &field : m_walk) {
            const auto owner = std::ranges::find_if(lines, [&](const Line &other) {
                return std::tie(other.configuration, other.name, other.nameIndex) ==
                       std::tie(field.configuration, field.line, field.lineIndex);
            });
            if (owner != lines.end())
                field.messageIndex = owner->messageIndex;
        }
    }

    std::mt19937 m_random;
    int m_configurations;
    int m_names;
    int m_stepsPerCopy; // on average
    int m_lastId = 0;
    QList<Field> m_walk;
};

struct Histories
{
    unsigned count;
    int steps;
    int stepsPerComparison;
    int stepsPerCopy; // on average
    int configurations;
    int names;
};

void expectAWalk(const Histories &histories)
{
    for (unsigned seed = 0; seed < histories.count && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        History history(seed, histories.configurations, histories.names, histories.stepsPerCopy);
        for (int i = 1; i <= histories.steps && !testing::Test::HasFailure(); ++i) {
            history.step();
            if (i % histories.stepsPerComparison == 0)
                history.compare();
        }
    }
}

} // namespace

TEST(FieldOrder, EqualsAWalk)
{
    expectAWalk({2000, 60, 1, 21, 3, 7});
    // Many chunks: out of order, because stored fields change; in order, because none does.
    expectAWalk({1, 9000, 500, 100, 2, 5000});
    expectAWalk({1, 9000, 500, 1'000'000, 2, 100'000'000});
}

} // namespace varnow::test

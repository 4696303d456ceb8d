// Faults to catch: the table's chunks, bounds and key index giving another order, another index or another
// record than walking the whole table would.

#include "base/text.h"
#include "support/StoreFixture.h"

#include <random>
#include <tuple>

using namespace varnow;
using namespace varnow::test;

namespace {

using Field = LabLineFldCfgRecord;

/// The field table as a plain list, every look-up a walk from one end to the other.
class Walk
{
public:
    std::vector<Field> fields;

    int find(const QString &configuration, const QString &name, int nameIndex, int start, int step) const
    {
        for (int i = std::max(start, 0); i >= 0 && i < size(); i += step) {
            if (at(i).Configuration == configuration && at(i).Name == name && at(i).NameIndex == nameIndex)
                return i;
        }
        return -1;
    }

    void store(Field field)
    {
        const int old = find(field.Configuration, field.Name, field.NameIndex, 0, 1);
        if (old >= 0) {
            if (field.id <= 0)
                field.id = at(old).id;
            fields[static_cast<std::size_t>(old)] = field;
        } else {
            fields.insert(fields.begin() + target(field), field);
        }
    }

    int target(const Field &field) const
    {
        int behind = -1;
        for (int i = 0; i < size(); ++i) {
            const Field &other = at(i);
            if (other.Configuration != field.Configuration)
                continue;
            if (behind == -1)
                behind = i - 1;
            if (other.MsgIndex > field.MsgIndex)
                break;
            if (other.MsgIndex < field.MsgIndex || other.Position < field.Position)
                behind = i;
        }
        return behind + 1;
    }

    const Field &at(int index) const { return fields[static_cast<std::size_t>(index)]; }
    int size() const { return static_cast<int>(fields.size()); }
};

/// Everything that the histories vary.
auto values(const Field &field)
{
    return std::tie(field.id, field.MsgIndex, field.Position, field.NameIndex, field.LineIndex,
                    field.Configuration, field.Name, field.Line);
}

/// A random history of the real store and of the walk, compared all along.
class History
{
public:
    History(unsigned seed, int configurations, int names)
        : m_random(seed), m_configurations(configurations), m_names(names)
    {
    }

    void step()
    {
        const int kind = pick(0, 19);
        if (kind < 12)
            store();
        else if (kind < 15)
            removeByKey();
        else if (kind == 15)
            removeAt(pick(-1, m_walk.size()));
        else if (kind == 16)
            syncWithLines();
        else
            find();
    }

    void compare() const
    {
        ASSERT_EQ(LabLineFldTable.size(), m_walk.size());
        int index = 0;
        for (const Field &field : LabLineFldTable) {
            ASSERT_TRUE(values(field) == values(m_walk.at(index))) << "at " << index;
            ASSERT_EQ(&LabLineFldTable[index], &field);
            ASSERT_EQ(LabLineFldTable.indexOf(field), index);
            ++index;
        }
    }

private:
    int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(m_random); }

    Field randomField()
    {
        Field field;
        field.id = pick(0, 3) == 0 ? -1 : ++m_lastId;
        field.Configuration = QString(QChar(u'A' + pick(1, m_configurations)));
        field.Name = QStringLiteral("F%1").arg(pick(1, m_names));
        field.NameIndex = pick(0, 1);
        field.Line = QStringLiteral("L%1").arg(pick(0, 3));
        field.LineIndex = pick(0, 1);
        field.MsgIndex = pick(0, 5);
        field.Position = pick(0, 5);
        return field;
    }

    void store()
    {
        const Field field = randomField();
        QString configuration = u' ' + field.Configuration;
        QString name = field.Name + u' ';
        ASSERT_EQ(0, StoreDataInLabLineFldCfgArray(configuration, name, field.Line, field.Position,
                                                   field.MsgIndex, field.NameIndex, field.LineIndex, field.id,
                                                   0, {}, {}, {}, {}, 0, {}, 0, 0));
        m_walk.store(field);
    }

    void removeByKey()
    {
        Field field = randomField();
        const int index = m_walk.find(field.Configuration, field.Name, field.NameIndex, 0, 1);
        ASSERT_EQ(RemoveLabLineFldCfgRecord(-1, field.Configuration, field.Name, field.NameIndex),
                  index < 0 ? 9 : 0);
        if (index >= 0)
            m_walk.fields.erase(m_walk.fields.begin() + index);
    }

    void removeAt(int index)
    {
        const bool exists = index >= 0 && index < m_walk.size();
        ASSERT_EQ(RemoveLabLineFldCfgRecordFromArray(index), exists ? 0 : 9);
        if (exists)
            m_walk.fields.erase(m_walk.fields.begin() + index);
    }

    /// Lines with random message indexes, some twice, some missing.
    void syncWithLines()
    {
        std::vector<LabLineConfigRecord> lines(static_cast<std::size_t>(pick(0, 20)));
        for (LabLineConfigRecord &line : lines) {
            const Field field = randomField();
            line.Configuration = field.Configuration;
            line.Name = field.Line;
            line.NameIndex = field.LineIndex;
            line.MsgIndex = field.MsgIndex;
        }
        LabLineTable.assign(lines);
        ASSERT_EQ(0, SyncLabLineFldMsgIndices());
        for (Field &field : m_walk.fields) {
            const auto line = std::ranges::find_if(lines, [&](const LabLineConfigRecord &candidate) {
                return candidate.Name == field.Line && candidate.Configuration == field.Configuration &&
                       candidate.NameIndex == field.LineIndex;
            });
            if (line != lines.end())
                field.MsgIndex = line->MsgIndex;
        }
    }

    void find()
    {
        Field field = randomField();
        int start = pick(-1, m_walk.size());
        const int step = pick(0, 3) == 0 && start < m_walk.size() ? -1 : 1;
        const int expected = m_walk.find(field.Configuration, field.Name, field.NameIndex, start, step);
        ASSERT_EQ(
            FindLabLineFldConfigIndexByName(field.Configuration, field.Name, field.NameIndex, start, step),
            expected);
    }

    std::mt19937 m_random;
    int m_configurations;
    int m_names;
    int m_lastId = 0;
    Walk m_walk;
};

} // namespace

class FieldOrder : public testing::Test, public StoreFixture
{
};

TEST_F(FieldOrder, equalsAWalkInThousandsOfShortHistories)
{
    for (unsigned seed = 0; seed < 2000 && !HasFailure(); ++seed) {
        emptyStores();
        History history(seed, 3, 7);
        for (int i = 0; i < 60 && !HasFailure(); ++i) {
            history.step();
            history.compare();
        }
        EXPECT_FALSE(HasFailure()) << "seed " << seed;
    }
}

TEST_F(FieldOrder, equalsAWalkOverManyChunks)
{
    for (unsigned seed = 0; seed < 2 && !HasFailure(); ++seed) {
        emptyStores();
        History history(seed, 2, 5000);
        for (int i = 0; i < 9000 && !HasFailure(); ++i) {
            history.step();
            if (i % 500 == 0)
                history.compare();
        }
        history.compare();
    }
}

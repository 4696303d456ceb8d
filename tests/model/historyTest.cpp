// Faults to catch: an undo that brings back another value, order, message index or identifier, or another row
// waiting for deletion; a unsaved that forgets a difference or keeps one that is gone.

#include "support/ModelFixture.h"

#include "model/History.h"

#include <map>
#include <random>

using namespace varnow;
using namespace varnow::test;

namespace {

/// All that a record holds but its spare columns; or only what leads to its row.
template <class Record> QString textOf(const Record &record, bool onlyRow = false)
{
    QStringList values;
    for (const Column<Record> &column : Record::columns()) {
        if (onlyRow && column.use == ColumnUse::Value)
            continue;
        if (const auto *text = std::get_if<QString Record::*>(&column.member))
            values += record.**text;
        else if (const auto *number = std::get_if<int Record::*>(&column.member))
            values += QString::number(record.**number);
    }
    return values.join(u'|');
}

/// Everything in memory, in order, with what waits for deletion.
QStringList stateOf(const Model &model)
{
    QStringList state;
    const auto add = [&state](const auto &table) {
        QStringList waiting; // for deletion, in whatever order
        for (const auto &record : table.removed()) {
            if (record.id > 0)
                waiting += textOf(record, true);
        }
        waiting.sort();
        state += "waiting: " + waiting.join(", ");
        for (const auto &record : table)
            state += textOf(record);
    };
    add(model.lines);
    add(model.fields);
    return state;
}

template <class Table> auto rowsOf(const Table &table)
{
    std::map<QString, QString> rows; // by key, without the identifier
    for (auto record : table) {
        record.id = 0;
        rows[record.configuration + '|' + record.name + '|' + QString::number(record.nameIndex)] =
            textOf(record);
    }
    return rows;
}

/// Random actions on a model that was loaded with some records.
class Actions : public ModelFixture
{
public:
    explicit Actions(unsigned seed) : m_random(seed)
    {
        std::vector<Line> loaded;
        for (int i = 0; i < 6; ++i)
            loaded.push_back(line(i + 1, i < 3 ? "A" : "B", "L" + QString::number(i % 3), 0, i % 3 + 1));
        lines.assign(loaded);
        for (int i = 0; i < 12; ++i)
            fields.load(randomField(i + 1));
        m_loadedLines = rowsOf(lines);
        m_loadedFields = rowsOf(fields);
    }

    /// Does something, as one step of the history.
    void act()
    {
        edit([this](Edit &edit) { act(edit); });
    }

    /// The unsaved changes are exactly the records that differ from what was loaded.
    void expectTrueLedger() const
    {
        const auto expectTrue = [](const auto &loaded, const auto &table) {
            const auto now = rowsOf(table);
            int differences = 0;
            for (const auto &[key, row] : loaded)
                differences += !now.contains(key) || now.at(key) != row;
            for (const auto &[key, row] : now)
                differences += !loaded.contains(key);
            ASSERT_EQ(table.unsaved().entries().size(), differences);
        };
        expectTrue(m_loadedLines, lines);
        expectTrue(m_loadedFields, fields);
    }

    int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(m_random); }

private:
    void act(Edit &edit)
    {
        switch (pick(0, 7)) {
        case 0:
            lines.store(randomLine());
            break;
        case 1:
        case 2:
            fields.store(randomField(-1));
            break;
        case 3:
            if (!fields.isEmpty())
                fields.remove(pick(0, fields.size() - 1));
            break;
        case 4:
            revertOneOf(edit, lines.unsaved());
            break;
        case 5:
            revertOneOf(edit, fields.unsaved());
            break;
        default:
            if (!lines.isEmpty()) {
                const int index = pick(0, lines.size() - 1);
                const QString configuration = lines[index].configuration;
                lines.remove(index);
                lines.renumber(configuration);
                model.copyMessageIndexesToFields();
            }
        }
    }

    template <class Record> void revertOneOf(Edit &edit, const UnsavedChanges<Record> &unsaved)
    {
        if (unsaved.isEmpty())
            return;
        const UnsavedChange<Record> entry = *unsaved.entries().begin();
        edit.revert(entry);
        EXPECT_FALSE(unsaved.entries().contains(keyOf(entry.record())));
    }

    Line randomLine()
    {
        return line(0, pick(0, 1) ? "A" : "B", "L" + QString::number(pick(0, 4)), pick(0, 1), pick(1, 5));
    }

    Field randomField(int id)
    {
        Field made = field(pick(0, 1) ? "A" : "B", "F" + QString::number(pick(0, 9)), pick(1, 4), id);
        made.line = "L" + QString::number(pick(0, 2));
        made.messageIndex = pick(1, 4);
        return made;
    }

    std::mt19937 m_random;
    std::map<QString, QString> m_loadedLines;
    std::map<QString, QString> m_loadedFields;
};

} // namespace

TEST(History, IsTakenBackAndMadeAgainStepByStep)
{
    for (unsigned seed = 0; seed < 2000 && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        Actions actions(seed);
        const Model &model = actions.model;
        QList<QStringList> states{stateOf(model)};
        const auto steps = [&] { return states.size() - 1; };
        qsizetype done = 0;
        for (int i = 0; i < 25; ++i) {
            if (actions.pick(0, 2) > 0) {
                actions.act();
                if (stateOf(model) != states[done]) { // else there was nothing to change
                    states.resize(++done);
                    states += stateOf(model);
                }
            } else if (done > 0 && actions.pick(0, 2) > 0) {
                actions.history.undo(actions.model);
                --done;
            } else if (done < steps()) {
                actions.history.redo(actions.model);
                ++done;
            }
            ASSERT_EQ(stateOf(model), states[done]);
            actions.expectTrueLedger();
        }
        while (actions.history.undoable())
            actions.history.undo(actions.model);
        ASSERT_EQ(stateOf(model), states.first());
        EXPECT_FALSE(model.hasUnsavedChanges());
        while (actions.history.redoable())
            actions.history.redo(actions.model);
        ASSERT_EQ(stateOf(model), states.last());
    }
}

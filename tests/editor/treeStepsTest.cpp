// Faults to catch: a tree that followed a step differs from one filled anew; a step touches nodes that it
// leaves as they are; the selection or the nodes seen are lost on the way; one rebuild shows a box again and
// again.

#include "support/Driver.h"
#include "support/ModelFixture.h"

#include "base/text.h"
#include "editor/RecordTree.h"
#include "model/History.h"
#include "ui/MessageBox.h"
#include "ui/Window.h"

#include <QSignalSpy>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include <random>

using namespace varnow;
using namespace varnow::test;

namespace {

constexpr unsigned histories = 2000;

struct TreeWindow : ui::Window
{
    explicit TreeWindow(const Model &shown) : ui::Window("trees", "Trees", 4000, 5000), model(shown) {}

    const Model &model;
    RecordTree followed{*this, "followed", {0, 0, 4000, 2500}, model};
    RecordTree rebuilt{*this, "rebuilt", {0, 2500, 4000, 2500}, model};
};

/// A node as its user sees it, with the record that a click on it shows.
struct ShownNode
{
    QString text;
    bool isExpanded;
    std::optional<RecordReference> parent;
    std::optional<RecordReference> record;

    bool operator==(const ShownNode &) const = default;
};

void PrintTo(const ShownNode &node, std::ostream *out)
{
    *out << (node.parent ? "  " : "") << qPrintable(node.text) << (node.isExpanded ? " expanded, " : ", ")
         << qPrintable(node.record ? nameOf(node.record->key) : "nothing");
}

struct TreeStepsTest : testing::Test, ModelFixture
{
    TreeStepsTest()
        : m_before(ui::setMessageBoxHandler([this](const ui::MessageBox &box) {
            boxes += box.text.section(lineBreak, 0, 0);
            return box.buttons == ui::Buttons::Ok ? ui::Answer::Ok : answer;
        }))
    {
    }
    ~TreeStepsTest() override { ui::setMessageBoxHandler(m_before); }
    Q_DISABLE_COPY(TreeStepsTest)

    void follow(const EditStep *step)
    {
        if (step != nullptr)
            window.followed.follow(*step);
    }

    QTreeWidget &widget(const char *tree) { return static_cast<QTreeWidget &>(*user.control(tree)); }

    /// All nodes in their order. The selection stays.
    QList<ShownNode> nodesOf(const RecordTree &tree, QTreeWidget &shown)
    {
        shown.setAutoScroll(false);
        QTreeWidgetItem *current = tree.selectedRecord() ? shown.currentItem() : nullptr;
        QList<ShownNode> nodes;
        std::optional<RecordReference> line;
        for (QTreeWidgetItemIterator it(&shown); *it != nullptr; ++it) {
            shown.setCurrentItem(*it);
            const auto record = tree.selectedRecord();
            if ((*it)->parent() == nullptr)
                line = record;
            nodes +=
                ShownNode{(*it)->text(0), (*it)->isExpanded(), (*it)->parent() ? line : std::nullopt, record};
        }
        shown.setCurrentItem(current);
        shown.setAutoScroll(true);
        return nodes;
    }

    QList<ShownNode> followedNodes() { return nodesOf(window.followed, widget("followed")); }

    void expectAsRebuilt()
    {
        window.rebuilt.rebuild("A");
        ASSERT_EQ(followedNodes(), nodesOf(window.rebuilt, widget("rebuilt")));
    }

    QStringList boxes;
    ui::Answer answer = ui::Answer::No;
    TreeWindow window{model};
    Driver user{window};

private:
    ui::MessageBoxHandler m_before;
};

/// Counts what a view is told of its nodes.
struct Touches
{
    explicit Touches(const QTreeWidget &tree) : nodes(tree.model()) {}

    /// Those since the last call.
    QString take()
    {
        const QString text = QStringLiteral("%1 changed, %2 added, %3 removed")
                                 .arg(changed.size())
                                 .arg(added.size())
                                 .arg(removed.size());
        for (QSignalSpy *spy : {&changed, &added, &removed})
            spy->clear();
        return reset.isEmpty() ? text : "all";
    }

    const QAbstractItemModel *nodes;
    QSignalSpy changed{nodes, &QAbstractItemModel::dataChanged};
    QSignalSpy added{nodes, &QAbstractItemModel::rowsInserted};
    QSignalSpy removed{nodes, &QAbstractItemModel::rowsRemoved};
    QSignalSpy reset{nodes, &QAbstractItemModel::modelReset};
};

/// The record that has to be selected when those that are gone are: the next of its kind, else the one
/// before, else its line or, where that has gone too, that one's neighbour.
std::optional<RecordReference> selectionAfter(const QList<ShownNode> &before, qsizetype selected,
                                              const QList<ShownNode> &after)
{
    const auto isThere = [&](qsizetype i) {
        return std::ranges::any_of(after,
                                   [&](const ShownNode &node) { return node.record == before[i].record; });
    };
    const auto parent = before[selected].parent;
    for (qsizetype i = selected; i < before.size(); ++i) {
        if (before[i].parent == parent && isThere(i))
            return before[i].record;
    }
    for (qsizetype i = selected; i-- > 0;) {
        if (before[i].parent == parent && isThere(i))
            return before[i].record;
    }
    if (!parent)
        return {};
    while (before[selected].parent)
        --selected;
    return selectionAfter(before, selected, after);
}

/// Random actions on two configurations.
class Actions
{
public:
    Actions(unsigned seed, Model &model) : m_random(seed), m_model(model) {}

    void act(Edit &edit)
    {
        LineTable &lines = m_model.lines;
        FieldTable &fields = m_model.fields;
        const int action = pick(0, 9);
        if (action < 2)
            lines.store(randomLine());
        else if (action < 4)
            fields.store(randomField());
        else if (action == 4 && !fields.isEmpty())
            fields.remove(pick(0, fields.size() - 1));
        else if (action == 5)
            revertOneOf(edit, lines.unsaved());
        else if (action == 6)
            revertOneOf(edit, fields.unsaved());
        else if (action == 7)
            import();
        else
            removeLine();
    }

    int pick(int least, int greatest) { return std::uniform_int_distribution(least, greatest)(m_random); }

private:
    void import()
    {
        std::vector<Field> imported;
        for (int i = pick(1, 12); i > 0; --i)
            imported.push_back(randomField());
        for (int i = pick(0, 3); i > 0; --i)
            m_model.lines.store(randomLine());
        m_model.fields.storeAll(std::move(imported));
        m_model.copyMessageIndexesToFields();
    }

    void removeLine()
    {
        LineTable &lines = m_model.lines;
        if (lines.isEmpty())
            return;
        const int index = pick(0, lines.size() - 1);
        const QString configuration = lines[index].configuration;
        lines.remove(index);
        lines.renumber(configuration);
        m_model.copyMessageIndexesToFields();
    }

    template <class Record> void revertOneOf(Edit &edit, const UnsavedChanges<Record> &unsaved)
    {
        if (!unsaved.isEmpty())
            edit.revert(UnsavedChange<Record>(*unsaved.entries().begin()));
    }

    QString configuration() { return pick(0, 3) > 0 ? "A" : "B"; }

    /// Mostly one with a message index of its own.
    Line randomLine()
    {
        Line made = line(-1, configuration(), "L" + QString::number(pick(0, 5)), pick(0, 1), pick(-1, 12));
        const auto isTaken = [&](const Line &other) {
            return other.configuration == made.configuration && other.messageIndex == made.messageIndex;
        };
        if (pick(0, 15) > 0 && std::ranges::any_of(m_model.lines, isTaken))
            made.messageIndex = m_model.lines.nextMessageIndex(made.configuration);
        return made;
    }

    Field randomField()
    {
        Field made = field(configuration(), "F" + QString::number(pick(0, 25)), pick(1, 9), -1);
        made.line = "L" + QString::number(pick(0, 5));
        made.messageIndex = pick(0, 8);
        made.constant = QString::number(pick(0, 1));
        return made;
    }

    std::mt19937 m_random;
    Model &m_model;
};

} // namespace

TEST_F(TreeStepsTest, EqualsATreeFilledAnewAfterEveryStep)
{
    int kept = 0; // selections that followed their record or went to its neighbour
    for (unsigned seed = 0; seed < histories && !HasFailure(); ++seed) {
        SCOPED_TRACE(seed);
        model = Model();
        history.clear();
        Actions actions(seed, model);
        answer = seed % 2 > 0 ? ui::Answer::Yes : ui::Answer::No;
        for (int i = 0; i < 5; ++i)
            edit([&](Edit &edit) { actions.act(edit); });
        window.followed.rebuild("A");
        for (int i = 0; i < 20; ++i) {
            const QList<ShownNode> before = followedNodes();
            const int selected =
                before.isEmpty() ? -1 : actions.pick(-1, static_cast<int>(before.size()) - 1);
            if (selected >= 0)
                window.followed.select(before[selected].record);
            const bool isSelected =
                selected >= 0 && window.followed.selectedRecord() == before[selected].record;
            switch (actions.pick(0, 5)) {
            case 0:
                follow(history.undo(model));
                break;
            case 1:
                follow(history.redo(model));
                break;
            default:
                follow(edit([&](Edit &edit) { actions.act(edit); }));
            }
            ASSERT_NO_FATAL_FAILURE(expectAsRebuilt());
            if (!isSelected)
                continue;
            ++kept;
            ASSERT_EQ(window.followed.selectedRecord(), selectionAfter(before, selected, followedNodes()));
        }
    }
    EXPECT_GT(kept, 5 * static_cast<int>(histories));
}

TEST_F(TreeStepsTest, TouchesOnlyWhatAStepChanges)
{
    for (int i = 1; i <= 9; ++i) {
        storeLine(i, "A", "L" + QString::number(i), 0, i);
        for (int k = 1; k <= 3; ++k) {
            Field made = field("A", QStringLiteral("F%1.%2").arg(i).arg(k), k);
            made.line = "L" + QString::number(i);
            made.messageIndex = i;
            fields.store(made);
        }
    }
    storeLine(10, "B", "L1", 0, 1);
    window.followed.rebuild("A");
    Touches touches(widget("followed"));
    const auto touchedBy = [&](const auto &work) {
        follow(edit([&](Edit &) { work(); }));
        return touches.take();
    };
    Field changed = fields[fields.find("A", "F5.2", 0)];
    changed.constant = "another";
    EXPECT_EQ(touchedBy([&] { fields.store(changed); }), "0 changed, 0 added, 0 removed");
    EXPECT_EQ(touchedBy([&] { storeLine(-1, "B", "L1", 0, 2); }), "0 changed, 0 added, 0 removed");
    changed.position = 7;
    EXPECT_EQ(touchedBy([&] { fields.store(changed); }), "1 changed, 0 added, 0 removed");
    changed.nameIndex = 1;
    changed.position = 8;
    EXPECT_EQ(touchedBy([&] { fields.store(changed); }), "0 changed, 1 added, 0 removed");
    EXPECT_EQ(touchedBy([&] { fields.remove(fields.find("A", "F3.1", 0)); }),
              "0 changed, 0 added, 1 removed");
    follow(history.undo(model));
    EXPECT_EQ(touches.take(), "0 changed, 1 added, 0 removed");
    EXPECT_EQ(touchedBy([&] { storeLine(-1, "A", "New", 0, 10); }), "0 changed, 1 added, 0 removed");
    const auto removeAndRenumber = [&] {
        lines.remove(lines.find("A", "L8", 0));
        lines.renumber("A");
        model.copyMessageIndexesToFields();
    };
    // Two nodes show the lines behind theirs, and the last goes. The fields of L9 go too: those left of L8
    // have their positions.
    EXPECT_EQ(touchedBy(removeAndRenumber), "2 changed, 0 added, 4 removed");
    expectAsRebuilt();
}

TEST_F(TreeStepsTest, KeepsWhatIsSeenInItsPlace)
{
    for (int i = 1; i <= 99; ++i)
        storeLine(i, "A", "L" + QString::number(i), 0, i);
    window.followed.rebuild("A");
    QTreeWidget &shown = widget("followed");
    const auto top = [&shown] { return shown.itemAt(0, 0)->text(0); };
    const auto selected = [this] { return window.followed.selectedRecord()->key.name; };
    const auto seen = [&shown] {
        return shown.viewport()->rect().contains(shown.visualItemRect(shown.currentItem()));
    };
    window.followed.selectPlace(52);
    shown.scrollToItem(shown.topLevelItem(49), QAbstractItemView::PositionAtTop);
    ASSERT_EQ(top(), "50 L50");
    follow(edit([&](Edit &) { // far above
        for (int i = 1; i <= 3; ++i)
            fields.store(field("A", "F" + QString::number(i), i));
    }));
    EXPECT_EQ(top(), "50 L50");
    follow(edit([&](Edit &) {
        lines.remove(9);
        lines.renumber("A");
    }));
    EXPECT_EQ(top() + ' ' + selected(), "49 L50 L52");
    follow(edit([&](Edit &) { lines.remove(lines.find("A", "L52", 0)); }));
    EXPECT_EQ(top() + ' ' + selected(), "49 L50 L53");
    follow(history.undo(model));
    EXPECT_EQ(top() + ' ' + selected(), "49 L50 L53");
    shown.scrollToBottom(); // what is selected and stays is not scrolled to, its neighbour is
    follow(edit([&](Edit &) { storeLine(-1, "A", "L0", 0, 0); }));
    EXPECT_EQ(selected(), "L53");
    EXPECT_FALSE(seen());
    follow(edit([&](Edit &) { lines.remove(lines.find("A", "L53", 0)); }));
    EXPECT_EQ(selected(), "L54");
    EXPECT_TRUE(seen());
}

TEST_F(TreeStepsTest, ShowsOneBoxOfEachKindAndCountsTheRest)
{
    for (int i = 0; i < 4; ++i)
        storeLine(i, "A", "L" + QString::number(i), 0, 1);
    for (int i = 0; i < 3; ++i)
        fields.store(field("B", "F" + QString::number(i), i));
    answer = ui::Answer::Yes;
    const QStringList asked{"A node with this message index already esists."};
    using Unshown = RecordTree::Unshown;
    EXPECT_EQ(window.followed.rebuild("A"), (Unshown{2, 0}));
    EXPECT_EQ(std::exchange(boxes, {}), asked);
    EXPECT_EQ(followedNodes().first().text, "1 L1"); // the first two are asked about, the others not shown
    const EditStep *step = edit([&](Edit &) { storeLine(-1, "A", "L4", 0, 1); });
    EXPECT_EQ(window.followed.follow(*step), (Unshown{3, 0}));
    EXPECT_EQ(std::exchange(boxes, {}), asked);

    EXPECT_EQ(window.followed.rebuild("B"), (Unshown{0, 2}));
    EXPECT_EQ(std::exchange(boxes, {}), QStringList("The system requires a line for field attachment."));
    EXPECT_EQ(window.followed.follow(*step), Unshown()); // of another configuration
    EXPECT_EQ(window.followed.rebuild("B", RecordTree::Boxes::HeldBack), (Unshown{0, 3}));
    EXPECT_EQ(window.followed.rebuild("A", RecordTree::Boxes::HeldBack), (Unshown{4, 0}));
    EXPECT_EQ(boxes, QStringList());
}

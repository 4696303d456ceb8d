// The editor, driven as its user drives it.

#include "BenchDatabase.h"
#include "rows.h"
#include "secondsUntilShown.h"
#include "sideBySide.h"
#include "support/Driver.h"

#include "db/Connection.h"
#include "editor/EditorWindow.h"
#include "exchange/ImportPlan.h"
#include "exchange/exportCsv.h"
#include "ui/RunWindow.h"

#include <QApplication>
#include <QTest>
#include <QTreeWidget>

#include <cstdlib>

namespace varnow::bench {

namespace {

constexpr Size oneConfiguration{1, 1000, 20};
constexpr Size largeConfiguration{1, 1000, 100};
constexpr Size tenThousandRecords{1, 500, 19};
constexpr Size manyConfigurations{20, 500, 10};

/// The editor's own tree, the one that its buttons rebuild. A second one on the same records would take turns
/// with it in the caches, which hides a part of what a button costs beside the rebuild.
RecordTree &treeOf(const ui::Window &window)
{
    for (ui::Control *control : window.controls())
        if (auto *tree = dynamic_cast<RecordTree *>(control))
            return *tree;
    std::abort();
}

/// The editor, open on a configuration of a database.
class OpenEditor
{
public:
    explicit OpenEditor(Size size) : m_database(size)
    {
        ui::RunWindow window;
        m_document.reload(window);
        m_user.emplace(m_editor);
    }
    ~OpenEditor() { m_editor.surface()->window()->hide(); }

    const Session &session() const { return m_session; }
    const Model &model() const { return m_document.model(); }

    double rebuild()
    {
        return secondsUntilShown([this] { m_tree.rebuild(m_session.defaultConfiguration); });
    }

    double click(const char *button)
    {
        return secondsUntilShown([&] { m_user->click(QString::fromLatin1(button)); });
    }

    /// Writes what is unsaved to disk, as the editor does within a second of a change.
    double keep()
    {
        return seconds([this] { m_document.keepUnsavedChanges(); });
    }

    /// Clicks the node; bringing it into view is not counted.
    double clickNode(const QString &text)
    {
        QTreeWidget *tree = m_user->treeWidget();
        QTreeWidgetItem *node = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive).value(0);
        tree->scrollToItem(node);
        QApplication::processEvents();
        const QPoint place = tree->visualItemRect(node).center();
        return secondsUntilShown([&] { QTest::mouseClick(tree->viewport(), Qt::LeftButton, {}, place); });
    }

    /// Types a line that does not exist yet into the entry boxes.
    void typeNewLine()
    {
        m_user->showPage(0);
        m_user->fill({{"lineName", "Comment"}, {"lineIndex", "1"}, {"lineMessageIndex", "1001"}});
    }

    /// Types a field that does not exist yet, the last one of a line in the middle.
    void typeNewField()
    {
        m_user->showPage(1);
        m_user->fill({{"fieldName", "Comment"}, {"fieldIndex", "1"}, {"fieldLine", "Segment 300(0)"}});
        m_user->fill({{"fieldMessageIndex", "300"}, {"constant", "constant"}, {"position", "99"}});
    }

    /// Takes the fields of the line behind which this many others stand, so that it can be removed, and shows
    /// it on its page.
    void emptyLineBefore(int linesBehind)
    {
        const Line line = model().lines[model().lines.size() - linesBehind - 1];
        m_document.edit({}, [&line](Edit &edit) {
            for (const Field *field : edit.fields.ofGroup(line.configuration, line.messageIndex))
                edit.fields.remove(edit.fields.indexOf(*field));
        });
        rebuild();
        clickNode(QString::number(line.messageIndex) + ' ' + line.name);
    }

    /// Shows a field in the middle on its page.
    void showField() { clickNode(QStringLiteral("500.7 Observation Value 500-7")); }

    /// Types into an entry and stores the record; the typing is not counted.
    double change(const QString &entry, const QString &text)
    {
        m_user->type(entry, text);
        return click("change");
    }

    void undo()
    {
        m_user->press(Qt::Key_Z, Qt::ControlModifier);
        QApplication::processEvents();
    }

    const QTreeWidget &treeWidget() const { return *m_user->treeWidget(); }

private:
    BenchDatabase m_database;
    Session m_session{m_database.settings(), m_database.settings(), {"Configuration 1"}, "Configuration 1"};
    Document m_document{m_session};
    EditorWindow m_editor{m_document};
    RecordTree &m_tree = treeOf(m_editor);
    std::optional<test::Driver> m_user;
};

/// A line of a tree with its fields.
struct Branch
{
    QString text;
    QStringList children;
};

std::vector<Branch> branchesOf(const QTreeWidget &tree)
{
    std::vector<Branch> branches;
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        const QTreeWidgetItem *root = tree.topLevelItem(i);
        Branch &branch = branches.emplace_back(Branch{root->text(0), {}});
        for (int k = 0; k < root->childCount(); ++k)
            branch.children += root->child(k)->text(0);
    }
    return branches;
}

/// Fills a tree, opens every branch and scrolls to the end, in the quickest way there is.
void fill(QTreeWidget &tree, const std::vector<Branch> &branches)
{
    tree.clear();
    QList<QTreeWidgetItem *> roots;
    for (const Branch &branch : branches) {
        roots += new QTreeWidgetItem(QStringList(branch.text));
        for (const QString &child : branch.children)
            new QTreeWidgetItem(roots.last(), QStringList(child));
    }
    tree.addTopLevelItems(roots);
    tree.expandAll();
    tree.scrollToBottom();
}

void rebuildBesideBareTree(benchmark::State &state)
{
    OpenEditor editor(oneConfiguration);
    const std::vector<Branch> branches = branchesOf(editor.treeWidget());
    QTreeWidget bare;
    bare.setHeaderHidden(true);
    bare.setUniformRowHeights(true);
    bare.resize(editor.treeWidget().size());
    bare.show();
    sideBySide(
        state, 1.2, [&] { return editor.rebuild(); },
        [&] { return secondsUntilShown([&] { fill(bare, branches); }); });
}

void switchBesideRebuildAndQuery(benchmark::State &state)
{
    OpenEditor editor(oneConfiguration);
    const auto query = [&] {
        db::Connection(editor.session().configurationDatabase)
            .execute("SELECT config_name, field_name FROM data_extractor_fields_config WHERE "
                     "LTRIM(RTRIM(config_name)) = 'Configuration 1' ORDER BY field_name;");
    };
    // A refresh switches to no configuration, which does nothing, and then to the first.
    sideBySide(
        state, 1.2, [&] { return editor.click("refresh"); },
        [&] { return editor.rebuild() + seconds(query); });
}

/// Adds and removes what was typed, turn by turn, and measures one of the two.
void entryBesideRebuild(benchmark::State &state, Size size, void (OpenEditor::*type)(), bool measuresChange,
                        double atMost)
{
    OpenEditor editor(size);
    (editor.*type)();
    const auto addAndRemove = [&] {
        const double change = editor.click("change");
        const double remove = editor.click("delete");
        return measuresChange ? change : remove;
    };
    sideBySide(state, atMost, addAndRemove, [&] { return editor.rebuild(); });
}

/// Changes an entry of a field to one value and the other.
void entryChangeBesideRebuild(benchmark::State &state, const char *entry, double atMost)
{
    OpenEditor editor(largeConfiguration);
    editor.showField();
    bool isSecond = false;
    sideBySide(
        state, atMost,
        [&] { return editor.change(QString::fromLatin1(entry), (isSecond = !isSecond) ? "107" : "108"); },
        [&] { return editor.rebuild(); });
}

/// Removes a line behind which ten others with their fields are renumbered.
void renumberingBesideRebuild(benchmark::State &state, double atMost)
{
    OpenEditor editor(largeConfiguration);
    editor.emptyLineBefore(10);
    sideBySide(
        state, atMost,
        [&] {
            const double removal = editor.click("delete");
            editor.undo();
            return removal;
        },
        [&] { return editor.rebuild(); });
}

/// Clicks a field's node while the lines page is shown.
void nodeBesideRebuild(benchmark::State &state, Size size, double atMost)
{
    OpenEditor editor(size);
    const auto click = [&] {
        editor.clickNode("300 Segment 300");
        return editor.clickNode("300.7 Observation Value 300-7");
    };
    sideBySide(state, atMost, click, [&] { return editor.rebuild(); });
}

/// A change until it is in the file that outlives a crash, beside the change alone.
void keptChangeBesideChange(benchmark::State &state)
{
    OpenEditor editor(manyConfigurations);
    editor.typeNewField();
    double change = 0;
    const auto changeAndKeep = [&] {
        change = editor.click("change");
        const double kept = change + editor.keep();
        editor.click("delete");
        editor.keep();
        return kept;
    };
    sideBySide(state, 1.3, changeAndKeep, [&] { return change; });
}

/// Reads a file of 10,000 rows, compares them with what is in memory, and stores them.
void importBesideRebuilds(benchmark::State &state)
{
    constexpr int rebuilds = 10;
    OpenEditor editor(tenThousandRecords);
    const QString &configuration = editor.session().defaultConfiguration;
    const QByteArray file = exportCsv(editor.model(), configuration);
    const auto importFile = [&] {
        Model model;
        apply(planImport({{"file", file}}, model, configuration), model);
        if (model.fields.size() != editor.model().fields.size())
            std::abort();
    };
    sideBySide(
        state, 1.2, [&] { return seconds(importFile); },
        [&] {
            double time = 0;
            for (int i = 0; i < rebuilds; ++i)
                time += editor.rebuild();
            return time;
        });
}

void addEntryRow(const char *name, Size size, void (OpenEditor::*type)(), bool measuresChange, double atMost)
{
    addRow(name, "s", 9,
           [=](benchmark::State &state) { entryBesideRebuild(state, size, type, measuresChange, atMost); });
}

} // namespace

void addEditorRows()
{
    addRow("rebuild the tree, 1,000 lines, 20,000 fields | bare QTreeWidget", "s", 15, rebuildBesideBareTree);
    addRow("configuration switch | rebuild and query", "s", 9, switchBesideRebuildAndQuery);
    addEntryRow("Change of a line | rebuild", oneConfiguration, &OpenEditor::typeNewLine, true, 0.5);
    addEntryRow("Change of a field | rebuild", oneConfiguration, &OpenEditor::typeNewField, true, 0.5);
    addEntryRow("Delete of a line | rebuild", oneConfiguration, &OpenEditor::typeNewLine, false, 0.5);
    addEntryRow("Delete of a field | rebuild", oneConfiguration, &OpenEditor::typeNewField, false, 0.5);
    addEntryRow("Change of a line, 100,000 fields in memory | rebuild", manyConfigurations,
                &OpenEditor::typeNewLine, true, 1);
    addEntryRow("Change of a field, 100,000 fields in memory | rebuild", manyConfigurations,
                &OpenEditor::typeNewField, true, 1);
    addEntryRow("Delete of a line, 100,000 fields in memory | rebuild", manyConfigurations,
                &OpenEditor::typeNewLine, false, 1);
    addEntryRow("Delete of a field, 100,000 fields in memory | rebuild", manyConfigurations,
                &OpenEditor::typeNewField, false, 1);
    addRow("Change of a constant, 100,000 fields shown | rebuild", "s", 9,
           [](benchmark::State &state) { entryChangeBesideRebuild(state, "constant", 0.05); });
    addRow("Change of a position, 100,000 fields shown | rebuild", "s", 9,
           [](benchmark::State &state) { entryChangeBesideRebuild(state, "position", 0.3); });
    addEntryRow("addition of a field, 100,000 fields shown | rebuild", largeConfiguration,
                &OpenEditor::typeNewField, true, 0.3);
    addRow("removal of a line, 10 renumbered, 100,000 fields shown | rebuild", "s", 9,
           [](benchmark::State &state) { renumberingBesideRebuild(state, 0.3); });
    addRow("Change of a field until it is on disk, 100,000 fields | Change alone", "s", 9,
           keptChangeBesideChange);
    addRow("import 10,000 rows | ten rebuilds", "s", 9, importBesideRebuilds);
    addRow("click of a node, 100,000 fields in memory | rebuild", "s", 9,
           [](benchmark::State &state) { nodeBesideRebuild(state, manyConfigurations, 2); });
}

} // namespace varnow::bench

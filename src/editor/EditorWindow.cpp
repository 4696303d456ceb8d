#include "editor/EditorWindow.h"

#include "base/text.h"
#include "editor/AboutWindow.h"
#include "editor/HelpWindow.h"
#include "review/CheckWindow.h"
#include "review/LayoutWindow.h"
#include "review/ListingWindow.h"
#include "review/UnsavedWindow.h"
#include "ui/Application.h"
#include "ui/fileDialogs.h"

namespace varnow {

namespace {

constexpr float margin = 120; // around the window and between its parts
constexpr float minimumWidth = 7700;
constexpr float minimumHeight = 7900;

} // namespace

EditorWindow::EditorWindow(Document &document)
    : ui::Window("editor", "Lines Configuration", 9735, 6285), m_document(document)
{
    m_tree.setAccessibleName("Lines and fields");
    connectControls();
    addToolTips();
    addMenus();
    setFocusOrder(m_pages.focusOrder(
        {&m_configurationBox, &m_pages.tabs()},
        {&m_change, &m_delete, &m_save, &m_clear, &m_refresh, &m_reload, &m_exit, &m_tree}));
}

void EditorWindow::connectControls()
{
    m_clear.onClick = [this] { m_entries.clear(); };
    m_change.onClick = [this] { m_entries.change(); };
    m_delete.onClick = [this] { m_entries.removeShown(); };
    m_refresh.onClick = [this] { m_switch.refresh(); };
    m_reload.onClick = [this] { m_saving.reload(); };
    m_save.onClick = [this] { m_saving.save(); };
    m_exit.onClick = [this] { unload(); };
    m_pages.onShown = [this] { drawLayout(); };
    m_switch.onUnshown = [this](const RecordTree::Unshown &unshown) { tellUnshown(unshown); };
    m_saving.onStore = [this](EntryPage &) { return m_entries.change(); };
    m_finding.onShow = [this](const RecordReference &record) { m_entries.show(record); };
    m_finding.selectedRecord = [this] { return m_tree.selectedRecord(); };
    m_notices.onShowUnsaved = [this] { m_windows.open<UnsavedWindow>(); };
    m_pages.subscribe(); // what they tell stands behind the notice, and the tree has followed then
    QObject::connect(&m_document, &Document::changed, &m_document, [this] { nameSteps(); });
    QObject::connect(&m_document, &Document::loaded, &m_document, [this] { nameSteps(); });
    onLoad = [this] { loadWindow(); };
    onResize = [this] { layOut(); };
    onCloseRequest = [this] { return closeRequested(); };
    onDoubleClick = [this] { accessDataDisplay(); };
    onFilesDropped = [this](const QStringList &paths) { m_configurations.import(paths); };
}

void EditorWindow::addToolTips()
{
    m_configurationBox.setToolTip(
        "The configuration whose lines and fields are shown; choose it or type its name.");
    m_clear.setToolTip("Empties the page for a new record and proposes the next message index or position.");
    m_change.setToolTip(
        "Stores what is entered on the page: changes the record of this name and index, or adds a "
        "new one. The database gets it with the next Save.");
    m_delete.setToolTip(
        "Removes the record that the page names, after a question. Its row goes from the database "
        "with the next Save.");
    m_refresh.setToolTip("Shows the default configuration from its beginning.");
    m_reload.setToolTip(
        "Reads all lines and fields from the database again. What is unsaved is asked about first.");
    m_save.setToolTip(
        "Writes the lines and fields of all configurations to the database, and deletes the rows of "
        "those that were removed.");
    m_exit.setToolTip("Ends the program. What is unsaved is asked about first.");
}

void EditorWindow::addMenus()
{
    addConfigurationMenu();
    addEditMenu();
    ui::Menu view = addMenu("&View");
    view.add("&Data display", "F12", [this] { m_windows.open<ListingWindow>(); });
    view.add("&Layout", "F11", [this] { showLayout(); });
    ui::Menu help = addMenu("Hel&p");
    help.add("&Guide", "F1", [this] { m_windows.open<HelpWindow>(); });
    help.add("&About Varnow", "", [] { AboutWindow().showModal(); });
    nameSteps();
}

void EditorWindow::addConfigurationMenu()
{
    ui::Menu configuration = addMenu("Confi&guration");
    configuration.add("&Save", "Ctrl+S", [this] { m_saving.save(); });
    configuration.add("&Reload", "Ctrl+R", [this] { m_saving.reload(); });
    configuration.add("&New…", "", [this] { m_configurations.showNew(); });
    configuration.add("&Copy to…", "", [this] { m_configurations.copy(); });
    configuration.add("&Import…", "Ctrl+I", [this] {
        m_configurations.import(ui::askForFiles("Choose Files to Import", {"CSV files", "csv"}));
    });
    configuration.add("&Export…", "Ctrl+E", [this] { m_configurations.exportAs(); });
    configuration.add("Chec&k", "F8", [this] { m_windows.open<CheckWindow>(); });
    configuration.add("E&xit", "Ctrl+Q", [this] { unload(); });
}

void EditorWindow::addEditMenu()
{
    ui::Menu edit = addMenu("Ed&it");
    m_undo = edit.add("&Undo", "Ctrl+Z", [this] { m_entries.undo(); }); // in an entry the key is its own
    m_redo = edit.add("&Redo", "Ctrl+Shift+Z Ctrl+Y", [this] { m_entries.redo(); });
    edit.add("Change and ne&xt", "Ctrl+Enter Ctrl+Return", [this] { m_entries.changeAndNext(); })
        .ignoreRepeats();
    edit.add("Unsaved &changes…", "Ctrl+U", [this] { m_windows.open<UnsavedWindow>(); });
    edit.add("&Find…", "Ctrl+F", [this] { m_finding.open(); });
    edit.add("Find &next", "F3", [this] { m_finding.showNext(); });
    edit.add("Find &previous", "Shift+F3", [this] { m_finding.showPrevious(); });
}

/// Names the steps that can be undone and made again.
void EditorWindow::nameSteps()
{
    const auto name = [](ui::MenuEntry &entry, const QString &caption, const EditStep *step) {
        entry.setCaption(step == nullptr ? caption : caption + ' ' + step->text().replace('&', "&&"));
        entry.setEnabled(step != nullptr);
    };
    name(*m_undo, "&Undo", m_document.undoable());
    name(*m_redo, "&Redo", m_document.redoable());
}

void EditorWindow::loadWindow()
{
    m_pages.empty();
    m_switch.listConfigurations();
    m_switch.refresh();
    m_pages.fields().followFixedLength();
    m_pages.turnTo(RecordKind::Line);
    m_pages.fields().settleEntries();
    m_pages.setUnchanged();
    const QString &greeting = m_document.session().greeting;
    if (greeting.isEmpty())
        m_notices.tellLoaded("Loaded");
    else
        m_notices.tell({greeting});
    if (m_document.isKeepingFailing())
        m_notices.tellNotKept();
    bringBackDrafts();
}

/// Offers what an earlier run has left typed and not stored.
void EditorWindow::bringBackDrafts()
{
    TypedEntries typed;
    for (const PageDraft &draft : m_document.leftDrafts()) {
        EntryPage *page = m_pages.named(draft.page);
        if (page != nullptr && draft.texts.size() == page->entries().texts().size())
            typed.push_back({page, draft.texts, {}});
    }
    if (typed.empty())
        return;
    const Notices::Action action(m_notices);
    m_notices.tell({"The entries are back; they are not stored yet."});
    m_document.showConfiguration(m_document.leftDrafts().front().configuration);
    m_pages.bringBack(typed);
}

ui::CloseDecision EditorWindow::closeRequested()
{
    const ui::CloseDecision decision = m_saving.promptToSave();
    if (decision == ui::CloseDecision::Close)
        unloadAll();
    return decision;
}

void EditorWindow::layOut()
{
    if (isMinimised())
        return;
    ui::TabControl &tabs = m_pages.tabs();
    const ui::TabControl::PaintingPaused paused(tabs);
    enforceMinimumSize(minimumWidth, minimumHeight);

    const ui::Label &label = m_configurationBox.label;
    const float labelGap = 30;
    const float left = (innerWidth() - (m_configurationBox.width() + label.width() + labelGap)) / 2;
    m_configurationBox.label.move(left, (m_configurationBox.height() - label.height()) / 2 + margin);
    m_configurationBox.move(left + label.width() + labelGap, margin);

    const float wide = innerWidth() - 2 * margin;
    const float band =
        (innerHeight() - (m_configurationBox.height() + m_refresh.height() + m_exit.height() + 6 * margin)) /
        2;
    tabs.move({margin, m_configurationBox.height() + 2 * margin, wide, band});

    const float firstRow = tabs.top() + tabs.height() + margin;
    m_clear.move(margin, firstRow);
    m_change.move(m_clear.left() + m_clear.width(), firstRow);
    m_delete.move(m_change.left() + m_change.width(), firstRow);
    m_refresh.move(innerWidth() - (m_refresh.width() + margin), firstRow);

    m_tree.move({margin, firstRow + m_clear.height() + margin, wide, band});

    const float secondRow = m_tree.top() + m_tree.height() + margin;
    m_reload.move(margin, secondRow);
    m_save.move(m_reload.left() + m_reload.width(), secondRow);
    m_exit.move(innerWidth() - (m_exit.width() + margin), secondRow);

    for (EntryPage *page : m_pages.all())
        page->layOut();
    tabs.finishLayout();
}

void EditorWindow::accessDataDisplay()
{
    if (m_dataDisplayIsArmed)
        m_windows.open<ListingWindow>();
    m_dataDisplayIsArmed = !m_dataDisplayIsArmed;
}

void EditorWindow::showLayout()
{
    m_windows.open<LayoutWindow>();
    drawLayout();
}

/// Draws the line that the pages show now, if the layout has been asked for.
void EditorWindow::drawLayout()
{
    if (auto *layout = m_windows.find<LayoutWindow>())
        layout->draw(m_pages.shown().namedLine(), m_pages.fields().namedRecord());
}

/// Tells of records without a node, beyond those that a box has told of.
void EditorWindow::tellUnshown(const RecordTree::Unshown &unshown)
{
    QStringList sentences;
    if (unshown.lines > 0)
        sentences += counted(unshown.lines, "more line") + (unshown.lines == 1 ? " has" : " have") +
                     " the message index of another line, so that the tree does not show " +
                     (unshown.lines == 1 ? "it." : "them.");
    if (unshown.fields > 0)
        sentences += counted(unshown.fields, "more field") + (unshown.fields == 1 ? " has" : " have") +
                     " no line, so that the tree does not show " + (unshown.fields == 1 ? "it." : "them.");
    m_notices.append({sentences.join(' '), {{"Check", "Lists what is wrong with the records.", [this] {
                                                 m_windows.open<CheckWindow>();
                                             }}}});
}

} // namespace varnow

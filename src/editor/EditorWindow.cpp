#include "editor/EditorWindow.h"

#include "base/guarded.h"
#include "base/text.h"
#include "editor/HelpWindow.h"
#include "review/CheckWindow.h"
#include "review/LayoutWindow.h"
#include "review/ListingWindow.h"
#include "review/UnsavedWindow.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"

#include <utility>

namespace varnow {

namespace {

constexpr float margin = 120; // around the window and between its parts
constexpr float minimumWidth = 7700;
constexpr float minimumHeight = 7900;

} // namespace

EditorWindow::EditorWindow(Session &session, Model &model)
    : ui::Window("editor", "Lines Configuration", 9735, 6285)
    , m_state{session, model, m_configuration}
    , m_recovery(session.configurationDatabase)
{
    m_recoveryTimer.setSingleShot(true);
    m_recoveryTimer.setInterval(500);
    m_recoveryTimer.callOnTimeout([this] { keepUnsavedChanges(); });
    m_tabs.setAccessibleName("Entry pages");
    m_tree.setAccessibleName("Lines and fields");
    connectControls();
    addToolTips();
    addMenus();
    connectSearch();
    arrangeFocus();
}

EditorWindow::~EditorWindow() = default;

void EditorWindow::connectControls()
{
    m_state.onLinesChanged = [this] { m_fieldPage.listLines(); };
    m_configuration.onChange = m_configuration.onClick = [this] { switchConfiguration(); };
    m_configuration.onTypingPaused = [this] { tellProblems(); };
    m_tabs.onClick = [this] { turnPage(); };
    m_tree.onRecordClick = [this](const RecordReference &record) {
        tellReplaced(replacing([&] { showRecord(record); }));
    };
    m_tree.onEdit = [this] { shownPage().focusFirst(); };
    m_tree.onDelete = [this] { removeSelected(); };
    m_clear.onClick = [this] { clear(); };
    m_change.onClick = [this] { change(); };
    m_delete.onClick = [this] { removeShown(); };
    m_refresh.onClick = [this] { refresh(); };
    m_reload.onClick = [this] { reload(); };
    m_save.onClick = [this] { save(); };
    m_exit.onClick = [this] { unload(); };
    onLoad = [this] { loadWindow(); };
    onResize = [this] { layOut(); };
    onCloseRequest = [this] { return closeRequested(); };
    onDoubleClick = [this] { accessDataDisplay(); };
    onFilesDropped = [this](const QStringList &paths) { import(paths); };
}

void EditorWindow::addToolTips()
{
    m_configuration.setToolTip(
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

void EditorWindow::arrangeFocus()
{
    std::vector<ui::Control *> order{&m_configuration, &m_tabs};
    const auto add = [&order](const std::vector<ui::Control *> &controls) {
        order.insert(order.end(), controls.begin(), controls.end());
    };
    for (EntryPage *page : m_state.pages)
        add(page->focusOrder());
    add({&m_change, &m_delete, &m_save, &m_clear, &m_refresh, &m_reload, &m_exit, &m_tree});
    for (EntryPage *page : m_state.pages)
        add(page->focusOrderBehindTree());
    setFocusOrder(order);
}

void EditorWindow::loadWindow()
{
    emptyPages();
    listConfigurations();
    selectDefaultConfiguration();
    m_fieldPage.followFixedLength();
    m_tabs.setCurrentPage(0);
    m_fieldPage.settleEntries();
    m_state.changesMade = false;
    if (m_state.session.greeting.isEmpty())
        tellLoaded("Loaded");
    else
        tell({m_state.session.greeting});
}

void EditorWindow::emptyPages()
{
    for (EntryPage *page : m_state.pages) {
        page->empty();
        page->settleEntries();
    }
}

ui::CloseDecision EditorWindow::closeRequested()
{
    const ui::CloseDecision decision = promptToSave();
    if (decision == ui::CloseDecision::Close)
        unloadAll();
    return decision;
}

void EditorWindow::layOut()
{
    if (isMinimised())
        return;
    const ui::TabControl::PaintingPaused paused(m_tabs);
    enforceMinimumSize(minimumWidth, minimumHeight);

    const ui::Label &label = m_configuration.label;
    const float labelGap = 30;
    const float left = (innerWidth() - (m_configuration.width() + label.width() + labelGap)) / 2;
    m_configuration.label.move(left, (m_configuration.height() - label.height()) / 2 + margin);
    m_configuration.move(left + label.width() + labelGap, margin);

    const float wide = innerWidth() - 2 * margin;
    const float band =
        (innerHeight() - (m_configuration.height() + m_refresh.height() + m_exit.height() + 6 * margin)) / 2;
    m_tabs.move({margin, m_configuration.height() + 2 * margin, wide, band});

    const float firstRow = m_tabs.top() + m_tabs.height() + margin;
    m_clear.move(margin, firstRow);
    m_change.move(m_clear.left() + m_clear.width(), firstRow);
    m_delete.move(m_change.left() + m_change.width(), firstRow);
    m_refresh.move(innerWidth() - (m_refresh.width() + margin), firstRow);

    m_tree.move({margin, firstRow + m_clear.height() + margin, wide, band});

    const float secondRow = m_tree.top() + m_tree.height() + margin;
    m_reload.move(margin, secondRow);
    m_save.move(m_reload.left() + m_reload.width(), secondRow);
    m_exit.move(innerWidth() - (m_exit.width() + margin), secondRow);

    for (EntryPage *page : m_state.pages)
        page->layOut();
    m_tabs.finishLayout();
}

void EditorWindow::accessDataDisplay()
{
    if (m_dataDisplayIsArmed)
        showDataDisplay();
    m_dataDisplayIsArmed = !m_dataDisplayIsArmed;
}

void EditorWindow::showDataDisplay()
{
    if (!m_dataDisplay)
        m_dataDisplay = std::make_unique<ListingWindow>(m_state.model);
    m_dataDisplay->show();
}

void EditorWindow::turnPage()
{
    const ui::Hourglass hourglass;
    EntryPage &shown = shownPage();
    for (EntryPage *page : m_state.pages) {
        if (page != &shown)
            page->turnedAway();
    }
    const bool wasTyped = shown.hasTypedEntries();
    shown.turnedTo();
    if (!wasTyped)
        shown.settleEntries(); // a proposal is nothing typed
    drawLayout();
}

void EditorWindow::clear()
{
    EntryPage &page = shownPage();
    tellReplaced(replacing([&page] {
        page.clear();
        page.settleEntries();
    }));
}

void EditorWindow::showRecord(const RecordReference &record)
{
    const auto showLine = [this](const QString &name, int nameIndex) {
        m_linePage.show(name, nameIndex);
        m_linePage.settleEntries();
    };
    switch (record.kind) {
    case RecordKind::Line:
        m_tabs.setCurrentPage(0);
        showLine(record.key.name, record.key.nameIndex);
        break;
    case RecordKind::Field:
        m_tabs.setCurrentPage(1);
        if (const std::optional<Field> field = m_fieldPage.show(record.key.name, record.key.nameIndex))
            showLine(field->line, field->lineIndex);
        m_fieldPage.settleEntries();
        break;
    }
    drawLayout();
}

/// Whether a configuration is chosen or typed; a box asks for one.
bool EditorWindow::hasConfiguration() const
{
    if (!isBlank(m_state.configuration()))
        return true;
    ui::show(
        {"There is no configuration selected." + lineBreak + "Please select or enter a configuration first.",
         "Data Checking", ui::Icon::Critical});
    return false;
}

/// Returns whether a record was stored.
bool EditorWindow::change()
{
    const ui::Hourglass hourglass;
    tellProblems();
    if (!hasConfiguration())
        return false;
    EntryPage &page = shownPage();
    page.trimEntries(); // the focus is still in one of them when the menu's key asks for the change
    const std::size_t steps = m_state.model.stepCount();
    std::optional<NodePlace> place;
    {
        const Editing editing(m_state.model);
        place = page.store();
    }
    if (!place)
        return false;
    page.settleEntries();
    const bool hasChanged = m_state.model.stepCount() > steps;
    recordsChanged(hasChanged ? m_state.model.undoable() : nullptr);
    bringIntoView(*place);
    page.focusFirst();
    tellStored(hasChanged);
    return true;
}

/// Stores the record that is entered and makes the page ready for the next one.
void EditorWindow::changeAndNext()
{
    if (!change())
        return;
    EntryPage &page = shownPage();
    page.clearForNext();
    page.settleEntries();
    drawLayout();
}

void EditorWindow::bringIntoView(const NodePlace &place)
{
    if (m_tree.selectPlace(place.messageIndex, place.position))
        return;
    ui::show({.text = QStringList{"An error occurred that prevented displaying the",
                                  "configuration correctly.  This is usually caused",
                                  "by an error in the configuration data.",
                                  "Save your data, restart the line configuration",
                                  "editor and enter data starting at that point."}
                          .join(lineBreak),
              .icon = ui::Icon::Information});
}

void EditorWindow::removeShown()
{
    const ui::Hourglass hourglass;
    tellProblems();
    const std::optional<RecordReference> record = shownPage().namedRecord();
    const std::optional<RecordReference> neighbour = m_tree.neighbourOf(record);
    Removal removal;
    {
        const Editing editing(m_state.model);
        removal = shownPage().remove();
    }
    switch (removal) {
    case Removal::Declined:
        return;
    case Removal::Failed:
        rebuildTree();
        m_tree.select(record);
        return;
    case Removal::Done:
        shownPage().settleEntries();
        recordsChanged(m_state.model.undoable());
        m_tree.select(neighbour);
        tellRemoved(*m_state.model.undoable());
        return;
    }
}

/// Removes the record whose node is selected. A page shows the first line of a name where the index is 0;
/// that one is not meant.
void EditorWindow::removeSelected()
{
    if (m_tree.selectedRecord() == shownPage().namedRecord())
        removeShown();
    else
        tell({"The page shows another line of this name, so nothing was removed. Enter the index of the line "
              "on the page."});
}

void EditorWindow::listConfigurations()
{
    m_configuration.setText("");
    m_configuration.clear();
    for (const QString &name : m_state.session.configurationNames)
        m_configuration.addItem(name);
}

void EditorWindow::switchConfiguration()
{
    const ui::Hourglass hourglass;
    m_problems.clear();
    m_treeHasBoxes = false;
    if (isBlank(m_state.configuration()))
        return;
    const bool isTyped = m_configuration.isBeingTyped(); // a box would take the next keys
    const auto boxes = isTyped ? RecordTree::Boxes::HeldBack : RecordTree::Boxes::Shown;
    m_treeHasBoxes = rebuildTree(boxes) != RecordTree::Unshown() && isTyped;
    m_tree.showFirst();
    const auto take = [this](const std::optional<ui::MessageBox> &problem) {
        if (problem && !m_isSilent)
            m_problems.push_back(*problem);
    };
    tellReplaced(replacing([&] {
        take(m_linePage.showFirst());
        m_linePage.settleEntries();
    }));
    m_fieldPage.listLines();
    take(m_fieldPage.listDataFields());
    if (m_check)
        m_check->refill();
    drawLayout();
    if (m_findBar.isOpen())
        find();
    if (!isTyped)
        tellProblems();
}

/// Tells what has not been told of the shown configuration. To be called before anything changes it or shows
/// a box of its own.
void EditorWindow::tellProblems()
{
    if (std::exchange(m_treeHasBoxes, false)) {
        rebuildTree();
        m_tree.showFirst();
    }
    for (const ui::MessageBox &problem : std::exchange(m_problems, {}))
        ui::show(problem);
}

void EditorWindow::selectDefaultConfiguration()
{
    const int index = m_configuration.findItem(m_state.session.defaultConfiguration, ui::ItemMatch::Whole);
    if (index >= 0)
        m_configuration.setText(m_configuration.itemText(index));
}

void EditorWindow::refresh()
{
    const ui::Hourglass hourglass;
    m_configuration.setText("");
    selectDefaultConfiguration();
    m_tree.showFirst();
}

} // namespace varnow

#pragma once

#include "editor/EditorState.h"
#include "editor/FieldPage.h"
#include "editor/LinePage.h"
#include "editor/RecordTree.h"
#include "storage/recovery.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Label.h"
#include "ui/TabControl.h"
#include "ui/Window.h"

#include <QTimer>

#include <memory>

namespace varnow {

class ListingWindow;

/// The main window: the lines and fields of one configuration as a tree, and the pages to enter them. All
/// coordinates and sizes in twips.
class EditorWindow : public ui::Window
{
public:
    EditorWindow(Session &session, Model &model);
    ~EditorWindow() override;

    /// Writes at once what is unsaved into the recovery file. Returns whether that went well.
    bool keepUnsavedChanges();

    /// Tells that the records could not be loaded; `warning` is the end of the message.
    static void tellLoadFailure(const QStringList &warning);

private:
    void connectControls();
    void addMenus();
    void nameSteps();
    void arrangeFocus();
    void loadWindow();
    ui::CloseDecision closeRequested();
    void layOut();
    void accessDataDisplay();
    void showDataDisplay();

    EntryPage &shownPage() { return *m_state.pages[static_cast<std::size_t>(m_tabs.currentPage())]; }
    void turnPage();
    bool rebuildTree(RecordTree::Boxes boxes = RecordTree::Boxes::Shown)
    {
        return m_tree.rebuild(m_state.configuration(), boxes);
    }
    void bringIntoView(const QString &nodeKey);
    void showRecord(const RecordName &record);

    void change();
    void removeShown();
    void undo();
    void redo();
    void showStep(const EditStep &step);
    void recordsChanged();
    void historyChanged();

    void listConfigurations();
    void switchConfiguration();
    void tellProblems();
    void selectDefaultConfiguration();
    void refresh();
    void reload();
    void save();
    ui::CloseDecision promptToSave();

    ui::Labelled<ui::ComboBox> m_configuration{
        *this, "configuration", "Configuration", {0, 0, 930, 195}, {0, 0, 1245, 315}};
    EditorState m_state;
    ui::TabControl m_tabs{*this, "pages", {120, 555, 9495, 2500}};
    LinePage m_linePage{m_tabs, m_state};
    FieldPage m_fieldPage{m_tabs, m_state, m_linePage};
    RecordTree m_tree{*this, "tree", {120, 3000, 9495, 1500}, m_state.model};
    ui::CommandButton m_clear{*this, "clear", "&Clear", {0, 0, 1515, 765}};
    ui::CommandButton m_change{*this, "change", "C&hange", {0, 0, 1515, 765}};
    ui::CommandButton m_delete{*this, "delete", "&Delete", {0, 0, 1515, 765}};
    ui::CommandButton m_refresh{*this, "refresh", "R&efresh", {0, 0, 1515, 765}};
    ui::CommandButton m_reload{*this, "reload", "&Reload", {0, 0, 1515, 765}};
    ui::CommandButton m_save{*this, "save", "&Save", {0, 0, 1515, 765}};
    ui::CommandButton m_exit{*this, "exit", "E&xit", {0, 0, 1515, 765}};

    // What is to be told of the shown configuration as soon as it is no longer being typed.
    bool m_treeHasBoxes = false;
    std::vector<ui::MessageBox> m_problems;

    std::optional<ui::MenuEntry> m_undo;
    std::optional<ui::MenuEntry> m_redo;
    RecoveryFile m_recovery;
    QTimer m_recoveryTimer;            // runs from a change until it is in the recovery file
    bool m_dataDisplayIsArmed = false; // the next double-click opens it
    std::unique_ptr<ListingWindow> m_dataDisplay;
};

} // namespace varnow

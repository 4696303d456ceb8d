#pragma once

#include "editor/ConfigurationCommands.h"
#include "editor/ConfigurationSwitch.h"
#include "editor/EditorWindows.h"
#include "editor/EntryCommands.h"
#include "editor/EntryPages.h"
#include "editor/FindCommands.h"
#include "editor/Notices.h"
#include "editor/RecordTree.h"
#include "editor/SaveCommands.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/Label.h"
#include "ui/Window.h"

namespace varnow {

/// The main window: the lines and fields of one configuration as a tree, and the pages to enter them. All
/// coordinates and sizes in twips.
class EditorWindow : public ui::Window
{
public:
    /// The document must outlive the window.
    explicit EditorWindow(Document &document);

    /// Asks about unsaved changes, for the user's session is about to end. Returns whether it may.
    bool maySessionEnd() { return m_saving.promptToSave() == ui::CloseDecision::Close; }

private:
    void connectControls();
    void addToolTips();
    void addMenus();
    void addConfigurationMenu();
    void addEditMenu();
    void nameSteps();
    void loadWindow();
    void bringBackDrafts();
    ui::CloseDecision closeRequested();
    void layOut();
    void accessDataDisplay();
    void showLayout();
    void drawLayout();
    void tellUnshown(const RecordTree::Unshown &unshown);

    Document &m_document;
    ui::Labelled<ui::ComboBox> m_configurationBox{
        *this, "configuration", "Configuration", {0, 0, 930, 195}, {0, 0, 1245, 315}};
    EntryPages m_pages{*this, m_document};
    RecordTree m_tree{*this, "tree", {120, 3000, 9495, 1500}, m_document.model()};
    ui::CommandButton m_clear{*this, "clear", "&Clear", {0, 0, 1515, 765}};
    ui::CommandButton m_change{*this, "change", "C&hange", {0, 0, 1515, 765}};
    ui::CommandButton m_delete{*this, "delete", "&Delete", {0, 0, 1515, 765}};
    ui::CommandButton m_refresh{*this, "refresh", "R&efresh", {0, 0, 1515, 765}};
    ui::CommandButton m_reload{*this, "reload", "&Reload", {0, 0, 1515, 765}};
    ui::CommandButton m_save{*this, "save", "&Save", {0, 0, 1515, 765}};
    ui::CommandButton m_exit{*this, "exit", "E&xit", {0, 0, 1515, 765}};

    // Those who are told of a change first stand first.
    Notices m_notices{*this, m_document};
    ConfigurationSwitch m_switch{m_configurationBox, m_tree, m_pages, m_document};
    EntryCommands m_entries{m_document, m_tree, m_pages, m_switch, m_notices};
    SaveCommands m_saving{m_document, m_pages, m_switch, m_notices};
    ConfigurationCommands m_configurations{m_document, m_pages, m_switch, m_notices};
    FindCommands m_finding{*this, m_document};
    EditorWindows m_windows{m_document, [this](const RecordReference &record) { m_entries.show(record); }};

    std::optional<ui::MenuEntry> m_undo;
    std::optional<ui::MenuEntry> m_redo;
    bool m_dataDisplayIsArmed = false; // the next double-click opens it
};

} // namespace varnow

#pragma once

#include "editor/EditorState.h"
#include "editor/FieldPage.h"
#include "editor/LinePage.h"
#include "editor/RecordTree.h"
#include "model/search.h"
#include "storage/recovery.h"
#include "storage/save.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/FindBar.h"
#include "ui/Label.h"
#include "ui/NoticeBar.h"
#include "ui/TabControl.h"
#include "ui/Window.h"

#include <QTimer>

#include <memory>

namespace varnow {

class CheckWindow;
class HelpWindow;
class LayoutWindow;
class ListingWindow;
class UnsavedWindow;

/// The main window: the lines and fields of one configuration as a tree, and the pages to enter them. All
/// coordinates and sizes in twips.
class EditorWindow : public ui::Window
{
public:
    EditorWindow(Session &session, Model &model);
    ~EditorWindow() override;

    /// Writes at once what is unsaved into the recovery file. Returns whether that went well.
    bool keepUnsavedChanges();

    /// Takes changes of an earlier run that were not brought back, since their records have changed in the
    /// database meanwhile. The user may take them over one by one.
    void takeConflicts(const LeftChanges &conflicts);

    /// Asks about unsaved changes, for the user's session is about to end. Returns whether it may.
    bool maySessionEnd() { return promptToSave() == ui::CloseDecision::Close; }

    /// Tells that the records could not be loaded; `warning` is the end of the message.
    static void tellLoadFailure(const QStringList &warning);

private:
    /// What a user had typed on a page.
    struct TypedPage
    {
        EntryPage *page;
        QStringList texts;
        std::optional<RecordReference> record; ///< that the texts name
    };
    using TypedEntries = std::vector<TypedPage>;

    void connectControls();
    void addToolTips();
    void addMenus();
    void nameSteps();
    void showGuide();
    void arrangeFocus();
    void loadWindow();
    void emptyPages();
    ui::CloseDecision closeRequested();
    void layOut();
    void accessDataDisplay();
    void showDataDisplay();

    EntryPage &shownPage() { return *m_state.pages[static_cast<std::size_t>(m_tabs.currentPage())]; }
    void turnPage();
    RecordTree::Unshown rebuildTree(RecordTree::Boxes boxes = RecordTree::Boxes::Shown)
    {
        return m_tree.rebuild(m_state.configuration(), boxes);
    }
    void bringIntoView(const NodePlace &place);
    void showRecord(const RecordReference &record);

    void showNode(const RecordReference &record);

    void clear();
    bool change();
    void changeAndNext();
    void removeShown();
    void removeSelected();
    void undo();
    void redo();
    void showStep(const EditStep &step, const QString &verb);
    template <class Record, class Table>
    void showFirstOf(const Changes<Record> &changes, RecordKind kind, const Table &table);
    void recordsChanged(const EditStep *step);
    void historyChanged();
    void showUnsaved();
    void showRecordOf(const RecordReference &record);
    void tellEdited(const QString &sentence);
    void connectSearch();
    std::vector<RecordReference> find();
    void showMatch(int step);
    void showNew();
    void copy();
    void showConfigurationSilently(const QString &name);
    void tellDone(const TypedEntries &typed, const QString &sentence);
    void import(const QStringList &paths);
    void exportAs();
    bool hasConfiguration() const;
    void showCheck();
    void showLayout();
    void drawLayout();
    void moveFieldsOf(const Line &line);
    void storeInstead(const Field &field);

    void tell(const ui::Notice &notice);
    void tellLoaded(const QString &verb, const TypedEntries &typed = {});
    void tellStored(bool hasChanged);
    void tellStoredLine(const Change<Line> &change);
    void tellStoredField(const Change<Field> &change);
    void tellMovedField(const Change<Field> &change);
    void tellRemoved(const EditStep &step);
    void tellSaved(const ChangeCounts &before, const SaveResult &result);
    void tellReplaced(const TypedEntries &typed, const QString &sentence = {});
    ui::Notice::Button undoButton();
    ui::Notice::Button unsavedButton();

    TypedEntries replacing(const std::function<void()> &show);
    void bringBack(const TypedEntries &typed);

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

    ui::NoticeBar m_noticeBar{*this};
    ui::Notice m_notice; // shown there

    ui::FindBar m_findBar{*this};
    int m_shownMatch = -1; // index among what was found

    // What is to be told of the shown configuration as soon as it is no longer being typed.
    bool m_treeHasBoxes = false;
    std::vector<ui::MessageBox> m_problems;

    std::optional<ui::MenuEntry> m_undo;
    std::optional<ui::MenuEntry> m_redo;
    RecoveryFile m_recovery;
    QTimer m_recoveryTimer;       // runs from a change until it is in the recovery file
    bool m_hasToldUnkept = false; // that the file can not be written
    bool m_isGivenUp = false;     // the user said No to saving, and has changed nothing since
    LeftChanges m_conflicts;
    std::unique_ptr<UnsavedWindow> m_unsaved;
    std::unique_ptr<CheckWindow> m_check;
    std::unique_ptr<LayoutWindow> m_layout;
    std::unique_ptr<HelpWindow> m_help;
    bool m_isSilent = false;           // a configuration is shown that may be empty
    bool m_dataDisplayIsArmed = false; // the next double-click opens it
    std::unique_ptr<ListingWindow> m_dataDisplay;
};

} // namespace varnow

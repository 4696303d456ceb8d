// The part of the editor that loads and saves, and asks before something would be lost.

#include "editor/EditorWindow.h"

#include "base/RuntimeError.h"
#include "base/text.h"
#include "review/UnsavedWindow.h"
#include "storage/load.h"
#include "storage/save.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/RunWindow.h"

namespace varnow {

void EditorWindow::tellLoadFailure(const QStringList &warning)
{
    ui::show({(QStringList{"An unexpected error occurred while reading the",
                           "current Line and Line Fields configuration.",
                           "No current information is available and, if you"} +
               warning)
                  .join(lineBreak)});
}

void EditorWindow::reload()
{
    const ui::Hourglass hourglass;
    if (promptToSave() == ui::CloseDecision::StayOpen)
        return;
    const TypedEntries typed = replacing([this] { emptyPages(); });
    ui::RunWindow run;
    if (loadAll(m_state.session.configurationDatabase, m_state.model, run) != 0)
        tellLoadFailure({"'Save' this configuration, any current information", "will be lost."});
    m_state.changesMade = false;
    m_fieldPage.clearChoices();
    refresh();
    m_fieldPage.empty();
    m_tabs.setCurrentPage(0);
    m_fieldPage.settleEntries();
    m_state.changesMade = false;
    historyChanged();
    tellLoaded("Reloaded", typed);
}

void EditorWindow::save()
{
    const ui::Hourglass hourglass;
    tellProblems();
    ui::RunWindow run;
    const db::ConnectionSettings &database = m_state.session.configurationDatabase;
    const ChangeCounts before = m_state.model.countUnsaved();
    const SaveResult result = saveAll(database, m_state.model, run);
    if (result.code == 0)
        m_state.changesMade = false;
    if (result.code == 0 || result.code == errors::UserInterrupt)
        adoptIds(database, m_state.model, run);
    keepUnsavedChanges();
    if (m_unsaved)
        m_unsaved->refill();
    tellSaved(before, result);
}

/// Asks whether to save what would be lost, and saves. StayOpen when the user wants neither.
ui::CloseDecision EditorWindow::promptToSave()
{
    tellProblems();
    if (m_isGivenUp)
        return ui::CloseDecision::Close;
    const Model &model = m_state.model;
    if (!m_state.changesMade && !model.hasUnsavedChanges() && !model.hasRowsToDelete()) {
        keepUnsavedChanges(); // the file may still tell of a change that was undone just now
        return ui::CloseDecision::Close;
    }
    const ui::Answer answer =
        ui::askYesNoCancel(QStringList{"Changes have been made to the configuration.",
                                       "Any changes will be lost if you continue without saving.",
                                       "Do you want to save changes now?"}
                               .join(lineBreak),
                           "Save Changes");
    if (answer == ui::Answer::Yes) {
        save();
    } else if (answer == ui::Answer::No) {
        m_recoveryTimer.stop();
        m_recovery.remove();
        m_isGivenUp = true;
    }
    return answer == ui::Answer::Cancel ? ui::CloseDecision::StayOpen : ui::CloseDecision::Close;
}

} // namespace varnow

// The part of the editor that remembers what was done: undo, redo, and the file that outlives a crash.

#include "editor/EditorWindow.h"

#include "base/folders.h"
#include "base/names.h"
#include "base/text.h"
#include "review/CheckWindow.h"
#include "review/LayoutWindow.h"
#include "review/UnsavedWindow.h"
#include "ui/Application.h"

#include <utility>

namespace varnow {

/// A step, if there was one, has changed the records: everything that shows them follows.
void EditorWindow::recordsChanged(const EditStep *step)
{
    m_state.changesMade = true;
    historyChanged();
    if (step != nullptr)
        m_tree.follow(*step);
    drawLayout();
}

void EditorWindow::undo()
{
    const ui::Hourglass hourglass;
    tellProblems();
    if (m_state.model.undoable() != nullptr)
        showStep(m_state.model.undo(), "Undone: ");
}

void EditorWindow::redo()
{
    const ui::Hourglass hourglass;
    tellProblems();
    if (m_state.model.redoable() != nullptr)
        showStep(m_state.model.redo(), "Made again: ");
}

/// Shows what a step brought back or took away, and says so after `verb`.
void EditorWindow::showStep(const EditStep &step, const QString &verb)
{
    const QString sentence = verb + textOf(step) + '.';
    m_fieldPage.listLines();
    recordsChanged(&step);
    const TypedEntries typed = replacing([&] {
        if (!step.lines.empty())
            showFirstOf(step.lines, RecordKind::Line, m_state.model.lines);
        else
            showFirstOf(step.fields, RecordKind::Field, m_state.model.fields);
    });
    tellReplaced(typed, sentence);
}

/// Shows the first record that a step changed, where it still is there.
template <class Record, class Table>
void EditorWindow::showFirstOf(const Changes<Record> &changes, RecordKind kind, const Table &table)
{
    const Change<Record> &change = changes.front();
    const Record &record = change.was ? *change.was : *change.is;
    if (trim(m_state.configuration()) != record.configuration)
        m_configuration.setText(record.configuration);
    if (table.find(record.configuration, record.name, record.nameIndex) >= 0)
        showNode({kind, keyOf(record)});
}

/// Shows a record of the configuration, its node selected.
void EditorWindow::showNode(const RecordReference &record)
{
    m_tree.select(record);
    showRecord(record);
}

/// What can be undone, or what is unsaved, has changed.
void EditorWindow::historyChanged()
{
    m_isGivenUp = false;
    if (!m_recoveryTimer.isActive()) // else one change after the other would put it off
        m_recoveryTimer.start();
    nameSteps();
    if (m_unsaved)
        m_unsaved->refill();
    if (m_check)
        m_check->refill();
}

bool EditorWindow::keepUnsavedChanges()
{
    m_recoveryTimer.stop();
    if (m_isGivenUp || m_recovery.write(m_state.model, m_conflicts))
        return true;
    if (isLoaded() && !std::exchange(m_hasToldUnkept, true))
        tell({m_notice.sentence + " A crash would lose it: " + isolated(stateFolder()) +
                  " can not be written.",
              m_notice.buttons});
    return false;
}

void EditorWindow::takeConflicts(const LeftChanges &conflicts)
{
    m_conflicts = conflicts;
}

/// Shows a record that another window names.
void EditorWindow::showRecordOf(const RecordReference &record)
{
    tellReplaced(replacing([&] {
        if (trim(m_state.configuration()) != record.key.configuration)
            m_configuration.setText(record.key.configuration);
        showNode(record);
    }));
}

/// Another window has changed records.
void EditorWindow::tellEdited(const QString &sentence)
{
    m_fieldPage.listLines();
    recordsChanged(m_state.model.undoable());
    tell({sentence, {undoButton()}});
}

void EditorWindow::showUnsaved()
{
    if (!m_unsaved) {
        m_unsaved = std::make_unique<UnsavedWindow>(m_state.model, m_conflicts);
        m_unsaved->onShow = [this](const RecordReference &record) { showRecordOf(record); };
        m_unsaved->onEdited = [this](const QString &sentence) { tellEdited(sentence); };
    }
    m_unsaved->show();
}

} // namespace varnow

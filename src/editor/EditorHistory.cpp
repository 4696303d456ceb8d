// The part of the editor that remembers what was done: undo, redo, and the file that outlives a crash.

#include "editor/EditorWindow.h"

#include "base/text.h"
#include "ui/Application.h"

namespace varnow {

/// The records were changed by the user: everything that shows them follows.
void EditorWindow::recordsChanged()
{
    m_state.changesMade = true;
    historyChanged();
    rebuildTree();
}

void EditorWindow::undo()
{
    const ui::Hourglass hourglass;
    tellProblems();
    if (m_state.model.undoable() != nullptr)
        showStep(m_state.model.undo());
}

void EditorWindow::redo()
{
    const ui::Hourglass hourglass;
    tellProblems();
    if (m_state.model.redoable() != nullptr)
        showStep(m_state.model.redo());
}

/// Shows what came back: the first record that the step changed, where it still is there.
void EditorWindow::showStep(const EditStep &step)
{
    const auto show = [this](const auto &change, RecordName::Kind kind, const auto &table) {
        const auto &record = change.was ? *change.was : *change.is;
        if (trim(m_state.configuration()) != record.configuration)
            m_configuration.setText(record.configuration);
        const RecordName name{kind, record.name, record.nameIndex};
        if (table.find(record.configuration, record.name, record.nameIndex) >= 0) {
            m_tree.select(name);
            showRecord(name);
        }
    };
    m_fieldPage.listLines();
    recordsChanged();
    if (!step.lines.empty())
        show(step.lines.front(), RecordName::Kind::Line, m_state.model.lines);
    else
        show(step.fields.front(), RecordName::Kind::Field, m_state.model.fields);
}

/// What can be undone, or what is unsaved, has changed.
void EditorWindow::historyChanged()
{
    m_recoveryTimer.start();
    nameSteps();
}

/// Names the steps that can be undone and made again in the menu.
void EditorWindow::nameSteps()
{
    const auto name = [](ui::MenuEntry &entry, const QString &caption, const EditStep *step) {
        entry.setCaption(step == nullptr ? caption
                                         : caption + ' ' + QString(textOf(*step)).replace('&', "&&"));
        entry.setEnabled(step != nullptr);
    };
    name(*m_undo, "&Undo", m_state.model.undoable());
    name(*m_redo, "&Redo", m_state.model.redoable());
}

bool EditorWindow::keepUnsavedChanges()
{
    m_recoveryTimer.stop();
    return m_recovery.write(m_state.model);
}

} // namespace varnow

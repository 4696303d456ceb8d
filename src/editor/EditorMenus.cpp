// The part of the editor that is its menus.

#include "editor/EditorWindow.h"

#include "base/names.h"
#include "base/text.h"
#include "editor/AboutWindow.h"
#include "editor/HelpWindow.h"
#include "model/copyConfiguration.h"
#include "review/CheckWindow.h"
#include "review/LayoutWindow.h"
#include "transfer/TargetWindow.h"
#include "ui/Application.h"
#include "ui/fileDialogs.h"

#include <algorithm>

namespace varnow {

void EditorWindow::addMenus()
{
    ui::Menu configuration = addMenu("Confi&guration");
    configuration.add("&Save", "Ctrl+S", [this] { save(); });
    configuration.add("&Reload", "Ctrl+R", [this] { reload(); });
    configuration.add("&New…", "", [this] { showNew(); });
    configuration.add("&Copy to…", "", [this] { copy(); });
    configuration.add("&Import…", "Ctrl+I", [this] {
        import(ui::askForFiles("Choose Files to Import", {"CSV files", "csv"}));
    });
    configuration.add("&Export…", "Ctrl+E", [this] { exportAs(); });
    configuration.add("Chec&k", "F8", [this] { showCheck(); });
    configuration.add("E&xit", "Ctrl+Q", [this] { unload(); });
    ui::Menu edit = addMenu("Ed&it");
    m_undo = edit.add("&Undo", "Ctrl+Z", [this] { undo(); }); // in an entry the key is the entry's own
    m_redo = edit.add("&Redo", "Ctrl+Shift+Z Ctrl+Y", [this] { redo(); });
    edit.add("Change and ne&xt", "Ctrl+Enter Ctrl+Return", [this] { changeAndNext(); }).ignoreRepeats();
    edit.add("Unsaved &changes…", "Ctrl+U", [this] { showUnsaved(); });
    edit.add("&Find…", "Ctrl+F", [this] { m_findBar.open(); });
    edit.add("Find &next", "F3", [this] { showMatch(1); });
    edit.add("Find &previous", "Shift+F3", [this] { showMatch(-1); });
    ui::Menu view = addMenu("&View");
    view.add("&Data display", "F12", [this] { showDataDisplay(); });
    view.add("&Layout", "F11", [this] { showLayout(); });
    ui::Menu help = addMenu("Hel&p");
    help.add("&Guide", "F1", [this] { showGuide(); });
    help.add("&About Varnow", "", [] { AboutWindow().showModal(); });
    nameSteps();
}

/// Names the steps that can be undone and made again.
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

/// Shows a configuration that has no records yet; that it has none is nothing to tell of.
void EditorWindow::showNew()
{
    tellProblems();
    const std::optional<TargetWindow::Target> target =
        TargetWindow(m_state, TargetWindow::Purpose::New).ask();
    if (!target)
        return;
    const QString &name = target->configuration;
    const LineTable &lines = m_state.model.lines;
    const bool isNew = std::ranges::find(lines, name, &Line::configuration) == lines.end();
    const auto show = [&] {
        showConfigurationSilently(name);
        if (!isNew)
            return;
        emptyPages();
        m_tabs.setCurrentPage(0);
        m_linePage.clear();
        m_linePage.settleEntries();
    };
    tellReplaced(replacing(show), "Configuration " + isolated(name) + " is shown." +
                                      (isNew ? " It is saved with its first line." : ""));
}

void EditorWindow::copy()
{
    tellProblems();
    const QString source = trim(m_state.configuration());
    const std::optional<TargetWindow::Target> target =
        TargetWindow(m_state, TargetWindow::Purpose::Copy).ask();
    if (!target)
        return;
    const std::size_t steps = m_state.model.stepCount();
    {
        const ui::Hourglass hourglass;
        const Editing editing(m_state.model, "copy of " + source + " to " + target->configuration);
        copyConfiguration(m_state.model, source, target->configuration, target->equalKeys);
    }
    const bool hasCopied = m_state.model.stepCount() > steps;
    if (hasCopied) {
        m_state.changesMade = true;
        historyChanged();
    }
    const TypedEntries typed = replacing([&] { showConfigurationSilently(target->configuration); });
    const QString names = isolated(source) + " to " + isolated(target->configuration);
    if (hasCopied)
        tellDone(typed, "Copied " + names + "; it is not saved yet.");
    else
        tellReplaced(typed, "Nothing was copied from " + names + '.');
}

/// Shows a configuration without a box about what it lacks.
void EditorWindow::showConfigurationSilently(const QString &name)
{
    m_isSilent = true;
    m_configuration.setText("");
    m_configuration.setText(name);
    m_isSilent = false;
}

void EditorWindow::showCheck()
{
    if (!m_check) {
        m_check = std::make_unique<CheckWindow>(m_state);
        m_check->onShow = [this](const RecordReference &record) { showRecordOf(record); };
        m_check->onEdited = [this](const QString &sentence) { tellEdited(sentence); };
    }
    m_check->show();
}

void EditorWindow::showLayout()
{
    if (!m_layout) {
        m_layout = std::make_unique<LayoutWindow>(m_state.model);
        m_layout->onShow = [this](const RecordReference &record) { showRecordOf(record); };
    }
    m_layout->show();
    drawLayout();
}

void EditorWindow::showGuide()
{
    if (!m_help)
        m_help = std::make_unique<HelpWindow>();
    m_help->show();
}

/// Draws the line that is shown, or that of the field that is, if its window is open.
void EditorWindow::drawLayout()
{
    if (!m_layout || !m_layout->isLoaded())
        return;
    const bool isFieldShown = &shownPage() == &m_fieldPage;
    const std::optional<RecordReference> name =
        isFieldShown ? m_fieldPage.chosenLine() : m_linePage.namedRecord();
    const LineTable &lines = m_state.model.lines;
    const int index = name ? lines.find(name->key.configuration, name->key.name, name->key.nameIndex) : -1;
    m_layout->draw(index < 0 ? std::nullopt : std::optional(lines[index]), m_fieldPage.namedRecord());
}

} // namespace varnow

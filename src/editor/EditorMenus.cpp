// The part of the editor that is its menus.

#include "editor/EditorWindow.h"

#include "ui/MessageBox.h"

namespace varnow {

void EditorWindow::addMenus()
{
    ui::Menu configuration = addMenu("Confi&guration");
    configuration.add("&Save", "Ctrl+S", [this] { save(); });
    configuration.add("&Reload", "Ctrl+R", [this] { reload(); });
    configuration.add("E&xit", "Ctrl+Q", [this] { unload(); });
    ui::Menu edit = addMenu("Ed&it");
    m_undo = edit.add("&Undo", "Ctrl+Z", [this] { undo(); }); // in an entry the key is the entry's own
    m_redo = edit.add("&Redo", "Ctrl+Shift+Z Ctrl+Y", [this] { redo(); });
    edit.add("Unsaved &changes…", "Ctrl+U", [this] { showUnsaved(); });
    addMenu("&View").add("&Data display", "F12", [this] { showDataDisplay(); });
    addMenu("Hel&p").add("&About Varnow", "", [this] { showAbout(); });
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

void EditorWindow::showAbout()
{
    ui::show({m_state.session.about, "About Varnow", ui::Icon::Information});
}

} // namespace varnow

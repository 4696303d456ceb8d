#include "editor/AboutWindow.h"

#include "storage/version.h"
#include "ui/Application.h"

namespace varnow {

AboutWindow::AboutWindow() : ui::Window("about", "About Varnow", 7500, 2590, Border::FixedDialog)
{
    m_versions.setAccessibleName("Versions");
    setFocusOrder({&m_versions, &m_copy, &m_close});
    for (const QString &row : versionText().split(u'\n'))
        m_versions.addItem(row);
    m_copy.onClick = [this] {
        ui::copyToClipboard(versionText());
        m_copied.setCaption("Copied to the clipboard.");
    };
    m_copy.setToolTip("Copies these lines, for the report of a fault.");
    m_close.setToolTip("Closes this window.");
    m_close.setDefault();
    m_close.setCancel();
    m_close.onClick = [this] { unload(); };
}

} // namespace varnow

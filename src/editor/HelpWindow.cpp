#include "editor/HelpWindow.h"

#include "base/folders.h"
#include "ui/MessageBox.h"

namespace varnow {

HelpWindow::HelpWindow() : ui::ListWindow("help", "Guide", {130, 36})
{
    m_headings.setAccessibleName("Contents");
    m_guide.setAccessibleName("Guide");
    arrange({.content = {&m_headings, &m_guide}});
    onLoad = [this] { showGuide(); };
    m_headings.onSelect = [this] {
        if (const std::vector<int> selected = m_headings.selectedRows(); !selected.empty())
            m_guide.goTo(selected.front());
    };
}

void HelpWindow::showGuide()
{
    const QString path = dataFolder() + "/docs/guide.md";
    if (!m_guide.showFile(path))
        ui::show({"The guide is not there: " + path, "Guide", ui::Icon::Critical});
    std::vector<QStringList> rows;
    for (const QString &heading : m_guide.headings())
        rows.push_back({heading});
    m_headings.setRows(std::move(rows));
}

} // namespace varnow

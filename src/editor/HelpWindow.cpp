#include "editor/HelpWindow.h"

#include "base/folders.h"
#include "ui/MessageBox.h"

namespace varnow {

namespace {

constexpr float margin = 120;
constexpr float minimumWidth = 6000;
constexpr float minimumHeight = 3000;

} // namespace

HelpWindow::HelpWindow() : ui::Window("help", "Guide", 13500, 9000)
{
    m_headings.setAccessibleName("Contents");
    m_guide.setAccessibleName("Guide");
    setFocusOrder({&m_headings, &m_guide, &m_close});
    m_close.setCancel();
    m_close.setToolTip("Closes this window.");
    onLoad = [this] { showGuide(); };
    onResize = [this] { layOut(); };
    m_headings.onSelect = [this] {
        if (const std::vector<int> selected = m_headings.selectedRows(); !selected.empty())
            m_guide.goTo(selected.front());
    };
    m_close.onClick = [this] { unload(); };
}

void HelpWindow::layOut()
{
    if (isMinimised())
        return;
    enforceMinimumSize(minimumWidth, minimumHeight);
    const float top = innerHeight() - (m_close.height() + margin);
    const float height = top - 2 * margin;
    const float left = 2 * margin + m_headings.width();
    m_close.move(innerWidth() - (m_close.width() + margin), top);
    m_headings.move({margin, margin, m_headings.width(), height});
    m_guide.move({left, margin, innerWidth() - (left + margin), height});
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

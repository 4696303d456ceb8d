#include "review/LayoutWindow.h"

#include "model/RecordReference.h"

#include <utility>

namespace varnow {

namespace {

constexpr float margin = 120;
constexpr float minimumWidth = 5000;
constexpr float minimumHeight = 2800;

} // namespace

ui::Bar barOf(const LayoutBar &field)
{
    return {nameOf(*field.field), paddingOf(*field.field), field.start, field.length, field.overlaps};
}

LayoutWindow::LayoutWindow(const Model &model) : ui::Window("layout", "Layout", 9000, 3600), m_model(model)
{
    m_bars.setAccessibleName("Fixed-length fields");
    setFocusOrder({&m_bars, &m_close});
    m_close.setCancel();
    m_close.setToolTip("Closes this window.");
    onResize = [this] { layOut(); };
    m_bars.onBarClick = [this](int bar) {
        onShow(RecordReference(m_fields[static_cast<std::size_t>(bar)])); // they may be drawn anew meanwhile
    };
    m_close.onClick = [this] { unload(); };
}

void LayoutWindow::layOut()
{
    if (isMinimised())
        return;
    enforceMinimumSize(minimumWidth, minimumHeight);
    const float top = innerHeight() - (m_close.height() + margin);
    m_close.move(innerWidth() - (m_close.width() + margin), top);
    m_bars.move({margin, m_bars.top(), innerWidth() - 2 * margin, top - margin - m_bars.top()});
}

void LayoutWindow::draw(const std::optional<Line> &line, const std::optional<RecordReference> &field)
{
    m_fields.clear();
    std::vector<ui::Bar> bars;
    int current = ui::BarChart::none;
    for (const LayoutBar &bar : line ? layoutOf(m_model.fields, *line).bars : std::vector<LayoutBar>()) {
        m_fields.push_back({RecordKind::Field, keyOf(*bar.field)});
        if (field == m_fields.back())
            current = static_cast<int>(bars.size());
        bars.push_back(barOf(bar));
    }
    m_line.setCaption(!line              ? QStringLiteral("No line is shown in the editor.")
                      : m_fields.empty() ? "Line " + shownName(*line) + " has no fixed-length fields."
                                         : "Line " + shownName(*line));
    m_bars.setBars(std::move(bars));
    m_bars.setCurrentBar(current);
}

} // namespace varnow

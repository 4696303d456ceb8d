#include "review/LayoutWindow.h"

#include "model/RecordReference.h"

#include <utility>

namespace varnow {

ui::Bar barOf(const LayoutBar &field)
{
    return {nameOf(*field.field), paddingOf(*field.field), field.start, field.length, field.overlaps};
}

LayoutWindow::LayoutWindow(const Model &model) : ui::ListWindow("layout", "Layout", {90, 15}), m_model(model)
{
    m_bars.setAccessibleName("Fixed-length fields");
    arrange({.above = {&m_line}, .content = {&m_bars}});
    m_bars.onBarClick = [this](int bar) {
        onShow(RecordReference(m_fields[static_cast<std::size_t>(bar)])); // they may be drawn anew meanwhile
    };
}

void LayoutWindow::draw(const std::optional<Line> &line, const std::optional<RecordName> &field)
{
    m_fields.clear();
    std::vector<ui::Bar> bars;
    int current = ui::BarChart::none;
    for (const LayoutBar &bar : line ? layoutOf(m_model.fields, *line).bars : std::vector<LayoutBar>()) {
        m_fields.push_back({RecordKind::Field, keyOf(*bar.field)});
        if (field == nameWithinConfiguration(m_fields.back()))
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

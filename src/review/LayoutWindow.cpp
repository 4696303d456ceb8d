#include "review/LayoutWindow.h"

#include "model/RecordReference.h"

#include <utility>

namespace varnow {

ui::Bar barOf(const LayoutBar &field)
{
    return {nameOf(*field.field), paddingOf(*field.field), field.start, field.length, field.overlaps};
}

LayoutWindow::LayoutWindow(const Document &document)
    : ui::ListWindow("layout", "Layout", {120, 18}), m_document(document)
{
    m_bars.setAccessibleName("Fixed-length fields");
    arrange({.above = {&m_line}, .content = {&m_bars}});
    QObject::connect(&document, &Document::changed, &document, [this] { redraw(); });
    m_bars.onBarClick = [this](int bar) {
        onShow(RecordReference(m_fields[static_cast<std::size_t>(bar)])); // they may be drawn anew meanwhile
    };
}

void LayoutWindow::draw(const std::optional<RecordKey> &line, const std::optional<RecordReference> &field)
{
    m_shownLine = line;
    m_shownField = field;
    redraw();
}

void LayoutWindow::redraw()
{
    if (!isLoaded())
        return;
    const Model &model = m_document.model();
    const int index =
        m_shownLine ? model.lines.find(m_shownLine->configuration, m_shownLine->name, m_shownLine->nameIndex)
                    : -1;
    const Line *line = index < 0 ? nullptr : &model.lines[index];
    m_fields.clear();
    std::vector<ui::Bar> bars;
    int current = ui::BarChart::none;
    for (const LayoutBar &bar :
         line != nullptr ? layoutOf(model.fields, *line).bars : std::vector<LayoutBar>()) {
        m_fields.push_back({RecordKind::Field, keyOf(*bar.field)});
        if (m_shownField == m_fields.back())
            current = static_cast<int>(bars.size());
        bars.push_back(barOf(bar));
    }
    m_line.setCaption(line == nullptr    ? QStringLiteral("No line is shown in the editor.")
                      : m_fields.empty() ? "Line " + shownName(*line) + " has no fixed-length fields."
                                         : "Line " + shownName(*line));
    m_bars.setBars(std::move(bars));
    m_bars.setCurrentBar(current);
}

} // namespace varnow

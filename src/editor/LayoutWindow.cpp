#include "editor/LayoutWindow.h"

#include "model/RecordReference.h"
#include "model/lineLayout.h"

#include <algorithm>
#include <utility>

namespace varnow {

namespace {

constexpr float margin = 120;
constexpr float minimumWidth = 5000;
constexpr float minimumHeight = 2800;

} // namespace

std::vector<ui::Bar> barsOf(const FieldTable &fields, const Line &line)
{
    std::vector<ui::Bar> bars;
    for (const LayoutBar &bar : layoutOf(fields, line).bars)
        bars.push_back({nameOf(*bar.field), paddingOf(*bar.field), bar.start, bar.length, bar.overlaps});
    return bars;
}

LayoutWindow::LayoutWindow(const Model &model) : ui::Window("layout", "Layout", 9000, 3600), m_model(model)
{
    m_bars.setAccessibleName("Fixed-length fields");
    setFocusOrder({&m_bars, &m_close});
    m_close.setCancel();
    onResize = [this] { layOut(); };
    m_bars.onBarClick = [this](int bar) {
        const RecordKey key = m_fields[static_cast<std::size_t>(bar)];
        onShow(key.configuration, {RecordName::Kind::Field, key.name, key.nameIndex});
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

void LayoutWindow::draw(const std::optional<Line> &line, const std::optional<RecordName> &field)
{
    m_fields.clear();
    if (line) {
        for (const LayoutBar &bar : layoutOf(m_model.fields, *line).bars)
            m_fields.push_back(keyOf(*bar.field));
    }
    m_line.setCaption(!line              ? QStringLiteral("No line is shown in the editor.")
                      : m_fields.empty() ? "Line " + nameOf(*line) + " has no fixed-length fields."
                                         : "Line " + nameOf(*line));
    m_bars.setBars(line ? barsOf(m_model.fields, *line) : std::vector<ui::Bar>());
    const auto isCurrent = [&](const RecordKey &key) {
        return field && field->kind == RecordName::Kind::Field && key.name == field->name &&
               key.nameIndex == field->nameIndex;
    };
    const auto current = std::ranges::find_if(m_fields, isCurrent);
    m_bars.setCurrentBar(current == m_fields.end() ? ui::BarChart::none
                                                   : static_cast<int>(current - m_fields.begin()));
}

} // namespace varnow

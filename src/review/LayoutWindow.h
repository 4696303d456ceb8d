#pragma once

#include "editor/RecordTree.h"
#include "model/Model.h"
#include "model/lineLayout.h"
#include "ui/BarChart.h"
#include "ui/Button.h"
#include "ui/Label.h"
#include "ui/Window.h"

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// A fixed-length field as it is drawn.
ui::Bar barOf(const LayoutBar &field);

/// Draws the fixed-length fields of a line along its characters. Sizes in twips.
class LayoutWindow : public ui::Window
{
public:
    explicit LayoutWindow(const Model &model);

    /// The user clicked a field.
    std::function<void(const RecordReference &record)> onShow;

    /// Draws a line, or, without one, nothing. The field is marked.
    void draw(const std::optional<Line> &line, const std::optional<RecordReference> &field);

private:
    void layOut();

    const Model &m_model;
    std::vector<RecordReference> m_fields; // by bar

    ui::Label m_line{*this, "line", "", {120, 120, 8760, 195}};
    ui::BarChart m_bars{*this, "bars", {120, 420, 8760, 2400}};
    ui::CommandButton m_close{*this, "close", "Close", {0, 0, 1515, 600}};
};

} // namespace varnow

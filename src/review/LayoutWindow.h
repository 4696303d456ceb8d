#pragma once

#include "editor/RecordTree.h"
#include "model/Model.h"
#include "model/lineLayout.h"
#include "ui/BarChart.h"
#include "ui/Label.h"
#include "ui/ListWindow.h"

#include <functional>
#include <optional>
#include <vector>

namespace varnow {

/// A fixed-length field as it is drawn.
ui::Bar barOf(const LayoutBar &field);

/// Draws the fixed-length fields of a line along its characters.
class LayoutWindow : public ui::ListWindow
{
public:
    explicit LayoutWindow(const Model &model);

    /// The user clicked a field.
    std::function<void(const RecordReference &record)> onShow;

    /// Draws a line, or, without one, nothing. The field is marked.
    void draw(const std::optional<Line> &line, const std::optional<RecordName> &field);

private:
    const Model &m_model;
    std::vector<RecordReference> m_fields; // by bar

    ui::Label m_line{*this, "line", ""};
    ui::BarChart m_bars{*this, "bars"};
};

} // namespace varnow

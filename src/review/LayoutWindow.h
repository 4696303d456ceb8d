#pragma once

#include "document/Document.h"
#include "model/RecordReference.h"
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
    /// The document must outlive the window.
    explicit LayoutWindow(const Document &document);

    /// The user clicked a field.
    std::function<void(const RecordReference &record)> onShow;

    /// Draws a line, or, without one, nothing, and follows its changes. The field is marked.
    void draw(const std::optional<RecordKey> &line, const std::optional<RecordReference> &field);

private:
    void redraw();

    const Document &m_document;
    std::optional<RecordKey> m_shownLine;
    std::optional<RecordReference> m_shownField;
    std::vector<RecordReference> m_fields; // by bar

    ui::Label m_line{*this, "line", ""};
    ui::BarChart m_bars{*this, "bars"};
};

} // namespace varnow

#pragma once

#include "ui/BarPicture.h"
#include "ui/Control.h"

#include <functional>
#include <vector>

namespace varnow::ui {

/// Bars along a ruler of character positions, to scroll, to zoom (Ctrl with the wheel, Ctrl+Plus, Ctrl+Minus,
/// Ctrl+0) and to walk with the arrow keys.
class BarChart : public Control
{
public:
    static constexpr int none = -1;

    BarChart(Container &parent, const QString &name, const Rect &place = {});

    /// The user clicked a bar, or pressed Enter or the space bar on the current one.
    std::function<void(int bar)> onBarClick;

    /// Shows other bars, none of them the current one.
    void setBars(std::vector<Bar> bars);

    /// Marks a bar, or `none`, and scrolls to it; no click.
    void setCurrentBar(int bar);

private:
    class Widget;
    class Accessible;
    Widget *chart() const;
};

} // namespace varnow::ui

#pragma once

#include <QString>

#include <functional>

namespace varnow::ui {

class Window;

/// A bar at the foot of a window to look for a text. It is hidden until it is opened; Escape closes it and
/// gives the focus back.
class FindBar
{
public:
    explicit FindBar(Window &window);

    std::function<void()> onChange;   ///< another text is looked for
    std::function<void()> onNext;     ///< the button, or Enter
    std::function<void()> onPrevious; ///< the button, or Shift+Enter

    /// Shows the bar with the focus in its entry, all text selected.
    void open();
    bool isOpen() const;
    QString text() const;
    /// Tells beside the entry how many were found.
    void setCount(const QString &count);

private:
    class Widget;
    Widget *m_widget;
};

} // namespace varnow::ui

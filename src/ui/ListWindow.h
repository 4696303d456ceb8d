#pragma once

#include "ui/Button.h"
#include "ui/Window.h"

#include <vector>

namespace varnow::ui {

/// The button that closes a ListWindow.
struct CloseButton
{
    QString name = QStringLiteral("close");
    QString caption = QStringLiteral("Close");
    QString toolTip = QStringLiteral("Closes this window.");
};

/// A window around a list, a picture or a text: a row of controls above it, a row of buttons below it, the
/// last one closes the window, as Escape does. Its controls are made without a place and laid out by the
/// toolkit.
class ListWindow : public Window
{
public:
    /// The size that the window has at first, in the desktop's font.
    struct Size
    {
        int letters; ///< wide
        int lines;   ///< high
    };

    ListWindow(const QString &name, const QString &caption, const Size &size, const CloseButton &close = {});

protected:
    struct Parts
    {
        std::vector<Control *> above = {}; ///< the last takes the room that is left
        std::vector<Control *> content;    ///< side by side; the last is the widest
        std::vector<Control *> buttons = {};
    };

    /// Lays the controls out. Tab walks the content, what is above it, the buttons. To be called once, in the
    /// constructor.
    void arrange(const Parts &parts);

    Scale leastScale() const override;

private:
    class Watcher;
    void enforceLeastSize();

    CommandButton m_close;
};

} // namespace varnow::ui

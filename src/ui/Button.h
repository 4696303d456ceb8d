#pragma once

#include "ui/Control.h"

#include <functional>

namespace varnow::ui {

/// A push button. Its access key moves the focus to it before it clicks.
class CommandButton : public Control
{
public:
    CommandButton(Container &parent, const QString &name, const QString &caption, const Rect &place);

    std::function<void()> onClick;

    /// Makes Enter, pressed anywhere in the window, click this button.
    void setDefault();
    /// Makes Escape, pressed anywhere in the window, click this button.
    void setCancel();

    QSize neededPixels() const override;
};

/// A box to tick: 0 unchecked, 1 checked, 2 grayed.
class CheckBox : public Control
{
public:
    CheckBox(Container &parent, const QString &name, const QString &caption, const Rect &place);

    std::function<void()> onClick; ///< the value changed, by the user or by code

    int value() const;
    void setValue(int value);

    QSize neededPixels() const override;
};

/// One of the exclusive choices of a frame.
class OptionButton : public Control
{
public:
    OptionButton(Container &parent, const QString &name, const QString &caption, const Rect &place);

    std::function<void()> onClick; ///< the button became the chosen one, by the user or by code

    bool value() const;
    /// Chooses the button; the others of its frame are cleared.
    void choose();

    QSize neededPixels() const override;
};

} // namespace varnow::ui

#pragma once

#include "ui/Control.h"

#include <functional>

namespace varnow::ui {

/// A push button. Its access key moves the focus to it before it clicks.
class CommandButton : public Control
{
public:
    CommandButton(Container &parent, const QString &name, const QString &caption, const Rect &place = {});

    std::function<void()> onClick;

    void setCaption(const QString &caption);

    /// Makes Enter, pressed anywhere in the window, click this button.
    void setDefault();
    /// Makes Escape, pressed anywhere in the window, click this button.
    void setCancel();

    QSize neededPixels() const override;
};

/// A box to tick.
class CheckBox : public Control
{
public:
    CheckBox(Container &parent, const QString &name, const QString &caption, const Rect &place = {});

    std::function<void()> onClick; ///< the tick came or went, by the user or by code

    bool isTicked() const;
    void setTicked(bool ticked);

    QSize neededPixels() const override;

protected:
    int wantedHeight() const override;
};

/// One of the exclusive choices of a frame.
class OptionButton : public Control
{
public:
    OptionButton(Container &parent, const QString &name, const QString &caption, const Rect &place);

    std::function<void()> onClick; ///< the button became the chosen one, by the user or by code

    bool isChosen() const;
    /// Chooses the button; the others of its frame are cleared.
    void choose();

    QSize neededPixels() const override;

protected:
    int wantedHeight() const override;
};

} // namespace varnow::ui

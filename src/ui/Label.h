#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// A caption beside a control.
class Label : public Control
{
public:
    Label(Container &parent, const QString &name, const QString &caption, const Rect &place = {});

    QString caption() const;
    void setCaption(const QString &caption);
    /// Makes the caption what a screen reader calls the control.
    void setBuddy(Control &control);
    QSize neededPixels() const override;

protected:
    int wantedHeight() const override;
};

/// A control made together with the label beside it.
template <class Box> class Labelled : public Box
{
public:
    /// `name` and `place` are those of the control.
    Labelled(Container &parent, const QString &name, const QString &caption, const Rect &labelPlace,
             const Rect &place)
        : Box(parent, name, place), label(parent, name + "Label", caption, labelPlace)
    {
        label.setBuddy(*this);
    }

    Label label;
};

} // namespace varnow::ui

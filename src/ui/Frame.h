#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// A container with a border and, where it is given one, a caption.
class Frame : public Control, public Container
{
public:
    Frame(Container &parent, const QString &name, const QString &caption, const Rect &place);

    ControlHost &host() override { return m_host; }
    QWidget *surface() override { return widget(); }
    void adopt(Control &control) override;

    QSize neededPixels() const override;

private:
    ControlHost &m_host;
    const Control *m_first = nullptr; // the control below the caption
};

/// A container with a raised three-dimensional border.
class Panel : public Control, public Container
{
public:
    Panel(Container &parent, const QString &name, const Rect &place);

    ControlHost &host() override { return m_host; }
    QWidget *surface() override { return widget(); }

private:
    ControlHost &m_host;
};

} // namespace varnow::ui

#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// A container with a border and, where it is given one, a caption.
class Frame : public Control, public Container
{
public:
    Frame(Container &parent, const QString &name, const QString &caption, const Rect &place);

    Window &window() override { return m_owner; }
    QWidget *surface() override { return widget(); }

private:
    Window &m_owner;
};

/// A container with a raised three-dimensional border.
class Panel : public Control, public Container
{
public:
    Panel(Container &parent, const QString &name, const Rect &place);

    Window &window() override { return m_owner; }
    QWidget *surface() override { return widget(); }

private:
    Window &m_owner;
};

} // namespace varnow::ui

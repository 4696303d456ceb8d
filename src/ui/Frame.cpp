#include "ui/Frame.h"

#include <QFrame>
#include <QGroupBox>

namespace varnow::ui {

namespace {

QWidget *makeFrame(QWidget *parent, const QString &caption)
{
    if (!caption.isEmpty())
        return new QGroupBox(caption, parent);
    auto *frame = new QFrame(parent);
    frame->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    return frame;
}

QWidget *makePanel(QWidget *parent)
{
    auto *panel = new QFrame(parent);
    panel->setFrameStyle(QFrame::Panel | QFrame::Raised);
    return panel;
}

} // namespace

Frame::Frame(Container &parent, const QString &name, const QString &caption, const Rect &place)
    : Control(parent, name, makeFrame(parent.surface(), caption), place), m_host(parent.host())
{
}

Panel::Panel(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, makePanel(parent.surface()), place), m_host(parent.host())
{
}

} // namespace varnow::ui

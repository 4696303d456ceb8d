#include "ui/Frame.h"

#include <QFrame>
#include <QGroupBox>
#include <QStyleOptionGroupBox>

#include <cmath>

namespace varnow::ui {

namespace {

class GroupBox : public QGroupBox
{
public:
    using QGroupBox::QGroupBox;

    /// Where the caption and the line below it end.
    int captionBottom() const
    {
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        return style()
                   ->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this)
                   .bottom() +
               2;
    }
};

QWidget *makeFrame(QWidget *parent, const QString &caption)
{
    if (!caption.isEmpty())
        return new GroupBox(caption, parent);
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

void Frame::adopt(Control &control)
{
    if (m_first == nullptr)
        m_first = &control;
}

/// The first control, which keeps its middle where it is, must not reach up into the caption.
QSize Frame::neededPixels() const
{
    const auto *box = dynamic_cast<const GroupBox *>(widget());
    if (box == nullptr || m_first == nullptr)
        return {};
    const auto pixels =
        static_cast<float>(box->captionBottom()) + static_cast<float>(m_first->neededPixels().height()) / 2;
    const float middle = m_first->top() + m_first->height() / 2;
    return {0, static_cast<int>(std::ceil(pixels / middle * height()))};
}

Panel::Panel(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, makePanel(parent.surface()), place), m_host(parent.host())
{
}

} // namespace varnow::ui

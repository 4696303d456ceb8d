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

    QRect captionPlace() const
    {
        QStyleOptionGroupBox option;
        initStyleOption(&option);
        return style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, this);
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

/// The first control, which keeps its middle where it is, must not reach up into the caption or into the line
/// below it.
QSize Frame::neededPixels() const
{
    const auto *box = dynamic_cast<const GroupBox *>(widget());
    if (box == nullptr || m_first == nullptr)
        return {};
    const QRect caption = box->captionPlace();
    constexpr int line = 1;
    const int above = caption.top() + caption.height() + line;
    const float middle = static_cast<float>(above) + static_cast<float>(m_first->neededPixels().height()) / 2;
    const float middleTwips = m_first->top() + m_first->height() / 2;
    return {caption.left() + caption.width(), static_cast<int>(std::ceil(middle / middleTwips * height()))};
}

Panel::Panel(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, makePanel(parent.surface()), place), m_host(parent.host())
{
}

} // namespace varnow::ui

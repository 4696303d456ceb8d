#include "ui/Control.h"

#include "ui/toolTip.h"

#include <QFontMetrics>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace varnow::ui {

Control::Control(Container &parent, const QString &name, QWidget *widget, const Rect &place)
    : m_host(parent.host()), m_parent(parent), m_widget(widget), m_place(place)
{
    m_widget->setObjectName(name);
    m_host.add(*this);
    parent.adopt(*this);
    applyPlace();
}

Control::~Control()
{
    m_host.remove(*this);
    delete m_widget;
}

void Control::move(float left, float top)
{
    move({left, top, m_place.width, m_place.height});
}

void Control::move(const Rect &place)
{
    m_place = place;
    applyPlace();
}

void Control::applyPlace()
{
    if (m_place.width == 0)
        return;
    // Edges are rounded, not sizes, so that controls that touch in twips touch on the screen.
    const auto [x, y] = m_host.scale();
    const auto pixel = [](float twips, float scale) { return static_cast<int>(std::lround(twips * scale)); };
    const int left = pixel(m_place.left, x);
    const int top = pixel(m_place.top, y);
    const QSize size(pixel(m_place.left + m_place.width, x) - left,
                     pixel(m_place.top + m_place.height, y) - top);
    const int missing = std::max(0, wantedHeight() - size.height());
    const QPoint corner = QPoint(left, top - missing / 2) - m_parent.origin();
    m_widget->setGeometry({corner, size + QSize(0, missing)});
}

bool Control::isEnabled() const
{
    return m_widget->isEnabled();
}

void Control::setEnabled(bool enabled)
{
    m_widget->setEnabled(enabled);
}

void Control::setFocus()
{
    m_widget->setFocus(Qt::OtherFocusReason);
}

void Control::setTabStop(bool stop)
{
    m_widget->setFocusPolicy(stop ? Qt::StrongFocus : Qt::ClickFocus);
}

void Control::setAccessibleName(const QString &name)
{
    m_widget->setAccessibleName(name);
}

void Control::setToolTip(const QString &sentence)
{
    explain(*m_widget, sentence);
}

QSize Control::neededPixels() const
{
    return {};
}

int Control::letterHeight() const
{
    // The tallest letter that captions have, and the lowest.
    return m_widget->fontMetrics().tightBoundingRect(QStringLiteral("fg")).height();
}

int Control::lineHeight() const
{
    return m_widget->fontMetrics().height() + 2;
}

} // namespace varnow::ui

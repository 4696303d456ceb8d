#include "ui/BarChart.h"

#include <QAccessibleWidget>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace varnow::ui {

namespace {

constexpr double leastZoom = 1.0 / 64;
constexpr double greatestZoom = 16;
constexpr double zoomStep = 1.25;
constexpr int margin = 8; // around the picture, in pixels

} // namespace

/// Shows the picture as the background of a scene without items, for which the toolkit does the scrolling.
class BarChart::Widget : public QGraphicsView
{
public:
    explicit Widget(QWidget *parent);

    std::function<void(int bar)> clicked = [](int) {};

    const BarPicture &picture() const { return m_picture; }
    int count() const { return static_cast<int>(m_picture.bars().size()); }
    int current() const { return m_current; }

    void setBars(std::vector<Bar> bars)
    {
        m_current = none;
        remake(std::move(bars));
    }

    void setCurrent(int bar);

    /// Zooms so that what is at `x` of the viewport stays there.
    void setZoom(double zoom, double x)
    {
        const double ratio = std::clamp(zoom, leastZoom, greatestZoom) / m_zoom;
        const double at = mapToScene(0, 0).x() + x;
        m_zoom *= ratio;
        remake(m_picture.bars());
        horizontalScrollBar()->setValue(qRound(at * ratio - x));
    }

    /// Where a bar is seen, in pixels of the viewport; it may lie outside.
    QRect placeOf(int bar) const { return mapFromScene(m_picture.rectOf(bar)).boundingRect(); }

protected:
    void drawBackground(QPainter *painter, const QRectF &exposed) override;
    void mousePressEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    bool viewportEvent(QEvent *event) override;

    void changeEvent(QEvent *event) override
    {
        QGraphicsView::changeEvent(event);
        if (event->type() == QEvent::FontChange)
            remake(m_picture.bars());
        else if (event->type() == QEvent::PaletteChange)
            viewport()->update();
    }

    void focusInEvent(QFocusEvent *event) override
    {
        QGraphicsView::focusInEvent(event);
        viewport()->update();
        tellCurrent();
    }

    void focusOutEvent(QFocusEvent *event) override
    {
        QGraphicsView::focusOutEvent(event);
        viewport()->update();
    }

private:
    int barAt(QPoint point) const { return m_picture.barAt(mapToScene(point)); }

    void remake(std::vector<Bar> bars)
    {
        m_picture = BarPicture(std::move(bars), font(), m_zoom);
        m_order.resize(m_picture.bars().size());
        std::iota(m_order.begin(), m_order.end(), 0);
        std::ranges::stable_sort(
            m_order, {}, [this](int bar) { return m_picture.bars()[static_cast<std::size_t>(bar)].start; });
        setSceneRect(QRectF({}, m_picture.size()).adjusted(-margin, -margin, margin, margin));
        viewport()->update();
    }

    void walk(int steps);
    void tellCurrent();

    double m_zoom = 1;
    BarPicture m_picture{{}, font(), 1};
    std::vector<int> m_order; ///< bars by start, as the arrow keys walk them
    int m_current = none;
};

/// What assistive tools see: a list of bars, the current one with the focus.
class BarChart::Accessible : public QAccessibleWidget
{
public:
    explicit Accessible(Widget *chart) : QAccessibleWidget(chart, QAccessible::List), m_chart(*chart) {}

    ~Accessible() override
    {
        for (const QAccessible::Id id : m_items)
            QAccessible::deleteAccessibleInterface(id);
    }

    static QAccessibleInterface *make(const QString &, QObject *object)
    {
        auto *chart = dynamic_cast<Widget *>(object);
        return chart == nullptr ? nullptr : new Accessible(chart);
    }

    int childCount() const override { return m_chart.count(); }
    QAccessibleInterface *child(int index) const override;
    QAccessibleInterface *focusChild() const override { return child(m_chart.current()); }
    int indexOfChild(const QAccessibleInterface *child) const override;

private:
    class Item;

    Widget &m_chart;
    mutable std::vector<QAccessible::Id> m_items; // made when they are asked for, of the first bars
};

class BarChart::Accessible::Item : public QAccessibleInterface
{
public:
    Item(Widget &chart, int bar) : m_chart(chart), m_bar(bar) {}

    int bar() const { return m_bar; }

    bool isValid() const override { return m_bar < m_chart.count(); }
    QObject *object() const override { return nullptr; }
    QWindow *window() const override { return m_chart.window()->windowHandle(); }
    QAccessibleInterface *parent() const override { return QAccessible::queryAccessibleInterface(&m_chart); }
    QAccessibleInterface *child(int) const override { return nullptr; }
    QAccessibleInterface *childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface *) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString &) override {}

    QString text(QAccessible::Text kind) const override
    {
        return isValid() && kind == QAccessible::Name
                   ? textOf(m_chart.picture().bars()[static_cast<std::size_t>(m_bar)])
                   : QString();
    }

    QRect rect() const override
    {
        if (!isValid())
            return {};
        const QRect place = m_chart.placeOf(m_bar);
        return {m_chart.viewport()->mapToGlobal(place.topLeft()), place.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        const bool isCurrent = m_bar == m_chart.current();
        state.focusable = state.selectable = true;
        state.selected = isCurrent;
        state.focused = isCurrent && m_chart.hasFocus();
        return state;
    }

private:
    Widget &m_chart;
    int m_bar;
};

QAccessibleInterface *BarChart::Accessible::child(int index) const
{
    if (index < 0 || index >= m_chart.count())
        return nullptr;
    while (static_cast<int>(m_items.size()) <= index)
        m_items.push_back(
            QAccessible::registerAccessibleInterface(new Item(m_chart, static_cast<int>(m_items.size()))));
    return QAccessible::accessibleInterface(m_items[static_cast<std::size_t>(index)]);
}

int BarChart::Accessible::indexOfChild(const QAccessibleInterface *child) const
{
    const auto *item = dynamic_cast<const Item *>(child);
    return item == nullptr ? -1 : item->bar();
}

BarChart::Widget::Widget(QWidget *parent) : QGraphicsView(parent)
{
    setScene(new QGraphicsScene(this));
    setAlignment(Qt::AlignLeft | Qt::AlignTop);
    setRenderHint(QPainter::Antialiasing);
    QAccessible::installFactory(&Accessible::make); // once, however often it is called
    setFocusPolicy(Qt::StrongFocus);
}

void BarChart::Widget::setCurrent(int bar)
{
    m_current = bar >= 0 && bar < count() ? bar : none;
    viewport()->update();
    if (m_current == none)
        return;
    QRectF place = m_picture.rectOf(m_current);
    place.setWidth(std::min(place.width(), viewport()->width() - 2.0 * margin)); // its beginning
    ensureVisible(place, margin, margin);
    tellCurrent();
}

/// Tells assistive tools that the current bar has the focus.
void BarChart::Widget::tellCurrent()
{
    if (m_current == none || !hasFocus())
        return;
    QAccessibleEvent event(this, QAccessible::Focus);
    event.setChild(m_current);
    QAccessible::updateAccessibility(&event);
}

void BarChart::Widget::drawBackground(QPainter *painter, const QRectF &exposed)
{
    painter->setFont(font());
    if (!m_picture.bars().empty())
        return m_picture.paint(*painter, exposed, palette(), m_current);
    painter->setPen(palette().color(QPalette::Text));
    painter->drawText(mapToScene(viewport()->rect()).boundingRect(), Qt::AlignCenter,
                      QStringLiteral("There is nothing to show."));
}

void BarChart::Widget::mousePressEvent(QMouseEvent *event)
{
    const int bar = event->button() == Qt::LeftButton ? barAt(event->position().toPoint()) : none;
    if (bar == none)
        return;
    setCurrent(bar);
    clicked(bar);
}

void BarChart::Widget::wheelEvent(QWheelEvent *event)
{
    const double notches = event->angleDelta().y() / 120.0;
    if ((event->modifiers() & Qt::ControlModifier) != 0) {
        setZoom(m_zoom * std::pow(zoomStep, notches), event->position().x());
        event->accept();
    } else if (verticalScrollBar()->maximum() == 0 && event->angleDelta().x() == 0) {
        QScrollBar &scrollBar = *horizontalScrollBar(); // the wheel would have nothing else to do
        scrollBar.setValue(scrollBar.value() - qRound(notches * 3 * fontMetrics().height()));
        event->accept();
    } else {
        QGraphicsView::wheelEvent(event);
    }
}

void BarChart::Widget::keyPressEvent(QKeyEvent *event)
{
    const bool isControl = (event->modifiers() & Qt::ControlModifier) != 0;
    const double middle = viewport()->width() / 2.0;
    const int key = event->key();
    if (isControl && (key == Qt::Key_Plus || key == Qt::Key_Equal))
        setZoom(m_zoom * zoomStep, middle);
    else if (isControl && key == Qt::Key_Minus)
        setZoom(m_zoom / zoomStep, middle);
    else if (isControl && key == Qt::Key_0)
        setZoom(1, middle);
    else if (key == Qt::Key_Right || key == Qt::Key_Down)
        walk(1);
    else if (key == Qt::Key_Left || key == Qt::Key_Up)
        walk(-1);
    else if (key == Qt::Key_Home)
        walk(-count());
    else if (key == Qt::Key_End)
        walk(count());
    else if ((key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) && m_current != none)
        clicked(m_current);
    else
        event->ignore();
}

/// Makes the bar so many places further on the current one; without one it begins at the first.
void BarChart::Widget::walk(int steps)
{
    if (count() == 0)
        return;
    const auto found = std::ranges::find(m_order, m_current);
    const int place =
        found == m_order.end() ? (steps == count() ? 0 : -steps) : static_cast<int>(found - m_order.begin());
    setCurrent(m_order[static_cast<std::size_t>(std::clamp(place + steps, 0, count() - 1))]);
}

bool BarChart::Widget::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip)
        return QGraphicsView::viewportEvent(event);
    const auto *help = static_cast<QHelpEvent *>(event);
    const int bar = barAt(help->pos());
    QToolTip::showText(help->globalPos(),
                       bar == none ? QString()
                                   : textOf(m_picture.bars()[static_cast<std::size_t>(bar)]).toHtmlEscaped(),
                       this);
    return true;
}

BarChart::BarChart(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new Widget(parent.surface()), place)
{
    chart()->clicked = [this](int bar) {
        if (onBarClick)
            onBarClick(bar);
    };
}

BarChart::Widget *BarChart::chart() const
{
    return static_cast<Widget *>(widget());
}

void BarChart::setBars(std::vector<Bar> bars)
{
    chart()->setBars(std::move(bars));
}

void BarChart::setCurrentBar(int bar)
{
    chart()->setCurrent(bar);
}

} // namespace varnow::ui

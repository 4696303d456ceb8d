#include "ui/TabControl.h"

#include <QApplication>
#include <QEvent>
#include <QScrollArea>
#include <QStyle>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace varnow::ui {

namespace {

int stripHeight(const QWidget *tabs)
{
    return static_cast<const QTabWidget *>(tabs)->tabBar()->sizeHint().height();
}

} // namespace

/// The surface lies below the tabs, as wide as the tab control, and scrolls where it has too little room.
class TabControl::Page : public Container
{
public:
    Page(TabControl &owner, int index)
        : m_owner(owner), m_index(index), m_area(new QScrollArea(owner.widget()))
    {
        m_area->setFrameShape(QFrame::NoFrame);
        m_area->setFocusPolicy(Qt::NoFocus);
        m_area->setWidgetResizable(true);
        m_area->setWidget(new QWidget);
        for (QWidget *transparent : {m_area->viewport(), m_area->widget()})
            transparent->setAutoFillBackground(false);
        QObject::connect(qApp, &QApplication::focusChanged, m_area, [this](QWidget *, QWidget *focused) {
            if (focused != nullptr && m_area->isAncestorOf(focused))
                bringIntoView(*focused);
        });
        arrange();
        m_area->setVisible(index == owner.m_shown);
    }

    ControlHost &host() override { return m_owner.m_host; }
    QWidget *surface() override { return m_area->widget(); }
    QPoint origin() const override { return {0, stripHeight(m_owner.widget())}; }

    /// Fits the surface to the tab control.
    void arrange() { m_area->setGeometry(m_owner.widget()->rect().adjusted(0, origin().y(), 0, 0)); }

    void adopt(Control &control) override
    {
        m_controls.push_back(&control);
        place(control, m_owner.m_shown == m_index);
    }

    void setShown(bool shown)
    {
        for (Control *control : m_controls)
            place(*control, shown);
        m_area->setVisible(shown); // what is hidden takes no focus and no access key
        if (shown) {
            const QRect taken = m_area->widget()->childrenRect();
            m_area->widget()->setMinimumSize(taken.right() + 1, taken.bottom() + 1);
        }
    }

private:
    void bringIntoView(const QWidget &control)
    {
        const QPoint middle = control.mapTo(m_area->widget(), control.rect().center());
        m_area->ensureVisible(middle.x(), middle.y(), control.width() / 2 + 1, control.height() / 2 + 1);
    }

    static void place(Control &control, bool shown)
    {
        const bool isOff = control.left() < -offPage / 2;
        if (shown == isOff)
            control.move(control.left() + (shown ? offPage : -offPage), control.top());
    }

    TabControl &m_owner;
    int m_index;
    QScrollArea *m_area;
    std::vector<Control *> m_controls;
};

namespace {

/// Moves the focus to the tabs when an access key shows a page, so that Tab goes on into the page.
class FocusOnAccessKey : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *tabBar, QEvent *event) override
    {
        if (event->type() == QEvent::Shortcut)
            static_cast<QTabBar *>(tabBar)->setFocus(Qt::ShortcutFocusReason);
        return false;
    }
};

} // namespace

TabControl::TabControl(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new QTabWidget(parent.surface()), place), m_host(parent.host())
{
    auto *tabs = static_cast<QTabWidget *>(widget());
    tabs->setFocusProxy(tabs->tabBar());
    tabs->tabBar()->setFocusPolicy(Qt::StrongFocus); // a click on a tab leaves the entry it was in
    tabs->tabBar()->installEventFilter(new FocusOnAccessKey(tabs));
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [this](int index) { showPage(index); });
}

TabControl::~TabControl() = default;

Container &TabControl::addPage(const QString &caption)
{
    static_cast<QTabWidget *>(widget())->addTab(new QWidget, caption);
    m_pages.push_back(std::make_unique<Page>(*this, static_cast<int>(m_pages.size())));
    return *m_pages.back();
}

int TabControl::currentPage() const
{
    return m_shown;
}

void TabControl::setCurrentPage(int index)
{
    static_cast<QTabWidget *>(widget())->setCurrentIndex(index);
}

void TabControl::showPage(int index)
{
    auto *tabs = static_cast<QTabWidget *>(widget());
    const QWidget *focused = tabs->window()->focusWidget();
    if (focused != nullptr && tabs->isAncestorOf(focused))
        tabs->tabBar()->setFocus(Qt::OtherFocusReason);
    if (index == m_shown)
        return; // the first page is shown as soon as it is added
    m_shown = index;
    finishLayout();
    if (onClick)
        onClick();
}

void TabControl::finishLayout()
{
    for (int i = 0; i < static_cast<int>(m_pages.size()); ++i)
        m_pages[static_cast<std::size_t>(i)]->setShown(i == m_shown);
}

float TabControl::tabHeight() const
{
    return static_cast<float>(stripHeight(widget())) / m_host.scale().y;
}

TabControl::Room TabControl::roomFor(const Room &least) const
{
    const int bar = widget()->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, widget());
    const float beside = least.height > height() ? static_cast<float>(bar) / m_host.scale().x : 0;
    return {std::max(least.width, width() - beside), std::max(least.height, height())};
}

void TabControl::applyPlace()
{
    Control::applyPlace();
    for (const std::unique_ptr<Page> &page : m_pages)
        page->arrange();
}

TabControl::PaintingPaused::PaintingPaused(TabControl &tabs) : m_tabs(tabs)
{
    m_tabs.widget()->setUpdatesEnabled(false);
}

TabControl::PaintingPaused::~PaintingPaused()
{
    m_tabs.widget()->setUpdatesEnabled(true);
}

} // namespace varnow::ui

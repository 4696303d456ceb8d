#include "ui/TabControl.h"

#include <QEvent>
#include <QTabBar>
#include <QTabWidget>

namespace varnow::ui {

class TabControl::Page : public Container
{
public:
    Page(TabControl &owner, int index) : m_owner(owner), m_index(index) {}

    ControlHost &host() override { return m_owner.m_host; }
    QWidget *surface() override { return m_owner.widget(); }

    void adopt(Control &control) override
    {
        m_controls.push_back(&control);
        place(control, m_owner.m_shown == m_index);
    }

    void setShown(bool shown)
    {
        for (Control *control : m_controls)
            place(*control, shown);
    }

private:
    static void place(Control &control, bool shown)
    {
        const bool isOff = control.left() < 0;
        if (shown == isOff)
            control.move(control.left() + (shown ? offPage : -offPage), control.top());
        control.widget()->setVisible(shown); // what is hidden takes no focus and no access key
    }

    TabControl &m_owner;
    int m_index;
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
    tabs->tabBar()->installEventFilter(new FocusOnAccessKey(tabs));
    QObject::connect(tabs, &QTabWidget::currentChanged, tabs, [this](int index) { showPage(index); });
}

TabControl::~TabControl() = default;

Container &TabControl::addPage(const QString &caption)
{
    m_pages.push_back(std::make_unique<Page>(*this, static_cast<int>(m_pages.size())));
    static_cast<QTabWidget *>(widget())->addTab(new QWidget, caption);
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
    for (int i = 0; i < static_cast<int>(m_pages.size()); ++i)
        m_pages[static_cast<std::size_t>(i)]->setShown(i == index);
    if (onClick)
        onClick();
}

void TabControl::hideOtherPages()
{
    for (int i = 0; i < static_cast<int>(m_pages.size()); ++i) {
        if (i != m_shown)
            m_pages[static_cast<std::size_t>(i)]->setShown(false);
    }
}

float TabControl::tabHeight() const
{
    const auto *tabs = static_cast<QTabWidget *>(widget());
    return static_cast<float>(tabs->tabBar()->sizeHint().height()) / m_host.pixelsPerTwip();
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

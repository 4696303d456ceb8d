#include "ui/Window.h"

#include "ui/accessibleRole.h"
#include "ui/fileDrops.h"
#include "ui/pushButton.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMenuBar>
#include <QScreen>
#include <QStyle>
#include <QThread>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace varnow::ui {

namespace {

/// The scale never goes below this: 15 twips to the pixel, 96 pixels to the inch.
constexpr Scale smallestScale{1.0F / 15.0F, 1.0F / 15.0F};

std::vector<Window *> &loaded()
{
    static std::vector<Window *> windows;
    return windows;
}

/// Pixels that a title bar takes to show the caption whole, in bold and beside an icon and three buttons.
int titleBarWidth(const QWidget &widget)
{
    QFont font = widget.font();
    font.setBold(true);
    return QFontMetrics(font).horizontalAdvance(widget.windowTitle()) +
           4 * widget.style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

} // namespace

class Window::Widget : public QWidget
{
public:
    explicit Widget(Window &owner) : m_owner(owner)
    {
        makeAccessibleWindow(*this);
        client = new QWidget(this);
    }

    QWidget *client;
    QMenuBar *menuBar = nullptr;

    /// Adds a bar above those that stand at the foot already.
    void addBar(QWidget *bar)
    {
        m_bars.push_back(bar);
        bar->installEventFilter(this);
    }

    /// What the menu bar and the bars at the foot take.
    QSize beyondClient() const { return {0, menuHeight() + footHeight()}; }

    QSize frame() const { return frameGeometry().size() - size(); }
    /// What the screen has for the client area.
    QSize room() const { return screen()->availableSize() - frame() - beyondClient(); }

protected:
    void changeEvent(QEvent *event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
            desktopChanged();
    }

    void showEvent(QShowEvent *event) override
    {
        QWidget::showEvent(event);
        QObject::connect(windowHandle(), &QWindow::screenChanged, this, &Widget::screenChanged,
                         Qt::UniqueConnection);
        followScreen();
    }

    void moveEvent(QMoveEvent *) override { findFrame(); }

    void resizeEvent(QResizeEvent *) override
    {
        findFrame();
        rearrange();
    }

    /// A bar at the foot came or went.
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent)
            rearrange();
        return false;
    }

    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        // Labels and disabled controls pass their clicks on to here.
        if (childAt(event->position().toPoint()) == client && m_owner.onDoubleClick)
            m_owner.onDoubleClick();
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (!clickButtonFor(*event, *this))
            QWidget::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent *event) override
    {
        event->ignore();
        m_owner.unload();
    }

private:
    int menuHeight() const { return menuBar == nullptr ? 0 : menuBar->sizeHint().height(); }

    int footHeight() const
    {
        int height = 0;
        for (const QWidget *bar : m_bars)
            height += bar->isHidden() ? 0 : bar->sizeHint().height();
        return height;
    }

    void rearrange()
    {
        if (menuBar != nullptr)
            menuBar->setGeometry(0, 0, width(), menuHeight());
        client->setGeometry(0, menuHeight(), width(), height() - beyondClient().height());
        int bottom = height();
        for (QWidget *bar : m_bars) {
            const int barHeight = bar->isHidden() ? 0 : bar->sizeHint().height();
            bottom -= barHeight;
            bar->setGeometry(0, bottom, width(), barHeight);
        }
        if (m_owner.m_loaded && m_owner.onResize)
            m_owner.onResize();
    }

    /// The frame is there only when the window stands on the screen.
    void findFrame()
    {
        const QSize before = std::exchange(m_knownFrame, frame());
        if (before != m_knownFrame)
            desktopChanged();
    }

    void screenChanged()
    {
        followScreen();
        desktopChanged();
    }

    void followScreen()
    {
        QObject::connect(screen(), &QScreen::availableGeometryChanged, this, &Widget::desktopChanged,
                         Qt::UniqueConnection);
        QObject::connect(screen(), &QScreen::logicalDotsPerInchChanged, this, &Widget::desktopChanged,
                         Qt::UniqueConnection);
    }

    /// Acts later, when all controls have learned of the change.
    void desktopChanged()
    {
        QMetaObject::invokeMethod(
            this, [this] { m_owner.followDesktop(); }, Qt::QueuedConnection);
    }

    Window &m_owner;
    std::vector<QWidget *> m_bars; // from the foot upwards
    QSize m_knownFrame{0, 0};
};

Window::Window(const QString &name, const QString &caption, float innerWidth, float innerHeight,
               Border border)
    : m_widget(std::make_unique<Widget>(*this))
    , m_designedWidth(innerWidth)
    , m_designedHeight(innerHeight)
    , m_border(border)
    , m_scale(smallestScale)
{
    m_widget->setObjectName(name);
    m_widget->setWindowTitle(caption);
    if (border == Border::FixedDialog)
        m_widget->setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                 Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

Window::~Window()
{
    std::erase(loaded(), this);
}

bool Window::isMinimised() const
{
    return m_widget->isMinimized();
}

float Window::innerWidth() const
{
    return static_cast<float>(m_widget->width()) / m_scale.x;
}

float Window::innerHeight() const
{
    return static_cast<float>(m_widget->height() - m_widget->beyondClient().height()) / m_scale.y;
}

QSize Window::pixels(float width, float height) const
{
    return {static_cast<int>(std::ceil(width * m_scale.x)), static_cast<int>(std::ceil(height * m_scale.y))};
}

void Window::enforceMinimumSize(float width, float height)
{
    enforceMinimumPixels(pixels(width, height) - m_widget->frame());
}

void Window::enforceMinimumPixels(const QSize &inner)
{
    m_widget->setMinimumSize(inner.boundedTo(m_widget->room()).expandedTo({1, 1}) + m_widget->beyondClient());
}

void Window::add(Control &control)
{
    m_controls.push_back(&control);
}

void Window::remove(Control &control)
{
    std::erase(m_controls, &control);
}

Scale Window::leastScale() const
{
    Scale least = smallestScale;
    const auto widen = [](float &scale, int pixels, float twips) {
        if (pixels > 0)
            scale = std::max(scale, static_cast<float>(pixels) / twips);
    };
    if (m_border == Border::FixedDialog)
        widen(least.x, titleBarWidth(*m_widget), m_designedWidth);
    for (const Control *control : m_controls) {
        const QSize needed = control->neededPixels();
        widen(least.x, needed.width(), control->width());
        widen(least.y, needed.height(), control->height());
    }
    return least;
}

void Window::fit()
{
    m_scale = leastScale();
    for (Control *control : m_controls)
        control->applyPlace();
    if (m_border == Border::FixedDialog)
        m_widget->setFixedSize(pixels(m_designedWidth, m_designedHeight) + m_widget->beyondClient());
}

/// Takes over another font, screen or frame. The user's size stays where the screen has room for it.
void Window::followDesktop()
{
    if (!m_loaded)
        return;
    fit();
    if (onResize)
        onResize();
    if (m_border == Border::Sizable && m_widget->windowState() == Qt::WindowNoState)
        m_widget->resize(m_widget->size().boundedTo(m_widget->room() + m_widget->beyondClient()));
}

void Window::load()
{
    if (m_loaded)
        return;
    fit();
    if (m_border == Border::Sizable)
        m_widget->resize(pixels(m_designedWidth, m_designedHeight).boundedTo(m_widget->room()) +
                         m_widget->beyondClient());
    if (onFilesDropped && !m_widget->acceptDrops())
        acceptFileDrops(*m_widget, onFilesDropped);
    m_loaded = true;
    loaded().push_back(this);
    if (onLoad)
        onLoad();
    if (onResize)
        onResize();
}

void Window::show()
{
    const bool first = !m_loaded;
    load();
    if (first && m_border == Border::FixedDialog)
        m_widget->move(m_widget->screen()->availableGeometry().center() - m_widget->rect().center());
    if (m_widget->isMinimized())
        m_widget->showNormal();
    m_widget->show();
    m_widget->raise();
    m_widget->activateWindow();
    if (!first)
        return;
    if (m_firstInFocusOrder != nullptr)
        m_firstInFocusOrder->widget()->setFocus(Qt::TabFocusReason);
    if (onActivate)
        onActivate();
}

void Window::showInFront()
{
    m_widget->setWindowModality(Qt::ApplicationModal);
    show();
    for (int i = 0; i < 100 && !m_widget->windowHandle()->isExposed(); ++i) {
        QThread::msleep(5); // the desktop takes a while, and may never show it
        QCoreApplication::processEvents();
    }
}

void Window::showModal()
{
    showInFront();
    QEventLoop loop;
    while (m_loaded)
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

bool Window::unload()
{
    if (!m_loaded)
        return true;
    if (m_unloading)
        return false;
    m_unloading = true;
    const CloseDecision decision = onCloseRequest ? onCloseRequest() : CloseDecision::Close;
    m_unloading = false;
    if (decision == CloseDecision::StayOpen)
        return false;
    m_loaded = false;
    std::erase(loaded(), this);
    m_widget->hide();
    // A modal window has a loop of its own. An exit that ends no loop ends the next one, a message box say,
    // before it has shown anything.
    if (loaded().empty() && !m_widget->isModal())
        QCoreApplication::exit(0);
    return true;
}

Menu Window::addMenu(const QString &caption)
{
    if (m_widget->menuBar == nullptr) {
        m_widget->menuBar = new QMenuBar(m_widget.get());
        letKeysThrough(*m_widget->menuBar);
    }
    return Menu(m_widget->menuBar->addMenu(caption));
}

void Window::addBar(QWidget *bar)
{
    m_widget->addBar(bar);
}

QWidget *Window::frameSurface()
{
    return m_widget.get();
}

void Window::setFocusOrder(const std::vector<Control *> &controls)
{
    m_firstInFocusOrder = controls.front();
    for (std::size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1]->widget(), controls[i]->widget());
}

QWidget *Window::surface()
{
    return m_widget->client;
}

std::vector<Window *> Window::loadedWindows()
{
    return loaded();
}

void Window::unloadAll()
{
    for (Window *window : loadedWindows())
        window->unload();
}

} // namespace varnow::ui

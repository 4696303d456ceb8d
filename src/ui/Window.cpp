#include "ui/Window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QStyle>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace varnow::ui {

namespace {

/// The scale never goes below this: 15 twips to the pixel, 96 pixels to the inch.
constexpr float smallestScale = 1.0F / 15.0F;

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
    explicit Widget(Window &owner) : m_owner(owner) {}

protected:
    void resizeEvent(QResizeEvent *) override
    {
        if (m_owner.m_loaded && m_owner.onResize)
            m_owner.onResize();
    }

    void mouseDoubleClickEvent(QMouseEvent *event) override
    {
        // Labels and disabled controls pass their clicks on to here.
        if (childAt(event->position().toPoint()) == nullptr && m_owner.onDoubleClick)
            m_owner.onDoubleClick();
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        const bool accept = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        const char *role = accept                           ? "acceptsEnter"
                           : event->key() == Qt::Key_Escape ? "acceptsEscape"
                                                            : nullptr;
        for (QPushButton *button : role ? findChildren<QPushButton *>() : QList<QPushButton *>()) {
            if (button->property(role).toBool() && button->isEnabled()) {
                button->setFocus(Qt::ShortcutFocusReason);
                button->click();
                return;
            }
        }
        QWidget::keyPressEvent(event);
    }

    void closeEvent(QCloseEvent *event) override
    {
        event->ignore();
        m_owner.unload();
    }

private:
    Window &m_owner;
};

Window::Window(const QString &name, const QString &caption, float innerWidth, float innerHeight,
               Border border)
    : m_widget(std::make_unique<Widget>(*this))
    , m_designedWidth(innerWidth)
    , m_designedHeight(innerHeight)
    , m_border(border)
    , m_pixelsPerTwip(smallestScale)
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

QString Window::caption() const
{
    return m_widget->windowTitle();
}

void Window::setCaption(const QString &caption)
{
    m_widget->setWindowTitle(caption);
    if (m_loaded && m_border == Border::FixedDialog)
        fitScale();
}

bool Window::isMinimised() const
{
    return m_widget->isMinimized();
}

float Window::width() const
{
    return static_cast<float>(m_widget->frameGeometry().width()) / m_pixelsPerTwip;
}

float Window::height() const
{
    return static_cast<float>(m_widget->frameGeometry().height()) / m_pixelsPerTwip;
}

float Window::innerWidth() const
{
    return static_cast<float>(m_widget->width()) / m_pixelsPerTwip;
}

float Window::innerHeight() const
{
    return static_cast<float>(m_widget->height()) / m_pixelsPerTwip;
}

void Window::enforceMinimumSize(float width, float height)
{
    const QSize frame = m_widget->frameGeometry().size() - m_widget->size();
    const QSize outer(static_cast<int>(std::ceil(width * m_pixelsPerTwip)),
                      static_cast<int>(std::ceil(height * m_pixelsPerTwip)));
    m_widget->setMinimumSize((outer - frame).expandedTo({1, 1}));
}

void Window::add(Control &control)
{
    m_controls.push_back(&control);
}

void Window::remove(Control &control)
{
    std::erase(m_controls, &control);
}

/// Widens the scale until every control shows its caption whole at its designed size. A fixed dialog, which
/// the user cannot widen, shows its own whole too.
void Window::fitScale()
{
    if (m_border == Border::FixedDialog)
        m_pixelsPerTwip =
            std::max(m_pixelsPerTwip, static_cast<float>(titleBarWidth(*m_widget)) / m_designedWidth);
    for (const Control *control : m_controls) {
        const QSize needed = control->neededPixels();
        if (needed.width() > 0)
            m_pixelsPerTwip =
                std::max(m_pixelsPerTwip, static_cast<float>(needed.width()) / control->width());
        if (needed.height() > 0)
            m_pixelsPerTwip =
                std::max(m_pixelsPerTwip, static_cast<float>(needed.height()) / control->height());
    }
    for (Control *control : m_controls)
        control->applyPlace();
    const QSize size(static_cast<int>(std::ceil(m_designedWidth * m_pixelsPerTwip)),
                     static_cast<int>(std::ceil(m_designedHeight * m_pixelsPerTwip)));
    if (m_border == Border::FixedDialog)
        m_widget->setFixedSize(size);
    else
        m_widget->resize(size);
}

void Window::load()
{
    if (m_loaded)
        return;
    fitScale();
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
    if (onActivate)
        onActivate();
    if (m_firstInFocusOrder != nullptr)
        m_firstInFocusOrder->widget()->setFocus(Qt::TabFocusReason);
}

void Window::showInFront()
{
    m_widget->setWindowModality(Qt::ApplicationModal);
    show();
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

void Window::setKey(const QString &key, const std::function<void()> &action)
{
    QObject::connect(new QShortcut(QKeySequence(key), m_widget.get()), &QShortcut::activated, m_widget.get(),
                     action);
}

void Window::setFocusOrder(const std::vector<Control *> &controls)
{
    m_firstInFocusOrder = controls.front();
    for (std::size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1]->widget(), controls[i]->widget());
}

QWidget *Window::surface()
{
    return m_widget.get();
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

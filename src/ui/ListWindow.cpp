#include "ui/ListWindow.h"

#include <QDialogButtonBox>
#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace varnow::ui {

namespace {

constexpr float leastLetters = 50; // however little the controls need
constexpr float leastLines = 12;
constexpr int shareOfLast = 3; // of the width of the content, to 1 of each other control

QHBoxLayout *makeRow(const std::vector<Control *> &controls, int lastShare)
{
    auto *row = new QHBoxLayout;
    for (Control *control : controls)
        row->addWidget(control->widget(), control == controls.back() ? lastShare : lastShare / shareOfLast);
    return row;
}

} // namespace

/// Sees that the controls need more or less room than before.
class ListWindow::Watcher : public QObject
{
public:
    explicit Watcher(ListWindow &owner) : QObject(owner.surface()), m_owner(owner) {}

    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::LayoutRequest)
            m_owner.enforceLeastSize();
        return false;
    }

private:
    ListWindow &m_owner;
};

ListWindow::ListWindow(const QString &name, const QString &caption, const Size &size,
                       const CloseButton &close)
    : Window(name, caption, static_cast<float>(size.letters), static_cast<float>(size.lines))
    , m_close(*this, close.name, close.caption)
{
    m_close.setToolTip(close.toolTip);
    m_close.setCancel();
    m_close.onClick = [this] { unload(); };
    onResize = [this] { enforceLeastSize(); };
    surface()->installEventFilter(new Watcher(*this));
}

void ListWindow::arrange(const Parts &parts)
{
    auto *rows = new QVBoxLayout(surface());
    if (!parts.above.empty()) {
        rows->addLayout(makeRow(parts.above, 1));
        // A text of any length must not widen the window.
        if (auto *label = qobject_cast<QLabel *>(parts.above.back()->widget()))
            label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    }
    rows->addLayout(makeRow(parts.content, shareOfLast), 1);
    auto *box = new QDialogButtonBox;
    for (const Control *button : parts.buttons)
        box->addButton(static_cast<QPushButton *>(button->widget()), QDialogButtonBox::ActionRole);
    box->addButton(static_cast<QPushButton *>(m_close.widget()), QDialogButtonBox::RejectRole);
    rows->addWidget(box);

    std::vector<Control *> order;
    for (const auto &controls : {parts.content, parts.above, parts.buttons, {&m_close}}) {
        for (Control *control : controls) {
            if (control->widget()->focusPolicy() != Qt::NoFocus)
                order.push_back(control);
        }
    }
    setFocusOrder(order);
}

/// Here a letter's width and a line's height are the units of length.
Scale ListWindow::leastScale() const
{
    const QFontMetrics letters = m_close.widget()->fontMetrics();
    return {static_cast<float>(letters.averageCharWidth()), static_cast<float>(letters.lineSpacing())};
}

void ListWindow::enforceLeastSize()
{
    enforceMinimumPixels(
        surface()->layout()->totalMinimumSize().expandedTo(pixels(leastLetters, leastLines)));
}

} // namespace varnow::ui

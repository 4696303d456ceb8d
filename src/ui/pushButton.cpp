#include "ui/pushButton.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcutEvent>

namespace varnow::ui {

namespace {

constexpr const char *onEnter = "clickedByEnter";
constexpr const char *onEscape = "clickedByEscape";

bool isEnter(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

class PushButton : public QPushButton
{
public:
    using QPushButton::QPushButton;

protected:
    bool event(QEvent *event) override
    {
        if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent *>(event)->isAmbiguous())
            return QPushButton::event(event);
        setFocus(Qt::ShortcutFocusReason);
        click();
        return true;
    }

    void keyPressEvent(QKeyEvent *event) override
    {
        if (isEnter(*event))
            click();
        else
            QPushButton::keyPressEvent(event);
    }
};

} // namespace

QPushButton *makePushButton(const QString &caption, QWidget *parent)
{
    auto *button = new PushButton(caption, parent);
    // Some styles give buttons no focus by click; then the entry being left would not be trimmed before.
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

void clickOnEnter(QWidget &button)
{
    button.setProperty(onEnter, true);
}

void clickOnEscape(QWidget &button)
{
    button.setProperty(onEscape, true);
}

bool clickButtonFor(const QKeyEvent &event, const QWidget &window)
{
    const char *mark = isEnter(event) ? onEnter : event.key() == Qt::Key_Escape ? onEscape : nullptr;
    for (QPushButton *button : mark ? window.findChildren<QPushButton *>() : QList<QPushButton *>()) {
        if (button->property(mark).toBool() && button->isEnabled()) {
            button->setFocus(Qt::ShortcutFocusReason);
            button->click();
            return true;
        }
    }
    return false;
}

} // namespace varnow::ui

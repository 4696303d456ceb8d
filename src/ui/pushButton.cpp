#include "ui/pushButton.h"

#include <QKeyEvent>
#include <QPushButton>
#include <QShortcutEvent>

namespace varnow::ui {

namespace {

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
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
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

} // namespace varnow::ui

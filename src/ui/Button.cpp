#include "ui/Button.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QPushButton>
#include <QRadioButton>
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

template <class Owner> auto clickForwarder(Owner *owner)
{
    return [owner] {
        if (owner->onClick)
            owner->onClick();
    };
}

} // namespace

CommandButton::CommandButton(Container &parent, const QString &name, const QString &caption,
                             const Rect &place)
    : Control(parent, name, new PushButton(caption, parent.surface()), place)
{
    auto *button = static_cast<QPushButton *>(widget());
    QObject::connect(button, &QPushButton::clicked, button, clickForwarder(this));
}

void CommandButton::setDefault()
{
    widget()->setProperty("acceptsEnter", true);
    static_cast<QPushButton *>(widget())->setDefault(true);
}

void CommandButton::setCancel()
{
    widget()->setProperty("acceptsEscape", true);
}

QSize CommandButton::neededPixels() const
{
    return widget()->sizeHint();
}

CheckBox::CheckBox(Container &parent, const QString &name, const QString &caption, const Rect &place)
    : Control(parent, name, new QCheckBox(caption, parent.surface()), place)
{
    auto *box = static_cast<QCheckBox *>(widget());
    QObject::connect(box, &QCheckBox::stateChanged, box, clickForwarder(this));
}

int CheckBox::value() const
{
    switch (static_cast<QCheckBox *>(widget())->checkState()) {
    case Qt::Checked:
        return 1;
    case Qt::PartiallyChecked:
        return 2;
    default:
        return 0;
    }
}

void CheckBox::setValue(int value)
{
    auto *box = static_cast<QCheckBox *>(widget());
    box->setCheckState(value == 1 ? Qt::Checked : value == 2 ? Qt::PartiallyChecked : Qt::Unchecked);
    box->setTristate(false); // the user only ticks and unticks
}

QSize CheckBox::neededPixels() const
{
    return widget()->sizeHint();
}

OptionButton::OptionButton(Container &parent, const QString &name, const QString &caption, const Rect &place)
    : Control(parent, name, new QRadioButton(caption, parent.surface()), place)
{
    auto *button = static_cast<QRadioButton *>(widget());
    QObject::connect(button, &QRadioButton::toggled, button, [this](bool chosen) {
        if (chosen && onClick)
            onClick();
    });
}

bool OptionButton::value() const
{
    return static_cast<QRadioButton *>(widget())->isChecked();
}

void OptionButton::choose()
{
    static_cast<QRadioButton *>(widget())->setChecked(true);
}

QSize OptionButton::neededPixels() const
{
    return widget()->sizeHint();
}

} // namespace varnow::ui

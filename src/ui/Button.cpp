#include "ui/Button.h"

#include "ui/pushButton.h"

#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

#include <algorithm>

namespace varnow::ui {

namespace {

/// Height of the box or circle beside a caption.
int indicatorHeight(const QWidget *button, QStyle::PixelMetric indicator)
{
    return button->style()->pixelMetric(indicator, nullptr, button);
}

/// Some styles give buttons no focus by click; then the entry being left would not be trimmed before.
template <class Button> Button *focusable(Button *button)
{
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}

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
    : Control(parent, name, makePushButton(caption, parent.surface()), place)
{
    auto *button = static_cast<QPushButton *>(widget());
    QObject::connect(button, &QPushButton::clicked, button, clickForwarder(this));
}

void CommandButton::setCaption(const QString &caption)
{
    static_cast<QPushButton *>(widget())->setText(caption);
}

void CommandButton::setDefault()
{
    clickOnEnter(*widget());
    static_cast<QPushButton *>(widget())->setDefault(true);
}

void CommandButton::setCancel()
{
    clickOnEscape(*widget());
}

QSize CommandButton::neededPixels() const
{
    return widget()->sizeHint();
}

CheckBox::CheckBox(Container &parent, const QString &name, const QString &caption, const Rect &place)
    : Control(parent, name, focusable(new QCheckBox(caption, parent.surface())), place)
{
    auto *box = static_cast<QCheckBox *>(widget());
    QObject::connect(box, &QCheckBox::toggled, box, clickForwarder(this));
}

bool CheckBox::isTicked() const
{
    return static_cast<QCheckBox *>(widget())->isChecked();
}

void CheckBox::setTicked(bool ticked)
{
    static_cast<QCheckBox *>(widget())->setChecked(ticked);
}

QSize CheckBox::neededPixels() const
{
    return {widget()->sizeHint().width(),
            std::max(letterHeight(), indicatorHeight(widget(), QStyle::PM_IndicatorHeight))};
}

int CheckBox::wantedHeight() const
{
    return widget()->fontMetrics().height();
}

OptionButton::OptionButton(Container &parent, const QString &name, const QString &caption, const Rect &place)
    : Control(parent, name, focusable(new QRadioButton(caption, parent.surface())), place)
{
    auto *button = static_cast<QRadioButton *>(widget());
    QObject::connect(button, &QRadioButton::toggled, button, [this](bool chosen) {
        if (chosen && onClick)
            onClick();
    });
}

bool OptionButton::isChosen() const
{
    return static_cast<QRadioButton *>(widget())->isChecked();
}

void OptionButton::choose()
{
    static_cast<QRadioButton *>(widget())->setChecked(true);
}

QSize OptionButton::neededPixels() const
{
    return {widget()->sizeHint().width(),
            std::max(letterHeight(), indicatorHeight(widget(), QStyle::PM_ExclusiveIndicatorHeight))};
}

int OptionButton::wantedHeight() const
{
    return widget()->fontMetrics().height();
}

} // namespace varnow::ui

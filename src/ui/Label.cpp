#include "ui/Label.h"

#include <QLabel>

namespace varnow::ui {

Label::Label(Container &parent, const QString &name, const QString &caption, const Rect &place)
    : Control(parent, name, new QLabel(caption, parent.surface()), place)
{
    static_cast<QLabel *>(widget())->setTextFormat(Qt::PlainText);
}

QString Label::caption() const
{
    return static_cast<QLabel *>(widget())->text();
}

void Label::setCaption(const QString &caption)
{
    static_cast<QLabel *>(widget())->setText(caption);
    applyPlace(); // an empty label wants no height
}

void Label::setBuddy(Control &control)
{
    control.setAccessibleName(caption());
    static_cast<QLabel *>(widget())->setBuddy(control.widget());
}

QSize Label::neededPixels() const
{
    return {widget()->sizeHint().width(), letterHeight()};
}

int Label::wantedHeight() const
{
    return widget()->sizeHint().height();
}

} // namespace varnow::ui

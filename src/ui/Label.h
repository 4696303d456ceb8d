#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// A caption beside a control.
class Label : public Control
{
public:
    Label(Container &parent, const QString &name, const QString &caption, const Rect &place);

    QString caption() const;
    void setCaption(const QString &caption);
    QSize neededPixels() const override;
};

} // namespace varnow::ui

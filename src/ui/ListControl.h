#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// What list boxes and combo boxes share: items counted from 0.
class ListControl : public Control
{
public:
    virtual int itemCount() const = 0;
    virtual QString itemText(int index) const = 0;

protected:
    using Control::Control;
};

} // namespace varnow::ui

#pragma once

#include "ui/Control.h"

namespace varnow::ui {

/// How a text is compared with an item.
enum class ItemMatch {
    Exact,  ///< the whole item as it is
    Whole,  ///< the whole item, letter case ignored
    Prefix, ///< the beginning of the item, exactly
};

/// What list boxes and combo boxes share: items counted from 0.
class ListControl : public Control
{
public:
    virtual int itemCount() const = 0;
    virtual QString itemText(int index) const = 0;

    /// Index of the first item that matches the text, blanks around the text ignored; -1 when there is none
    /// and for a blank text.
    int findItem(const QString &text, ItemMatch match) const;

protected:
    using Control::Control;
};

} // namespace varnow::ui

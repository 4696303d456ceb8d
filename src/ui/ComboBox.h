#pragma once

#include "ui/Control.h"

#include <functional>

namespace varnow::ui {

/// How a text is compared with an item.
enum class ItemMatch {
    Exact,  ///< the whole item as it is
    Whole,  ///< the whole item, letter case ignored
    Prefix, ///< the beginning of the item, exactly
};

/// An entry with a list to choose from. What is typed is never completed, replaced or added to the list.
class ComboBox : public Control
{
public:
    ComboBox(Container &parent, const QString &name, const Rect &place);

    std::function<void()> onChange; ///< the text was typed or set; not for a chosen item
    std::function<void()> onClick;  ///< an item was chosen, by the user or by index in code
    /// Typing has paused for 700 ms, or ended with Enter or because the box was left. Never while a mouse
    /// button is down or a menu or message box is open, so that the handler may show a box.
    std::function<void()> onTypingPaused;

    /// From a typed key until typing pauses.
    bool isBeingTyped() const;

    QString text() const;
    void setText(const QString &text);

    /// Items are counted from 0.
    int itemCount() const;
    QString itemText(int index) const;
    /// Index of the first item that matches the text, blanks around the text ignored; -1 when there is none
    /// and for a blank text.
    int findItem(const QString &text, ItemMatch match) const;
    /// Adds an item at the end and returns its index.
    int addItem(const QString &text);
    /// A 32-bit value kept with an item; 0 unless set.
    int itemData(int index) const;
    void setItemData(int index, int data);
    /// Empties the list; the text stays.
    void clear();
    /// Chooses the item: its text becomes the text of the box. -1 does nothing.
    void setSelectedIndex(int index);

    void setAccessibleName(const QString &name) override;
    QSize neededPixels() const override;

private:
    class Widget;
    Widget *box() const;
    void keepingText(const std::function<void()> &change);
};

} // namespace varnow::ui

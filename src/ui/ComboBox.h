#pragma once

#include "ui/ListControl.h"

#include <functional>

namespace varnow::ui {

/// An entry with a list to choose from. What is typed is never completed, replaced or added to the list.
class ComboBox : public ListControl
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

    int itemCount() const override;
    QString itemText(int index) const override;
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

#pragma once

#include "ui/Control.h"

#include <functional>

namespace varnow::ui {

/// A one-line entry. The focus selects its whole text, so that typing replaces it.
class TextBox : public Control
{
public:
    TextBox(Container &parent, const QString &name, const Rect &place);

    std::function<void()> onChange;    ///< the text changed, typed or set
    std::function<void()> onLostFocus; ///< not when the whole window is left

    QString text() const;
    void setText(const QString &text);

    void selectAll();

    /// Shows every character as "*".
    void setPassword(bool password);

    QSize neededPixels() const override;

private:
    class Widget;
    Widget *edit() const;
};

} // namespace varnow::ui

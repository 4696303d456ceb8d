#pragma once

#include <QString>

class QKeyEvent;
class QPushButton;
class QWidget;

namespace varnow::ui {

/// The widget of every push button: Enter clicks it, and its access key moves the focus to it first.
QPushButton *makePushButton(const QString &caption, QWidget *parent);

/// Lets Enter or Escape, pressed anywhere in its window, click the button.
void clickOnEnter(QWidget &button);
void clickOnEscape(QWidget &button);

/// Clicks the button of the window that the key is to click, if there is one. Returns whether there is.
bool clickButtonFor(const QKeyEvent &event, const QWidget &window);

} // namespace varnow::ui

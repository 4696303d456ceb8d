#pragma once

#include <QString>

class QPushButton;
class QWidget;

namespace varnow::ui {

/// The widget of every push button: Enter clicks it, and its access key moves the focus to it first.
QPushButton *makePushButton(const QString &caption, QWidget *parent);

} // namespace varnow::ui

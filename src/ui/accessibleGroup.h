#pragma once

#include <QString>

class QWidget;

namespace varnow::ui {

/// Makes a widget a group of this name for screen readers.
void makeAccessibleGroup(QWidget &widget, const QString &name);

} // namespace varnow::ui

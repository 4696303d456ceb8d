#pragma once

#include <QString>

class QWidget;

namespace varnow::ui {

// What a plain widget is for screen readers, which else call it a filler.

void makeAccessibleWindow(QWidget &widget);

/// A group of this name.
void makeAccessibleGroup(QWidget &widget, const QString &name);

} // namespace varnow::ui

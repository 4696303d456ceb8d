#pragma once

#include <QString>

class QWidget;

namespace varnow::ui {

/// A text as a tooltip shows it, in several lines where it is long; none for an empty one.
QString toolTipText(const QString &text);

/// Gives a widget a sentence about itself, as a tooltip and for screen readers.
void explain(QWidget &widget, const QString &sentence);

} // namespace varnow::ui

#pragma once

#include <QString>

namespace varnow {

namespace ui {
class Control;
}

/// Whether a list or combo box has the text among its items; letter case and blanks around either are
/// ignored. An empty text means the text of the combo box.
bool IsInList(const ui::Control &control, QString text);

/// Index of the first item that matches, counted from 0. A prefix match is exact, a whole match ignores
/// letter case. A blank text means the text of the combo box. -1 not found, -2 not a list or combo box,
/// -3 no text, -4 run-time error.
int FindListIndex(const ui::Control &control, const QString &text, bool prefixMatch);

} // namespace varnow

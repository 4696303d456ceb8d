#pragma once

class QLineEdit;

namespace varnow::ui {

/// Lets what is pasted or dropped into a line edit end at its first line break, without the blanks and tabs
/// around it: an entry has one line, and a break that nobody sees would be stored. A password keeps its
/// blanks. For the line edit of a combo box too, which gets its keys from the box.
void endPastedTextAtLineBreak(QLineEdit &edit);

} // namespace varnow::ui

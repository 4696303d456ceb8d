#pragma once

namespace varnow {

namespace ui {
class TextBox;
}

/// Selects the whole text, so that typing replaces it. Returns 0 or the error number.
int SelectAllText(ui::TextBox &textBox);

} // namespace varnow

#include "util/modTextBoxTools.h"

#include "ui/TextBox.h"
#include "util/modDiagnostics.h"

namespace varnow {

int SelectAllText(ui::TextBox &textBox)
{
    const auto select = [&] {
        textBox.setSelection(0, static_cast<int>(textBox.text().size()));
        return 0;
    };
    return guarded(select, [](const RuntimeError &error) { return error.number(); });
}

} // namespace varnow

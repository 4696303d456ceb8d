#include "editor/EntryPage.h"

#include "base/guarded.h"
#include "base/text.h"
#include "editor/DataCheck.h"

namespace varnow {

EntryPage::EntryPage(ui::TabControl &tabs, const QString &caption, EditorState &state)
    : m_tabs(tabs), m_surface(tabs.addPage(caption)), m_state(state)
{
    state.pages.push_back(this);
}

void EntryPage::connect(ui::TextBox &box)
{
    box.onLostFocus = [&box] { box.setText(trim(box.text())); };
    box.onChange = [this] { markChanged(); };
}

void EntryPage::connect(ui::ComboBox &box)
{
    box.onChange = box.onClick = [this] { markChanged(); };
}

void EntryPage::connect(ui::OptionButton &option)
{
    option.onClick = [this] { markChanged(); };
}

std::optional<RecordName> EntryPage::recordOf(RecordName::Kind kind, const ui::TextBox &name,
                                              const ui::TextBox &nameIndex)
{
    using Name = std::optional<RecordName>;
    return guarded(
        [&] {
            return Name({kind, name.text(), typedIndex(nameIndex.text())});
        },
        [](const RuntimeError &) { return Name(); });
}

} // namespace varnow

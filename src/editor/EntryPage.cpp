#include "editor/EntryPage.h"

#include "base/text.h"

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

} // namespace varnow

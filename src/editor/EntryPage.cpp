#include "editor/EntryPage.h"

#include "base/guarded.h"
#include "base/text.h"
#include "model/drafts.h"

namespace varnow {

EntryPage::EntryPage(ui::TabControl &tabs, const QString &caption, EditorState &state)
    : m_tabs(tabs), m_surface(tabs.addPage(caption)), m_state(state)
{
    state.pages.push_back(this);
}

namespace {

const QString chosen = QStringLiteral("chosen");

void trimText(ui::TextBox &box)
{
    box.setText(trim(box.text()));
}

} // namespace

template <class Box> void EntryPage::keepText(Box &box)
{
    m_entries.push_back({[&box] { return box.text(); }, [&box](const QString &text) { box.setText(text); }});
}

void EntryPage::connect(ui::TextBox &box)
{
    keepText(box);
    m_textBoxes.push_back(&box);
    box.onLostFocus = [&box] { trimText(box); };
    box.onChange = [this] { markChanged(); };
}

void EntryPage::connect(ui::ComboBox &box)
{
    keepText(box);
    box.onChange = box.onClick = [this] { markChanged(); };
}

void EntryPage::connect(ui::OptionButton &option)
{
    m_entries.push_back({[&option] { return option.isChosen() ? chosen : QString(); },
                         [&option](const QString &text) {
                             if (text == chosen)
                                 option.choose();
                         }});
    option.onClick = [this] { markChanged(); };
}

void EntryPage::connect(ui::CheckBox &box)
{
    m_entries.push_back({[&box] { return box.isTicked() ? chosen : QString(); },
                         [&box](const QString &text) { box.setTicked(text == chosen); }});
}

void EntryPage::trimEntries()
{
    for (ui::TextBox *box : m_textBoxes)
        trimText(*box);
}

QStringList EntryPage::entries() const
{
    QStringList texts;
    for (const Entry &entry : m_entries)
        texts += entry.text();
    return texts;
}

void EntryPage::setEntries(const QStringList &entries)
{
    for (std::size_t i = 0; i < m_entries.size(); ++i)
        m_entries[i].setText(entries[static_cast<qsizetype>(i)]);
}

std::optional<RecordName> EntryPage::recordOf(RecordName::Kind kind, const ui::TextBox &name,
                                              const ui::TextBox &nameIndex)
{
    using Name = std::optional<RecordName>;
    return guarded(
        [&] {
            return Name({kind, name.text(), parseIndex(nameIndex.text())});
        },
        [](const RuntimeError &) { return Name(); });
}

} // namespace varnow

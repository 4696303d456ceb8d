#include "editor/EntryPage.h"

#include "base/guarded.h"
#include "base/text.h"
#include "model/drafts.h"

#include <algorithm>

namespace varnow {

namespace {

const QString chosen = QStringLiteral("chosen");

void trimText(ui::TextBox &box)
{
    box.setText(trim(box.text()));
}

template <class Record> bool changes(const Changes<Record> &changes, const RecordKey &key)
{
    return std::ranges::any_of(changes, [&key](const Change<Record> &change) {
        return change.index != Change<Record>::noIndex && keyOf(change.was ? *change.was : *change.is) == key;
    });
}

bool exists(const auto &table, const RecordKey &key)
{
    return table.find(key.configuration, key.name, key.nameIndex) >= 0;
}

} // namespace

EntryPage::EntryPage(ui::TabControl &tabs, const QString &caption, RecordKind kind, Document &document)
    : m_tabs(tabs), m_surface(tabs.addPage(caption)), m_document(document), m_kind(kind)
{
}

template <class Box> void EntryPage::keepText(Box &box)
{
    m_values.push_back({[&box] { return box.text(); }, [&box](const QString &text) { box.setText(text); }});
}

void EntryPage::connect(ui::TextBox &box)
{
    keepText(box);
    m_textBoxes.push_back(&box);
    box.onLostFocus = [&box] { trimText(box); };
    box.onChange = [this] { tellEntered(); };
}

void EntryPage::connect(ui::ComboBox &box)
{
    keepText(box);
    box.onChange = box.onClick = [this] { tellEntered(); };
}

void EntryPage::connect(ui::OptionButton &option)
{
    m_values.push_back({[&option] { return option.isChosen() ? chosen : QString(); },
                        [&option](const QString &text) {
                            if (text == chosen)
                                option.choose();
                        }});
    option.onClick = [this] { tellEntered(); };
}

void EntryPage::connect(ui::CheckBox &box)
{
    m_values.push_back({[&box] { return box.isTicked() ? chosen : QString(); },
                        [&box](const QString &text) { box.setTicked(text == chosen); }});
}

void EntryPage::tellEntered() const
{
    if (onEntered)
        onEntered();
}

void EntryPage::trimEntries()
{
    for (ui::TextBox *box : m_textBoxes)
        trimText(*box);
}

QStringList EntryPage::entries() const
{
    QStringList texts;
    for (const Value &value : m_values)
        texts += value.text();
    return texts;
}

void EntryPage::setEntries(const QStringList &entries)
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        m_values[i].setText(entries[static_cast<qsizetype>(i)]);
}

void EntryPage::settleEntries()
{
    m_settledEntries = entries();
    m_shownRecord = namedRecord();
}

Following EntryPage::follow(const EditStep &step)
{
    if (!m_shownRecord || m_shownRecord->key.configuration != configuration())
        return Following::Nothing;
    const RecordKey key = m_shownRecord->key;
    const bool isLine = m_kind == RecordKind::Line;
    const bool isChanged = isLine ? changes(step.lines, key) && exists(model().lines, key)
                                  : changes(step.fields, key) && exists(model().fields, key);
    if (!isChanged)
        return Following::Nothing;
    const QStringList typed = entries();
    const QStringList settled = m_settledEntries;
    show(key.name, key.nameIndex);
    settleEntries();
    if (typed == settled || typed == m_settledEntries)
        return Following::Shown;
    setEntries(typed);
    return settled == m_settledEntries ? Following::Nothing : Following::Outdated;
}

std::optional<RecordReference> EntryPage::namedRecord() const
{
    using Record = std::optional<RecordReference>;
    return guarded(
        [&]() -> Record {
            return RecordReference{
                m_kind, {configuration(), trim(nameBox().text()), parseIndex(nameIndexBox().text())}};
        },
        [](const RuntimeError &) -> Record { return {}; });
}

} // namespace varnow

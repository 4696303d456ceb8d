#include "editor/EntryPage.h"

#include "base/guarded.h"
#include "base/text.h"
#include "model/drafts.h"

#include <algorithm>

namespace varnow {

namespace {

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

void EntryPage::settleEntries()
{
    m_settledEntries = m_entries.texts();
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
    const QStringList typed = m_entries.texts();
    const QStringList settled = m_settledEntries;
    show(key.name, key.nameIndex);
    settleEntries();
    if (typed == settled || typed == m_settledEntries)
        return Following::Shown;
    m_entries.setTexts(typed);
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

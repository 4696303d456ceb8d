#include "storage/recovery.h"

namespace varnow {

namespace {

/// Applies one change to a table that holds what the database does. Returns false when the record has changed
/// there meanwhile.
template <class Table, class Entry> bool apply(const Entry &entry, Table &table)
{
    const auto &any = entry.now ? *entry.now : *entry.before;
    const int index = table.find(any.configuration, any.name, any.nameIndex);
    using Record = std::remove_cvref_t<decltype(any)>;
    const std::optional<Record> current = index < 0 ? std::nullopt : std::optional<Record>(table[index]);
    if (sameContent(current, entry.now))
        return true;
    if (!sameContent(current, entry.before))
        return false;
    if (index >= 0 && (!entry.now || entry.isAddedAnew))
        table.remove(index);
    if (entry.now) {
        Record record = *entry.now;
        record.id = current && !entry.isAddedAnew && sameKey(*current, record) ? current->id : -1;
        table.store(std::move(record));
    }
    return true;
}

} // namespace

LeftChanges restore(const LeftChanges &changes, Model &model)
{
    LeftChanges refused;
    refused.time = changes.time;
    for (const auto &entry : changes.lines) {
        if (!apply(entry, model.lines))
            refused.lines.push_back(entry);
    }
    for (const auto &entry : changes.fields) {
        if (!apply(entry, model.fields))
            refused.fields.push_back(entry);
    }
    return refused;
}

} // namespace varnow

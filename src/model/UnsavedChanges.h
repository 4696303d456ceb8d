#pragma once

#include "model/Column.h"

#include <QHash>
#include <QString>

#include <optional>

namespace varnow {

/// What tells a record from all others in memory.
struct RecordKey
{
    QString configuration;
    QString name;
    int nameIndex = 0;

    bool operator==(const RecordKey &) const = default;
};

inline std::size_t qHash(const RecordKey &key, std::size_t seed = 0)
{
    return qHashMulti(seed, key.configuration, key.name, key.nameIndex);
}

template <class Record> RecordKey keyOf(const Record &record)
{
    return {record.configuration, record.name, record.nameIndex};
}

/// Whether two records make the same row, their identifiers and spare columns aside.
template <class Record> bool sameContent(const Record &a, const Record &b)
{
    for (const Column<Record> &column : Record::columns()) {
        const bool isWritten = column.use == ColumnUse::Key || column.use == ColumnUse::Value;
        const auto isEqual = [&](auto member) { return a.*member == b.*member; };
        if (isWritten && !std::visit(isEqual, column.member))
            return false;
    }
    return true;
}

template <class Record> bool sameContent(const std::optional<Record> &a, const std::optional<Record> &b)
{
    return a.has_value() == b.has_value() && (!a || sameContent(*a, *b));
}

/// What became of a record since it was loaded or saved.
enum class ChangeKind { Added, Changed, Removed };

/// How many records became what.
struct ChangeCounts
{
    int added = 0;
    int changed = 0;
    int removed = 0;

    int total() const { return added + changed + removed; }

    /// Counts one more.
    void add(ChangeKind kind)
    {
        switch (kind) {
        case ChangeKind::Added:
            ++added;
            return;
        case ChangeKind::Changed:
            ++changed;
            return;
        case ChangeKind::Removed:
            ++removed;
            return;
        }
    }

    /// "2 added, 3 changed, 1 removed"
    QString text() const
    {
        return QStringLiteral("%1 added, %2 changed, %3 removed").arg(added).arg(changed).arg(removed);
    }
};

/// A record that differs from its row as last loaded or saved.
template <class Record> struct UnsavedChange
{
    std::optional<Record> before; ///< what its row holds; nothing for a record without one
    std::optional<Record> now;    ///< nothing for a record that was removed
    int sequence = 0;             ///< orders the entries by when their records came into the table
    bool isAddedAnew = false;     ///< the record was removed and entered again, at another place

    ChangeKind kind() const
    {
        return !before ? ChangeKind::Added : now ? ChangeKind::Changed : ChangeKind::Removed;
    }
    /// The record as it is, or as it was before it was removed.
    const Record &record() const { return now ? *now : *before; }
};

/// The records that differ from their rows as last loaded or saved. Its cost is per change.
template <class Record> class UnsavedChanges
{
public:
    bool isEmpty() const { return m_entries.isEmpty(); }
    const QHash<RecordKey, UnsavedChange<Record>> &entries() const { return m_entries; }

    /// A record was changed, added (`was` nothing) or removed (`is` nothing). One that is as its row again
    /// leaves the unsaved.
    void note(const std::optional<Record> &was, const std::optional<Record> &is)
    {
        const RecordKey key = keyOf(was ? *was : *is);
        auto known = m_entries.find(key);
        if (known == m_entries.end()) {
            if (!sameContent(was, is))
                m_entries.insert(key, {was, is, ++m_sequence});
            return;
        }
        known->now = is;
        if (!was) {
            known->sequence = ++m_sequence;
            known->isAddedAnew = known->before.has_value();
        }
        if (sameContent(known->before, known->now))
            m_entries.erase(known);
    }

    /// The record is as its row: it was loaded or saved.
    void settle(const Record &record) { m_entries.remove(keyOf(record)); }

    /// The row of a record that was removed is deleted.
    void settleDeleted(const Record &record)
    {
        const auto known = m_entries.find(keyOf(record));
        if (known == m_entries.end())
            return;
        known->before.reset();
        if (!known->now)
            m_entries.erase(known);
    }

    /// The record, which is in memory, has no row.
    void noteWithoutRow(const Record &record) { m_entries.insert(keyOf(record), {{}, record, ++m_sequence}); }

    void clear() { m_entries.clear(); }

private:
    QHash<RecordKey, UnsavedChange<Record>> m_entries;
    int m_sequence = 0;
};

} // namespace varnow

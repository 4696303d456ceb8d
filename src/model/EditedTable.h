#pragma once

#include "model/RecordTable.h"
#include "model/UnsavedChanges.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace varnow {

/// One change of a table: what stood at an index, and what stands there. Nothing before means that the record
/// was inserted there, nothing after that it was removed.
template <class Record> struct Change
{
    /// Stands for the index of a row without a record.
    static constexpr int noIndex = -1;

    int index;
    std::optional<Record> was;
    std::optional<Record> is;
    int parkedId = 0; ///< of the row written for `is` that waits for deletion since the change was taken
                      ///< back, and of the row without a record that no longer waits since then
};

template <class Record> using Changes = std::vector<Change<Record>>;

/// Whether two records have the same row.
template <class Record> bool sameKey(const Record &a, const Record &b)
{
    for (const Column<Record> &column : Record::columns()) {
        const auto isEqual = [&](auto member) { return a.*member == b.*member; };
        if (column.use == ColumnUse::Key && !std::visit(isEqual, column.member))
            return false;
    }
    return true;
}

/// A record table that remembers what was done to it: which records differ from their rows, which rows the
/// next save deletes, and, while someone records, every single change. Nothing else can change its records.
template <class Record, class Order> class EditedTable : private RecordTable<Record, Order>
{
    using Base = RecordTable<Record, Order>;

public:
    using Base::begin;
    using Base::end;
    using Base::find; // by key
    using Base::indexOf;
    using Base::isEmpty;
    using Base::lookUp;
    using Base::ofConfiguration;
    using Base::ofGroup;
    using Base::size;
    using Base::states;
    using typename Base::Iterator;
    using Base::operator[];

    /// The records removed since the last deletion run without errors, in the order of their removal.
    const std::vector<Record> &removed() const { return m_removed; }

    /// The records that differ from their rows.
    const UnsavedChanges<Record> &unsaved() const { return m_unsaved; }

    /// Whether the next save has a row to delete.
    bool hasRowsToDelete() const
    {
        const auto isToGo = [this](const Record &gone) {
            return gone.id > 0 && std::ranges::find(*this, gone.id, &Record::id) == end();
        };
        return std::ranges::any_of(m_removed, isToGo);
    }

    /// Changes are written down here from now on; null ends that.
    void recordTo(Changes<Record> *changes) { m_changes = changes; }

    /// Drops all records and takes these, each as its row.
    void assign(std::vector<Record> records)
    {
        Base::clear();
        for (Record &record : records)
            Base::append(std::move(record));
        m_unsaved.clear();
    }

    /// Adds a row of the database behind all records.
    void appendLoaded(Record row) { Base::append(std::move(row)); }

    /// The row of a record holds what the record does: it was saved.
    void markSaved(const Record &record) { m_unsaved.settle(record); }

    /// A record has no row.
    void markWithoutRow(const Record &record) { m_unsaved.noteWithoutRow(record); }

    /// The row of the removed record with this number is deleted. Its identifier is forgotten at once, for
    /// another row may get it next. `hadRow`: false where a record in memory has the row, which stays.
    void markDeleted(std::size_t number, bool hadRow)
    {
        if (hadRow)
            m_unsaved.settleDeleted(m_removed[number]);
        m_removed[number].id = -1;
    }

    /// Drops the list of removed records: all of their rows are deleted.
    void forgetRemoved() { m_removed.clear(); }

    /// Moves the record at an index to the removed ones. Raises errors::SubscriptOutOfRange outside the
    /// table.
    void remove(int index)
    {
        Record record = (*this)[index];
        m_removed.push_back(record);
        Base::removeAt(index);
        note(index, std::move(record), {});
    }

    /// Has the next save delete a row that no record here stands for.
    void removeRow(Record row)
    {
        m_removed.push_back(row);
        if (m_changes != nullptr)
            m_changes->push_back({Change<Record>::noIndex, std::move(row), {}});
    }

    /// Takes a change back. The table must stand as the change left it, but that saves may have come in
    /// between: rows written since then wait for deletion, rows deleted since then will be written anew.
    void undo(Change<Record> &change)
    {
        if (change.index == Change<Record>::noIndex) {
            change.parkedId = stopWaiting(change.was->id) ? change.was->id : 0;
        } else if (!change.was) {
            change.parkedId = park((*this)[change.index]);
            takeOut(change.index);
        } else if (!change.is) {
            putIn(change.index, withWaitingRow(*change.was));
        } else if (const Record current = (*this)[change.index]; sameKey(current, *change.was)) {
            change.parkedId = 0;
            replace(change.index, withId(*change.was, current.id));
        } else if (change.is->id > 0) { // the change went back to a row that was there, which stays
            replace(change.index, unparked(*change.was, change.was->id));
        } else {
            change.parkedId = park(current);
            replace(change.index, *change.was);
        }
    }

    /// Makes a change again. The table must stand as the change found it, but for saves.
    void redo(const Change<Record> &change)
    {
        if (change.index == Change<Record>::noIndex) {
            if (change.parkedId > 0) // else its row is deleted, and another one may have its identifier
                m_removed.push_back(*change.was);
            return;
        }
        if (change.was && !change.is) {
            remove(change.index);
            return;
        }
        const auto values = [&] {
            return change.parkedId > 0 ? unparked(*change.is, change.parkedId) : *change.is;
        };
        if (!change.was)
            putIn(change.index, values());
        else if (const Record current = (*this)[change.index]; sameKey(current, *change.is))
            replace(change.index, withId(*change.is, current.id));
        else if (change.is->id > 0)
            restore(change.index, *change.is);
        else
            replace(change.index, values());
    }

    /// Gives the record at an index the values of its row again. A row written since under another key waits
    /// for deletion.
    void restore(int index, const Record &row)
    {
        const Record current = (*this)[index];
        const bool isSameRow = sameKey(current, row);
        if (!isSameRow)
            park(current);
        replace(index, isSameRow ? withId(row, current.id) : row);
    }

    /// Lets go of a row, so that the next save can delete it: the record that has its identifier gets that of
    /// the row that stays. One whose key another record has, too, goes itself, with its row. Returns whether
    /// it went.
    bool releaseRow(const Record &row, int keptId)
    {
        const auto owner = std::ranges::find(*this, row.id, &Record::id);
        if (owner == end())
            return false;
        const auto isTwin = [&](const Record &other) {
            return &other != &*owner && keyOf(other) == keyOf(*owner);
        };
        const auto twin = std::ranges::find_if(*this, isTwin);
        if (twin == end()) {
            giveIds([&](const Record &record) { return record.id == row.id ? keptId : record.id; });
            return false;
        }
        const Record &remaining = *twin; // which keeps its address
        remove(indexOf(*owner));
        m_unsaved.note({}, remaining); // the key is not gone
        return true;
    }

    /// Gives every record the identifier that `idOf` returns for it. No change: the row stays the same.
    template <class IdOf> void giveIds(IdOf idOf)
    {
        const auto all = [](const QString &) { return true; };
        Base::changeEach(all, [&](int, Record &record) {
            record.id = idOf(std::as_const(record));
            return false;
        });
    }

protected:
    /// Takes a row of the database in: in place of the record at an index, or in order where that is -1.
    void loadAt(int index, Record row)
    {
        m_unsaved.settle(row);
        if (index < 0)
            Base::insertOrdered(std::move(row));
        else
            Base::replace(index, std::move(row));
    }

    void add(Record record)
    {
        const int index = indexOf(Base::append(record));
        note(index, {}, std::move(record));
    }

    void addOrdered(Record record)
    {
        const int index = indexOf(Base::insertOrdered(record));
        note(index, {}, std::move(record));
    }

    void replace(int index, Record values)
    {
        Record old = (*this)[index];
        Base::replace(index, values);
        note(index, std::move(old), std::move(values));
    }

    /// Hands the records of the configurations that `isWanted` in table order to `change`, which returns the
    /// new values, of the same key, or nothing to leave the record.
    template <class IsWanted, class NewValues> void changeEach(IsWanted isWanted, NewValues change)
    {
        Base::changeEach(isWanted, [&](int index, Record &record) {
            std::optional<Record> values = change(std::as_const(record));
            if (!values)
                return false;
            Record old = std::exchange(record, *values);
            note(index, std::move(old), std::move(values));
            return true;
        });
    }

    void putIn(int index, Record record)
    {
        Base::insert(index, record);
        note(index, {}, std::move(record));
    }

    /// The record, which had been removed, with its row where that still waits for deletion.
    Record withWaitingRow(Record record)
    {
        const auto isRow = [&](const Record &other) { return sameKey(record, other); };
        const auto isSame = [&](const Record &other) { return other.id == record.id && isRow(other); };
        auto waiting = std::find_if(m_removed.rbegin(), m_removed.rend(), isSame);
        if (waiting == m_removed.rend())
            waiting = std::find_if(m_removed.rbegin(), m_removed.rend(), isRow);
        if (waiting != m_removed.rend()) {
            record.id = waiting->id;
            m_removed.erase(std::next(waiting).base());
        } else if (record.id > 0) {
            record.id = -1; // its row is gone
        }
        return record;
    }

private:
    void note(int index, std::optional<Record> was, std::optional<Record> is)
    {
        m_unsaved.note(was, is);
        const bool isSame = sameContent(was, is) && was->id == is->id;
        if (m_changes != nullptr && !isSame)
            m_changes->push_back({index, std::move(was), std::move(is)});
    }

    static Record withId(Record record, int id)
    {
        record.id = id;
        return record;
    }

    /// Lets the row of a record wait for deletion. Returns its identifier, 0 when it has none.
    int park(const Record &record)
    {
        if (record.id > 0)
            m_removed.push_back(record);
        return std::max(record.id, 0);
    }

    /// The record whose row waits, or waited, for deletion: with its identifier while the row is there.
    Record unparked(Record record, int id)
    {
        record.id = stopWaiting(id) ? id : -1;
        return record;
    }

    /// Takes a row from those that wait for deletion. Returns whether it waited.
    bool stopWaiting(int id)
    {
        return std::erase_if(m_removed, [id](const Record &other) { return other.id == id; }) > 0;
    }

    void takeOut(int index)
    {
        Record record = (*this)[index];
        Base::removeAt(index);
        note(index, std::move(record), {});
    }

    std::vector<Record> m_removed;
    UnsavedChanges<Record> m_unsaved;
    Changes<Record> *m_changes = nullptr;
};

} // namespace varnow

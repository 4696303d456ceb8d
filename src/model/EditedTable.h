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

/// A record table that remembers what was done to it: which records differ from their rows, which rows wait
/// for deletion, and, while someone records, every single change.
template <class Record, class Order> class EditedTable : public RecordTable<Record, Order>
{
    using Base = RecordTable<Record, Order>;

public:
    /// The records removed since the last deletion run without errors, in the order of their removal.
    std::vector<Record> removed;

    UnsavedChanges<Record> unsaved;

    /// Whether the next save has a row to delete.
    bool hasRowsToDelete() const
    {
        const auto isToGo = [this](const Record &gone) {
            return gone.id > 0 && std::ranges::find(*this, gone.id, &Record::id) == this->end();
        };
        return std::ranges::any_of(removed, isToGo);
    }

    /// Changes are written down here from now on; null ends that.
    void recordTo(Changes<Record> *changes) { m_changes = changes; }

    /// Drops all records and takes these, each as its row.
    void assign(std::vector<Record> records)
    {
        Base::clear();
        for (Record &record : records)
            Base::append(std::move(record));
        unsaved.clear();
    }

    /// Moves the record at an index to the removed ones. Raises errors::SubscriptOutOfRange outside the
    /// table.
    void remove(int index)
    {
        Record record = (*this)[index];
        removed.push_back(record);
        Base::removeAt(index);
        note(index, std::move(record), {});
    }

    /// Lets a row that no record here stands for wait for deletion.
    void removeRow(Record row)
    {
        removed.push_back(row);
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
                removed.push_back(*change.was);
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
    void add(Record record)
    {
        const int index = this->indexOf(Base::append(record));
        note(index, {}, std::move(record));
    }

    void addOrdered(Record record)
    {
        const int index = this->indexOf(Base::insertOrdered(record));
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
        auto waiting = std::find_if(removed.rbegin(), removed.rend(), isSame);
        if (waiting == removed.rend())
            waiting = std::find_if(removed.rbegin(), removed.rend(), isRow);
        if (waiting != removed.rend()) {
            record.id = waiting->id;
            removed.erase(std::next(waiting).base());
        } else if (record.id > 0) {
            record.id = -1; // its row is gone
        }
        return record;
    }

private:
    void note(int index, std::optional<Record> was, std::optional<Record> is)
    {
        unsaved.note(was, is);
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
            removed.push_back(record);
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
        return std::erase_if(removed, [id](const Record &other) { return other.id == id; }) > 0;
    }

    void takeOut(int index)
    {
        Record record = (*this)[index];
        Base::removeAt(index);
        note(index, std::move(record), {});
    }

    Changes<Record> *m_changes = nullptr;
};

} // namespace varnow

#pragma once

#include "model/EditedTable.h"
#include "model/Field.h"
#include "model/LineTable.h"

#include <functional>

namespace varnow {

/// The fields of a configuration are ordered by message index, then position.
struct FieldOrder
{
    static Place placeOf(const Field &field) { return {field.messageIndex, field.position}; }

    /// A field that has no smaller one before it goes to the front of its configuration, but at the top of
    /// the table behind the first field there, if that one is neither of a greater message index nor the only
    /// one. The databases in use were filled in this order, so it stays: the walk that made it kept -1 both
    /// for "no place found yet" and for "before record 0", and took the second for the first.
    static std::size_t offsetAtFront(const Front &front)
    {
        return front.isTopOfTable && front.hasSecond && !front.beginsGreaterGroup ? 1 : 0;
    }
};

/// Some fields of a table.
struct FieldSelection
{
    std::function<bool(const QString &)> hasConfiguration; ///< empty for those of all configurations
    std::function<bool(const Field &)> hasField = {};      ///< empty for all fields of these
};

/// The fields of all configurations, and the rules about them.
class FieldTable : public EditedTable<Field, FieldOrder>
{
public:
    /// Replaces the field with this key in place, or inserts a new one among the fields of its configuration.
    /// All texts but the pad character are trimmed. An id of 0 or less keeps the id of a replaced field of
    /// the same line: the row of one that moves to another line stays behind.
    void store(Field field);

    /// Adds again a field that had been removed.
    void bringBack(const Field &field) { addOrdered(withWaitingRow(field)); }

    /// Takes a row of the database in: in place of the field with its key, or as a new one.
    void load(Field row);

    /// Stores fields; of several that are new at one place the first stays the first.
    void storeAll(std::vector<Field> fields);

    /// Gives the selected fields the message index of the line that they belong to. Those without a line keep
    /// theirs.
    void copyMessageIndexes(const LineTable &lines, const FieldSelection &selection);

    /// Number of fields that name a line. A line index below 1 counts those of every index.
    int countOfLine(const QString &configuration, const QString &line, int lineIndex) const;

    /// Highest position of a line's fields, taken no lower than 0, plus 1; a negative line index takes the
    /// fields of every index. 0 when there is no higher one.
    int nextPosition(const QString &configuration, const QString &line, int lineIndex) const;
};

} // namespace varnow

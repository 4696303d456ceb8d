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

    /// Where a field goes that has no smaller field before it: to the front of its configuration. There is
    /// one exception. If the configuration is the first of the table, has at least two fields, and the first
    /// one does not have a greater message index, the new field goes behind this first one.
    ///
    /// The exception was a mistake: an earlier algorithm used -1 for "no place found yet" and also for
    /// "before record 0". The databases in use were filled in this order, so it stays.
    static std::size_t offsetAtFront(const Front &front)
    {
        return front.isTopOfTable && front.hasSecond && !front.beginsGreaterGroup ? 1 : 0;
    }
};

/// Selects fields of a table.
struct FieldSelection
{
    std::function<bool(const QString &)>
        hasConfiguration; ///< whether to select from a configuration; empty: from all
    std::function<bool(const Field &)> hasField = {}; ///< whether to select a field; empty: all
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

    /// Puts a row of the database into the table. It replaces the field with the same key, if there is one.
    void load(Field row);

    /// Stores fields. New fields with the same message index and position keep their order.
    void storeAll(std::vector<Field> fields);

    /// Gives the selected fields the message index of the line that they belong to. Those without a line keep
    /// theirs.
    void copyMessageIndexes(const LineTable &lines, const FieldSelection &selection);

    /// Number of fields that name a line. With a line index below 1 the fields of every index count.
    int countOfLine(const QString &configuration, const QString &line, int lineIndex) const;

    /// The highest position of a line's fields plus 1; 1 for a line without fields, 0 when the highest
    /// position is the greatest number. With a negative line index the fields of every index count.
    int nextPosition(const QString &configuration, const QString &line, int lineIndex) const;
};

} // namespace varnow

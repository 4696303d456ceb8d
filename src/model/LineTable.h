#pragma once

#include "model/EditedTable.h"
#include "model/Line.h"

namespace varnow {

/// Lines are not kept in order: a new line goes to the end of the table.
struct LineOrder
{
    static Place placeOf(const Line &) { return {}; }
};

/// The lines of all configurations, and the rules about them.
class LineTable : public EditedTable<Line, LineOrder>
{
public:
    /// Index of the first line with this key, or -1. A name index below 1 matches any.
    int findNamed(const QString &configuration, const QString &name, int nameIndex) const;

    /// Replaces the line with this key in place or appends a new one. Its texts are trimmed. An id of 0 or
    /// less keeps the id of a replaced line.
    void store(Line line);

    /// Adds a line again that had been removed. It goes before the first line of its configuration whose
    /// message index is not smaller, because renumber() numbers the lines in table order.
    void bringBack(const Line &line);

    /// Numbers the lines of a configuration 1, 2, 3 … in table order.
    void renumber(const QString &configuration);

    /// The highest message index of a configuration plus 1; 1 for a configuration without lines.
    int nextMessageIndex(const QString &configuration) const;
};

} // namespace varnow

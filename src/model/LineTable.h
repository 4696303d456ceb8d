#pragma once

#include "model/EditedTable.h"
#include "model/Line.h"

namespace varnow {

/// Lines are never inserted by their place: a new one goes to the end of the table.
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

    /// Adds again a line that had been removed: before the first of its configuration with no smaller message
    /// index, for renumber() goes by the order.
    void bringBack(const Line &line);

    /// Numbers the lines of a configuration 1, 2, 3 … in table order.
    void renumber(const QString &configuration);

    /// Highest message index of a configuration, taken no lower than 0, plus 1.
    int nextMessageIndex(const QString &configuration) const;
};

} // namespace varnow

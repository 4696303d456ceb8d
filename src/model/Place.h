#pragma once

#include <compare>

namespace varnow {

/// A record's place in the order of its configuration. Groups come one after the other; within a group,
/// records are ordered by rank. The group of a field is its message index, the rank is its position.
struct Place
{
    int group = 0;
    int rank = 0;
    auto operator<=>(const Place &) const = default;
};

/// What an insert in order knows about the records of a configuration when no record before the right place
/// is smaller than the new one.
struct Front
{
    bool isTopOfTable;       ///< the records of this configuration are the first of the table
    bool beginsGreaterGroup; ///< the first of them has a greater group than the new record
    bool hasSecond;          ///< there are at least two of them
};

} // namespace varnow

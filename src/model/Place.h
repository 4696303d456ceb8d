#pragma once

#include <compare>

namespace varnow {

/// Where a record belongs among those of its configuration: by group, and by rank within it.
struct Place
{
    int group = 0;
    int rank = 0;
    auto operator<=>(const Place &) const = default;
};

/// The records of a configuration that an ordered insert finds when none of them is smaller than the new one.
struct Front
{
    bool isTopOfTable;       ///< no record of another configuration stands before them
    bool beginsGreaterGroup; ///< the first of them is of a greater group than the new one
    bool hasSecond;          ///< there are at least two
};

} // namespace varnow

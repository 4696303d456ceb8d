#pragma once

#include "model/LineTable.h"

#include <QHash>

#include <vector>

namespace varnow {

/// The order in which the record tree shows the lines of a configuration: a line goes behind the one that was
/// added before the first whose message index is not smaller, or to the end where that is the very first.
/// A line with the message index of an earlier one has no node of its own.
class TreeOrder
{
public:
    /// The lines of one configuration in table order.
    explicit TreeOrder(const std::vector<const Line *> &lines);

    /// Place of the node with this message index, counted from 0, under which lines and fields of this
    /// message index stand; the number of nodes where there is none.
    int rankOf(int messageIndex) const;

    /// The lines that have nodes, in the order of these.
    std::vector<const Line *> lines() const;

    /// The line that the node with this message index shows, null where there is none.
    const Line *lineAt(int messageIndex) const;

private:
    struct Node
    {
        const Line *line;
        int rank;
    };
    QHash<int, Node> m_nodes; // by message index
};

} // namespace varnow

#pragma once

#include "model/Field.h"
#include "model/LineTable.h"

#include <QHash>

#include <compare>
#include <vector>

namespace varnow {

/// Where the record tree shows a record.
struct TreePlace
{
    int node;     ///< number of the line's node, counted from 0 from the top
    int sequence; ///< -1 for the line itself, else the number of the field in table order

    auto operator<=>(const TreePlace &) const = default;
};

/// The order of the records in the tree of a configuration.
///
/// The tree has one node for each message index that a line has. The lines are added in table order; a line
/// whose message index already has a node gets none. To find the place of a new node, the nodes are gone
/// through in the order in which they were added, up to the first one with a greater message index. The new
/// node goes directly behind the last node before that one, or to the end of the tree if there is none
/// before.
///
/// Fields stand below the node of their message index, in table order.
class TreeOrder
{
public:
    /// The lines of one configuration in table order. They must stay as they are while the order is used.
    explicit TreeOrder(const std::vector<const Line *> &lines);

    /// The lines that have a node, from top to bottom.
    const std::vector<const Line *> &lines() const { return m_lines; }

    /// The line that the node with this message index shows; null when there is no such node.
    const Line *lineAt(int messageIndex) const;

    /// The place of a line. Lines without a node stand where the node of their message index is.
    TreePlace placeOf(const Line &line) const { return {nodeAt(line.messageIndex), -1}; }

    /// The place of a field, given its number among the fields of the configuration. Fields without a node
    /// come behind all others.
    TreePlace placeOf(const Field &field, int sequence) const
    {
        return {nodeAt(field.messageIndex), sequence};
    }

private:
    /// Number of the node with this message index; behind the last one when there is no such node.
    int nodeAt(int messageIndex) const;

    std::vector<const Line *> m_lines;
    QHash<int, int> m_nodes; // numbers of the nodes by message index
};

} // namespace varnow

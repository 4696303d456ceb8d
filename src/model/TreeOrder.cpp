#include "model/TreeOrder.h"

#include <algorithm>
#include <list>

namespace varnow {

TreeOrder::TreeOrder(const std::vector<const Line *> &lines)
{
    struct Added
    {
        std::list<int>::iterator node;
        int greatestMessageIndex; // of those added up to here
    };
    std::list<int> nodes; // their message indexes, as the tree shows them
    std::vector<Added> added;
    for (const Line *line : lines) {
        const int messageIndex = line->messageIndex;
        if (m_nodes.contains(messageIndex))
            continue;
        const auto notSmaller =
            std::ranges::lower_bound(added, messageIndex, {}, &Added::greatestMessageIndex);
        const auto place = notSmaller == added.begin() ? nodes.end() : std::next(std::prev(notSmaller)->node);
        const int greatest =
            added.empty() ? messageIndex : std::max(messageIndex, added.back().greatestMessageIndex);
        added.push_back({nodes.insert(place, messageIndex), greatest});
        m_nodes.insert(messageIndex, {line, 0});
    }
    int rank = 0;
    for (const int messageIndex : nodes)
        m_nodes[messageIndex].rank = rank++;
}

int TreeOrder::rankOf(int messageIndex) const
{
    const auto node = m_nodes.find(messageIndex);
    return node == m_nodes.end() ? static_cast<int>(m_nodes.size()) : node->rank;
}

std::vector<const Line *> TreeOrder::lines() const
{
    std::vector<const Line *> lines(static_cast<std::size_t>(m_nodes.size()));
    for (const Node &node : m_nodes)
        lines[static_cast<std::size_t>(node.rank)] = node.line;
    return lines;
}

const Line *TreeOrder::lineAt(int messageIndex) const
{
    const auto node = m_nodes.find(messageIndex);
    return node == m_nodes.end() ? nullptr : node->line;
}

} // namespace varnow

#include "model/TreeOrder.h"

#include <algorithm>
#include <list>

namespace varnow {

TreeOrder::TreeOrder(const std::vector<const Line *> &lines)
{
    struct Added
    {
        std::list<const Line *>::iterator node;
        int greatestMessageIndex; // of this node and those added before it
    };
    std::list<const Line *> nodes; // from top to bottom
    std::vector<Added> added;
    for (const Line *line : lines) {
        const int messageIndex = line->messageIndex;
        if (m_nodes.contains(messageIndex))
            continue;
        m_nodes.insert(messageIndex, 0);
        const auto greater = std::ranges::lower_bound(added, messageIndex, {}, &Added::greatestMessageIndex);
        const auto place = greater == added.begin() ? nodes.end() : std::next(std::prev(greater)->node);
        const int greatest =
            added.empty() ? messageIndex : std::max(messageIndex, added.back().greatestMessageIndex);
        added.push_back({nodes.insert(place, line), greatest});
    }
    m_lines.assign(nodes.begin(), nodes.end());
    for (int number = 0; const Line *line : m_lines)
        m_nodes[line->messageIndex] = number++;
}

const Line *TreeOrder::lineAt(int messageIndex) const
{
    const auto node = m_nodes.find(messageIndex);
    return node == m_nodes.end() ? nullptr : m_lines[static_cast<std::size_t>(*node)];
}

int TreeOrder::nodeAt(int messageIndex) const
{
    return m_nodes.value(messageIndex, static_cast<int>(m_lines.size()));
}

} // namespace varnow

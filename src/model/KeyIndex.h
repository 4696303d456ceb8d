#pragma once

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace varnow {

/// A hash table that owns its nodes. Several nodes may have the same hash.
///
/// It uses open addressing: the hashes are stored next to each other in one array. So a look-up reads only
/// the nodes that have the hash it looks for. With a hundred thousand records, reading memory takes most of
/// the time.
template <class Node> class KeyIndex
{
public:
    std::size_t size() const { return m_size; }

    Node &add(std::size_t hash, std::unique_ptr<Node> node)
    {
        reserve(m_size + 1);
        ++m_size;
        Slot &slot = m_slots[freeSlot(hash)];
        slot.hash = hash;
        slot.node = std::move(node);
        return *slot.node;
    }

    /// Removes a node of this table and returns it.
    std::unique_ptr<Node> take(std::size_t hash, const Node &node)
    {
        std::size_t hole = homeOf(hash);
        while (m_slots[hole].node.get() != &node)
            hole = behind(hole);
        std::unique_ptr<Node> taken = std::move(m_slots[hole].node);
        --m_size;
        // A node behind the hole moves into it, unless the hole is before the node's home.
        for (std::size_t i = behind(hole); m_slots[i].node; i = behind(i)) {
            if (distance(homeOf(m_slots[i].hash), i) >= distance(hole, i)) {
                m_slots[hole] = std::move(m_slots[i]);
                hole = i;
            }
        }
        return taken;
    }

    /// Calls `visit` for every node with this hash.
    template <class Visit> void visitAll(std::size_t hash, Visit visit) const
    {
        if (m_slots.empty())
            return;
        for (std::size_t i = homeOf(hash); m_slots[i].node; i = behind(i)) {
            if (m_slots[i].hash == hash)
                visit(std::as_const(*m_slots[i].node));
        }
    }

private:
    struct Slot
    {
        std::size_t hash = 0;
        std::unique_ptr<Node> node; // empty in a free slot
    };

    /// Makes room for this many nodes.
    void reserve(std::size_t count)
    {
        std::size_t capacity = 16;
        while (capacity < 2 * count)
            capacity *= 2;
        if (capacity <= m_slots.size())
            return;
        std::vector<Slot> slots(capacity);
        std::swap(slots, m_slots);
        for (Slot &slot : slots) {
            if (slot.node)
                m_slots[freeSlot(slot.hash)] = std::move(slot);
        }
    }

    std::size_t homeOf(std::size_t hash) const { return hash & (m_slots.size() - 1); }
    std::size_t behind(std::size_t slot) const { return (slot + 1) & (m_slots.size() - 1); }
    std::size_t distance(std::size_t from, std::size_t to) const
    {
        return (to - from) & (m_slots.size() - 1);
    }

    std::size_t freeSlot(std::size_t hash) const
    {
        std::size_t slot = homeOf(hash);
        while (m_slots[slot].node)
            slot = behind(slot);
        return slot;
    }

    std::vector<Slot> m_slots; // a power of two of them, at most half taken
    std::size_t m_size = 0;
};

} // namespace varnow

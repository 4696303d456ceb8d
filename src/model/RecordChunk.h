#pragma once

#include "model/Place.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

// The pieces that a record table is made of.

namespace varnow {

/// Neighbouring records of one configuration, in table order, with bounds of their places.
template <class Record> struct RecordChunk
{
    struct Node
    {
        Record record;
        RecordChunk *chunk = nullptr;
    };

    struct Item
    {
        Node *node;
        Place place; // a copy, because reading it from the node costs a cache miss
    };

    int configuration; ///< its number in the table
    int start = 0;     ///< index of the first item, while the table has numbered its chunks
    // Bounds of the items' places. They may be too wide, never too narrow.
    int greatestGroup = std::numeric_limits<int>::min();
    Place least{std::numeric_limits<int>::max(), std::numeric_limits<int>::max()};
    std::vector<Item> items; ///< never empty between two operations of the table

    explicit RecordChunk(int configurationNumber) : configuration(configurationNumber) {}

    void widenBounds(Place place)
    {
        greatestGroup = std::max(greatestGroup, place.group);
        least = std::min(least, place);
    }

    void tightenBounds()
    {
        const RecordChunk unbounded(configuration);
        greatestGroup = unbounded.greatestGroup;
        least = unbounded.least;
        for (const Item &item : items)
            widenBounds(item.place);
    }

    Item &itemOf(const Node &node) { return *std::ranges::find(items, &node, &Item::node); }
};

/// Goes over records in table order; `ChunkIterator` goes over pointers to their chunks.
template <class Record, class ChunkIterator> class RecordIterator
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Record;
    using difference_type = std::ptrdiff_t;
    using pointer = const Record *;
    using reference = const Record &;

    RecordIterator() = default;
    explicit RecordIterator(ChunkIterator chunk) : m_chunk(chunk) {}

    const Record &operator*() const { return (*m_chunk)->items[m_offset].node->record; }
    const Record *operator->() const { return &**this; }
    bool operator==(const RecordIterator &) const = default;

    RecordIterator &operator++()
    {
        if (++m_offset == (*m_chunk)->items.size()) {
            ++m_chunk;
            m_offset = 0;
        }
        return *this;
    }

    RecordIterator operator++(int)
    {
        RecordIterator before = *this;
        ++*this;
        return before;
    }

private:
    ChunkIterator m_chunk;
    std::size_t m_offset = 0;
};

/// Some of the records of a table, in its order; valid until one is added or removed.
template <class Record> class RecordPart
{
public:
    explicit RecordPart(std::vector<const RecordChunk<Record> *> chunks) : m_chunks(std::move(chunks)) {}

    auto begin() const { return RecordIterator<Record, ChunkIterator>(m_chunks.begin()); }
    auto end() const { return RecordIterator<Record, ChunkIterator>(m_chunks.end()); }

private:
    using ChunkIterator = typename std::vector<const RecordChunk<Record> *>::const_iterator;

    std::vector<const RecordChunk<Record> *> m_chunks;
};

} // namespace varnow

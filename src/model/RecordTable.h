#pragma once

#include "base/RuntimeError.h"
#include "model/KeyIndex.h"
#include "model/RecordChunk.h"

#include <QHash>
#include <QString>

#include <algorithm>
#include <iterator>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace varnow {

/// The records of all configurations in table order, found by index or by key (configuration, name,
/// nameIndex). Several records may share a key. The texts of its records are trimmed, but for columns that
/// are read untrimmed: storing and loading see to that, so that nobody who reads or looks up has to.
///
/// `Order` says where a record belongs: `Place placeOf(const Record &)`, and
/// `std::size_t offsetAtFront(const Front &)`, the offset from the front of its configuration for a record
/// that has no smaller one before it.
///
/// The order is kept in chunks. A chunk holds neighbouring records of one configuration and the bounds of
/// their places, so that a search can skip whole chunks. As long as a record is in the table, its
/// configuration and its address stay the same.
template <class Record, class Order> class RecordTable
{
    using Chunk = RecordChunk<Record>;
    using Node = typename Chunk::Node;
    using Item = typename Chunk::Item;
    using Chunks = std::vector<std::unique_ptr<Chunk>>;
    static constexpr std::size_t chunkCapacity = 1024;

public:
    using Iterator = RecordIterator<Record, typename Chunks::const_iterator>;
    using Part = RecordPart<Record>;

    int size() const { return static_cast<int>(m_nodes.size()); }
    bool isEmpty() const { return m_nodes.size() == 0; }

    Iterator begin() const { return Iterator(m_chunks.begin()); }
    Iterator end() const { return Iterator(m_chunks.end()); }

    /// The records of a configuration in table order. Those of others are not touched.
    Part ofConfiguration(QStringView configuration) const
    {
        std::vector<const Chunk *> chunks;
        for (const auto &chunk : m_chunks) {
            if (configurationOf(*chunk) == configuration)
                chunks.push_back(chunk.get());
        }
        return Part(std::move(chunks));
    }

    /// The records of a configuration whose place is in a group, in table order. Valid until one is added or
    /// removed.
    std::vector<const Record *> ofGroup(QStringView configuration, int group) const
    {
        std::vector<const Record *> found;
        for (const auto &chunk : m_chunks) {
            if (group < chunk->least.group || group > chunk->greatestGroup ||
                configurationOf(*chunk) != configuration)
                continue;
            for (const Item &item : chunk->items) {
                if (item.place.group == group)
                    found.push_back(&item.node->record);
            }
        }
        return found;
    }

    /// The record at an index. Raises errors::SubscriptOutOfRange outside the table.
    const Record &operator[](int index) const
    {
        const Chunk &chunk = **chunkAt(index);
        return chunk.items[static_cast<std::size_t>(index - chunk.start)].node->record;
    }

    /// Index of the first record with this key, or -1.
    int find(const QString &configuration, const QString &name, int nameIndex) const
    {
        const Record *found = lookUp(configuration, name, nameIndex);
        return found ? indexOf(*found) : -1;
    }

    /// The same record itself, which takes less time than its index; null without one.
    const Record *lookUp(const QString &configuration, const QString &name, int nameIndex) const
    {
        const Record *found = nullptr;
        m_nodes.visitAll(keyHash(configuration, name, nameIndex), [&](const Node &node) {
            const Record &record = node.record;
            if (record.nameIndex == nameIndex && record.name == name &&
                record.configuration == configuration && (!found || indexOfNode(node) < indexOf(*found)))
                found = &record;
        });
        return found;
    }

    /// Index of a record of this table. Raises errors::SubscriptOutOfRange for any other, a copy among them.
    int indexOf(const Record &record) const
    {
        const Node *found = nullptr;
        m_nodes.visitAll(keyHash(record), [&](const Node &node) {
            if (&node.record == &record)
                found = &node;
        });
        if (found == nullptr)
            throw RuntimeError(errors::SubscriptOutOfRange);
        return indexOfNode(*found);
    }

    /// For each configuration a number that is another one after every change to its records.
    QHash<QString, quint64> states() const
    {
        QHash<QString, quint64> states;
        for (auto known = m_configurations.cbegin(); known != m_configurations.cend(); ++known)
            states.insert(known.key(), m_lastChanges[static_cast<std::size_t>(*known)]);
        return states;
    }

    void clear()
    {
        const quint64 changeCount = m_changeCount;
        *this = RecordTable();
        m_changeCount = changeCount; // no state comes back
    }

    /// Adds a record behind all others and returns it.
    const Record &append(Record record)
    {
        const int configuration = configurationNumber(record.configuration);
        if (m_chunks.empty() || m_chunks.back()->configuration != configuration)
            m_chunks.push_back(std::make_unique<Chunk>(configuration));
        return insertAt(m_chunks.size() - 1, m_chunks.back()->items.size(), std::move(record));
    }

    /// Adds a record at an index, which may be size(). Raises errors::SubscriptOutOfRange beyond that.
    const Record &insert(int index, Record record)
    {
        if (index == size())
            return append(std::move(record));
        const int configuration = configurationNumber(record.configuration);
        const auto position = chunkAt(index);
        auto chunk = static_cast<std::size_t>(position - m_chunks.cbegin());
        const auto offset = static_cast<std::size_t>(index - (*position)->start);
        if ((*position)->configuration == configuration)
            return insertAt(chunk, offset, std::move(record));
        if (offset == 0 && chunk > 0 && m_chunks[chunk - 1]->configuration == configuration)
            return insertAt(chunk - 1, m_chunks[chunk - 1]->items.size(), std::move(record));
        if (offset > 0)
            split(chunk++, offset);
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(chunk),
                        std::make_unique<Chunk>(configuration));
        return insertAt(chunk, 0, std::move(record));
    }

    /// Adds a record among those of its configuration, which must all stand together: behind the last one of
    /// a smaller place that stands before the first one of a greater group. A configuration's first record
    /// goes to the top of the table. Returns it.
    const Record &insertOrdered(Record record)
    {
        const int configuration = configurationNumber(record.configuration);
        std::size_t first = 0;
        while (first < m_chunks.size() && m_chunks[first]->configuration != configuration)
            ++first;
        if (first == m_chunks.size()) {
            first = 0;
            m_chunks.insert(m_chunks.begin(), std::make_unique<Chunk>(configuration));
        }
        const auto [chunk, offset] = orderedSpot(first, Order::placeOf(record));
        return insertAt(chunk, offset, std::move(record));
    }

    /// Puts other values, of the same configuration, into the record at an index. It keeps its index. Raises
    /// errors::SubscriptOutOfRange outside the table.
    void replace(int index, Record values)
    {
        Chunk &chunk = **chunkAt(index);
        Item &item = chunk.items[static_cast<std::size_t>(index - chunk.start)];
        Node &node = *item.node;
        const std::size_t oldHash = keyHash(node.record);
        const std::size_t hash = keyHash(values);
        node.record = std::move(values);
        item.place = Order::placeOf(node.record);
        chunk.widenBounds(item.place);
        noteChange(chunk);
        if (hash != oldHash)
            m_nodes.add(hash, m_nodes.take(oldHash, node));
    }

    /// Takes out the record at an index. Raises errors::SubscriptOutOfRange outside the table.
    void removeAt(int index)
    {
        const auto position = chunkAt(index);
        Chunk &chunk = **position;
        const auto item = chunk.items.begin() + (index - chunk.start);
        noteChange(chunk);
        m_nodes.take(keyHash(item->node->record), *item->node);
        chunk.items.erase(item);
        if (chunk.items.empty())
            m_chunks.erase(m_chunks.begin() + (position - m_chunks.begin()));
        else
            chunk.tightenBounds();
        m_numbered = false;
    }

    /// Hands the records of the configurations that `isWanted` in table order to `change`, each with its
    /// index. It may alter all but the key, and returns whether it altered more than the identifier.
    template <class IsWanted, class Change> void changeEach(IsWanted isWanted, Change change)
    {
        numberChunks();
        for (const auto &chunk : m_chunks) {
            if (!isWanted(configurationOf(*chunk)))
                continue;
            int index = chunk->start;
            bool isChanged = false;
            for (Item &item : chunk->items) {
                if (!change(index++, item.node->record))
                    continue;
                noteChange(*chunk);
                item.place = Order::placeOf(item.node->record);
                chunk->widenBounds(item.place);
                isChanged = true;
            }
            if (isChanged)
                chunk->tightenBounds();
        }
    }

private:
    static std::size_t keyHash(QStringView configuration, QStringView name, int nameIndex)
    {
        return qHashMulti(0, configuration, name, nameIndex);
    }

    static std::size_t keyHash(const Record &record)
    {
        return keyHash(record.configuration, record.name, record.nameIndex);
    }

    /// Number of a configuration. All records of one share its text: who walks the table then finds it in
    /// the cache.
    int configurationNumber(QString &configuration)
    {
        auto known = m_configurations.constFind(configuration);
        if (known == m_configurations.cend()) {
            m_lastChanges.push_back(0); // first, so that every number has its place
            known = m_configurations.insert(configuration, static_cast<int>(m_lastChanges.size()) - 1);
        }
        configuration = known.key();
        return *known;
    }

    static const QString &configurationOf(const Chunk &chunk)
    {
        return chunk.items.front().node->record.configuration;
    }

    void noteChange(const Chunk &chunk)
    {
        m_lastChanges[static_cast<std::size_t>(chunk.configuration)] = ++m_changeCount;
    }

    /// Brings the chunks' start indexes up to date.
    void numberChunks() const
    {
        if (m_numbered)
            return;
        int start = 0;
        for (const auto &chunk : m_chunks) {
            chunk->start = start;
            start += static_cast<int>(chunk->items.size());
        }
        m_numbered = true;
    }

    int indexOfNode(const Node &node) const
    {
        numberChunks();
        return node.chunk->start + static_cast<int>(&node.chunk->itemOf(node) - node.chunk->items.data());
    }

    typename Chunks::const_iterator chunkAt(int index) const
    {
        if (index < 0 || index >= size())
            throw RuntimeError(errors::SubscriptOutOfRange);
        numberChunks();
        const auto startOf = [](const auto &chunk) { return chunk->start; };
        return std::ranges::upper_bound(m_chunks, index, {}, startOf) - 1;
    }

    /// A chunk's number and an offset in it.
    using Spot = std::pair<std::size_t, std::size_t>;

    /// Where a new record belongs in the configuration whose chunks begin with number `first`.
    Spot orderedSpot(std::size_t first, Place place) const
    {
        const Spot greater = firstOfGreaterGroup(first, place.group);
        auto [chunk, offset] = greater;
        while (true) {
            for (; offset > 0; --offset) {
                if (m_chunks[chunk]->items[offset - 1].place < place)
                    return {chunk, offset};
            }
            do {
                if (chunk == first)
                    return frontOf(first, greater);
                --chunk;
            } while (!(m_chunks[chunk]->least < place));
            offset = m_chunks[chunk]->items.size();
        }
    }

    /// The end of the configuration when no group in it is greater.
    Spot firstOfGreaterGroup(std::size_t first, int group) const
    {
        std::size_t chunk = first;
        for (; continues(first, chunk); ++chunk) {
            const auto &items = m_chunks[chunk]->items;
            if (m_chunks[chunk]->greatestGroup <= group)
                continue;
            for (std::size_t offset = 0; offset < items.size(); ++offset) {
                if (items[offset].place.group > group)
                    return {chunk, offset};
            }
        }
        return {chunk - 1, m_chunks[chunk - 1]->items.size()};
    }

    /// Where a record with no smaller one before it goes.
    Spot frontOf(std::size_t first, Spot greater) const
    {
        const bool hasSecond = m_chunks[first]->items.size() > 1 || continues(first, first + 1);
        return {first, Order::offsetAtFront({first == 0, greater == Spot(first, 0), hasSecond})};
    }

    /// True when a chunk belongs to the configuration whose chunks begin with number `first`.
    bool continues(std::size_t first, std::size_t chunk) const
    {
        return chunk < m_chunks.size() && m_chunks[chunk]->configuration == m_chunks[first]->configuration;
    }

    const Record &insertAt(std::size_t chunkNumber, std::size_t offset, Record record)
    {
        if (m_chunks[chunkNumber]->items.size() == chunkCapacity) {
            // Records mostly arrive in order: a full chunk then stays full and a new one begins behind it.
            const std::size_t cut = offset == chunkCapacity ? chunkCapacity : chunkCapacity / 2;
            split(chunkNumber, cut);
            if (offset > cut || cut == chunkCapacity) {
                ++chunkNumber;
                offset -= cut;
            }
        }
        const std::size_t hash = keyHash(record);
        Node &node = m_nodes.add(hash, std::make_unique<Node>(Node{std::move(record)}));
        Chunk &chunk = *m_chunks[chunkNumber];
        node.chunk = &chunk;
        const Place place = Order::placeOf(node.record);
        chunk.items.insert(chunk.items.begin() + static_cast<std::ptrdiff_t>(offset), {&node, place});
        chunk.widenBounds(place);
        noteChange(chunk);
        m_numbered = false;
        return node.record;
    }

    /// Moves the items from `cut` on into a new chunk behind.
    void split(std::size_t chunkNumber, std::size_t cut)
    {
        Chunk &chunk = *m_chunks[chunkNumber];
        auto behind = std::make_unique<Chunk>(chunk.configuration);
        const auto middle = chunk.items.begin() + static_cast<std::ptrdiff_t>(cut);
        behind->items.assign(middle, chunk.items.end());
        behind->tightenBounds();
        for (const Item &item : behind->items)
            item.node->chunk = behind.get();
        chunk.items.erase(middle, chunk.items.end());
        chunk.tightenBounds();
        m_chunks.insert(m_chunks.begin() + static_cast<std::ptrdiff_t>(chunkNumber) + 1, std::move(behind));
    }

    KeyIndex<Node> m_nodes;               // owns the records, by hash of their key
    Chunks m_chunks;                      // their order
    QHash<QString, int> m_configurations; // a number for every configuration ever seen
    std::vector<quint64> m_lastChanges;   // by that number: the number of its last change
    quint64 m_changeCount = 0;
    mutable bool m_numbered = false;
};

} // namespace varnow

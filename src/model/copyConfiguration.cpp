#include "model/copyConfiguration.h"

#include "model/ownership.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <limits>
#include <vector>

namespace varnow {

namespace {

/// The records of a configuration, in table order.
template <class Table> auto recordsOf(const Table &table, const QString &configuration)
{
    std::vector<std::decay_t<decltype(*table.begin())>> records;
    std::ranges::copy(table.ofConfiguration(configuration), std::back_inserter(records));
    return records;
}

template <class Table, class Record>
bool hasKeyOf(const Table &table, const QString &configuration, const Record &record)
{
    return table.find(configuration, record.name, record.nameIndex) >= 0;
}

template <class Table> CopyCount count(const Table &table, const QString &source, const QString &target)
{
    CopyCount counted;
    for (const auto &record : table.ofConfiguration(source)) {
        ++counted.source;
        counted.equal += hasKeyOf(table, target, record);
    }
    const auto held = table.ofConfiguration(target);
    counted.target = static_cast<int>(std::distance(held.begin(), held.end()));
    return counted;
}

/// The records of the source that are to be stored in the target.
template <class Table>
auto copiesFor(const Table &table, const QString &source, const QString &target, EqualKeys equalKeys)
{
    auto copies = recordsOf(table, source);
    if (equalKeys == EqualKeys::Skip)
        std::erase_if(copies, [&](const auto &record) { return hasKeyOf(table, target, record); });
    for (auto &copy : copies) {
        copy.id = -1;
        copy.configuration = target;
    }
    return copies;
}

/// Moves the copies behind the lines of the target that stay, where one of these is in their way.
void makeWay(std::vector<Line> &copies, const LineTable &lines, const QString &target)
{
    QSet<RecordKey> copied;
    for (const Line &copy : copies)
        copied.insert(keyOf(copy));
    QSet<int> taken;
    qint64 greatest = 0;
    for (const Line &line : recordsOf(lines, target)) {
        if (!copied.contains(keyOf(line))) {
            taken.insert(line.messageIndex);
            greatest = std::max(greatest, qint64{line.messageIndex});
        }
    }
    const auto isInTheWay = [&](const Line &copy) { return taken.contains(copy.messageIndex); };
    if (std::ranges::none_of(copies, isInTheWay))
        return;
    constexpr qint64 most = std::numeric_limits<int>::max();
    for (Line &copy : copies)
        copy.messageIndex = static_cast<int>(std::min(copy.messageIndex + greatest, most));
}

} // namespace

CopyCount countLinesToCopy(const Model &model, const QString &source, const QString &target)
{
    return count(model.lines, source, target);
}

CopyCount countFieldsToCopy(const Model &model, const QString &source, const QString &target)
{
    return count(model.fields, source, target);
}

void copyConfiguration(Model &model, const QString &source, const QString &target, EqualKeys equalKeys)
{
    if (source == target)
        return;
    std::vector<Line> lines = copiesFor(model.lines, source, target, equalKeys);
    std::vector<Field> fields = copiesFor(model.fields, source, target, equalKeys);
    makeWay(lines, model.lines, target);
    for (Line &line : lines)
        model.lines.store(std::move(line));

    model.fields.copyMessageIndexes(model.lines,
                                    {[&](const QString &configuration) { return configuration == target; }});
    LineFinder finder(model.lines);
    for (Field &field : fields) {
        if (const Line *line = finder.lineOf(field))
            field.messageIndex = line->messageIndex;
    }
    model.fields.storeAll(std::move(fields));
}

} // namespace varnow

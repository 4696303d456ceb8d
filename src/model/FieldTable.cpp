#include "model/FieldTable.h"

#include "model/ownership.h"
#include "model/trimTexts.h"

#include <algorithm>
#include <limits>

namespace varnow {

void FieldTable::store(Field field)
{
    trimTexts(field);
    const int index = find(field.configuration, field.name, field.nameIndex);
    if (index < 0) {
        addOrdered(std::move(field));
        return;
    }
    const Field &old = (*this)[index];
    if (field.id <= 0 && lineKeyOf(field) == lineKeyOf(old))
        field.id = old.id;
    replace(index, std::move(field));
}

void FieldTable::storeAll(std::vector<Field> fields)
{
    std::ranges::reverse(fields); // a field goes before those of its place
    std::ranges::stable_sort(fields, {}, &FieldOrder::placeOf);
    for (Field &field : fields)
        store(std::move(field));
}

void FieldTable::load(Field row)
{
    const int index = find(row.configuration, row.name, row.nameIndex);
    loadAt(index, std::move(row));
}

void FieldTable::copyMessageIndexes(const LineTable &lines, const FieldSelection &selection)
{
    LineFinder finder(lines);
    const auto isWanted = [&](const QString &configuration) {
        return !selection.hasConfiguration || selection.hasConfiguration(configuration);
    };
    changeEach(isWanted, [&](const Field &field) -> std::optional<Field> {
        if (selection.hasField && !selection.hasField(field))
            return {};
        const Line *line = finder.lineOf(field);
        if (line == nullptr || line->messageIndex == field.messageIndex)
            return {};
        Field changed = field;
        changed.messageIndex = line->messageIndex;
        return changed;
    });
}

int FieldTable::countOfLine(const QString &configuration, const QString &line, int lineIndex) const
{
    return static_cast<int>(std::ranges::count_if(ofConfiguration(configuration), [&](const Field &field) {
        return (lineIndex <= 0 || field.lineIndex == lineIndex) && field.line == line;
    }));
}

int FieldTable::nextPosition(const QString &configuration, const QString &line, int lineIndex) const
{
    int highest = 0;
    for (const Field &field : ofConfiguration(configuration)) {
        if ((lineIndex < 0 || field.lineIndex == lineIndex) && field.line == line)
            highest = std::max(highest, field.position);
    }
    return highest < std::numeric_limits<int>::max() ? highest + 1 : 0;
}

} // namespace varnow

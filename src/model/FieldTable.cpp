#include "model/FieldTable.h"

#include "base/text.h"

#include <algorithm>
#include <limits>

namespace varnow {

int FieldTable::find(const QString &configuration, const QString &name, int nameIndex) const
{
    const QStringView wantedConfiguration = trimmedView(configuration);
    const QStringView wantedName = trimmedView(name);
    return EditedTable::find(configuration, name, nameIndex, [&](const Field &field) {
        return field.nameIndex == nameIndex && field.name == wantedName &&
               field.configuration == wantedConfiguration;
    });
}

void FieldTable::store(Field field)
{
    for (QString *text : {&field.configuration, &field.name, &field.line, &field.dataType, &field.lookup,
                          &field.format, &field.constant})
        *text = trim(*text);
    const int index = find(field.configuration, field.name, field.nameIndex);
    if (index < 0) {
        addOrdered(std::move(field));
        return;
    }
    const Field &old = (*this)[index];
    if (field.id <= 0 && field.line == old.line && field.lineIndex == old.lineIndex)
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

void FieldTable::changeMessageIndexes(const std::function<std::optional<int>(const Field &)> &indexOf,
                                      const std::function<bool(const QString &)> &isWanted)
{
    changeEach(isWanted, [&](const Field &field) -> std::optional<Field> {
        const std::optional<int> messageIndex = indexOf(field);
        if (!messageIndex || *messageIndex == field.messageIndex)
            return {};
        Field changed = field;
        changed.messageIndex = *messageIndex;
        return changed;
    });
}

int FieldTable::countOfLine(const QString &configuration, const QString &line, int lineIndex) const
{
    const QStringView wantedLine = trimmedView(line);
    return static_cast<int>(std::ranges::count_if(ofConfiguration(configuration), [&](const Field &field) {
        return (lineIndex <= 0 || field.lineIndex == lineIndex) && trimmedView(field.line) == wantedLine;
    }));
}

int FieldTable::nextPosition(const QString &configuration, const QString &line, int lineIndex) const
{
    int highest = 0;
    for (const Field &field : ofConfiguration(configuration)) {
        if ((lineIndex < 0 || field.lineIndex == lineIndex) && field.line == line &&
            field.configuration == configuration)
            highest = std::max(highest, field.position);
    }
    return highest < std::numeric_limits<int>::max() ? highest + 1 : 0;
}

} // namespace varnow

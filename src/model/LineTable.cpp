#include "model/LineTable.h"

#include "base/text.h"

#include <algorithm>
#include <limits>

namespace varnow {

int LineTable::find(const QString &configuration, const QString &name, int nameIndex) const
{
    return EditedTable::find(configuration, name, nameIndex, [&](const Line &line) {
        return line.nameIndex == nameIndex && trimmedView(line.name) == name &&
               trimmedView(line.configuration) == configuration;
    });
}

int LineTable::findNamed(const QString &configuration, const QString &name, int nameIndex) const
{
    if (nameIndex > 0)
        return find(configuration, name, nameIndex);
    const auto found = std::find_if(begin(), end(), [&](const Line &line) {
        return trimmedView(line.name) == name && trimmedView(line.configuration) == configuration;
    });
    return found == end() ? -1 : static_cast<int>(std::distance(begin(), found));
}

void LineTable::store(Line line)
{
    line.configuration = trim(line.configuration);
    line.name = trim(line.name);
    const int index = find(line.configuration, line.name, line.nameIndex);
    if (index < 0) {
        add(std::move(line));
        return;
    }
    if (line.id <= 0)
        line.id = (*this)[index].id;
    replace(index, std::move(line));
}

void LineTable::bringBack(const Line &line)
{
    int place = size();
    for (int index = size() - 1; index >= 0; --index) {
        if ((*this)[index].configuration == line.configuration &&
            (*this)[index].messageIndex >= line.messageIndex)
            place = index;
    }
    putIn(place, withWaitingRow(line));
}

void LineTable::renumber(const QString &configuration)
{
    int number = 0;
    const auto isIt = [&](const QString &name) { return trimmedView(name) == trimmedView(configuration); };
    changeEach(isIt, [&](const Line &line) -> std::optional<Line> {
        if (line.configuration != configuration || line.messageIndex == ++number)
            return {};
        Line renumbered = line;
        renumbered.messageIndex = number;
        return renumbered;
    });
}

int LineTable::nextMessageIndex(const QString &configuration) const
{
    int highest = 0;
    for (const Line &line : *this) {
        if (line.configuration == configuration)
            highest = std::max(highest, line.messageIndex);
    }
    return highest < std::numeric_limits<int>::max() ? highest + 1 : highest;
}

} // namespace varnow

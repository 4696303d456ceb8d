#include "model/LineTable.h"

#include "model/trimTexts.h"

#include <algorithm>
#include <limits>

namespace varnow {

int LineTable::findNamed(const QString &configuration, const QString &name, int nameIndex) const
{
    if (nameIndex > 0)
        return find(configuration, name, nameIndex);
    const auto found = std::find_if(begin(), end(), [&](const Line &line) {
        return line.name == name && line.configuration == configuration;
    });
    return found == end() ? -1 : static_cast<int>(std::distance(begin(), found));
}

void LineTable::store(Line line)
{
    trimTexts(line);
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
    const auto isIt = [&](const QString &name) { return name == configuration; };
    changeEach(isIt, [&](const Line &line) -> std::optional<Line> {
        if (line.messageIndex == ++number)
            return {};
        Line renumbered = line;
        renumbered.messageIndex = number;
        return renumbered;
    });
}

int LineTable::nextMessageIndex(const QString &configuration) const
{
    int highest = 0;
    for (const Line &line : ofConfiguration(configuration))
        highest = std::max(highest, line.messageIndex);
    return highest < std::numeric_limits<int>::max() ? highest + 1 : highest;
}

} // namespace varnow

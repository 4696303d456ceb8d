#include "exchange/FileRowReader.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace varnow {

FileRowReader::FileRowReader(const QStringList &header)
{
    const auto find = [&](QLatin1String name) {
        const auto isNamed = [name](const QString &cell) {
            return trim(cell).compare(name, Qt::CaseInsensitive) == 0;
        };
        const auto found = std::ranges::find_if(header, isNamed);
        if (found != header.end())
            m_cells.insert(name, static_cast<int>(found - header.begin()));
    };
    find(kindColumn);
    const auto findColumns = [&]<class Record>(std::vector<int> &cells,
                                               std::span<const Column<Record>> columns) {
        for (const Column<Record> &column : columns) {
            if (isExchanged(column))
                find(QLatin1String(column.name));
            cells.push_back(m_cells.value(QLatin1String(column.name), -1));
        }
    };
    findColumns(m_lineCells, Line::columns());
    findColumns(m_fieldCells, Field::columns());
}

bool FileRowReader::hasMessageIndex(const QStringList &cells) const
{
    return !isBlank(cells.value(m_fieldCells[columnNumber(&Field::messageIndex)]));
}

/// Gives the draft the cells that the file has. Returns the problems of those that must hold a number.
template <class Record>
QStringList FileRowReader::fill(Draft<Record> &draft, const QStringList &cells,
                                const std::vector<int> &cellOf)
{
    QStringList problems;
    for (std::size_t number = 0; const Column<Record> &column : Record::columns()) {
        const int cell = cellOf[number];
        if (cell >= 0) {
            const QString text = cells.value(cell);
            draft.set(number, text);
            const bool isNumber = std::holds_alternative<int Record::*>(column.member);
            if (isNumber && !isLong(zeroIfBlank(text)))
                problems += QStringLiteral("The column %1 must hold a number of at most ten digits.")
                                .arg(QLatin1String(column.name));
        }
        ++number;
    }
    return problems;
}

Parsed<Line> FileRowReader::readLine(const QStringList &cells) const
{
    LineDraft draft;
    const QStringList noNumbers = fill(draft, cells, m_lineCells);
    Parsed<Line> parsed = parse(draft);
    if (parsed.problems.isEmpty())
        parsed.problems = noNumbers;
    return parsed;
}

Parsed<Field> FileRowReader::readField(const QStringList &cells) const
{
    FieldDraft draft;
    const QStringList noNumbers = fill(draft, cells, m_fieldCells);
    if (isBlank(draft.text(&Field::lineIndex)))
        draft.clear(&Field::lineIndex); // the bare name of the line
    Parsed<Field> parsed = parse(draft);
    if (parsed.problems.isEmpty())
        parsed.problems = noNumbers;
    return parsed;
}

} // namespace varnow

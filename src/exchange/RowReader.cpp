#include "exchange/RowReader.h"

#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

namespace varnow {

namespace {

QString zeroIfBlank(const QString &text)
{
    return isBlank(text) ? QStringLiteral("0") : text;
}

} // namespace

RowReader::RowReader(const QStringList &header)
{
    const auto place = [&](QLatin1String name) {
        const auto isNamed = [name](const QString &cell) {
            return trim(cell).compare(name, Qt::CaseInsensitive) == 0;
        };
        const auto found = std::ranges::find_if(header, isNamed);
        if (found != header.end())
            m_places.insert(name, static_cast<int>(found - header.begin()));
    };
    place(kindColumn);
    const auto placeAll = [&]<class Record>(std::vector<int> &places,
                                            const std::vector<Column<Record>> &columns) {
        for (const Column<Record> &column : columns) {
            place(QLatin1String(column.name));
            places.push_back(m_places.value(QLatin1String(column.name), -1));
        }
    };
    placeAll(m_linePlaces, exchangedColumns<Line>());
    placeAll(m_fieldPlaces, exchangedColumns<Field>());
}

template <> const std::vector<int> &RowReader::places<Line>() const
{
    return m_linePlaces;
}

template <> const std::vector<int> &RowReader::places<Field>() const
{
    return m_fieldPlaces;
}

/// The cell in the column of a member.
template <class Record, class Value>
QString RowReader::cell(const QStringList &row, Value Record::*member) const
{
    const auto isOfMember = [member](const Column<Record> &column) {
        const auto *candidate = std::get_if<Value Record::*>(&column.member);
        return candidate != nullptr && *candidate == member;
    };
    const std::vector<Column<Record>> &columns = exchangedColumns<Record>();
    const auto column = std::ranges::find_if(columns, isOfMember);
    return row.value(places<Record>()[static_cast<std::size_t>(column - columns.begin())]);
}

bool RowReader::hasMessageIndex(const QStringList &row) const
{
    return !isBlank(cell(row, &Field::messageIndex));
}

LineDraft RowReader::lineEntry(const QStringList &row) const
{
    const auto text = [&](auto member) { return cell(row, member); };
    return {.configuration = {},
            .name = text(&Line::name),
            .nameIndex = zeroIfBlank(text(&Line::nameIndex)),
            .messageIndex = text(&Line::messageIndex)};
}

FieldDraft RowReader::fieldEntry(const QStringList &row) const
{
    const auto text = [&](auto member) { return cell(row, member); };
    const QString lineIndex = text(&Field::lineIndex);
    const QString fixedLength = trim(text(&Field::fixedLength));
    return {.configuration = {},
            .name = text(&Field::name),
            .nameIndex = zeroIfBlank(text(&Field::nameIndex)),
            .line = {text(&Field::line), zeroIfBlank(lineIndex), !isBlank(lineIndex), false},
            .messageIndex = text(&Field::messageIndex),
            .lookup = text(&Field::lookup),
            .format = text(&Field::format),
            .constant = text(&Field::constant),
            .position = text(&Field::position),
            .isFixedLength = !isBlank(fixedLength) && fixedLength != u'0',
            .length = text(&Field::length),
            .characterPosition = text(&Field::characterPosition),
            .padCharacter = text(&Field::padCharacter),
            .padDirection = 0};
}

/// Reads the columns that the file has. Returns those that should hold a number and do not.
template <class Record> QStringList RowReader::readCells(const QStringList &row, Record &record) const
{
    QStringList problems;
    auto place = places<Record>().begin();
    for (const Column<Record> &column : exchangedColumns<Record>()) {
        const int at = *place++;
        if (at < 0)
            continue;
        const QString text = row.value(at);
        if (const auto *member = std::get_if<QString Record::*>(&column.member))
            record.**member = column.reading == ColumnReading::Untrimmed ? text : trim(text);
        else if (const QString number = zeroIfBlank(text); isLong(number))
            record.*std::get<int Record::*>(column.member) = toLong(number);
        else
            problems += QStringLiteral("The column %1 must hold a number of at most ten digits.")
                            .arg(QLatin1String(column.name));
    }
    return problems;
}

QStringList RowReader::read(const QStringList &row, Line &record) const
{
    const QStringList unreadable = readCells(row, record);
    const QStringList problems = validate(lineEntry(row));
    return problems.isEmpty() ? unreadable : problems;
}

QStringList RowReader::read(const QStringList &row, Field &record) const
{
    const FieldDraft entry = fieldEntry(row);
    record.dataType = "String";
    const QStringList unreadable = readCells(row, record);
    if (entry.isFixedLength && isBlank(cell(row, &Field::padDirection))) { // as the page proposes them
        record.padDirection = 1;
        if (record.padCharacter.isEmpty())
            record.padCharacter = " ";
    }
    const QStringList problems = validate(entry);
    return problems.isEmpty() ? unreadable : problems;
}

} // namespace varnow

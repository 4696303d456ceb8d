#include "exchange/RowReader.h"

#include "base/numbers.h"
#include "base/text.h"

namespace varnow {

namespace {

/// The name of a member's column.
template <class Record, class Value> const char *columnOf(Value Record::*member)
{
    for (const Column<Record> &column : Record::columns()) {
        const auto *candidate = std::get_if<Value Record::*>(&column.member);
        if (candidate != nullptr && *candidate == member)
            return column.name;
    }
    return "";
}

QString zeroIfBlank(const QString &text)
{
    return isBlank(text) ? QStringLiteral("0") : text;
}

} // namespace

RowReader::RowReader(const QStringList &header)
{
    for (int i = 0; i < header.size(); ++i)
        m_places.insert(trim(header[i]).toLower(), i);
}

bool RowReader::hasMessageIndex(const QStringList &row) const
{
    return !isBlank(cell(row, columnOf(&Field::messageIndex)));
}

LineEntry RowReader::lineEntry(const QStringList &row) const
{
    const auto text = [&](auto member) { return cell(row, columnOf<Line>(member)); };
    return {.configuration = {},
            .name = text(&Line::name),
            .nameIndex = zeroIfBlank(text(&Line::nameIndex)),
            .messageIndex = text(&Line::messageIndex)};
}

FieldEntry RowReader::fieldEntry(const QStringList &row) const
{
    const auto text = [&](auto member) { return cell(row, columnOf<Field>(member)); };
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
    QStringList complaints;
    for (const Column<Record> &column : exchangedColumns<Record>()) {
        const int place = m_places.value(nameOf(column.name), -1);
        if (place < 0)
            continue;
        const QString text = row.value(place);
        if (const auto *member = std::get_if<QString Record::*>(&column.member))
            record.**member = column.reading == ColumnReading::Untrimmed ? text : trim(text);
        else if (const QString number = zeroIfBlank(text); isLong(number))
            record.*std::get<int Record::*>(column.member) = toLong(number);
        else
            complaints += QStringLiteral("The column %1 must hold a number of at most ten digits.")
                              .arg(QLatin1String(column.name));
    }
    return complaints;
}

QStringList RowReader::read(const QStringList &row, Line &record) const
{
    const QStringList unreadable = readCells(row, record);
    const QStringList complaints = complaintsAbout(lineEntry(row));
    return complaints.isEmpty() ? unreadable : complaints;
}

QStringList RowReader::read(const QStringList &row, Field &record) const
{
    const FieldEntry entry = fieldEntry(row);
    record.dataType = "String";
    if (entry.isFixedLength) { // as the page proposes them
        record.padCharacter = " ";
        record.padDirection = 1;
    }
    const QStringList unreadable = readCells(row, record);
    const QStringList complaints = complaintsAbout(entry);
    return complaints.isEmpty() ? unreadable : complaints;
}

} // namespace varnow

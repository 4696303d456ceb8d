#include "model/drafts.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "base/text.h"

namespace varnow {

namespace {

/// The number that the text begins with, 0 without one; nothing when no 32-bit integer holds it.
std::optional<int> beginningOf(const QString &text)
{
    if (isLong(text))
        return toLong(text);
    return guarded([&] { return std::optional(leadingNumber(text)); },
                   [](const RuntimeError &) { return std::optional<int>(); });
}

void parseValue(const QString &text, ColumnReading, int &number)
{
    number = beginningOf(text).value_or(0);
}

void parseValue(const QString &text, ColumnReading reading, QString &value)
{
    value = reading == ColumnReading::Untrimmed ? text : trim(text);
}

void parseValue(const QString &, ColumnReading, QDateTime &) {} // only spare columns are dates

/// Puts the texts that were given into the record, whatever is wrong with them.
template <class Record> void parseTexts(const Draft<Record> &draft, Record &record)
{
    for (std::size_t number = 0; const Column<Record> &column : Record::columns()) {
        if (const std::optional<QString> &text = draft.given(number++))
            visit(column, record, [&](auto &value) { parseValue(*text, column.reading, value); });
    }
}

QStringList validateLine(const FieldDraft &draft)
{
    const bool isNameBlank = isBlank(draft.text(&Field::line));
    const bool hasIndex = draft.has(&Field::lineIndex);
    if (isNameBlank && !hasIndex)
        return {"The Line Name and Index field is empty."};
    if (draft.isLineUnclosed)
        return {"The Line Name or Index field is invalid."};
    QStringList problems;
    if (isNameBlank)
        problems += "The Line Name is empty.";
    if (hasIndex && !isLong(draft.text(&Field::lineIndex)))
        problems += "The Line Name Index is invalid.";
    return problems;
}

/// The first thing that is wrong with length and character position, empty when both are right.
QString lengthProblem(const QString &length, const QString &position)
{
    if (isBlank(length) && isBlank(position))
        return "length and position were not specified.";
    if (isBlank(length))
        return "length was not specified.";
    if (isBlank(position))
        return "position was not specified.";
    if (!isLong(length) && !isLong(position))
        return "length and position are not numeric.";
    if (!isLong(length))
        return "length is not a number.";
    if (!isLong(position))
        return "position is not a number.";
    return {};
}

QStringList validate(const LineDraft &draft)
{
    const QString messageIndex = draft.text(&Line::messageIndex);
    QStringList problems;
    if (isBlank(draft.text(&Line::name)))
        problems += "The Line name is empty.";
    if (!isLong(zeroIfBlank(draft.text(&Line::nameIndex))))
        problems += "The Line Index must be numeric.";
    if (isBlank(messageIndex))
        problems += "The Message Index is empty.";
    else if (!isLong(messageIndex))
        problems += "The Message Index nust be a number.";
    return problems;
}

QStringList validate(const FieldDraft &draft)
{
    const QString position = draft.text(&Field::position);
    QStringList problems;
    if (isBlank(draft.text(&Field::name)))
        problems += "The Field name is empty.";
    if (!isLong(zeroIfBlank(draft.text(&Field::nameIndex))))
        problems += "The Field Name Index must be numeric.";
    problems += validateLine(draft);
    if (!beginningOf(draft.text(&Field::messageIndex)))
        problems += "The Message Index nust be a number.";
    if (isBlank(draft.text(&Field::lookup)) && isBlank(draft.text(&Field::constant)))
        problems += "Both the Lookup String and the Constant value are empty," + lineBreak +
                    "\t\tyou must supply one or the other.";
    if (isBlank(position))
        problems += "The Position Field is empty.";
    else if (!isLong(position))
        problems += "The Position Field nust be a number.";
    return problems;
}

} // namespace

void FieldDraft::setLine(const LineChoice &line)
{
    set(&Field::line, line.name);
    if (line.index)
        set(&Field::lineIndex, *line.index);
    isLineUnclosed = line.isUnclosed;
}

Parsed<Line> parse(const LineDraft &draft)
{
    Parsed<Line> parsed{{}, validate(draft)};
    parseTexts(draft, parsed.record);
    return parsed;
}

Parsed<Field> parse(const FieldDraft &draft)
{
    Parsed<Field> parsed{{}, validate(draft)};
    Field &field = parsed.record;
    field.id = -1;
    field.dataType = "String";
    parseTexts(draft, field);
    if (field.fixedLength == 0)
        return parsed;
    if (isBlank(draft.text(&Field::padDirection))) { // as a page proposes them
        field.padDirection = 1;
        if (field.padCharacter.isEmpty())
            field.padCharacter = " ";
    }
    const QString problem = lengthProblem(draft.text(&Field::length), draft.text(&Field::characterPosition));
    if (!problem.isEmpty())
        parsed.problems += "A Fixed Length was indicated, however, the " + problem;
    return parsed;
}

QString zeroIfBlank(const QString &text)
{
    return isBlank(text) ? QStringLiteral("0") : text;
}

int parseIndex(const QString &text)
{
    return toLong(zeroIfBlank(text));
}

} // namespace varnow

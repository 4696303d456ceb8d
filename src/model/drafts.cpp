#include "model/drafts.h"

#include "base/guarded.h"
#include "base/numbers.h"
#include "base/text.h"

namespace varnow {

namespace {

/// Whether the beginning of the text is a number that no 32-bit integer holds.
bool isTooLarge(const QString &text)
{
    return guarded([&] { return leadingNumber(text), false; }, [](const RuntimeError &) { return true; });
}

QStringList validate(const LineChoice &line)
{
    if (isBlank(line.name) && !line.hasIndex)
        return {"The Line Name and Index field is empty."};
    if (line.isUnclosed)
        return {"The Line Name or Index field is invalid."};
    QStringList problems;
    if (isBlank(line.name))
        problems += "The Line Name is empty.";
    if (!isLong(line.index))
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

} // namespace

QStringList validate(const LineDraft &entry)
{
    QStringList problems;
    if (isBlank(entry.name))
        problems += "The Line name is empty.";
    if (!isLong(entry.nameIndex))
        problems += "The Line Index must be numeric.";
    if (isBlank(entry.messageIndex))
        problems += "The Message Index is empty.";
    else if (!isLong(entry.messageIndex))
        problems += "The Message Index nust be a number.";
    return problems;
}

QStringList validate(const FieldDraft &entry)
{
    QStringList problems;
    if (isBlank(entry.name))
        problems += "The Field name is empty.";
    if (!isLong(entry.nameIndex))
        problems += "The Field Name Index must be numeric.";
    problems += validate(entry.line);
    if (isTooLarge(entry.messageIndex))
        problems += "The Message Index nust be a number.";
    if (isBlank(entry.lookup) && isBlank(entry.constant))
        problems += "Both the Lookup String and the Constant value are empty," + lineBreak +
                    "\t\tyou must supply one or the other.";
    if (isBlank(entry.position))
        problems += "The Position Field is empty.";
    else if (!isLong(entry.position))
        problems += "The Position Field nust be a number.";
    const QString problem =
        entry.isFixedLength ? lengthProblem(entry.length, entry.characterPosition) : QString();
    if (!problem.isEmpty())
        problems += "A Fixed Length was indicated, however, the " + problem;
    return problems;
}

Line lineOf(const LineDraft &entry)
{
    Line line;
    line.configuration = entry.configuration;
    line.name = entry.name;
    line.nameIndex = toLong(entry.nameIndex);
    line.messageIndex = toLong(entry.messageIndex);
    return line;
}

Field fieldOf(const FieldDraft &entry)
{
    Field field;
    field.id = -1;
    field.configuration = entry.configuration;
    field.name = entry.name;
    field.nameIndex = leadingNumber(entry.nameIndex);
    field.line = entry.line.name;
    field.lineIndex = leadingNumber(entry.line.index);
    field.messageIndex = leadingNumber(entry.messageIndex);
    field.position = leadingNumber(entry.position);
    field.length = isTooLarge(entry.length) ? 0 : leadingNumber(entry.length);
    field.dataType = "String";
    field.lookup = entry.lookup;
    field.format = entry.format;
    field.constant = entry.constant;
    if (entry.isFixedLength) {
        field.fixedLength = 1;
        field.characterPosition = toLong(entry.characterPosition);
        field.padCharacter = entry.padCharacter;
        field.padDirection = entry.padDirection;
    }
    return field;
}

} // namespace varnow

// Faults to catch: a check that takes what the page refuses or refuses what it takes, a text that is read by
// another rule than the one it was checked by, a value that was not entered and is not that of a new record.

#include "model/drafts.h"

#include "support/errorOf.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace varnow::test {

namespace {

FieldDraft goodField()
{
    FieldDraft draft;
    draft.set(&Field::name, " Sex ");
    draft.setLine({"PID", {}, false});
    draft.set(&Field::constant, "F");
    draft.set(&Field::position, "8");
    return draft;
}

QStringList problemsOf(const FieldDraft &draft)
{
    return parse(draft).problems;
}

} // namespace

TEST(Drafts, OfLinesBecomeRecordsOrProblems)
{
    const std::tuple<QString, QString, QString, QString> cases[] = {
        {" PID ", "", " 3 ", ""},
        {"PID", " ", "2.5", ""},
        {"PID", "-1", "1e1", ""},
        {" ", "3x", "",
         "The Line name is empty.|The Line Index must be numeric.|The Message Index is empty."},
        {"PID", "2147483648", "3x", "The Line Index must be numeric.|The Message Index nust be a number."},
    };
    QList<int> numbers;
    for (const auto &[name, nameIndex, messageIndex, problems] : cases) {
        LineDraft draft;
        draft.set(&Line::name, name);
        draft.set(&Line::nameIndex, nameIndex);
        draft.set(&Line::messageIndex, messageIndex);
        const auto [line, found] = parse(draft);
        EXPECT_EQ(found.join('|'), problems);
        if (found.isEmpty()) {
            EXPECT_EQ(line.name, "PID");
            numbers += {line.nameIndex, line.messageIndex};
        }
    }
    EXPECT_EQ(numbers, QList<int>({0, 3, 0, 2, -1, 10}));
}

TEST(Drafts, OfFieldsTakeTheBeginningOfSomeNumbersAndRefuseOthers)
{
    FieldDraft draft = goodField();
    draft.set(&Field::messageIndex, "3x");
    draft.set(&Field::length, "99999999999");
    const auto [field, problems] = parse(draft);
    EXPECT_EQ(problems, QStringList());
    EXPECT_EQ(QList<int>({field.id, field.messageIndex, field.length, field.position, field.padDirection}),
              QList<int>({-1, 3, 0, 8, 0}));
    EXPECT_EQ(QStringList({field.name, field.line, field.dataType, field.padCharacter}),
              QStringList({"Sex", "PID", "String", ""}));

    draft.set(&Field::nameIndex, "3x");
    draft.set(&Field::messageIndex, "99999999999x");
    draft.set(&Field::position, "3x");
    EXPECT_EQ(problemsOf(draft),
              QStringList({"The Field Name Index must be numeric.", "The Message Index nust be a number.",
                           "The Position Field nust be a number."}));
    EXPECT_EQ(problemsOf({}),
              QStringList({"The Field name is empty.", "The Line Name and Index field is empty.",
                           "Both the Lookup String and the Constant value are empty,\r\n"
                           "\t\tyou must supply one or the other.",
                           "The Position Field is empty."}));
}

TEST(Drafts, OfFieldsNameTheirLineWithOrWithoutItsIndex)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {"PID", "PID(0)", ""},
        {" PID (2)x", "PID(2)", ""},
        {"PID(x", "", "The Line Name or Index field is invalid."},
        {"PID()", "", "The Line Name Index is invalid."},
        {"PID(3x)", "", "The Line Name Index is invalid."},
        {"(1)", "", "The Line Name is empty."},
        {"()", "", "The Line Name is empty.|The Line Name Index is invalid."},
        {" ", "", "The Line Name and Index field is empty."},
    };
    for (const auto &[typed, line, expected] : cases) {
        FieldDraft draft = goodField();
        draft.setLine(parseLineChoice(typed));
        const auto [field, problems] = parse(draft);
        EXPECT_EQ(problems.join('|'), expected) << qPrintable(typed);
        if (problems.isEmpty()) {
            EXPECT_EQ(QStringLiteral("%1(%2)").arg(field.line).arg(field.lineIndex), line);
        }
    }
}

TEST(Drafts, OfFixedLengthFieldsTellTheFirstThingThatIsWrong)
{
    const QString are = "length and position ";
    const std::tuple<QString, QString, QString> cases[] = {
        {" ", "", are + "were not specified."},
        {"", "x", "length was not specified."},
        {"x", " ", "position was not specified."},
        {"x", "3x", are + "are not numeric."},
        {"2147483648", "1", "length is not a number."},
        {"1", "y", "position is not a number."},
        {"10", "5", ""},
    };
    for (const auto &[length, position, expected] : cases) {
        FieldDraft draft = goodField();
        draft.set(&Field::fixedLength, "1");
        draft.set(&Field::length, length);
        draft.set(&Field::characterPosition, position);
        const auto [field, problems] = parse(draft);
        const QString start = "A Fixed Length was indicated, however, the ";
        EXPECT_EQ(problems.join('|'), expected.isEmpty() ? "" : start + expected);
        EXPECT_EQ(field.padCharacter + QString::number(field.padDirection), " 1");
    }
}

TEST(Drafts, TakeABlankIndexForZero)
{
    EXPECT_EQ(QList<int>({parseIndex(""), parseIndex("  "), parseIndex(" -2 "), parseIndex("0")}),
              QList<int>({0, 0, -2, 0}));
    EXPECT_EQ(errorOf([] { parseIndex("3x"); }), errors::TypeMismatch);
    EXPECT_EQ(errorOf([] { parseIndex("2147483648"); }), errors::Overflow);
}

} // namespace varnow::test

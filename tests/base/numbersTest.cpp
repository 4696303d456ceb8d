#include "base/numbers.h"
#include "base/RuntimeError.h"
#include "base/text.h"

#include <QDateTime>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>

namespace varnow {

namespace {

/// What a conversion gives: a number, or the number of the error it raises.
struct Outcome
{
    int number = 0;
    int error = 0;
    bool operator==(const Outcome &) const = default;
};

void PrintTo(const Outcome &outcome, std::ostream *stream)
{
    *stream << outcome.number << " (error " << outcome.error << ")";
}

Outcome outcome(const std::function<int()> &conversion)
{
    try {
        return {conversion(), 0};
    } catch (const RuntimeError &error) {
        return {0, error.number()};
    }
}

Outcome raises(int error)
{
    return {0, error};
}

struct TextCase
{
    QString text;
    bool numeric;
    Outcome whole;
    Outcome leading;
};

const TextCase textCases[] = {
    {QString(), false, raises(13), {}},
    {"  ", false, raises(13), {}},
    {" -7 ", true, {-7}, {-7}},
    {"+7", true, {7}, {7}},
    // Halves go to the even neighbour.
    {"0.5", true, {0}, {0}},
    {"1.5", true, {2}, {2}},
    {"-2.5", true, {-2}, {-2}},
    {".5", true, {0}, {0}},
    {"5.", true, {5}, {5}},
    {"1e3", true, {1000}, {1000}},
    {"1E-2", true, {0}, {0}},
    // The 32-bit range ends after rounding.
    {"2147483647.4", true, {2147483647}, {2147483647}},
    {"2147483647.5", true, raises(6), raises(6)},
    {"-2147483648.5", true, {-2147483647 - 1}, {-2147483647 - 1}},
    {"-2147483649", true, raises(6), raises(6)},
    {"1e400", true, raises(6), raises(6)},
    {"1e-400", true, {0}, {0}},
    // A number stands only at the beginning, or the blanks are inside it.
    {"12abc", false, raises(13), {12}},
    {"1 2", false, raises(13), {12}},
    {"1e", false, raises(13), {1}},
    {"1e5.5", false, raises(13), {100000}},
    {"1,000", false, raises(13), {1}},
    {"0x10", false, raises(13), {0}},
    {".", false, raises(13), {}},
    {"--5", false, raises(13), {}},
    {"\t5", false, raises(13), {}},
    {"nan", false, raises(13), {}},
    {"inf", false, raises(13), {}},
    {QStringLiteral("٣"), false, raises(13), {}},
};

TEST(Numbers, ReadTextsByTheirRules)
{
    for (const TextCase &given : textCases) {
        SCOPED_TRACE(qPrintable(given.text));
        EXPECT_EQ(isNumeric(given.text), given.numeric);
        EXPECT_EQ(outcome([&] { return toLong(given.text); }), given.whole);
        EXPECT_EQ(outcome([&] { return leadingNumber(given.text); }), given.leading);
    }
}

TEST(Numbers, ConvertDatabaseValuesOfEveryType)
{
    const struct
    {
        QVariant value;
        Outcome whole;
    } cases[] = {
        {QVariant(), raises(94)},
        {QVariant(qlonglong(-5)), {-5}},
        {QVariant(qlonglong(1) << 31), raises(6)},
        {QVariant(2.5), {2}},
        {QVariant(1e10), raises(6)},
        {QVariant(std::nan("")), raises(6)},
        {QVariant(QStringLiteral(" 7 ")), {7}},
        {QVariant(QStringLiteral("seven")), raises(13)},
        {QVariant(QDateTime::currentDateTime()), raises(13)},
    };
    for (const auto &given : cases) {
        SCOPED_TRACE(qPrintable(given.value.toString()));
        EXPECT_EQ(outcome([&] { return toLong(given.value); }), given.whole);
    }
    EXPECT_EQ(toDouble(QVariant(QStringLiteral("2.008"))), 2.008);
    EXPECT_EQ(outcome([] { return static_cast<int>(toDouble(QVariant())); }), raises(94));
}

/// The rounding told another way: up from the middle, except to an odd number.
Outcome roundedByHand(double value)
{
    double whole = std::floor(value + 0.5);
    if (whole - value == 0.5 && std::fmod(whole, 2) != 0)
        whole -= 1;
    return std::abs(whole + 0.5) <= 2147483647.5 ? Outcome{static_cast<int>(whole)} : raises(6);
}

TEST(Numbers, AgreeWithRegularExpressionsOnRandomTexts)
{
    const QString number = QStringLiteral("[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?");
    const QRegularExpression whole("\\A *(" + number + ") *\\z");
    const QRegularExpression leading("\\A" + number);
    const QString alphabet = QStringLiteral("00123456789+--..eE  x\t,٣");
    std::mt19937 random(1);
    const auto below = [&](qsizetype limit) { return static_cast<qsizetype>(random()) % limit; };

    for (int round = 0; round < 100'000; ++round) {
        QString text;
        for (qsizetype length = below(13); length > 0; --length)
            text += alphabet[below(alphabet.size())];
        SCOPED_TRACE(qPrintable(text));

        const auto match = whole.match(text);
        ASSERT_EQ(isNumeric(text), match.hasMatch());
        const double value = std::strtod(match.captured(1).toLatin1(), nullptr);
        ASSERT_EQ(outcome([&] { return toLong(text); }),
                  match.hasMatch() ? roundedByHand(value) : raises(13));
        ASSERT_EQ(isLong(text), match.hasMatch() && roundedByHand(value).error == 0);

        const QString start = leading.match(QString(text).remove(u' ')).captured();
        ASSERT_EQ(outcome([&] { return leadingNumber(text); }),
                  roundedByHand(std::strtod(start.toLatin1(), nullptr)));
    }
}

TEST(Text, TrimTakesSpacesAndNoOtherWhiteSpace)
{
    const struct
    {
        QString text, trimmed;
    } cases[] = {
        {"  a b  ", "a b"}, {"\ta\r\n", "\ta\r\n"},
        {" \t ", "\t"},     {QStringLiteral(" \u00a0x\u3000 "), QStringLiteral("\u00a0x\u3000")},
        {"   ", ""},
    };
    for (const auto &given : cases) {
        EXPECT_EQ(trim(given.text), given.trimmed);
        EXPECT_EQ(isBlank(given.text), given.trimmed.isEmpty());
    }
}

} // namespace

} // namespace varnow

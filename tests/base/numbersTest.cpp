#include "base/numbers.h"
#include "base/RuntimeError.h"
#include "base/text.h"
#include "support/printing.h"

#include <QDateTime>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace varnow;

namespace {

QString failure(int number)
{
    return "error " + QString::number(number);
}

const QString overflow = failure(errors::Overflow);
const QString mismatch = failure(errors::TypeMismatch);
const QString nullUsed = failure(errors::InvalidUseOfNull);

/// What a conversion gives as text: its number, or the error that it raises.
template <class Conversion> QString outcome(Conversion conversion)
{
    try {
        return QString::number(conversion());
    } catch (const RuntimeError &error) {
        return failure(error.number());
    }
}

TEST(Numbers, ConvertDatabaseValuesOfEveryType)
{
    const std::pair<QVariant, QString> cases[] = {
        {QVariant(), nullUsed},   {-5LL, "-5"},
        {1LL << 31, overflow},    {-5, "-5"},
        {1e10, overflow},         {2.5, "2"},
        {std::nan(""), overflow}, {" 7 ", "7"},
        {"seven", mismatch},      {QDateTime::currentDateTime(), mismatch},
    };
    for (const auto &[value, whole] : cases)
        EXPECT_EQ(outcome([&value = value] { return toLong(value); }), whole) << qPrintable(value.toString());
    EXPECT_EQ(outcome([] { return toDouble("2.008"); }), "2.008");
    EXPECT_EQ(outcome([] { return toDouble(QVariant()); }), nullUsed);
}

/// The rounding told another way: up from the middle, except to an odd number.
QString roundedByHand(const QString &number)
{
    const double value = std::strtod(qPrintable(number), nullptr);
    double whole = std::floor(value + 0.5);
    if (whole - value == 0.5 && std::fmod(whole, 2) != 0)
        whole -= 1;
    return std::abs(whole + 0.5) <= 2147483647.5 ? QString::number(static_cast<int>(whole)) : overflow;
}

TEST(Numbers, AgreeWithRegularExpressions)
{
    const QString number = "[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?";
    const QRegularExpression wholeText("\\A *(" + number + ") *\\z");
    const QRegularExpression beginning("\\A" + number);
    QStringList texts{"2147483647.4", "2147483647.5", "-2147483648.5", "-2147483649", "1e400", "nan", "inf"};
    const QString alphabet = "00123456789+--..eE  x\t,٣";
    std::mt19937 random(1);
    const auto below = [&](qsizetype limit) { return static_cast<qsizetype>(random()) % limit; };
    while (texts.size() < 100'000) {
        QString &text = texts.emplaceBack();
        for (qsizetype length = below(13); length > 0; --length)
            text += alphabet[below(alphabet.size())];
    }
    for (const QString &text : texts) {
        SCOPED_TRACE(qPrintable(text));
        const auto match = wholeText.match(text);
        const QString whole = match.hasMatch() ? roundedByHand(match.captured(1)) : mismatch;
        ASSERT_EQ(isNumeric(text), match.hasMatch());
        ASSERT_EQ(isLong(text), !whole.startsWith("error"));
        ASSERT_EQ(outcome([&] { return toLong(text); }), whole);

        const QString start = beginning.match(QString(text).remove(u' ')).captured();
        ASSERT_EQ(outcome([&] { return leadingNumber(text); }), roundedByHand(start));
    }
}

TEST(Text, LosesSpacesAndNoOtherWhiteSpaceByTrimming)
{
    const std::pair<QString, QString> cases[] = {
        {"  a b  ", "a b"}, {" \ta\r\n ", "\ta\r\n"}, {" \u00a0x\u3000 ", "\u00a0x\u3000"}, {"   ", ""}};
    for (const auto &[text, trimmed] : cases) {
        EXPECT_EQ(trim(text), trimmed);
        EXPECT_EQ(isBlank(text), trimmed.isEmpty());
    }
}

} // namespace

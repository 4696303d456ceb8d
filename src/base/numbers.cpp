#include "base/numbers.h"

#include "base/RuntimeError.h"
#include "base/text.h"

#include <QLocale>

#include <cmath>
#include <limits>

namespace varnow {

namespace {

bool isDigit(QStringView text, qsizetype i)
{
    return i < text.size() && text[i] >= u'0' && text[i] <= u'9';
}

bool isSign(QStringView text, qsizetype i)
{
    return i < text.size() && (text[i] == u'+' || text[i] == u'-');
}

qsizetype skipDigits(QStringView text, qsizetype i)
{
    while (isDigit(text, i))
        ++i;
    return i;
}

/// What nearly all numbers are, which takes no further look.
bool isFewDigits(QStringView text)
{
    return !text.isEmpty() && text.size() < 10 && skipDigits(text, 0) == text.size();
}

/// Length of the longest beginning of the text that is a decimal number, 0 when there is none.
qsizetype numberLength(QStringView text)
{
    const qsizetype first = isSign(text, 0) ? 1 : 0;
    qsizetype end = skipDigits(text, first);
    qsizetype digits = end - first;
    if (end < text.size() && text[end] == u'.') {
        const qsizetype fraction = skipDigits(text, end + 1);
        digits += fraction - (end + 1);
        end = fraction;
    }
    if (digits == 0)
        return 0;
    if (end < text.size() && (text[end] == u'e' || text[end] == u'E')) {
        const qsizetype exponent = isSign(text, end + 1) ? end + 2 : end + 1;
        if (isDigit(text, exponent))
            end = skipDigits(text, exponent);
    }
    return end;
}

double parse(QStringView number)
{
    // The grammar was checked before; too large a number reads as infinity, too small a one as zero.
    return QLocale::c().toDouble(number);
}

bool isInLongRange(double rounded)
{
    return rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max();
}

int roundToLong(double value)
{
    const double rounded = std::nearbyint(value); // halves to even
    if (!isInLongRange(rounded))
        throw RuntimeError(errors::Overflow);
    return static_cast<int>(rounded);
}

double parseNumeric(QStringView text)
{
    if (!isNumeric(text))
        throw RuntimeError(errors::TypeMismatch);
    return parse(trimmedView(text));
}

} // namespace

bool isNumeric(QStringView text)
{
    const QStringView number = trimmedView(text);
    return !number.isEmpty() && numberLength(number) == number.size();
}

bool isLong(QStringView text)
{
    return isFewDigits(text) || (isNumeric(text) && isInLongRange(std::nearbyint(parse(trimmedView(text)))));
}

int toLong(const QString &text)
{
    return isFewDigits(text) ? text.toInt() : roundToLong(parseNumeric(text));
}

int toLong(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
        return value.toInt();
    case QMetaType::LongLong: {
        const qlonglong number = value.toLongLong();
        if (number < std::numeric_limits<int>::min() || number > std::numeric_limits<int>::max())
            throw RuntimeError(errors::Overflow);
        return static_cast<int>(number);
    }
    default:
        return roundToLong(toDouble(value));
    }
}

int leadingNumber(QStringView text)
{
    QString digits;
    digits.reserve(text.size());
    for (const QChar c : text) {
        if (c != u' ')
            digits.append(c);
    }
    return roundToLong(parse(QStringView(digits).first(numberLength(digits))));
}

double toDouble(const QVariant &value)
{
    if (value.isNull())
        throw RuntimeError(errors::InvalidUseOfNull);
    switch (value.typeId()) {
    case QMetaType::QString:
        return parseNumeric(value.toString());
    case QMetaType::Double:
    case QMetaType::LongLong:
    case QMetaType::Int:
        return value.toDouble();
    default:
        throw RuntimeError(errors::TypeMismatch);
    }
}

} // namespace varnow

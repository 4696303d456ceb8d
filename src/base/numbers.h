#pragma once

#include <QString>
#include <QStringView>
#include <QVariant>

namespace varnow {

/// True when the text, blanks around it ignored, is a decimal number: an optional sign, ASCII digits with
/// an optional decimal point, an optional exponent. An empty or blank text is not numeric.
bool isNumeric(QStringView text);

/// True when toLong() of the text raises nothing: it is numeric and within the 32-bit range.
bool isLong(QStringView text);

/// The number that a numeric text stands for, rounded to a whole number, halves to the even neighbour.
/// Raises 13 for a text that is not numeric and 6 for a number outside the 32-bit range.
int toLong(const QString &text);

/// The whole number that a database value stands for, by the same rules; Null raises 94.
int toLong(const QVariant &value);

/// The number formed by the longest numeric beginning of the text, blanks skipped, 0 when there is none;
/// rounded like toLong(). Raises 6 outside the 32-bit range.
int leadingNumber(QStringView text);

/// The floating-point value of a database value. Null raises 94, a text that is no number 13.
double toDouble(const QVariant &value);

} // namespace varnow

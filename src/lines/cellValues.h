#pragma once

#include "base/numbers.h"
#include "base/text.h"

#include <QString>
#include <QVariant>

// How both stores read the values of a row.

namespace varnow {

/// The whole number of a cell, 0 for Null.
inline int longOrZero(const QVariant &cell)
{
    return cell.isNull() ? 0 : toLong(cell);
}

/// The text of a cell without blanks at both ends, empty for Null.
inline QString trimmedText(const QVariant &cell)
{
    return trim(cell.toString());
}

} // namespace varnow

#pragma once

#include "model/Column.h"

#include <span>

namespace varnow {

/// One labelled line of the upload message. Its key is configuration, name and nameIndex.
struct Line
{
    int id = 0; ///< of its row; 0 or -1 while it is not known to have one
    QString configuration;
    QString name;
    int nameIndex = 0;    ///< tells apart the lines of one name
    int messageIndex = 0; ///< place in the message: 1, 2, 3 …

    // Spare columns.
    int number1 = 0;
    QString string1;
    QString text1;
    QDateTime date1;

    /// All columns, in the order of the statements.
    static std::span<const Column<Line>> columns();
};

} // namespace varnow

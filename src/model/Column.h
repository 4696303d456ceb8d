#pragma once

#include <QDateTime>
#include <QString>

#include <variant>

namespace varnow {

/// What a column is to the program.
enum class ColumnUse {
    Identifier, ///< tells a row from all others
    Key,        ///< one of those by which a save finds the row of a record
    Value,
    Spare, ///< loaded and kept, never written
};

/// How a cell of the database becomes a value of the record.
enum class ColumnReading {
    NullIsEmpty,  ///< Null is 0, the empty text or the start of 1900; texts lose the blanks around them
    Required,     ///< the same, but Null is an error
    Untrimmed,    ///< Null is the empty text; the blanks stay
    NumberInText, ///< a number that the database keeps as text; Null and blank are 0
};

/// How the data display shows the value.
struct ColumnListing
{
    int row = 0; ///< counted from 1 within the record's rows; 0 for a value that is not shown
    const char *before = "";
    const char *after = "";
};

/// One column of a record's table. A list of them is all that loading, saving and listing know of a record.
template <class Record> struct Column
{
    const char *name;    ///< in the database
    const char *caption; ///< for the user; empty for one that no window shows
    std::variant<int Record::*, QString Record::*, QDateTime Record::*> member;
    ColumnUse use = ColumnUse::Value;
    ColumnReading reading = ColumnReading::NullIsEmpty;
    ColumnListing listing = {};
};

} // namespace varnow

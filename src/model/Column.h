#pragma once

#include <QDateTime>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <type_traits>
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

/// Hands the record's value in a column, an int, a QString or a QDateTime, to a function and returns what
/// that returns.
template <class Record, class Function>
decltype(auto) visit(const Column<std::remove_const_t<Record>> &column, Record &record, Function &&function)
{
    return std::visit([&](auto member) -> decltype(auto) { return function(record.*member); }, column.member);
}

/// Whether two records have the same value in a column.
template <class Record> bool isEqualIn(const Column<Record> &column, const Record &a, const Record &b)
{
    return std::visit([&](auto member) { return a.*member == b.*member; }, column.member);
}

/// The number of the column that a member is kept in, counted from 0 within Record::columns().
template <class Record, class Value> std::size_t columnNumber(Value Record::*member)
{
    const auto isIt = [member](const Column<Record> &column) {
        const auto *candidate = std::get_if<Value Record::*>(&column.member);
        return candidate != nullptr && *candidate == member;
    };
    const auto columns = Record::columns();
    return static_cast<std::size_t>(std::ranges::find_if(columns, isIt) - columns.begin());
}

/// A value as a text: numbers in digits, dates as ISO text.
inline QString toText(int number)
{
    return QString::number(number);
}

inline QString toText(const QString &text)
{
    return text;
}

inline QString toText(const QDateTime &time)
{
    return time.toString(Qt::ISODate);
}

/// The record's value in a column as a text.
template <class Record> QString textIn(const Column<Record> &column, const Record &record)
{
    return visit(column, record, [](const auto &value) { return toText(value); });
}

} // namespace varnow

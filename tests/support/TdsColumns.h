#pragma once

#include <QByteArray>

#include <vector>

struct sqlite3_stmt;

namespace varnow::test::tds {

/// A column's type as the wire knows it.
struct ColumnType
{
    enum class Kind : quint8 { // the type bytes of the protocol, all of the forms that can be Null
        Integer = 0x26,
        Float = 0x6D,
        Decimal = 0x6C,
        DateTime = 0x6F,
        Text = 0x23,
        NText = 0x63,
        VarChar = 0xA7,
        Char = 0xAF,
        NVarChar = 0xE7
    };

    Kind kind = Kind::Integer;
    int size = 4; ///< in bytes
    int precision = 0;
    int scale = 0;
};

/// Appends the description of a result's columns, and returns their types: as the tables declare them, else
/// whole numbers.
std::vector<ColumnType> putColumns(QByteArray &out, sqlite3_stmt *result);

/// Appends the current row of a result.
void putRow(QByteArray &out, const std::vector<ColumnType> &types, sqlite3_stmt *result);

} // namespace varnow::test::tds

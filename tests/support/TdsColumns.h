#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3_stmt;

// How a column of an SQLite table looks as a column of SQL Server.

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
        VarChar = 0xA7,
        Char = 0xAF,
        NVarChar = 0xE7
    };
    static constexpr int unlimited = 0xFFFF;

    Kind kind = Kind::Integer;
    int size = 4; ///< in bytes; `unlimited` for the (max) types
    int precision = 0;
    int scale = 0;
};

/// The type of a result column: as its table declares it, else a number.
ColumnType columnType(sqlite3_stmt *row, int column);

/// Appends a column's description to the column metadata.
void putColumn(QByteArray &out, const ColumnType &type, const QString &name);

/// Appends a column's value in the current row.
void putValue(QByteArray &out, const ColumnType &type, sqlite3_stmt *row, int column);

} // namespace varnow::test::tds

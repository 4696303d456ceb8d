#include "db/odbc.h"

#include "base/RuntimeError.h"
#include "base/dateTime.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <deque>
#include <string>
#include <vector>

namespace varnow::db {

namespace {

/// How an engine's driver hands texts over.
struct TextForm
{
    SQLSMALLINT cType;    // of the characters
    SQLLEN terminator;    // bytes of the zero that ends each piece
    bool holdsEverything; // columns hold values of any type whatever their own; only as text all arrive as
                          // they are
    bool isBound;         // a fetch fills buffers, which is quicker; only where the driver hands a value over
                          // again, from its beginning, that was longer than its buffer
};

TextForm textForm(Dialect dialect)
{
    switch (dialect) {
    case Dialect::SqlServer:
        return {SQL_C_WCHAR, sizeof(QChar), false, false};
    case Dialect::Sqlite:
        return {SQL_C_CHAR, 1, true, true};
    }
    Q_UNREACHABLE();
}

/// Reads the cells of the current row one after the other.
class RowReader
{
public:
    RowReader(const Handle &statement, Dialect dialect, std::size_t columns);

    /// The value of one cell, `column` counted from 1; the column's type says how it is fetched.
    QVariant cell(SQLUSMALLINT column, SQLSMALLINT type);

private:
    /// Part of a text; its size is SQL_NULL_DATA for Null.
    struct Piece
    {
        SQLLEN size;
        bool last;
    };
    struct Column
    {
        // Small, for SQLite's driver fills the whole of it with zeros for every cell.
        alignas(char16_t) std::array<char, 256> buffer;
        SQLLEN length; // of the value, where a fetch fills the buffer
        // The last short text.
        std::string above;
        QVariant valueAbove{QString()};
    };

    template <class Value> bool read(SQLUSMALLINT column, SQLSMALLINT cType, Value &value);
    QVariant integerOrText(SQLUSMALLINT column);
    QVariant textFrom(SQLUSMALLINT column, Piece first);
    Piece firstPiece(SQLUSMALLINT column);
    Piece piece(SQLUSMALLINT column, char *buffer, std::size_t capacity);
    Piece pieceOf(SQLLEN length, std::size_t capacity) const;
    QString longText(SQLUSMALLINT column, QByteArray bytes);
    QString decoded(QByteArrayView bytes) const;

    const Handle &m_statement;
    const Dialect m_dialect;
    const TextForm m_form;
    std::vector<Column> m_columns;
};

RowReader::RowReader(const Handle &statement, Dialect dialect, std::size_t columns)
    : m_statement(statement), m_dialect(dialect), m_form(textForm(dialect)), m_columns(columns)
{
    SQLUSMALLINT number = 0;
    for (Column &column : m_columns) {
        if (m_form.isBound &&
            !SQL_SUCCEEDED(SQLBindCol(statement.get(), ++number, m_form.cType, column.buffer.data(),
                                      SQLLEN(column.buffer.size()), &column.length)))
            throw statement.error(dialect);
    }
}

/// False for Null.
template <class Value> bool RowReader::read(SQLUSMALLINT column, SQLSMALLINT cType, Value &value)
{
    SQLLEN length = 0;
    if (!SQL_SUCCEEDED(SQLGetData(m_statement.get(), column, cType, &value, sizeof value, &length)))
        throw m_statement.error(m_dialect);
    return length != SQL_NULL_DATA;
}

QVariant RowReader::cell(SQLUSMALLINT column, SQLSMALLINT type)
{
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT: {
        if (m_form.holdsEverything)
            return integerOrText(column);
        qlonglong number = 0;
        return read(column, SQL_C_SBIGINT, number) ? QVariant(number) : QVariant();
    }
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE: {
        double number = 0;
        return read(column, SQL_C_DOUBLE, number) ? QVariant(number) : QVariant();
    }
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP: {
        SQL_TIMESTAMP_STRUCT time{};
        if (!read(column, SQL_C_TYPE_TIMESTAMP, time))
            return {};
        return utcDateTime(
            QDate(time.year, time.month, time.day),
            QTime(time.hour, time.minute, time.second, static_cast<int>(time.fraction / 1'000'000)));
    }
    default:
        return textFrom(column, firstPiece(column));
    }
}

QString RowReader::decoded(QByteArrayView bytes) const
{
    if (m_form.cType == SQL_C_CHAR)
        return QString::fromUtf8(bytes);
    return QString(reinterpret_cast<const QChar *>(bytes.data()), bytes.size() / qsizetype(sizeof(QChar)));
}

RowReader::Piece RowReader::piece(SQLUSMALLINT column, char *buffer, std::size_t capacity)
{
    SQLLEN length = 0;
    const SQLRETURN result =
        SQLGetData(m_statement.get(), column, m_form.cType, buffer, SQLLEN(capacity), &length);
    if (result == SQL_NO_DATA)
        return {0, true};
    if (!SQL_SUCCEEDED(result))
        throw m_statement.error(m_dialect);
    return pieceOf(length, capacity);
}

/// What of a text that is so long has come into a buffer.
RowReader::Piece RowReader::pieceOf(SQLLEN length, std::size_t capacity) const
{
    const SQLLEN room = SQLLEN(capacity) - m_form.terminator;
    const bool last = length != SQL_NO_TOTAL && length <= room;
    return {last ? length : room, last};
}

/// The piece that stands in the column's buffer.
RowReader::Piece RowReader::firstPiece(SQLUSMALLINT column)
{
    Column &read = m_columns[column - 1U];
    return m_form.isBound ? pieceOf(read.length, read.buffer.size())
                          : piece(column, read.buffer.data(), read.buffer.size());
}

/// SQLite's integer columns hold other values too, so all are fetched as text; it keeps every whole number
/// there as an integer, whose text is plain digits.
QVariant RowReader::integerOrText(SQLUSMALLINT column)
{
    const Piece first = firstPiece(column);
    qlonglong number = 0;
    const char *begin = m_columns[column - 1U].buffer.data();
    const char *end = begin + std::max(first.size, SQLLEN(0));
    if (first.last && std::from_chars(begin, end, number) == std::from_chars_result{end, {}})
        return number;
    return textFrom(column, first);
}

/// The text whose first piece stands in the column's buffer.
QVariant RowReader::textFrom(SQLUSMALLINT column, Piece first)
{
    if (first.size == SQL_NULL_DATA)
        return {};
    Column &read = m_columns[column - 1U];
    const QByteArrayView bytes(read.buffer.data(), first.size);
    if (!first.last)
        return longText(column, m_form.isBound ? QByteArray() : bytes.toByteArray());
    // Rows often repeat the text above; then they share it.
    if (QByteArrayView(read.above) != bytes) {
        read.above.assign(bytes.data(), std::size_t(bytes.size()));
        read.valueAbove = decoded(bytes);
    }
    return read.valueAbove;
}

/// The text that begins with these bytes.
QString RowReader::longText(SQLUSMALLINT column, QByteArray bytes)
{
    constexpr qsizetype capacity = 65536;
    for (bool last = false; !last;) {
        const qsizetype size = bytes.size();
        bytes.resize(size + capacity);
        const Piece next = piece(column, bytes.data() + size, std::size_t(capacity));
        bytes.resize(size + next.size);
        last = next.last;
    }
    return decoded(bytes);
}

struct Columns
{
    QStringList names;
    std::vector<SQLSMALLINT> types;
};

Columns describeColumns(const Handle &statement, Dialect dialect, SQLUSMALLINT count)
{
    Columns columns;
    for (SQLUSMALLINT i = 1; i <= count; ++i) {
        std::array<char16_t, 256> name{};
        SQLSMALLINT length = 0, type = 0, digits = 0, nullable = 0;
        SQLULEN size = 0;
        if (!SQL_SUCCEEDED(SQLDescribeColW(statement.get(), i, reinterpret_cast<SQLWCHAR *>(name.data()),
                                           SQLSMALLINT(name.size()), &length, &type, &size, &digits,
                                           &nullable)))
            throw statement.error(dialect);
        columns.names.append(QString::fromUtf16(name.data()));
        const bool asText = textForm(dialect).holdsEverything && type != SQL_INTEGER;
        columns.types.push_back(asText ? SQLSMALLINT(SQL_VARCHAR) : type);
    }
    return columns;
}

std::deque<QVariant> readRows(const Handle &statement, Dialect dialect, const std::vector<SQLSMALLINT> &types,
                              const RowObserver &onRow)
{
    std::deque<QVariant> cells;
    RowReader reader(statement, dialect, types.size());
    for (;;) {
        const SQLRETURN result = SQLFetch(statement.get());
        if (result == SQL_NO_DATA)
            return cells;
        if (!SQL_SUCCEEDED(result))
            throw statement.error(dialect);
        if (onRow && !onRow())
            throw RuntimeError(errors::UserInterrupt);
        for (std::size_t i = 0; i < types.size(); ++i)
            cells.push_back(reader.cell(SQLUSMALLINT(i + 1), types[i]));
    }
}

} // namespace

ResultSet fetchAll(const Handle &statement, Dialect dialect, const RowObserver &onRow)
{
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement.get(), &count);
    ResultSet rows;
    if (count > 0) {
        const Columns columns = describeColumns(statement, dialect, SQLUSMALLINT(count));
        rows = ResultSet(columns.names, readRows(statement, dialect, columns.types, onRow));
    }
    // An error may follow the first result, a trigger's for example.
    SQLRETURN result = SQL_SUCCESS;
    while (SQL_SUCCEEDED(result))
        result = SQLMoreResults(statement.get());
    if (result != SQL_NO_DATA)
        throw statement.error(dialect);
    return rows;
}

} // namespace varnow::db

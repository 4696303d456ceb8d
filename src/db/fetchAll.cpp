#include "db/odbc.h"

#include "base/RuntimeError.h"
#include "base/dateTime.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>
#include <charconv>
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
};

TextForm textForm(Dialect dialect)
{
    switch (dialect) {
    case Dialect::SqlServer:
        return {SQL_C_WCHAR, sizeof(QChar), false};
    case Dialect::Sqlite:
        return {SQL_C_CHAR, 1, true};
    }
    Q_UNREACHABLE();
}

/// Reads the cells of the current row one after the other.
class RowReader
{
public:
    RowReader(const Handle &statement, Dialect dialect, std::size_t columns)
        : m_statement(statement), m_dialect(dialect), m_form(textForm(dialect)), m_above(columns)
    {
    }

    /// The value of one cell, `column` counted from 1; the column's type says how it is fetched.
    QVariant cell(SQLUSMALLINT column, SQLSMALLINT type);

private:
    /// Part of a text; its size is SQL_NULL_DATA for Null.
    struct Piece
    {
        SQLLEN size;
        bool last;
    };
    /// The last short text of a column.
    struct Above
    {
        std::string bytes;
        QVariant value{QString()};
    };

    template <class Value> bool read(SQLUSMALLINT column, SQLSMALLINT cType, Value &value);
    QVariant text(SQLUSMALLINT column);
    QVariant integerOrText(SQLUSMALLINT column);
    QVariant textFrom(SQLUSMALLINT column, Piece first);
    Piece piece(SQLUSMALLINT column, char *buffer, std::size_t capacity);
    QString longText(SQLUSMALLINT column, QByteArray bytes);
    QString decoded(QByteArrayView bytes) const;

    const Handle &m_statement;
    const Dialect m_dialect;
    const TextForm m_form;
    std::vector<Above> m_above;
    // Small, for SQLite's driver fills the whole of it with zeros for every cell.
    alignas(char16_t) std::array<char, 256> m_buffer;
};

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
        return text(column);
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
    const SQLLEN room = SQLLEN(capacity) - m_form.terminator;
    const bool last = length != SQL_NO_TOTAL && length <= room;
    return {last ? length : room, last};
}

QVariant RowReader::text(SQLUSMALLINT column)
{
    return textFrom(column, piece(column, m_buffer.data(), m_buffer.size()));
}

/// SQLite's integer columns hold other values too, so all are fetched as text; it keeps every whole number
/// there as an integer, whose text is plain digits.
QVariant RowReader::integerOrText(SQLUSMALLINT column)
{
    const Piece first = piece(column, m_buffer.data(), m_buffer.size());
    qlonglong number = 0;
    const char *end = m_buffer.data() + std::max(first.size, SQLLEN(0));
    if (first.last && std::from_chars(m_buffer.data(), end, number) == std::from_chars_result{end, {}})
        return number;
    return textFrom(column, first);
}

/// The text whose first piece stands in the buffer.
QVariant RowReader::textFrom(SQLUSMALLINT column, Piece first)
{
    if (first.size == SQL_NULL_DATA)
        return {};
    const QByteArrayView bytes(m_buffer.data(), first.size);
    if (!first.last)
        return longText(column, bytes.toByteArray());
    // Rows often repeat the text above; then they share it.
    Above &above = m_above[column - 1U];
    if (QByteArrayView(above.bytes) != bytes) {
        above.bytes.assign(bytes.data(), std::size_t(bytes.size()));
        above.value = decoded(bytes);
    }
    return above.value;
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

QVariantList readRows(const Handle &statement, Dialect dialect, const std::vector<SQLSMALLINT> &types,
                      const RowObserver &onRow)
{
    // A list of variants grows without moving them one by one.
    QVariantList cells;
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
            cells.append(reader.cell(SQLUSMALLINT(i + 1), types[i]));
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

#include "db/odbc.h"

#include <QDateTime>

#include <sql.h>
#include <sqlext.h>

#include <array>

namespace varnow::db {

namespace {

/// Reads the cells of the current row one after the other.
class RowReader
{
public:
    RowReader(const Handle &statement, Dialect dialect) : m_statement(statement), m_dialect(dialect) {}

    /// The value of one cell, `column` counted from 1; the column's type says how it is fetched.
    QVariant cell(SQLUSMALLINT column, SQLSMALLINT type);

private:
    template <class Value> bool read(SQLUSMALLINT column, SQLSMALLINT cType, Value &value);
    QVariant text(SQLUSMALLINT column);
    QString decoded(const char *bytes, qsizetype size) const;

    const Handle &m_statement;
    const Dialect m_dialect;
    QByteArray m_pieces; // of a text that is longer than the buffer
    alignas(char16_t) std::array<char, 16384> m_buffer;
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
        return QDateTime(
            QDate(time.year, time.month, time.day),
            QTime(time.hour, time.minute, time.second, static_cast<int>(time.fraction / 1'000'000)));
    }
    default:
        return text(column);
    }
}

QString RowReader::decoded(const char *bytes, qsizetype size) const
{
    if (m_dialect == Dialect::Sqlite)
        return QString::fromUtf8(bytes, size);
    return QString(reinterpret_cast<const QChar *>(bytes), size / qsizetype(sizeof(QChar)));
}

QVariant RowReader::text(SQLUSMALLINT column)
{
    const bool utf8 = m_dialect == Dialect::Sqlite;
    const SQLLEN room =
        SQLLEN(m_buffer.size()) - (utf8 ? 1 : SQLLEN(sizeof(QChar))); // a zero ends each piece
    m_pieces.clear();
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(m_statement.get(), column, utf8 ? SQL_C_CHAR : SQL_C_WCHAR,
                                            m_buffer.data(), SQLLEN(m_buffer.size()), &length);
        if (result == SQL_NO_DATA)
            break;
        if (!SQL_SUCCEEDED(result))
            throw m_statement.error(m_dialect);
        if (length == SQL_NULL_DATA)
            return {};
        const bool last = length != SQL_NO_TOTAL && length <= room;
        if (last && m_pieces.isEmpty())
            return decoded(m_buffer.data(), length);
        m_pieces.append(m_buffer.data(), last ? length : room);
        if (last)
            break;
    }
    return decoded(m_pieces.constData(), m_pieces.size());
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
        // SQLite's columns hold values of any type whatever their own; only as text all arrive as they are.
        columns.types.push_back(dialect == Dialect::Sqlite ? SQLSMALLINT(SQL_VARCHAR) : type);
    }
    return columns;
}

std::vector<QVariant> readRows(const Handle &statement, Dialect dialect,
                               const std::vector<SQLSMALLINT> &types)
{
    std::vector<QVariant> cells;
    RowReader reader(statement, dialect);
    for (;;) {
        const SQLRETURN result = SQLFetch(statement.get());
        if (result == SQL_NO_DATA)
            return cells;
        if (!SQL_SUCCEEDED(result))
            throw statement.error(dialect);
        for (std::size_t i = 0; i < types.size(); ++i)
            cells.push_back(reader.cell(SQLUSMALLINT(i + 1), types[i]));
    }
}

} // namespace

Recordset fetchAll(const Handle &statement, Dialect dialect)
{
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement.get(), &count);
    Recordset rows;
    if (count > 0) {
        const Columns columns = describeColumns(statement, dialect, SQLUSMALLINT(count));
        rows = Recordset(columns.names, readRows(statement, dialect, columns.types));
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

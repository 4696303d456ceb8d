#pragma once

#include "base/dateTime.h"
#include "base/numbers.h"
#include "base/text.h"
#include "db/Connection.h"
#include "model/Field.h"
#include "model/Line.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

// The statements for the rows of a record, and the reading of rows, made from its list of columns.

namespace varnow {

constexpr qsizetype usualLength = 768; // of a statement; a longer one grows

/// The table of the database that keeps a kind of record, and the order in which its rows are loaded.
template <class Record> struct SqlTable;

template <> struct SqlTable<Line>
{
    static constexpr QLatin1String name{"LabLineConfig"};
    static constexpr QLatin1String order{"Configuration, MsgIndex"};
};

template <> struct SqlTable<Field>
{
    static constexpr QLatin1String name{"LabLineFieldConfig"};
    static constexpr QLatin1String order{"MsgIndex, Position"};
};

/// Appends a value as SQL writes it. A save does so some thirty times for every record, hence no text is made
/// for a number on the way.
void appendLiteral(QString &sql, int number, ColumnReading reading);
void appendLiteral(QString &sql, const QString &text, ColumnReading reading);
void appendLiteral(QString &sql, const QDateTime &time, ColumnReading reading);

template <class Record> void appendLiteral(QString &sql, const Record &record, const Column<Record> &column)
{
    visit(column, record, [&](const auto &value) { appendLiteral(sql, value, column.reading); });
}

template <class Record> QString selectAllRows()
{
    QStringList names;
    for (const Column<Record> &column : Record::columns())
        names += QLatin1String(column.name);
    return "SELECT " + names.join(QLatin1String(", ")) + " FROM " + SqlTable<Record>::name + " ORDER BY " +
           SqlTable<Record>::order + ';';
}

/// Appends "name = value" for the record's columns of these uses.
template <class Record>
void appendEquations(QString &sql, const Record &record, std::initializer_list<ColumnUse> uses,
                     QLatin1String separator)
{
    QLatin1String before;
    for (const Column<Record> &column : Record::columns()) {
        if (std::find(uses.begin(), uses.end(), column.use) == uses.end())
            continue;
        sql += before;
        sql += QLatin1String(column.name);
        sql += QLatin1String(" = ");
        appendLiteral(sql, record, column);
        before = separator;
    }
}

/// Looks up the identifier of the record's row.
template <class Record> QString selectId(const Record &record)
{
    QString sql;
    sql.reserve(usualLength);
    sql += "SELECT id FROM " + SqlTable<Record>::name + " WHERE ";
    appendEquations(sql, record, {ColumnUse::Key}, QLatin1String(" AND "));
    return sql += u';';
}

template <class Record> QString selectGreatestId()
{
    return "SELECT MAX(id) FROM " + SqlTable<Record>::name + ';';
}

template <class Record> QString insertRow(const Record &record)
{
    QStringList names;
    QString values;
    for (const Column<Record> &column : Record::columns()) {
        if (column.use == ColumnUse::Spare)
            continue;
        names += QLatin1String(column.name);
        if (!values.isEmpty())
            values += QLatin1String(", ");
        appendLiteral(values, record, column);
    }
    return "INSERT INTO " + SqlTable<Record>::name + " (" + names.join(QLatin1String(", ")) + ") VALUES (" +
           values + ");";
}

/// Writes the record into the row with its identifier.
template <class Record> QString updateRow(const Record &record)
{
    QString sql;
    sql.reserve(usualLength);
    sql += "UPDATE " + SqlTable<Record>::name + " SET ";
    appendEquations(sql, record, {ColumnUse::Key, ColumnUse::Value}, QLatin1String(", "));
    return sql += " WHERE id = " + QString::number(record.id) + ';';
}

template <class Record> QString deleteRow(int id)
{
    return "DELETE FROM " + SqlTable<Record>::name + " WHERE id = " + QString::number(id) + ';';
}

/// What a cell is to a member, by the column's way of reading. They raise errors::InvalidUseOfNull for a
/// required value that is Null, errors::TypeMismatch and errors::Overflow for what is no 32-bit number.
void readCell(const QVariant &cell, ColumnReading reading, int &number);
void readCell(const QVariant &cell, ColumnReading reading, QString &text);
void readCell(const QVariant &cell, ColumnReading reading, QDateTime &time);

/// Reads the rows of a result, its columns looked up once.
template <class Record> class RecordReader
{
public:
    /// Raises errors::NoSuchColumn when the result has not all columns of the record.
    explicit RecordReader(const db::ResultSet &rows) : m_rows(rows)
    {
        for (const Column<Record> &column : Record::columns())
            m_columns.push_back(rows.column(QString::fromLatin1(column.name)));
    }

    /// The record of the current row.
    Record read() const
    {
        Record record;
        auto cell = m_columns.begin();
        for (const Column<Record> &column : Record::columns()) {
            const QVariant &value = m_rows.value(*cell++);
            visit(column, record, [&](auto &member) { readCell(value, column.reading, member); });
        }
        return record;
    }

private:
    const db::ResultSet &m_rows;
    std::vector<int> m_columns;
};

} // namespace varnow

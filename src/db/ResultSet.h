#pragma once

#include <QStringList>
#include <QVariant>

#include <deque>
#include <functional>

namespace varnow::db {

/// Told about every row that arrives. Returning false stops the statement with errors::UserInterrupt.
using RowObserver = std::function<bool()>;

/// The rows of a query, fetched whole, and a current row that moves forward.
/// That of a statement without a result is closed: it raises errors::ResultSetClosed whatever is asked of it.
class ResultSet
{
public:
    /// A closed one.
    ResultSet() = default;
    /// An open one; `cells` holds the values row by row, a null QVariant for Null.
    ResultSet(QStringList columns, std::deque<QVariant> cells);

    bool isOpen() const { return m_open; }
    /// Number of rows of the result.
    int rowCount() const;
    /// True when no row is left to read.
    bool atEnd() const;
    /// Makes the next row current. Raises errors::NoCurrentRow at the end.
    void moveNext();

    /// Position of the column with this name, letter case ignored. Raises errors::NoSuchColumn
    /// when there is none.
    int column(const QString &name) const;
    /// Value of the current row: a null QVariant for Null, else an integer (qlonglong), a double,
    /// a QDateTime or a QString. Raises errors::NoCurrentRow at the end and
    /// errors::NoSuchColumn for a position outside the row. The reference lasts until moveNext().
    const QVariant &value(int column) const;
    const QVariant &value(const QString &name) const { return value(column(name)); }

private:
    void requireOpen() const;

    bool m_open = false;
    QStringList m_columns;
    std::deque<QVariant> m_cells; // from the current row on: those read make room for what is made of them
    std::size_t m_rowCount = 0;
};

} // namespace varnow::db

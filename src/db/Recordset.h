#pragma once

#include <QStringList>
#include <QVariant>

#include <memory>

namespace varnow::db {

/// The rows of a query, fetched whole, and a current row that moves forward.
/// A recordset that was never filled, or was closed, raises 3704 whatever is asked of it.
class Recordset
{
public:
    /// A closed recordset.
    Recordset() = default;
    /// An open one; `cells` holds the values row by row, a null QVariant for Null.
    Recordset(QStringList columns, QVariantList cells);

    /// Number of rows of the result.
    int recordCount() const;
    /// True when no row is left to read.
    bool atEnd() const;
    /// Makes the next row current. Raises 3021 at the end.
    void moveNext();

    /// Position of the column with this name, letter case ignored. Raises 3265 when there is none.
    int column(const QString &name) const;
    /// Value of the current row: a null QVariant for Null, else an integer (qlonglong), a double,
    /// a QDateTime or a QString. Raises 3021 at the end and 3265 for a position outside the row.
    const QVariant &value(int column) const;
    const QVariant &value(const QString &name) const { return value(column(name)); }

    /// Drops the rows. Raises 3704 when it is closed already.
    void close();

private:
    void requireOpen() const;

    bool m_open = false;
    QStringList m_columns;
    QVariantList m_cells;    // row by row
    qsizetype m_current = 0; // index of the current row's first cell
};

using RecordsetPtr = std::shared_ptr<Recordset>;

} // namespace varnow::db

#pragma once

#include "model/Column.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace varnow {

/// The rows that show records of one kind as plain text, made from its list of columns.
template <class Record> class RecordRows
{
public:
    RecordRows()
    {
        int count = 0;
        for (const Column<Record> &column : Record::columns())
            count = std::max(count, column.listing.row);
        m_rows.resize(static_cast<std::size_t>(count));
        for (const Column<Record> &column : Record::columns()) {
            if (column.listing.row > 0)
                m_rows[static_cast<std::size_t>(column.listing.row - 1)].push_back(&column);
        }
    }

    /// The rows of one record.
    QStringList of(const Record &record) const
    {
        QStringList rows;
        for (const std::vector<const Column<Record> *> &columns : m_rows) {
            QString row;
            for (const Column<Record> *column : columns)
                row += QLatin1String(column->listing.before) + textIn(*column, record) +
                       QLatin1String(column->listing.after);
            rows += row;
        }
        return rows;
    }

private:
    std::vector<std::vector<const Column<Record> *>> m_rows;
};

} // namespace varnow

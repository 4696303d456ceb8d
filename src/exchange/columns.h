#pragma once

#include "model/Column.h"
#include "model/Field.h"
#include "model/Line.h"

#include <QStringList>

#include <vector>

// The columns of a record as files hold them. Identifiers stay with the database, and so do spare columns,
// which nothing writes.

namespace varnow {

/// The column that tells what kind of record a row holds, and what it says there.
inline constexpr QLatin1String kindColumn("Record");
template <class Record> inline constexpr QLatin1String kindOf{};
template <> inline constexpr QLatin1String kindOf<Line>{"Line"};
template <> inline constexpr QLatin1String kindOf<Field>{"Field"};

template <class Record> bool isExchanged(const Column<Record> &column)
{
    return column.use == ColumnUse::Key || column.use == ColumnUse::Value;
}

template <class Record> const std::vector<Column<Record>> &exchangedColumns()
{
    static const std::vector<Column<Record>> columns = [] {
        std::vector<Column<Record>> exchanged;
        for (const Column<Record> &column : Record::columns()) {
            if (isExchanged(column))
                exchanged.push_back(column);
        }
        return exchanged;
    }();
    return columns;
}

} // namespace varnow

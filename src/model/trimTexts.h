#pragma once

#include "base/text.h"
#include "model/Column.h"

namespace varnow {

/// Removes the blanks around a record's texts, but for the columns that are read untrimmed.
template <class Record> void trimTexts(Record &record)
{
    for (const Column<Record> &column : Record::columns()) {
        visit(column, record, [&]<class Value>(Value &value) {
            if constexpr (std::is_same_v<Value, QString>) {
                if (column.reading != ColumnReading::Untrimmed)
                    value = trim(value);
            }
        });
    }
}

} // namespace varnow

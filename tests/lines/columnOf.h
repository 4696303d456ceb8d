#pragma once

#include <vector>

namespace varnow::test {

/// One number of every record of a table, in table order.
template <class Table, class Record> std::vector<int> columnOf(const Table &table, int Record::*number)
{
    std::vector<int> column;
    for (const Record &record : table)
        column.push_back(record.*number);
    return column;
}

} // namespace varnow::test

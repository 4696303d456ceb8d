#pragma once

#include "exchange/columns.h"
#include "model/drafts.h"

#include <QHash>

#include <vector>

namespace varnow {

/// Reads the rows of a file by its header.
class FileRowReader
{
public:
    explicit FileRowReader(const QStringList &header);

    bool hasColumn(const char *name) const { return m_cells.contains(QLatin1String(name)); }

    /// The cell of a row in a column, empty where the file or the row has none.
    QString cell(const QStringList &cells, const char *name) const
    {
        return cells.value(m_cells.value(QLatin1String(name), -1));
    }

    /// Reads the record of a row. What a page refuses is a problem, and so is a cell without the number that
    /// its column must hold.
    Parsed<Line> readLine(const QStringList &cells) const;
    Parsed<Field> readField(const QStringList &cells) const;

    /// Whether the row of a field tells its message index.
    bool hasMessageIndex(const QStringList &cells) const;

private:
    template <class Record>
    static QStringList fill(Draft<Record> &draft, const QStringList &cells, const std::vector<int> &cellOf);

    QHash<QLatin1String, int> m_cells; // number of the cell by the name of its column, of those in the file
    std::vector<int> m_lineCells;      // the same by the number of the record's column; -1 for none
    std::vector<int> m_fieldCells;
};

} // namespace varnow

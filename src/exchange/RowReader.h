#pragma once

#include "exchange/columns.h"
#include "model/drafts.h"

#include <QHash>

#include <vector>

namespace varnow {

/// Reads the rows of a file by its header.
class RowReader
{
public:
    explicit RowReader(const QStringList &header);

    bool hasColumn(const char *name) const { return m_places.contains(QLatin1String(name)); }

    /// The cell of a row in a column, empty where the file or the row has none.
    QString cell(const QStringList &row, const char *name) const
    {
        return row.value(m_places.value(QLatin1String(name), -1));
    }

    /// Reads the row's record into `record`, which has the values for columns that the file has not. Returns
    /// what is wrong, by the checks that the entry pages make.
    QStringList read(const QStringList &row, Line &record) const;
    QStringList read(const QStringList &row, Field &record) const;

    /// Whether the row tells the record's message index.
    bool hasMessageIndex(const QStringList &row) const;

private:
    LineDraft lineEntry(const QStringList &row) const;
    FieldDraft fieldEntry(const QStringList &row) const;
    template <class Record> QStringList readCells(const QStringList &row, Record &record) const;
    template <class Record, class Value> QString cell(const QStringList &row, Value Record::*member) const;
    template <class Record> const std::vector<int> &places() const;

    QHash<QLatin1String, int> m_places; // by name, of the columns that the file has
    std::vector<int> m_linePlaces;      // by exchanged column; -1 for one that the file has not
    std::vector<int> m_fieldPlaces;
};

} // namespace varnow

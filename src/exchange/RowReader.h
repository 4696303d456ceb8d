#pragma once

#include "exchange/columns.h"
#include "model/entries.h"

#include <QHash>

namespace varnow {

/// Reads the rows of a file by its header.
class RowReader
{
public:
    explicit RowReader(const QStringList &header);

    bool hasColumn(const char *name) const { return m_places.contains(nameOf(name)); }

    /// The cell of a row in a column, empty where the file or the row has none.
    QString cell(const QStringList &row, const char *name) const
    {
        return row.value(m_places.value(nameOf(name), -1));
    }

    /// Reads the row's record into `record`, which has the values for columns that the file has not. Returns
    /// what is wrong, by the checks that the entry pages make.
    QStringList read(const QStringList &row, Line &record) const;
    QStringList read(const QStringList &row, Field &record) const;

    /// Whether the row tells the record's message index.
    bool hasMessageIndex(const QStringList &row) const;

private:
    static QString nameOf(const char *column) { return QString::fromLatin1(column).toLower(); }
    LineEntry lineEntry(const QStringList &row) const;
    FieldEntry fieldEntry(const QStringList &row) const;
    template <class Record> QStringList readCells(const QStringList &row, Record &record) const;

    QHash<QString, int> m_places; // by name in lower case
};

} // namespace varnow

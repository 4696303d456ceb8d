#include "db/ResultSet.h"

#include "base/RuntimeError.h"

namespace varnow::db {

ResultSet::ResultSet(QStringList columns, QVariantList cells)
    : m_open(true), m_columns(std::move(columns)), m_cells(std::move(cells))
{
}

void ResultSet::requireOpen() const
{
    if (!m_open)
        throw RuntimeError(errors::ResultSetClosed);
}

int ResultSet::rowCount() const
{
    requireOpen();
    return static_cast<int>(m_cells.size() / m_columns.size());
}

bool ResultSet::atEnd() const
{
    requireOpen();
    return m_current >= m_cells.size();
}

void ResultSet::moveNext()
{
    if (atEnd())
        throw RuntimeError(errors::NoCurrentRow);
    m_current += m_columns.size();
}

int ResultSet::column(const QString &name) const
{
    requireOpen();
    for (int i = 0; i < m_columns.size(); ++i) {
        if (m_columns[i].compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    throw RuntimeError(errors::NoSuchColumn);
}

const QVariant &ResultSet::value(int column) const
{
    requireOpen();
    if (column < 0 || column >= m_columns.size())
        throw RuntimeError(errors::NoSuchColumn);
    if (atEnd())
        throw RuntimeError(errors::NoCurrentRow);
    return m_cells.at(m_current + column);
}

} // namespace varnow::db

#include "db/ResultSet.h"

#include "base/RuntimeError.h"

namespace varnow::db {

ResultSet::ResultSet(QStringList columns, std::deque<QVariant> cells)
    : m_open(true)
    , m_columns(std::move(columns))
    , m_cells(std::move(cells))
    , m_rowCount(m_cells.size() / std::size_t(m_columns.size()))
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
    return static_cast<int>(m_rowCount);
}

bool ResultSet::atEnd() const
{
    requireOpen();
    return m_cells.empty();
}

void ResultSet::moveNext()
{
    if (atEnd())
        throw RuntimeError(errors::NoCurrentRow);
    m_cells.erase(m_cells.begin(), m_cells.begin() + m_columns.size());
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
    return m_cells[std::size_t(column)];
}

} // namespace varnow::db

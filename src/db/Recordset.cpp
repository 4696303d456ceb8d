#include "db/Recordset.h"

#include "base/RuntimeError.h"

namespace varnow::db {

Recordset::Recordset(QStringList columns, QVariantList cells)
    : m_open(true), m_columns(std::move(columns)), m_cells(std::move(cells))
{
}

void Recordset::requireOpen() const
{
    if (!m_open)
        throw RuntimeError(errors::ResultSetClosed);
}

int Recordset::recordCount() const
{
    requireOpen();
    return static_cast<int>(m_cells.size() / m_columns.size());
}

bool Recordset::atEnd() const
{
    requireOpen();
    return m_current >= m_cells.size();
}

void Recordset::moveNext()
{
    if (atEnd())
        throw RuntimeError(errors::NoCurrentRow);
    m_current += m_columns.size();
}

int Recordset::column(const QString &name) const
{
    requireOpen();
    for (int i = 0; i < m_columns.size(); ++i) {
        if (m_columns[i].compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    throw RuntimeError(errors::NoSuchColumn);
}

const QVariant &Recordset::value(int column) const
{
    requireOpen();
    if (column < 0 || column >= m_columns.size())
        throw RuntimeError(errors::NoSuchColumn);
    if (atEnd())
        throw RuntimeError(errors::NoCurrentRow);
    return m_cells.at(m_current + column);
}

void Recordset::close()
{
    requireOpen();
    *this = Recordset();
}

} // namespace varnow::db

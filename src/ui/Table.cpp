#include "ui/Table.h"

#include "base/names.h"
#include "ui/Application.h"
#include "ui/lineBreaks.h"
#include "ui/toolTip.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace varnow::ui {

namespace {

constexpr int longestName = 100; // characters

/// A cell's text as other programs take it: the row must stay one line, and the cell one column.
QString copied(const QString &text)
{
    QString cell = withoutIsolation(text).replace(QLatin1String("\r\n"), QLatin1String(" "));
    const auto tearsRow = [](QChar character) { return character == u'\t' || isLineBreak(character); };
    std::replace_if(cell.begin(), cell.end(), tearsRow, u' ');
    return cell;
}

} // namespace

class Table::Rows : public QAbstractTableModel
{
public:
    Rows(const QStringList &headings, QObject *parent) : QAbstractTableModel(parent), m_headings(headings) {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
    }

    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_headings.size());
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        return orientation == Qt::Horizontal && role == Qt::DisplayRole ? m_headings.value(section)
                                                                        : QVariant();
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid())
            return {};
        const QString &text = m_rows[static_cast<std::size_t>(index.row())][index.column()];
        switch (role) {
        case Qt::DisplayRole:
            return withShortNames(text, longestName);
        case Qt::AccessibleTextRole:
            return withoutIsolation(text);
        case Qt::ToolTipRole:
            return toolTipText(text);
        default:
            return {};
        }
    }

    /// The row as text, its cells separated by tabs.
    QString line(int row) const
    {
        QStringList cells;
        for (const QString &cell : m_rows[static_cast<std::size_t>(row)])
            cells += copied(cell);
        return cells.join(u'\t');
    }

    void set(std::vector<QStringList> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }

private:
    QStringList m_headings;
    std::vector<QStringList> m_rows;
};

class Table::View : public QTreeView
{
public:
    using QTreeView::QTreeView;

    std::function<void(const QModelIndex &)> onEnter;
    std::function<void()> onCopy;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isEnter && currentIndex().isValid())
            onEnter(currentIndex());
        else if (event->matches(QKeySequence::Copy))
            onCopy(); // the toolkit's own copies one cell
        else
            QTreeView::keyPressEvent(event);
    }
};

Table::Table(Container &parent, const QString &name, const QStringList &headings, const Rect &place)
    : Control(parent, name, new View(parent.surface()), place), m_rows(new Rows(headings, widget()))
{
    view()->setModel(m_rows);
    view()->setRootIsDecorated(false);
    view()->setUniformRowHeights(true);
    view()->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view()->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view()->header()->setStretchLastSection(true);
    view()->header()->setSectionsMovable(false);
    const auto activate = [this](const QModelIndex &index) {
        if (onActivate)
            onActivate(index.row());
    };
    view()->onEnter = activate;
    view()->onCopy = [this] { copySelection(); };
    QObject::connect(view(), &QTreeView::doubleClicked, widget(), activate);
    QObject::connect(view()->selectionModel(), &QItemSelectionModel::selectionChanged, widget(), [this] {
        if (onSelect)
            onSelect();
    });
}

Table::View *Table::view() const
{
    return static_cast<View *>(widget());
}

void Table::setRows(std::vector<QStringList> rows)
{
    const int current = std::max(view()->currentIndex().row(), 0);
    m_rows->set(std::move(rows));
    for (int column = 0; column + 1 < m_rows->columnCount(); ++column)
        view()->resizeColumnToContents(column);
    const int last = m_rows->rowCount() - 1;
    if (last >= 0)
        view()->selectionModel()->setCurrentIndex(m_rows->index(std::min(current, last), 0),
                                                  QItemSelectionModel::ClearAndSelect |
                                                      QItemSelectionModel::Rows); // which tells
    else if (onSelect)
        onSelect();
}

void Table::copySelection()
{
    QStringList lines;
    for (const int row : selectedRows())
        lines += m_rows->line(row);
    if (!lines.isEmpty())
        copyToClipboard(lines.join(u'\n'));
}

std::vector<int> Table::selectedRows() const
{
    std::vector<int> rows;
    for (const QModelIndex &index : view()->selectionModel()->selectedRows())
        rows.push_back(index.row());
    std::ranges::sort(rows);
    return rows;
}

} // namespace varnow::ui

#include "ui/Table.h"

#include "base/names.h"
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

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
        if (isEnter && currentIndex().isValid())
            onEnter(currentIndex());
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
    const int current = view()->currentIndex().row();
    m_rows->set(std::move(rows));
    const int last = m_rows->rowCount() - 1;
    view()->selectionModel()->setCurrentIndex(m_rows->index(std::min(current, last), 0),
                                              QItemSelectionModel::NoUpdate);
    for (int column = 0; column + 1 < m_rows->columnCount(); ++column)
        view()->resizeColumnToContents(column);
    if (onSelect)
        onSelect();
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

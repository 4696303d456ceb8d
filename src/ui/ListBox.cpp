#include "ui/ListBox.h"

#include <QAbstractListModel>
#include <QFontMetrics>
#include <QListView>
#include <QStringList>

#include <algorithm>

namespace varnow::ui {

/// The rows, a million of them without an object each. The view learns of new rows when it is idle again.
class ListBox::Rows : public QAbstractListModel
{
public:
    explicit Rows(QListView *view) : QAbstractListModel(view), m_view(view) {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_shown);
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role == Qt::DisplayRole)
            return rows[index.row()];
        // Every row is as wide as the longest, so that the view need not measure them all.
        if (role == Qt::SizeHintRole)
            return QSize(m_width, m_view->fontMetrics().height() + 2);
        return {};
    }

    void changed()
    {
        if (m_pending)
            return;
        m_pending = true;
        QMetaObject::invokeMethod(this, &Rows::show, Qt::QueuedConnection);
    }

    void show()
    {
        m_pending = false;
        beginResetModel();
        m_shown = rows.size();
        const auto longest =
            std::max_element(rows.cbegin(), rows.cend(),
                             [](const QString &a, const QString &b) { return a.size() < b.size(); });
        m_width = longest == rows.cend()
                      ? 0
                      : m_view->fontMetrics().size(Qt::TextExpandTabs, *longest).width() + 16;
        endResetModel();
    }

    QStringList rows;

private:
    QListView *m_view;
    qsizetype m_shown = 0;
    int m_width = 0;
    bool m_pending = false;
};

ListBox::ListBox(Container &parent, const QString &name, const Rect &place)
    : ListControl(parent, name, new QListView(parent.surface()), place)
{
    auto *view = static_cast<QListView *>(widget());
    view->setUniformItemSizes(true);
    view->setTextElideMode(Qt::ElideNone);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_rows = new Rows(view);
    view->setModel(m_rows);
}

int ListBox::itemCount() const
{
    return static_cast<int>(m_rows->rows.size());
}

QString ListBox::itemText(int index) const
{
    return m_rows->rows.at(index);
}

void ListBox::addItem(const QString &text)
{
    m_rows->rows.append(text);
    m_rows->changed();
}

void ListBox::clear()
{
    m_rows->rows = {};
    m_rows->show();
}

} // namespace varnow::ui

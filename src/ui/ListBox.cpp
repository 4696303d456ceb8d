#include "ui/ListBox.h"

#include "ui/lineBreaks.h"

#include <QAbstractListModel>
#include <QEvent>
#include <QFontMetrics>
#include <QListView>
#include <QStringList>
#include <QTextLayout>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace varnow::ui {

namespace {

/// Tells how wide rows are painted. Each character is measured once, which makes a million rows cheap; what
/// joins or crowds neighbours is left out of account, so the widest row is measured again as a whole.
class RowWidths
{
public:
    explicit RowWidths(const QFont &font)
        : m_font(font), m_tabStop(measure(QStringLiteral("\t"))), m_advances(0x10000, unknown)
    {
    }

    void add(const QString &row)
    {
        int width = 0;
        for (const QChar &character : row) {
            const int advance = m_advances[character.unicode()];
            width += advance != unknown ? advance : firstAdvance(character, width);
        }
        if (width > m_estimate) {
            m_estimate = width;
            m_widest = row;
        }
    }

    int widest() const { return std::max(m_estimate, measure(shown(m_widest))) / unit + 1; }

    /// The row as it is shown, in one line: its line breaks are seen as arrows.
    static QString shown(QString row)
    {
        if (std::none_of(row.cbegin(), row.cend(), isLineBreak))
            return row;
        row.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        std::replace_if(row.begin(), row.end(), isLineBreak, arrow);
        return row;
    }

private:
    static constexpr int unit = 64; // to the pixel
    static constexpr int unknown = -1;
    static constexpr QChar arrow{0x21B5};

    /// The way to what follows the character, which is met at `start` for the first time. Tabs stay unknown,
    /// for theirs is never the same.
    int firstAdvance(QChar character, int start)
    {
        if (character == u'\t')
            return m_tabStop - start % m_tabStop;
        return m_advances[character.unicode()] = measure(QString(isLineBreak(character) ? arrow : character));
    }

    /// What the view paints, tab stops included.
    int measure(const QString &text) const
    {
        QTextLayout layout(text, m_font);
        layout.beginLayout();
        const QTextLine line = layout.createLine();
        layout.endLayout();
        return line.isValid() ? qRound(line.cursorToX(static_cast<int>(text.size())) * unit) : 0;
    }

    QFont m_font;
    int m_tabStop;
    std::vector<int> m_advances; // by code unit
    int m_estimate = 0;
    QString m_widest;
};

} // namespace

/// The rows, a million of them without an object each. The view learns of new rows when it is idle again.
class ListBox::Rows : public QAbstractListModel
{
public:
    explicit Rows(QListView *view) : QAbstractListModel(view), m_view(view), m_widths(view->font()) {}

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(m_shown);
    }

    QVariant data(const QModelIndex &index, int role) const override
    {
        if (!index.isValid()) // the copy key asks for the current row, also where there is none
            return {};
        if (role == Qt::DisplayRole)
            return RowWidths::shown(rows[index.row()]);
        // Every row is as wide as the widest, so that the view need not measure them all.
        if (role == Qt::SizeHintRole)
            return QSize(m_width, m_view->fontMetrics().height() + 2);
        return {};
    }

    void add(const QString &row)
    {
        rows.append(row);
        m_widths.add(row); // while it is at hand: a million rows take long to fetch again
        changed();
    }

    void clear()
    {
        rows = {};
        m_widths = RowWidths(m_view->font());
        show();
    }

    void fontChanged()
    {
        m_widths = RowWidths(m_view->font());
        for (const QString &row : std::as_const(rows))
            m_widths.add(row);
        changed();
    }

    QStringList rows;

private:
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
        m_width = m_widths.widest() + margins;
        endResetModel();
    }

    static constexpr int margins = 16; // left and right of a row

    QListView *m_view;
    RowWidths m_widths;
    qsizetype m_shown = 0;
    int m_width = 0;
    bool m_pending = false;
};

/// Measures the rows anew in another font.
class ListBox::View : public QListView
{
public:
    using QListView::QListView;

    std::function<void()> fontChanged = [] {};

protected:
    void changeEvent(QEvent *event) override
    {
        QListView::changeEvent(event);
        if (event->type() == QEvent::FontChange)
            fontChanged();
    }
};

ListBox::ListBox(Container &parent, const QString &name, const Rect &place)
    : Control(parent, name, new View(parent.surface()), place)
{
    auto *view = static_cast<View *>(widget());
    view->setUniformItemSizes(true);
    view->setTextElideMode(Qt::ElideNone);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_rows = new Rows(view);
    view->setModel(m_rows);
    view->fontChanged = [this] { m_rows->fontChanged(); };
}

void ListBox::addItem(const QString &text)
{
    m_rows->add(text);
}

void ListBox::clear()
{
    m_rows->clear();
}

} // namespace varnow::ui

#include "review/ListingWindow.h"

#include "base/guarded.h"
#include "base/text.h"
#include "review/listingRows.h"
#include "ui/MessageBox.h"

namespace varnow {

namespace {

constexpr float margin = 120;
constexpr float minimumWidth = 4900;
constexpr float minimumHeight = 2550;

/// Fills the list with the rows of every record. A failure, an empty table among them, is shown where there
/// is a text for it.
template <class Record, class Order>
void listRecords(ui::ListBox &list, const EditedTable<Record, Order> &table, const QString &failure)
{
    const auto fill = [&] {
        list.clear();
        if (table.isEmpty())
            throw RuntimeError(errors::SubscriptOutOfRange);
        const RecordRows<Record> rows;
        for (const Record &record : table) {
            for (const QString &row : rows.of(record))
                list.addItem(row);
        }
        return 0;
    };
    const auto report = [&](const RuntimeError &error) {
        if (failure.isEmpty())
            return error.number();
        ui::show(
            {QStringList{failure, QStringLiteral("Error: %1").arg(error.number()), error.description()}.join(
                lineBreak)});
        return error.number();
    };
    guarded(fill, report);
}

} // namespace

ListingWindow::ListingWindow(const Document &document)
    : ui::Window("listing", "Data Display", 5565, 4080), m_document(document)
{
    m_list.setAccessibleName("Records in memory");
    setFocusOrder({&m_list, &m_lines, &m_fields, &m_exit});
    m_lines.setToolTip("Lists the lines of all configurations as they are in memory.");
    m_fields.setToolTip("Lists the fields of all configurations as they are in memory.");
    m_exit.setToolTip("Closes this window.");
    const auto follow = [this] {
        if (isLoaded() && m_listed)
            list(*m_listed, false);
    };
    QObject::connect(&document, &Document::changed, &document, follow);
    QObject::connect(&document, &Document::loaded, &document, follow);
    onLoad = [this] {
        m_list.clear();
        m_listed.reset();
    };
    onResize = [this] { layOut(); };
    m_lines.onClick = [this] { list(RecordKind::Line, true); };
    m_fields.onClick = [this] { list(RecordKind::Field, true); };
    m_exit.onClick = [this] { unload(); };
}

void ListingWindow::list(RecordKind kind, bool tellsFailure)
{
    m_listed = kind;
    const Model &model = m_document.model();
    switch (kind) {
    case RecordKind::Line:
        return listRecords(m_list, model.lines, tellsFailure ? "Error loading lines." : "");
    case RecordKind::Field:
        return listRecords(m_list, model.fields, tellsFailure ? "Error loading fields" : "");
    }
}

void ListingWindow::layOut()
{
    if (isMinimised())
        return;
    enforceMinimumSize(minimumWidth, minimumHeight);
    m_exit.move(innerWidth() - (m_exit.width() + margin), innerHeight() - (m_exit.height() + margin));
    m_fields.move(m_exit.left() - m_fields.width(), m_exit.top());
    m_lines.move(m_fields.left() - m_lines.width(), m_exit.top());
    m_panel.move({margin, margin, innerWidth() - 2 * margin, m_exit.top() - 2 * margin});
    m_list.move({margin, margin, m_panel.width() - 2 * margin, m_panel.height() - 2 * margin});
}

} // namespace varnow

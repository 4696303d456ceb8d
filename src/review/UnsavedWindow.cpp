#include "review/UnsavedWindow.h"

#include "base/names.h"
#include "base/text.h"
#include "model/differences.h"
#include "review/recordText.h"

#include <algorithm>
#include <tuple>

namespace varnow {

namespace {

QString kindText(ChangeKind kind)
{
    switch (kind) {
    case ChangeKind::Added:
        return "Added";
    case ChangeKind::Changed:
        return "Changed";
    case ChangeKind::Removed:
        return "Removed";
    }
    Q_UNREACHABLE();
}

template <class Entry> QString detailsOf(const Entry &entry)
{
    const QStringList details = entry.kind() == ChangeKind::Changed ? differences(*entry.before, *entry.now)
                                                                    : contents(entry.record());
    return details.join(QStringLiteral(", "));
}

/// As the tree is sorted: the fields of a line behind it.
auto placeOf(const Line &line)
{
    return std::tuple(line.configuration, line.messageIndex, -1, 0, line.name, line.nameIndex);
}

auto placeOf(const Field &field)
{
    return std::tuple(field.configuration, field.messageIndex, 0, field.position, field.name,
                      field.nameIndex);
}

RecordReference referenceTo(const Line &line)
{
    return {RecordKind::Line, keyOf(line)};
}

RecordReference referenceTo(const Field &field)
{
    return {RecordKind::Field, keyOf(field)};
}

} // namespace

UnsavedWindow::UnsavedWindow(Document &document)
    : ui::ListWindow("unsaved", "Unsaved Changes", {90, 20}), m_document(document)
{
    m_list.setAccessibleName("Unsaved changes");
    arrange({.content = {&m_list}, .buttons = {&m_revert, &m_reapply}});
    m_revert.setToolTip("Makes the selected records what the database holds of them again.");
    m_reapply.setToolTip("Makes the selected changes of an earlier run, whatever the records are now.");
    QObject::connect(&document, &Document::changed, &document, [this] { followDocument(); });
    QObject::connect(&document, &Document::saved, &document, [this] { followDocument(); });
    QObject::connect(&document, &Document::loaded, &document, [this] { followDocument(); });
    onLoad = [this] { addRows(); };
    m_list.onSelect = [this] { followSelection(); };
    m_list.onActivate = [this](int row) { showRecordOf(row); };
    m_revert.onClick = [this] { revert(); };
    m_reapply.onClick = [this] { reapply(); };
}

/// Lists what is unsaved now, if the window is open.
void UnsavedWindow::followDocument()
{
    if (isLoaded())
        addRows();
}

void UnsavedWindow::addRows()
{
    m_rows.clear();
    for (const auto &entry : m_document.model().lines.unsaved().entries())
        m_rows.push_back({entry, false});
    for (const auto &entry : m_document.model().fields.unsaved().entries())
        m_rows.push_back({entry, false});
    for (const auto &entry : m_document.conflicts().lines)
        m_rows.push_back({entry, true});
    for (const auto &entry : m_document.conflicts().fields)
        m_rows.push_back({entry, true});
    const auto place = [](const Row &row) {
        return std::visit([](const auto &entry) { return placeOf(entry.record()); }, row.entry);
    };
    std::ranges::stable_sort(m_rows, {}, place);
    std::vector<QStringList> texts;
    for (const Row &row : m_rows) {
        texts.push_back(std::visit(
            [&row](const auto &entry) {
                return QStringList{row.isConflict ? "Not brought back: " + kindText(entry.kind()).toLower()
                                                  : kindText(entry.kind()),
                                   isolated(entry.record().configuration), recordText(entry.record()),
                                   detailsOf(entry)};
            },
            row.entry));
    }
    m_list.setRows(std::move(texts));
}

void UnsavedWindow::followSelection()
{
    m_revert.setEnabled(!selected(false).empty());
    m_reapply.setEnabled(!selected(true).empty());
}

/// The selected rows that are conflicts, or the others.
std::vector<UnsavedWindow::Row> UnsavedWindow::selected(bool conflicts) const
{
    std::vector<Row> rows;
    for (const int index : m_list.selectedRows()) {
        const Row &row = m_rows[static_cast<std::size_t>(index)];
        if (row.isConflict == conflicts)
            rows.push_back(row);
    }
    return rows;
}

void UnsavedWindow::revert()
{
    const std::vector<Row> rows = selected(false);
    const QString changes = counted(qint64(rows.size()), "change");
    m_document.edit({"taking back of " + changes, "Taken back: " + changes + '.'}, [&](Edit &edit) {
        for (const Row &row : rows)
            std::visit([&edit](const auto &change) { edit.revert(change); }, row.entry);
    });
}

/// Puts conflicting changes into memory over what the database holds.
void UnsavedWindow::reapply()
{
    LeftChanges conflicts;
    for (const Row &row : selected(true)) {
        if (const auto *line = std::get_if<UnsavedChange<Line>>(&row.entry))
            conflicts.lines.push_back(*line);
        else
            conflicts.fields.push_back(std::get<UnsavedChange<Field>>(row.entry));
    }
    m_document.reapply(conflicts);
    addRows(); // they are no conflicts any more, also where nothing had to be changed
}

void UnsavedWindow::showRecordOf(int row)
{
    std::visit([this](const auto &entry) { onShow(referenceTo(entry.record())); },
               m_rows[static_cast<std::size_t>(row)].entry);
}

} // namespace varnow

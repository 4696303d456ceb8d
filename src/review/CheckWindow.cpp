#include "review/CheckWindow.h"

#include "base/guarded.h"
#include "base/names.h"
#include "base/text.h"
#include "storage/Run.h"
#include "storage/catalogue.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/RunWindow.h"

#include <algorithm>
#include <utility>

namespace varnow {

namespace {

struct FixTexts
{
    QString caption;
    QString toolTip;
};

FixTexts textsOf(Fix fix)
{
    switch (fix) {
    case Fix::None:
        return {"&Cure", "Cures the finding that is selected, where that can be done from here."};
    case Fix::MoveItsFields:
        return {"&Move its fields", "Gives the fields of this line its message index."};
    case Fix::RemoveAtNextSave:
        return {"&Remove at the next save", "Has this row deleted from the database by the next Save."};
    }
    Q_UNREACHABLE();
}

} // namespace

CheckWindow::CheckWindow(Document &document)
    : ui::ListWindow("check", "Check", {90, 20}), m_document(document)
{
    m_list.setAccessibleName("Findings");
    arrange({.above = {&m_all, &m_result}, .content = {&m_list}, .buttons = {&m_fix, &m_again}});
    m_all.setToolTip("Checks every configuration, not only the one that the editor shows.");
    m_again.setToolTip("Asks the database once more and checks everything anew.");
    QObject::connect(&document, &Document::changed, &document, [this] { followDocument(); });
    QObject::connect(&document, &Document::configurationChanged, &document, [this] { followDocument(); });
    onLoad = [this] {
        askDatabase();
        addRows();
    };
    m_all.onClick = [this] { addRows(); };
    m_list.onSelect = [this] { followSelection(); };
    m_list.onActivate = [this](int item) { showRecordOf(item); };
    m_fix.onClick = [this] { fix(); };
    m_again.onClick = [this] {
        askDatabase();
        addRows();
    };
}

/// Asks for what only the database knows. A failure is told, and what memory knows is listed none the less.
void CheckWindow::askDatabase()
{
    const ui::Hourglass hourglass;
    m_rows.clear();
    m_dataFieldNames.clear();
    const auto ask = [&] {
        ui::RunWindow window;
        Run run(m_document.session().configurationDatabase, window);
        m_tellsLetterCaseApart = tellsLetterCaseApart(run);
        m_rows = findRowIssues(run, m_document.model());
        m_dataFieldNames = loadAllDataFieldNames(run);
        for (const QString &name : m_document.session().configurationNames)
            m_dataFieldNames[name]; // one without data field names has no right lookup
        return QString();
    };
    const QString failure = guarded(ask, [](const RuntimeError &error) {
        return QStringLiteral("The database could not be asked about its rows and data field names.") +
               lineBreak + QStringLiteral("Error: %1").arg(error.number()) + lineBreak + error.description();
    });
    if (!failure.isEmpty())
        ui::show({failure, "Check", ui::Icon::Critical});
}

/// Checks what is in memory anew, if the window is open.
void CheckWindow::followDocument()
{
    if (isLoaded())
        addRows();
}

void CheckWindow::addRows()
{
    const QString &shown = m_document.configuration();
    const std::optional<QString> configuration = m_all.isTicked() ? std::nullopt : std::optional(shown);
    m_items.clear();
    for (const Issue &issue :
         issuesIn(m_document.model(),
                  {m_document.session().configurationNames, m_dataFieldNames, m_tellsLetterCaseApart},
                  configuration))
        m_items.push_back({issue, {}});
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (!configuration || m_rows[i].issue.record.key.configuration == *configuration)
            m_items.push_back({m_rows[i].issue, i});
    }
    std::vector<QStringList> texts;
    for (const Item &item : m_items)
        texts.push_back({isolated(item.issue.record.key.configuration), item.issue.text});
    m_result.setCaption(m_items.empty() ? QStringLiteral("Nothing found.")
                                        : counted(qint64(m_items.size()), "finding"));
    m_list.setRows(std::move(texts));
}

/// The button names the fix of the one issue that is selected.
void CheckWindow::followSelection()
{
    const std::vector<int> selected = m_list.selectedRows();
    const Fix fix =
        selected.size() == 1 ? m_items[static_cast<std::size_t>(selected.front())].issue.fix : Fix::None;
    const FixTexts texts = textsOf(fix);
    m_fix.setCaption(texts.caption);
    m_fix.setToolTip(texts.toolTip);
    m_fix.setEnabled(fix != Fix::None);
}

void CheckWindow::fix()
{
    const Item item = m_items[static_cast<std::size_t>(m_list.selectedRows().front())];
    if (!item.row) {
        const QString line = shownName(item.issue.line);
        m_document.edit({"move of the fields of " + nameOf(item.issue.line),
                         "The fields of line " + line + " have its message index now."},
                        [&](Edit &edit) { moveFieldsToLine(edit.model(), item.issue.line); });
        return;
    }
    const RowIssue issue = m_rows[*item.row];
    m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(*item.row));
    m_document.edit(
        {QStringLiteral("removal of a row"), QStringLiteral("The row will be removed at the next save.")},
        [&](Edit &edit) { removeAtNextSave(edit.model(), issue); });
}

void CheckWindow::showRecordOf(int item)
{
    onShow(m_items[static_cast<std::size_t>(item)].issue.record);
}

} // namespace varnow

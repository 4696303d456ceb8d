#include "editor/CheckWindow.h"

#include "base/guarded.h"
#include "base/names.h"
#include "base/text.h"
#include "editor/RunWindow.h"
#include "storage/Run.h"
#include "storage/catalogue.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"

#include <algorithm>
#include <utility>

namespace varnow {

namespace {

constexpr float margin = 120;
constexpr float minimumWidth = 6000;
constexpr float minimumHeight = 3000;

struct CureTexts
{
    QString caption;
    QString toolTip;
};

CureTexts textsOf(Cure cure)
{
    switch (cure) {
    case Cure::None:
        return {"&Cure", "Cures the finding that is selected, where that can be done from here."};
    case Cure::MoveItsFields:
        return {"&Move its fields", "Gives the fields of this line its message index."};
    case Cure::RemoveAtNextSave:
        return {"&Remove at the next save", "Has this row deleted from the database by the next Save."};
    }
    Q_UNREACHABLE();
}

} // namespace

CheckWindow::CheckWindow(EditorState &state) : ui::Window("check", "Check", 9000, 4800), m_state(state)
{
    m_list.setAccessibleName("Findings");
    setFocusOrder({&m_list, &m_all, &m_cure, &m_again, &m_close});
    m_close.setCancel();
    m_all.setToolTip("Checks every configuration, not only the one that the editor shows.");
    m_again.setToolTip("Asks the database once more and checks everything anew.");
    m_close.setToolTip("Closes this window.");
    onLoad = [this] {
        askDatabase();
        addRows();
    };
    onResize = [this] { layOut(); };
    m_all.onClick = [this] { addRows(); };
    m_list.onSelect = [this] { followSelection(); };
    m_list.onActivate = [this](int item) { showRecordOf(item); };
    m_cure.onClick = [this] { cure(); };
    m_again.onClick = [this] {
        askDatabase();
        addRows();
    };
    m_close.onClick = [this] { unload(); };
}

void CheckWindow::layOut()
{
    if (isMinimised())
        return;
    enforceMinimumSize(minimumWidth, minimumHeight);
    const float top = innerHeight() - (m_close.height() + margin);
    m_close.move(innerWidth() - (m_close.width() + margin), top);
    m_cure.move({margin, top, 2300, m_close.height()});
    m_again.move(m_cure.left() + m_cure.width(), top);
    m_list.move({margin, 525, innerWidth() - 2 * margin, top - margin - 525});
}

/// Asks for what only the database knows. A failure is told, and what memory knows is listed none the less.
void CheckWindow::askDatabase()
{
    const ui::Hourglass hourglass;
    m_rows.clear();
    m_dataFieldNames.clear();
    const auto ask = [&] {
        RunWindow window;
        Run run(m_state.session.configurationDatabase, window);
        m_tellsLetterCaseApart = tellsLetterCaseApart(run);
        m_rows = findRows(run, m_state.model);
        m_dataFieldNames = loadAllDataFieldNames(run);
        for (const QString &name : m_state.session.configurationNames)
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

void CheckWindow::refill()
{
    if (isLoaded())
        addRows();
}

void CheckWindow::addRows()
{
    const QString shown = trim(m_state.configuration());
    const std::optional<QString> configuration = m_all.isTicked() ? std::nullopt : std::optional(shown);
    m_items.clear();
    for (const Finding &finding : findingsIn(
             m_state.model, {m_state.session.configurationNames, m_dataFieldNames, m_tellsLetterCaseApart},
             configuration))
        m_items.push_back({finding, {}});
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        if (!configuration || m_rows[i].finding.record.key.configuration == *configuration)
            m_items.push_back({m_rows[i].finding, i});
    }
    std::vector<QStringList> texts;
    for (const Item &item : m_items)
        texts.push_back({isolated(item.finding.record.key.configuration), item.finding.text});
    m_result.setCaption(m_items.empty() ? QStringLiteral("Nothing found.")
                                        : counted(qint64(m_items.size()), "finding"));
    m_list.setRows(std::move(texts));
}

/// The button names the cure of the one finding that is selected.
void CheckWindow::followSelection()
{
    const std::vector<int> selected = m_list.selectedRows();
    const Cure cure =
        selected.size() == 1 ? m_items[static_cast<std::size_t>(selected.front())].finding.cure : Cure::None;
    const CureTexts texts = textsOf(cure);
    m_cure.setCaption(texts.caption);
    m_cure.setToolTip(texts.toolTip);
    m_cure.setEnabled(cure != Cure::None);
}

void CheckWindow::cure()
{
    const Item item = m_items[static_cast<std::size_t>(m_list.selectedRows().front())];
    const bool isRow = item.row.has_value();
    {
        const Editing editing(m_state.model, isRow ? QStringLiteral("removal of a row") : QString());
        if (isRow)
            removeAtNextSave(m_state.model, m_rows[*item.row]);
        else
            moveFieldsToLine(m_state.model, item.finding.line);
    }
    if (isRow)
        m_rows.erase(m_rows.begin() + static_cast<std::ptrdiff_t>(*item.row));
    onEdited(isRow ? QStringLiteral("The row will be removed at the next save.")
                   : "The fields of line " + shownName(item.finding.line) + " have its message index now.");
}

void CheckWindow::showRecordOf(int item)
{
    onShow(m_items[static_cast<std::size_t>(item)].finding.record);
}

} // namespace varnow

#include "transfer/ImportWindow.h"

#include "base/names.h"
#include "base/text.h"
#include "exchange/files.h"
#include "model/differences.h"
#include "review/recordText.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/fileDialogs.h"

#include <QFileInfo>

#include <algorithm>

namespace varnow {

namespace {

QString outcomeText(RowOutcome outcome)
{
    switch (outcome) {
    case RowOutcome::Added:
        return "Added";
    case RowOutcome::Changed:
        return "Changed";
    case RowOutcome::Unchanged:
        return "Unchanged";
    case RowOutcome::Refused:
        return "Refused";
    }
    Q_UNREACHABLE();
}

const LineTable &tableOf(const Model &model, const Line &)
{
    return model.lines;
}

const FieldTable &tableOf(const Model &model, const Field &)
{
    return model.fields;
}

/// Why a row is refused, or what it brings.
template <class Record> QStringList detailsOf(const FileRow &row, const Record &record, const Model &model)
{
    switch (row.outcome) {
    case RowOutcome::Added:
        return contents(record);
    case RowOutcome::Changed: {
        const auto &table = tableOf(model, record);
        return differences(table[table.find(record.configuration, record.name, record.nameIndex)], record);
    }
    case RowOutcome::Unchanged:
        return {};
    case RowOutcome::Refused:
        return row.problems;
    }
    Q_UNREACHABLE();
}

} // namespace

ImportWindow::ImportWindow(const Document &document)
    : ui::ListWindow("importing", "Import", {130, 28},
                     {"cancel", "Cancel", "Closes this window and imports nothing."})
    , m_document(document)
{
    m_list.setAccessibleName("Rows to import");
    arrange({.above = {&m_current, &m_result},
             .content = {&m_list},
             .buttons = {&m_import, &m_add, &m_saveRefused}});
    m_current.setToolTip(
        "Takes every row for the configuration that the editor shows, whatever its file says.");
    m_import.setToolTip("Takes the rows that add or change something; refused ones stay out.");
    m_add.setToolTip("Lists the rows of further files, too.");
    m_saveRefused.setToolTip(
        "Writes the refused rows to a CSV file, with the reasons in a column of their own.");
    onFilesDropped = [this](const QStringList &paths) { addFiles(paths); };
    m_current.onClick = [this] { makePlan(); };
    m_import.onClick = [this] { accept(); };
    m_add.onClick = [this] { addFiles(ui::askForFiles("Choose Files to Import", {"CSV files", "csv"})); };
    m_saveRefused.onClick = [this] { saveRefused(); };
}

std::optional<ImportPlan> ImportWindow::ask(const QStringList &paths)
{
    addFiles(paths);
    showModal();
    return m_isAccepted ? std::optional(std::move(m_plan)) : std::nullopt;
}

void ImportWindow::addFiles(const QStringList &paths)
{
    const ui::Hourglass hourglass;
    for (const QString &path : paths)
        addFile(QFileInfo(path));
    makePlan();
}

/// Reads a file. One that was read before takes its old place, for the user may have corrected it.
void ImportWindow::addFile(const QFileInfo &file)
{
    const QString path = file.absoluteFilePath();
    const FileContents contents = readFile(path);
    m_problems.remove(path);
    const qsizetype known = m_paths.indexOf(path);
    if (!contents.problem.isEmpty()) {
        m_problems.insert(path, contents.problem);
        if (known >= 0) {
            m_paths.removeAt(known);
            m_files.erase(m_files.begin() + known);
        }
    } else if (known >= 0) {
        m_files[static_cast<std::size_t>(known)].contents = contents.bytes;
    } else {
        m_paths += path;
        m_files.push_back({withoutIsolation(isolated(file.fileName())), contents.bytes});
    }
}

void ImportWindow::makePlan()
{
    const ui::Hourglass hourglass;
    m_plan = planImport(m_files, m_document.model(), m_document.configuration(),
                        m_current.isTicked() ? ImportTarget::Current : ImportTarget::AsNamed);
    QStringList counts;
    for (const RowOutcome outcome :
         {RowOutcome::Added, RowOutcome::Changed, RowOutcome::Unchanged, RowOutcome::Refused})
        counts += QString::number(m_plan.count(outcome)) + ' ' + outcomeText(outcome).toLower();
    m_result.setCaption(counts.join(QStringLiteral(", ")));
    m_import.setEnabled(m_plan.count(RowOutcome::Added) + m_plan.count(RowOutcome::Changed) > 0);
    m_saveRefused.setEnabled(m_plan.count(RowOutcome::Refused) > 0);
    listRows();
}

/// What needs the user's attention comes first.
void ImportWindow::listRows()
{
    std::vector<QStringList> texts;
    for (const QString &problem : QStringList(m_problems.values()) + m_plan.problems)
        texts.push_back({"Not read", "", "", "", problem});
    for (const QString &note : m_plan.notes)
        texts.push_back({"Note", "", "", "", note});
    const auto add = [&](const FileRow &row) {
        std::visit(
            [&](const auto &record) {
                const QString number = QString::number(row.number);
                texts.push_back({outcomeText(row.outcome),
                                 m_files.size() == 1 ? number : m_files[row.file].name + ' ' + number,
                                 isolated(record.configuration), recordText(record),
                                 detailsOf(row, record, m_document.model()).join(", ")});
            },
            row.record);
    };
    for (const bool isRefused : {true, false}) {
        for (const FileRow &row : m_plan.rows) {
            if ((row.outcome == RowOutcome::Refused) == isRefused)
                add(row);
        }
    }
    m_list.setRows(std::move(texts));
}

void ImportWindow::saveRefused()
{
    const std::optional<ui::NewFile> file =
        ui::askForNewFile("Save Refused Rows", "refused rows", {{"CSV files", "csv"}});
    if (!file)
        return;
    const QString problem = writeFile(file->path, refusedRows(m_plan));
    if (!problem.isEmpty())
        ui::show({problem, "Import", ui::Icon::Critical});
}

void ImportWindow::accept()
{
    m_isAccepted = true;
    unload();
}

} // namespace varnow

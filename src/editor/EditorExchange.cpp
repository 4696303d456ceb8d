// The part of the editor that takes records from files and writes them to files.

#include "editor/EditorWindow.h"

#include "base/names.h"
#include "base/text.h"
#include "exchange/description.h"
#include "exchange/exportCsv.h"
#include "exchange/files.h"
#include "exchange/workbook.h"
#include "review/LayoutWindow.h"
#include "transfer/ImportWindow.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/fileDialogs.h"
#include "ui/pdf.h"

#include <QDir>

#include <algorithm>

namespace varnow {

namespace {

enum class ExportFormat { Csv, Workbook, WebPage, Pdf };

const std::vector<ui::FileKind> &exportedKinds() // in the order of the formats
{
    static const std::vector<ui::FileKind> kinds{
        {"CSV file", "csv"}, {"Excel workbook", "xlsx"}, {"Web page", "html"}, {"PDF document", "pdf"}};
    return kinds;
}

/// The picture of a line's fixed-length fields.
Picture pictureOf(const std::vector<Field> &fields, int width)
{
    std::vector<const Field *> fieldsOfLine;
    fieldsOfLine.reserve(fields.size());
    for (const Field &field : fields)
        fieldsOfLine.push_back(&field);
    std::vector<ui::Bar> bars;
    for (const LayoutBar &bar : layoutOf(fieldsOfLine).bars)
        bars.push_back(barOf(bar));
    return bars.empty() ? Picture() : Picture{ui::pngOf(bars, width), width};
}

QByteArray describe(const Model &model, const QString &configuration, int pictureWidth)
{
    const auto draw = [pictureWidth](const Line &, const std::vector<Field> &fields) {
        return pictureOf(fields, pictureWidth);
    };
    return descriptionHtml(model, configuration, QDate::currentDate(), draw).toUtf8();
}

/// A file that shows a configuration; `problem` is why there is none.
FileContents contentsOf(ExportFormat format, const Model &model, const QString &configuration)
{
    constexpr int webWidth = 1000;
    constexpr int paperWidth = 640; // an A4 page between margins of two centimetres, at 96 pixels to the inch
    switch (format) {
    case ExportFormat::Csv:
        return {exportCsv(model, configuration), {}};
    case ExportFormat::Workbook: {
        const Workbook workbook = exportWorkbook(model, configuration);
        return {workbook.contents, workbook.problem};
    }
    case ExportFormat::WebPage:
        return {describe(model, configuration, webWidth), {}};
    case ExportFormat::Pdf:
        return {ui::pdfOf(QString::fromUtf8(describe(model, configuration, paperWidth)), configuration), {}};
    }
    Q_UNREACHABLE();
}

QString configurationOf(const FileRow &row)
{
    return std::visit([](const auto &record) { return record.configuration; }, row.record);
}

/// The configuration to show after an import: the one shown, unless all went into others.
QString configurationAfter(const ImportPlan &plan, const QString &shown)
{
    QString first;
    for (const FileRow &row : plan.rows) {
        if (row.outcome != RowOutcome::Added && row.outcome != RowOutcome::Changed)
            continue;
        if (configurationOf(row) == shown)
            return shown;
        if (first.isEmpty())
            first = configurationOf(row);
    }
    return first;
}

} // namespace

/// Shows what the files bring, and takes it where the user wants it.
void EditorWindow::import(const QStringList &paths)
{
    if (paths.isEmpty())
        return;
    tellProblems();
    const std::optional<ImportPlan> plan = ImportWindow(m_state).ask(paths);
    if (!plan)
        return;
    const ui::Hourglass hourglass;
    apply(*plan, m_state.model);
    m_state.changesMade = true;
    historyChanged();
    const QString shown = configurationAfter(*plan, trim(m_state.configuration()));
    const TypedEntries typed = replacing([&] { showConfigurationSilently(shown); });
    const int refused = plan->count(RowOutcome::Refused);
    tellDone(typed, QStringLiteral("Imported: %1 added, %2 changed; not saved yet.")
                            .arg(plan->count(RowOutcome::Added))
                            .arg(plan->count(RowOutcome::Changed)) +
                        (refused == 0 ? QString()
                                      : ' ' + counted(refused, "row") + (refused == 1 ? " was" : " were") +
                                            " refused."));
}

/// Writes what is in memory of the shown configuration, saved or not.
void EditorWindow::exportAs()
{
    tellProblems();
    if (!hasConfiguration())
        return;
    const QString configuration = trim(m_state.configuration());
    const std::optional<ui::NewFile> file = ui::askForNewFile("Export", configuration, exportedKinds());
    if (!file)
        return;
    const ui::Hourglass hourglass;
    const FileContents contents =
        contentsOf(static_cast<ExportFormat>(file->kind), m_state.model, configuration);
    const QString problem =
        contents.problem.isEmpty() ? writeFile(file->path, contents.bytes) : contents.problem;
    if (!problem.isEmpty())
        ui::show({problem, "Export", ui::Icon::Critical});
    else
        tell({"Exported " + isolated(configuration) + " to " +
              isolated(QDir::toNativeSeparators(file->path)) + '.'});
}

} // namespace varnow

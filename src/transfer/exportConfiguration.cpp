#include "transfer/exportConfiguration.h"

#include "base/names.h"
#include "exchange/description.h"
#include "exchange/exportCsv.h"
#include "exchange/files.h"
#include "exchange/workbook.h"
#include "review/LayoutWindow.h"
#include "ui/Application.h"
#include "ui/MessageBox.h"
#include "ui/fileDialogs.h"
#include "ui/pdf.h"

#include <QDir>

#include <functional>
#include <vector>

namespace varnow {

namespace {

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

/// A kind of file that shows a configuration, and how it is made; `problem` of what is made tells why it was
/// not.
struct ExportFormat
{
    ui::FileKind kind;
    std::function<FileContents(const Model &model, const QString &configuration)> make;
};

const std::vector<ExportFormat> &exportFormats()
{
    constexpr int webWidth = 1000;
    constexpr int paperWidth = 640; // an A4 page between margins of two centimetres, at 96 pixels to the inch
    static const std::vector<ExportFormat> formats{
        {{"CSV file", "csv"},
         [](const Model &model, const QString &configuration) {
             return FileContents{exportCsv(model, configuration), {}};
         }},
        {{"Excel workbook", "xlsx"},
         [](const Model &model, const QString &configuration) {
             const Workbook workbook = exportWorkbook(model, configuration);
             return FileContents{workbook.contents, workbook.problem};
         }},
        {{"Web page", "html"},
         [](const Model &model, const QString &configuration) {
             return FileContents{describe(model, configuration, webWidth), {}};
         }},
        {{"PDF document", "pdf"},
         [](const Model &model, const QString &configuration) {
             const QString html = QString::fromUtf8(describe(model, configuration, paperWidth));
             return FileContents{ui::pdfOf(html, configuration), {}};
         }},
    };
    return formats;
}

} // namespace

std::optional<QString> exportConfiguration(const Model &model, const QString &configuration)
{
    const std::vector<ExportFormat> &formats = exportFormats();
    std::vector<ui::FileKind> kinds;
    kinds.reserve(formats.size());
    for (const ExportFormat &format : formats)
        kinds.push_back(format.kind);
    const std::optional<ui::NewFile> file = ui::askForNewFile("Export", configuration, kinds);
    if (!file)
        return {};
    const ui::Hourglass hourglass;
    const FileContents contents = formats[static_cast<std::size_t>(file->kind)].make(model, configuration);
    const QString problem =
        contents.problem.isEmpty() ? writeFile(file->path, contents.bytes) : contents.problem;
    if (problem.isEmpty())
        return "Exported " + isolated(configuration) + " to " +
               isolated(QDir::toNativeSeparators(file->path)) + '.';
    ui::show({problem, "Export", ui::Icon::Critical});
    return {};
}

} // namespace varnow

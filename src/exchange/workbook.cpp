#include "exchange/workbook.h"

#include "exchange/columns.h"

#include <QFile>
#include <QLibrary>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <algorithm>

namespace varnow {

namespace {

constexpr double widestColumn = 60; // in characters

/// The functions of the library that writes workbooks. It is loaded with the first workbook: with the
/// libraries that it brings along it would add 2 MB to every start.
class Library
{
    /// A function of the library, whatever its type.
    struct Function
    {
        QFunctionPointer address;

        template <class Type> operator Type *() const { return reinterpret_cast<Type *>(address); }
    };

    Function function(const char *name)
    {
        const QFunctionPointer address = m_library.resolve(name);
        m_isWhole = m_isWhole && address != nullptr;
        return {address};
    }

    QLibrary m_library{QStringLiteral("xlsxwriter"), QStringLiteral(LXW_SOVERSION)};
    bool m_isWhole = true;

public:
    /// Whether every function is there.
    bool isWhole() const { return m_isWhole; }
    /// Why one is not.
    QString problem() const { return m_library.errorString(); }

    decltype(&lxw_strerror) textOf = function("lxw_strerror");
    decltype(&workbook_new_opt) newWorkbook = function("workbook_new_opt");
    decltype(&workbook_add_format) addFormat = function("workbook_add_format");
    decltype(&workbook_add_worksheet) addSheet = function("workbook_add_worksheet");
    decltype(&workbook_close) close = function("workbook_close");
    decltype(&format_set_bold) setBold = function("format_set_bold");
    decltype(&worksheet_freeze_panes) freezePanes = function("worksheet_freeze_panes");
    decltype(&worksheet_set_column) setColumn = function("worksheet_set_column");
    decltype(&worksheet_write_string) writeString = function("worksheet_write_string");
    decltype(&worksheet_write_number) writeNumber = function("worksheet_write_number");
};

/// The first thing that went wrong.
class Outcome
{
public:
    explicit Outcome(const Library &library) : m_library(library) {}

    void note(lxw_error error)
    {
        if (m_first == LXW_NO_ERROR)
            m_first = error;
    }

    QString problem() const
    {
        if (m_first == LXW_NO_ERROR)
            return {};
        return "The workbook could not be made: " + QString::fromUtf8(m_library.textOf(m_first));
    }

private:
    const Library &m_library;
    lxw_error m_first = LXW_NO_ERROR;
};

/// Writes a sheet cell by cell: numbers as numbers, texts as texts even where they look like something else.
class Sheet
{
public:
    Sheet(const Library &library, lxw_workbook *workbook, const char *name, Outcome &outcome)
        : m_library(library), m_sheet(library.addSheet(workbook, name)), m_outcome(outcome)
    {
        library.freezePanes(m_sheet, 1, 0);
    }

    void write(lxw_row_t row, lxw_col_t column, const QString &text, lxw_format *format = nullptr)
    {
        m_outcome.note(m_library.writeString(m_sheet, row, column, text.toUtf8().constData(), format));
    }

    void write(lxw_row_t row, lxw_col_t column, int number)
    {
        m_outcome.note(m_library.writeNumber(m_sheet, row, column, number, nullptr));
    }

    void write(lxw_row_t row, lxw_col_t column, const QDateTime &time) { write(row, column, toText(time)); }

    void setWidth(lxw_col_t column, qsizetype characters)
    {
        const double width = std::min(static_cast<double>(characters) + 2, widestColumn);
        m_outcome.note(m_library.setColumn(m_sheet, column, column, width, nullptr));
    }

private:
    const Library &m_library;
    lxw_worksheet *m_sheet;
    Outcome &m_outcome;
};

template <class Record>
void fill(Sheet &sheet, const auto &table, const QString &configuration, lxw_format *headerFormat)
{
    lxw_col_t number = 0;
    for (const Column<Record> &column : exchangedColumns<Record>()) {
        const QString name = QLatin1String(column.name);
        sheet.write(0, number, name, headerFormat);
        qsizetype widest = name.size();
        lxw_row_t row = 0;
        for (const Record &record : table.ofConfiguration(configuration)) {
            ++row;
            visit(column, record, [&](const auto &value) { sheet.write(row, number, value); });
            widest = std::max(widest, textIn(column, record).size());
        }
        sheet.setWidth(number++, widest);
    }
}

} // namespace

Workbook exportWorkbook(const Model &model, const QString &configuration)
{
    const Library library;
    if (!library.isWhole())
        return {{}, "The workbook could not be made: " + library.problem()};
    const QTemporaryDir folder; // the library writes files only
    const QString path = folder.filePath("workbook.xlsx");
    QByteArray folderName = QFile::encodeName(folder.path());
    lxw_workbook_options options{};
    options.tmpdir = folderName.data();
    lxw_workbook *workbook =
        folder.isValid() ? library.newWorkbook(QFile::encodeName(path).constData(), &options) : nullptr;
    if (workbook == nullptr)
        return {{}, "The workbook could not be made: there is no folder for temporary files."};
    lxw_format *headerFormat = library.addFormat(workbook);
    library.setBold(headerFormat);
    Outcome outcome(library);
    Sheet lines(library, workbook, "Lines", outcome);
    fill<Line>(lines, model.lines, configuration, headerFormat);
    Sheet fields(library, workbook, "Fields", outcome);
    fill<Field>(fields, model.fields, configuration, headerFormat);
    outcome.note(library.close(workbook)); // releases it, too
    QFile file(path);
    if (outcome.problem().isEmpty() && file.open(QIODevice::ReadOnly))
        return {file.readAll(), {}};
    return {{}, outcome.problem().isEmpty() ? file.errorString() + u'.' : outcome.problem()};
}

} // namespace varnow

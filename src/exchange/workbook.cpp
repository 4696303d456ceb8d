#include "exchange/workbook.h"

#include "base/text.h"
#include "exchange/columns.h"

#include <QFile>
#include <QTemporaryDir>

#include <xlsxwriter.h>

#include <algorithm>

namespace varnow {

namespace {

constexpr double widestColumn = 60; // in characters

/// The first thing that went wrong.
class Outcome
{
public:
    void note(lxw_error error)
    {
        if (m_first == LXW_NO_ERROR)
            m_first = error;
    }

    QString problem() const
    {
        if (m_first == LXW_NO_ERROR)
            return {};
        return "The workbook could not be made: " + QString::fromUtf8(lxw_strerror(m_first));
    }

private:
    lxw_error m_first = LXW_NO_ERROR;
};

/// Writes a sheet cell by cell: numbers as numbers, texts as texts even where they look like something else.
class Sheet
{
public:
    Sheet(lxw_workbook *workbook, const char *name, Outcome &outcome)
        : m_sheet(workbook_add_worksheet(workbook, name)), m_outcome(outcome)
    {
        worksheet_freeze_panes(m_sheet, 1, 0);
    }

    void write(lxw_row_t row, lxw_col_t column, const QString &text, lxw_format *format = nullptr)
    {
        m_outcome.note(worksheet_write_string(m_sheet, row, column, text.toUtf8().constData(), format));
    }

    void write(lxw_row_t row, lxw_col_t column, int number)
    {
        m_outcome.note(worksheet_write_number(m_sheet, row, column, number, nullptr));
    }

    void setWidth(lxw_col_t column, qsizetype characters)
    {
        const double width = std::min(static_cast<double>(characters) + 2, widestColumn);
        m_outcome.note(worksheet_set_column(m_sheet, column, column, width, nullptr));
    }

private:
    lxw_worksheet *m_sheet;
    Outcome &m_outcome;
};

template <class Record>
void fill(Sheet &sheet, const auto &table, const QString &configuration, lxw_format *headerFormat)
{
    lxw_col_t place = 0;
    for (const Column<Record> &column : exchangedColumns<Record>()) {
        const QString name = QLatin1String(column.name);
        sheet.write(0, place, name, headerFormat);
        qsizetype widest = name.size();
        lxw_row_t row = 0;
        for (const Record &record : table) {
            if (trimmedView(record.configuration) != trimmedView(configuration))
                continue;
            ++row;
            std::visit(
                [&](auto member) {
                    if constexpr (!std::is_same_v<decltype(member), QDateTime Record::*>)
                        sheet.write(row, place, record.*member);
                },
                column.member);
            widest = std::max(widest, textIn(column, record).size());
        }
        sheet.setWidth(place++, widest);
    }
}

} // namespace

Workbook exportWorkbook(const Model &model, const QString &configuration)
{
    const QTemporaryDir folder; // the library writes files only
    const QString path = folder.filePath("workbook.xlsx");
    QByteArray folderName = QFile::encodeName(folder.path());
    lxw_workbook_options options{};
    options.tmpdir = folderName.data();
    lxw_workbook *workbook =
        folder.isValid() ? workbook_new_opt(QFile::encodeName(path).constData(), &options) : nullptr;
    if (workbook == nullptr)
        return {{}, "The workbook could not be made: there is no folder for temporary files."};
    lxw_format *headerFormat = workbook_add_format(workbook);
    format_set_bold(headerFormat);
    Outcome outcome;
    Sheet lines(workbook, "Lines", outcome);
    fill<Line>(lines, model.lines, configuration, headerFormat);
    Sheet fields(workbook, "Fields", outcome);
    fill<Field>(fields, model.fields, configuration, headerFormat);
    outcome.note(workbook_close(workbook)); // releases it, too
    QFile file(path);
    if (outcome.problem().isEmpty() && file.open(QIODevice::ReadOnly))
        return {file.readAll(), {}};
    return {{}, outcome.problem().isEmpty() ? file.errorString() + u'.' : outcome.problem()};
}

} // namespace varnow

#include "exchange/csv.h"

#include <QStringDecoder>

#include <csv.h>

#include <algorithm>
#include <array>
#include <memory>

namespace varnow {

namespace {

constexpr QByteArrayView utf8Mark("\xEF\xBB\xBF");

// More than any configuration has. A file of nothing but line breaks or commas must not eat up the memory.
constexpr std::size_t mostRows = 200'000;
constexpr qsizetype mostCells = 100;

/// Text that is not UTF-8, from Windows-1252. Without that codec its letters beyond Latin-1 are lost.
QByteArray utf8FromWindows1252(QByteArrayView bytes)
{
    QStringDecoder decoder("windows-1252");
    const QString text = decoder.isValid() ? QString(decoder(bytes)) : QString::fromLatin1(bytes);
    return text.toUtf8();
}

/// The delimiter that the first row has most of, quoted ones aside.
char delimiterOf(QByteArrayView bytes)
{
    constexpr std::array delimiters{',', ';', '\t'};
    std::array<int, delimiters.size()> counts{};
    bool isQuoted = false;
    for (const char c : bytes) {
        if (c == '"')
            isQuoted = !isQuoted;
        if (!isQuoted && (c == '\n' || c == '\r'))
            break;
        const auto *const known = std::ranges::find(delimiters, c);
        if (!isQuoted && known != delimiters.end())
            ++counts.at(static_cast<std::size_t>(known - delimiters.begin()));
    }
    const auto *const most = std::ranges::max_element(counts);
    return delimiters.at(static_cast<std::size_t>(most - counts.begin()));
}

/// Collects what the parser finds.
struct Collector
{
    CsvTable table;
    QStringList row;

    void addCell(const char *bytes, std::size_t size)
    {
        const QByteArrayView cell(bytes, static_cast<qsizetype>(size));
        if (row.size() <= mostCells)
            row += QString::fromUtf8(cell);
    }

    void endRow()
    {
        if (row.size() > mostCells && table.problem.isEmpty())
            table.problem =
                QStringLiteral("Row %1 has more than %2 cells.").arg(table.rows.size() + 1).arg(mostCells);
        if (table.rows.size() == mostRows && table.problem.isEmpty())
            table.problem = QStringLiteral("The file has more than %1 rows.").arg(mostRows);
        if (table.problem.isEmpty())
            table.rows.push_back(std::move(row));
        row.clear();
    }
};

/// Runs the parser over the bytes. Whether every quotation mark stands where one may is told in the problem.
void parse(QByteArrayView bytes, Collector &collector)
{
    csv_parser parser{};
    csv_init(&parser, CSV_STRICT | CSV_STRICT_FINI);
    const std::unique_ptr<csv_parser, decltype(&csv_free)> release(&parser, csv_free);
    csv_set_delim(&parser, static_cast<unsigned char>(delimiterOf(bytes)));
    csv_set_space_func(&parser, [](unsigned char) { return 0; }); // blanks belong to the cells
    csv_set_blk_size(&parser, 65536);
    const auto onCell = [](void *cell, std::size_t size, void *data) {
        static_cast<Collector *>(data)->addCell(static_cast<const char *>(cell), size);
    };
    const auto onRow = [](int, void *data) { static_cast<Collector *>(data)->endRow(); };
    constexpr qsizetype blockSize = 65536; // after each it is seen whether there are too many rows
    for (qsizetype start = 0; start < bytes.size() && collector.table.problem.isEmpty(); start += blockSize) {
        const QByteArrayView block = bytes.sliced(start, std::min(blockSize, bytes.size() - start));
        const auto size = static_cast<std::size_t>(block.size());
        if (csv_parse(&parser, block.data(), size, onCell, onRow, &collector) != size)
            collector.table.problem =
                QStringLiteral(
                    "In row %1 a quotation mark stands inside of a cell. Such a cell must stand in "
                    "quotation marks, and those within it must be doubled.")
                    .arg(collector.table.rows.size() + 1);
    }
    if (collector.table.problem.isEmpty() && csv_fini(&parser, onCell, onRow, &collector) != 0)
        collector.table.problem = QStringLiteral("A quotation mark is never closed. It opens in row %1.")
                                      .arg(collector.table.rows.size() + 1);
}

} // namespace

CsvTable readCsv(const QByteArray &contents)
{
    Collector collector;
    CsvTable &table = collector.table;
    QByteArrayView bytes(contents);
    if (bytes.startsWith(utf8Mark))
        bytes = bytes.sliced(utf8Mark.size());
    if (bytes.contains('\0')) {
        table.problem = "The file is no CSV text: it holds binary zeros. Save it as CSV, in UTF-8.";
        return table;
    }
    table.isWindows1252 = !bytes.isValidUtf8();
    const QByteArray converted = table.isWindows1252 ? utf8FromWindows1252(bytes) : QByteArray();
    parse(table.isWindows1252 ? QByteArrayView(converted) : bytes, collector);
    if (table.problem.isEmpty() && table.rows.empty())
        table.problem = "The file is empty.";
    if (!table.problem.isEmpty())
        table.rows.clear();
    return table;
}

QByteArray writeCsv(const std::vector<QStringList> &rows)
{
    QByteArray contents = utf8Mark.toByteArray();
    for (const QStringList &row : rows) {
        bool isFirst = true;
        for (QString cell : row) {
            if (!std::exchange(isFirst, false))
                contents += ',';
            const bool isPlain = std::ranges::none_of(
                cell, [](QChar c) { return c == u'"' || c == u',' || c == u';' || c < u' '; });
            contents += isPlain ? cell.toUtf8() : '"' + cell.replace(u'"', "\"\"").toUtf8() + '"';
        }
        contents += "\r\n";
    }
    return contents;
}

} // namespace varnow

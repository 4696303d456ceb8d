#include "exchange/exportCsv.h"

#include "exchange/columns.h"
#include "exchange/csv.h"

namespace varnow {

namespace {

template <class Record> void addNames(QStringList &header)
{
    for (const Column<Record> &column : exchangedColumns<Record>()) {
        if (const QString name = QLatin1String(column.name); !header.contains(name))
            header += name;
    }
}

template <class Record>
void addRows(const auto &table, const QString &configuration, const QStringList &header,
             std::vector<QStringList> &rows)
{
    const auto &columns = exchangedColumns<Record>();
    QList<qsizetype> cells;
    for (const Column<Record> &column : columns)
        cells.append(header.indexOf(QLatin1String(column.name)));
    for (const Record &record : table.ofConfiguration(configuration)) {
        QStringList row(header.size());
        row.front() = kindOf<Record>;
        auto cell = cells.begin();
        for (const Column<Record> &column : columns)
            row[*cell++] = textIn(column, record);
        rows.push_back(std::move(row));
    }
}

} // namespace

QStringList csvHeader()
{
    QStringList header(kindColumn);
    addNames<Line>(header);
    addNames<Field>(header);
    return header;
}

QByteArray exportCsv(const Model &model, const QString &configuration)
{
    const QStringList header = csvHeader();
    std::vector<QStringList> rows{header};
    addRows<Line>(model.lines, configuration, header, rows);
    addRows<Field>(model.fields, configuration, header, rows);
    return writeCsv(rows);
}

} // namespace varnow

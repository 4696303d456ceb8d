#include "storage/rowIssues.h"

#include "model/ownership.h"
#include "storage/statements.h"

#include <QSet>

#include <algorithm>
#include <tuple>

namespace varnow {

namespace {

/// A row of the database. Only its identifier and its key were read.
template <class Record> struct Row
{
    Record record;
    bool isNullIndexed = false; ///< its name index or its line index is Null
    bool isFoundBySave = true;  ///< a save finds it: no key column is Null or has blanks around its text
};

/// All rows that have the key of one record in memory.
template <class Record> using Rows = std::vector<Row<Record>>;

template <class Record> struct Names;

template <> struct Names<Line>
{
    static constexpr auto kind = RecordKind::Line;
    static constexpr QLatin1String name{"line"};
    static constexpr QLatin1String what{"Looking through the rows of the lines"};
    static const LineTable &tableOf(const Model &model) { return model.lines; }
    static LineTable &tableOf(Model &model) { return model.lines; }
};

template <> struct Names<Field>
{
    static constexpr auto kind = RecordKind::Field;
    static constexpr QLatin1String name{"field"};
    static constexpr QLatin1String what{"Looking through the rows of the fields"};
    static const FieldTable &tableOf(const Model &model) { return model.fields; }
    static FieldTable &tableOf(Model &model) { return model.fields; }
};

bool belongsToRow(ColumnUse use)
{
    return use == ColumnUse::Identifier || use == ColumnUse::Key;
}

template <class Record> QString selectKeys()
{
    QStringList names;
    for (const Column<Record> &column : Record::columns()) {
        if (belongsToRow(column.use))
            names += QLatin1String(column.name);
    }
    return "SELECT " + names.join(QLatin1String(", ")) + " FROM " + SqlTable<Record>::name + " ORDER BY " +
           SqlTable<Record>::order + ';';
}

/// Whether a save finds a row by this cell of a key column.
bool isFoundBy(const QVariant &cell, const QString &text)
{
    return !cell.isNull() && cell.toString() == text;
}

bool isFoundBy(const QVariant &cell, const auto &)
{
    return !cell.isNull();
}

template <class Record> Row<Record> readRow(const db::ResultSet &rows)
{
    Row<Record> row;
    int number = 0;
    for (const Column<Record> &column : Record::columns()) {
        if (!belongsToRow(column.use))
            continue;
        const QVariant &cell = rows.value(number++);
        visit(column, row.record, [&]<class Value>(Value &value) {
            readCell(cell, ColumnReading::NullIsEmpty, value);
            if (column.use != ColumnUse::Key)
                return;
            row.isFoundBySave = row.isFoundBySave && isFoundBy(cell, value);
            row.isNullIndexed = row.isNullIndexed || (std::is_same_v<Value, int> && cell.isNull());
        });
    }
    return row;
}

/// The rows of all records, in the order in which they are loaded. Rows that the next save deletes are left
/// out.
template <class Record> std::vector<Rows<Record>> readRows(Run &run, const QSet<int> &waiting)
{
    std::vector<Rows<Record>> all;
    QHash<RecordKey, std::size_t> known;
    for (db::ResultSet rows = run.load(Names<Record>::what, selectKeys<Record>()); !rows.atEnd();
         rows.moveNext()) {
        Row<Record> row = readRow<Record>(rows);
        if (waiting.contains(row.record.id))
            continue;
        auto index = known.find(keyOf(row.record));
        if (index == known.end()) {
            index = known.insert(keyOf(row.record), all.size());
            all.emplace_back();
        }
        all[*index].push_back(std::move(row));
    }
    return all;
}

/// The row into which a save writes the record; null when no row has its key.
template <class Record> const Row<Record> *rowToKeep(const Rows<Record> &rows, const Record &record)
{
    const auto rank = [&](const Row<Record> &row) {
        return std::tuple(!row.isFoundBySave, row.record.id != record.id, row.record.id);
    };
    const Row<Record> *best = nullptr;
    for (const Row<Record> &row : rows) {
        if (sameKey(row.record, record) && (best == nullptr || rank(row) < rank(*best)))
            best = &row;
    }
    return best;
}

QString standsElsewhere(const Line &, const Line &)
{
    return {};
}

QString standsElsewhere(const Field &row, const Field &field)
{
    if (belongsTo(row, lineKeyOf(field)))
        return {};
    return QStringLiteral(
               "keeps field %1 under line %2, while it stands under line %3 here. A save leaves it behind.")
        .arg(shownName(row), shownName(row.line, row.lineIndex), shownName(field.line, field.lineIndex));
}

template <class Record> RowIssue issueOf(const Row<Record> &row, const QString &text, Fix fix, int keptId = 0)
{
    const RecordReference record{Names<Record>::kind, keyOf(row.record)};
    return {{QStringLiteral("Row %1 ").arg(row.record.id) + text, record, fix}, row.record, keptId};
}

/// Adds what is wrong with the rows of one record in memory.
template <class Record>
void checkRows(const Rows<Record> &rows, const Record &record, std::vector<RowIssue> &issues)
{
    const Row<Record> *kept = rowToKeep(rows, record);
    const QString name = Names<Record>::name + ' ' + shownName(record);
    for (const Row<Record> &row : rows) {
        if (&row == kept) {
            if (row.isNullIndexed)
                issues.push_back(issueOf(
                    row,
                    "of " + name +
                        " has no name index or line index. A save does not find it and writes another row.",
                    Fix::None));
            continue;
        }
        QString text = standsElsewhere(row.record, record);
        if (text.isEmpty() && kept != nullptr)
            text = QStringLiteral("has the key of %1 as row %2 has. A save writes only one of them.")
                       .arg(name, QString::number(kept->record.id));
        issues.push_back(issueOf(row, text, Fix::RemoveAtNextSave, kept == nullptr ? 0 : kept->record.id));
    }
}

template <class Record> void addIssues(Run &run, const Model &model, std::vector<RowIssue> &issues)
{
    const auto &table = Names<Record>::tableOf(model);
    QSet<int> waiting;
    for (const Record &record : table.removed())
        waiting.insert(record.id);
    for (const Rows<Record> &rows : readRows<Record>(run, waiting)) {
        const RecordKey key = keyOf(rows.front().record);
        const int index = table.find(key.configuration, key.name, key.nameIndex);
        if (index >= 0)
            checkRows(rows, table[index], issues);
    }
}

/// Whether the database distinguishes upper and lower case in the names of a table. The query compares 'a'
/// with 'A' by the collation of the column Name, which the empty SELECT contributes.
bool tellsLetterCaseApart(Run &run, QLatin1String table)
{
    const db::ResultSet rows = run.query(
        QStringLiteral("SELECT COUNT(*) FROM (SELECT Name FROM %1 WHERE 1 = 0 UNION ALL SELECT 'a') "
                       "AS probe WHERE Name = 'A';")
            .arg(table));
    return toLong(rows.value(0)) == 0;
}

} // namespace

std::vector<RowIssue> findRowIssues(Run &run, const Model &model)
{
    std::vector<RowIssue> issues;
    addIssues<Line>(run, model, issues);
    addIssues<Field>(run, model, issues);
    return issues;
}

void removeAtNextSave(Model &model, const RowIssue &found)
{
    const auto remove = [&]<class Record>(const Record &row) {
        auto &table = Names<Record>::tableOf(model);
        if (!table.releaseRow(row, found.keptId))
            table.removeRow(row);
    };
    std::visit(remove, found.row);
}

bool tellsLetterCaseApart(Run &run)
{
    return tellsLetterCaseApart(run, SqlTable<Line>::name) &&
           tellsLetterCaseApart(run, SqlTable<Field>::name);
}

} // namespace varnow

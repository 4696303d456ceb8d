#include "exchange/ImportPlan.h"

#include "base/text.h"
#include "exchange/FileRowReader.h"
#include "exchange/csv.h"
#include "exchange/exportCsv.h"
#include "model/RecordReference.h"
#include "model/ownership.h"

#include <QSet>

#include <algorithm>
#include <type_traits>

namespace varnow {

namespace {

constexpr QLatin1String reasonColumn("Reason");

/// Makes the plan: all rows are read first, so that fields find the lines that come with them.
class Planner
{
public:
    Planner(const Model &model, const QString &configuration, ImportTarget target)
        : m_model(model), m_configuration(trim(configuration)), m_target(target)
    {
    }

    ImportPlan plan(const std::vector<ImportFile> &files)
    {
        for (const ImportFile &file : files) {
            m_names += file.name;
            readFile(file);
        }
        for (FileRow &row : m_plan.rows) {
            if (auto *line = std::get_if<Line>(&row.record))
                judge(row, *line, m_model.lines, m_lineRows);
        }
        for (FileRow &row : m_plan.rows) {
            if (auto *field = std::get_if<Field>(&row.record)) {
                if (!m_readers[row.file].hasMessageIndex(row.cells))
                    field->messageIndex = messageIndexFor(*field);
                judge(row, *field, m_model.fields, m_fieldRows);
            }
        }
        noteHiddenLines();
        noteMovedFields();
        return std::move(m_plan);
    }

private:
    /// Fields that follow their line, and fields that leave it.
    void noteMovedFields()
    {
        const auto followsLine = [&](const Field &field) {
            const auto line = m_lineRows.constFind(lineKeyOf(field));
            return line != m_lineRows.cend() && (*line)->outcome == RowOutcome::Changed &&
                   std::get<Line>((*line)->record).messageIndex != field.messageIndex &&
                   !m_fieldRows.contains(keyOf(field));
        };
        const auto leavesRow = [&](const FileRow &row) {
            const auto *field = std::get_if<Field>(&row.record);
            if (field == nullptr || row.outcome != RowOutcome::Changed)
                return false;
            const int index = m_model.fields.find(field->configuration, field->name, field->nameIndex);
            return m_model.fields[index].id > 0 && !sameKey(m_model.fields[index], *field);
        };
        const auto following = std::ranges::count_if(m_model.fields, followsLine);
        const auto leaving = std::ranges::count_if(m_plan.rows, leavesRow);
        if (following > 0)
            m_plan.notes += counted(following, "field") +
                            " not in the files will get the new message index of the line it belongs to.";
        if (leaving > 0)
            m_plan.notes += counted(leaving, "field") +
                            " will move to another line. The row under the old line stays in the database, "
                            "where Check finds it after the next save.";
    }

    /// The tree shows one line for each message index.
    void noteHiddenLines()
    {
        QHash<std::pair<QString, int>, RecordKey> lineAt;
        for (const Line &line : m_model.lines) {
            if (!m_lineRows.contains(keyOf(line)))
                lineAt.insert({line.configuration, line.messageIndex}, keyOf(line));
        }
        QStringList hidden;
        for (const FileRow &row : m_plan.rows) {
            const auto *line = std::get_if<Line>(&row.record);
            if (line == nullptr || row.outcome == RowOutcome::Refused)
                continue;
            const std::pair node(line->configuration, line->messageIndex);
            const auto other = lineAt.constFind(node);
            if (other == lineAt.cend())
                lineAt.insert(node, keyOf(*line));
            else
                hidden += QStringLiteral("%1 and %2")
                              .arg(shownName(other->name, other->nameIndex), shownName(*line));
        }
        if (!hidden.isEmpty())
            m_plan.notes += "Lines would share a message index, by which the tree shows one of them: " +
                            hidden.join(QLatin1String(", ")) + u'.';
    }

    void readFile(const ImportFile &file)
    {
        CsvTable table = readCsv(file.contents);
        const QStringList header = table.rows.empty() ? QStringList() : table.rows.front();
        m_plan.headers.push_back(header);
        m_readers.emplace_back(header);
        const QString problem = table.problem.isEmpty() ? problemOf(header, table) : table.problem;
        if (!problem.isEmpty()) {
            m_plan.problems += file.name + ": " + problem;
            return;
        }
        noteWhatIsIgnored(file.name, header, table.isWindows1252);
        for (std::size_t i = 1; i < table.rows.size(); ++i)
            readRow(static_cast<int>(i) + 1, std::move(table.rows[i]));
    }

    static QString problemOf(const QStringList &header, const CsvTable &table)
    {
        const QStringList known = csvHeader();
        QStringList seen;
        for (const QString &cell : header) {
            const QString name = trim(cell);
            if (!known.contains(name, Qt::CaseInsensitive))
                continue;
            if (seen.contains(name, Qt::CaseInsensitive))
                return QStringLiteral("The column %1 stands in its first row twice.").arg(name);
            seen += name;
        }
        if (!seen.contains("Name", Qt::CaseInsensitive))
            return "Its first row does not name the columns. A column Name is needed; the others are " +
                   known.join(QLatin1String(", ")) + u'.';
        return table.rows.size() == 1 ? "There are no rows below its first one." : QString();
    }

    void noteWhatIsIgnored(const QString &file, const QStringList &header, bool isWindows1252)
    {
        QStringList unknown;
        for (const QString &name : header) {
            if (!csvHeader().contains(trim(name), Qt::CaseInsensitive) && trim(name) != reasonColumn &&
                !isBlank(name))
                unknown += trim(name);
        }
        if (!unknown.isEmpty())
            m_plan.notes +=
                file + ": These columns are not known and are ignored: " + unknown.join(QLatin1String(", ")) +
                u'.';
        if (isWindows1252)
            m_plan.notes += file + ": The file is not UTF-8 and was read as Windows-1252.";
    }

    void readRow(int number, QStringList cells)
    {
        if (std::ranges::all_of(cells, [](const QString &cell) { return isBlank(cell); }))
            return;
        FileRow row{m_plan.headers.size() - 1, number, std::move(cells), Line(), RowOutcome::Added, {}};
        const FileRowReader &reader = m_readers.back();
        const QString kind = trim(reader.cell(row.cells, kindColumn.data()));
        const bool isField =
            kind.isEmpty() ? reader.hasColumn("Line") : kind.compare(kindOf<Field>, Qt::CaseInsensitive) == 0;
        if (isField)
            take(row, reader.readField(row.cells));
        else
            take(row, reader.readLine(row.cells));
        if (!kind.isEmpty() && !isField && kind.compare(kindOf<Line>, Qt::CaseInsensitive) != 0)
            row.problems = {QStringLiteral("The column Record must say Line or Field.")};
        const qsizetype columns = m_plan.headers.back().size();
        if (row.cells.size() > columns)
            row.problems.prepend(QStringLiteral("The row has %1 cells, but there are %2 columns.")
                                     .arg(row.cells.size())
                                     .arg(columns));
        m_plan.rows.push_back(std::move(row));
    }

    template <class Record> void take(FileRow &row, Parsed<Record> parsed)
    {
        row.problems = std::move(parsed.problems);
        Record &record = parsed.record;
        record.id = -1;
        if (m_target == ImportTarget::Current || record.configuration.isEmpty())
            record.configuration = m_configuration;
        if (record.configuration.isEmpty())
            row.problems += "There is no configuration for it.";
        row.record = std::move(record);
    }

    /// Decides what becomes of a row, whose record is complete.
    template <class Record, class Table>
    void judge(FileRow &row, Record &record, const Table &table, QHash<RecordKey, const FileRow *> &known)
    {
        row.outcome = RowOutcome::Refused;
        if (!row.problems.isEmpty())
            return;
        const auto earlier = known.constFind(keyOf(record));
        if (earlier != known.cend()) {
            row.problems += QStringLiteral("The same %1 stands in row %2 of %3 already.")
                                .arg(kindOf<Record>.toString().toLower())
                                .arg((*earlier)->number)
                                .arg(m_names[static_cast<qsizetype>((*earlier)->file)]);
            return;
        }
        known.insert(keyOf(record), &row);
        const int index = table.find(record.configuration, record.name, record.nameIndex);
        if (index < 0) {
            row.outcome = RowOutcome::Added;
            return;
        }
        if constexpr (std::is_same_v<Record, Field>) {
            if (!m_readers[row.file].hasColumn("DataType")) // no page shows it, so nobody misses it
                record.dataType = table[index].dataType;
        }
        row.outcome = sameContent(table[index], record) ? RowOutcome::Unchanged : RowOutcome::Changed;
    }

    /// The message index of a field's line, which may come with the same import; 0 without such a line.
    int messageIndexFor(const Field &field) const
    {
        const auto imported = m_lineRows.constFind(lineKeyOf(field));
        if (imported != m_lineRows.cend())
            return std::get<Line>((*imported)->record).messageIndex;
        const Line *line = m_model.lines.lookUp(field.configuration, field.line, field.lineIndex);
        return line == nullptr ? 0 : line->messageIndex;
    }

    const Model &m_model;
    const QString m_configuration;
    const ImportTarget m_target;
    ImportPlan m_plan;
    QStringList m_names;
    std::vector<FileRowReader> m_readers;         // one a file
    QHash<RecordKey, const FileRow *> m_lineRows; // the good ones
    QHash<RecordKey, const FileRow *> m_fieldRows;
};

} // namespace

int ImportPlan::count(RowOutcome outcome) const
{
    return static_cast<int>(std::ranges::count(rows, outcome, &FileRow::outcome));
}

ImportPlan planImport(const std::vector<ImportFile> &files, const Model &model,
                      const QString &currentConfiguration, ImportTarget target)
{
    return Planner(model, currentConfiguration, target).plan(files);
}

void apply(const ImportPlan &plan, Model &model)
{
    std::vector<Field> fields;
    QSet<RecordKey> unchanged;
    QSet<RecordKey> renumbered; // lines
    for (const FileRow &row : plan.rows) {
        const bool isTaken = row.outcome == RowOutcome::Added || row.outcome == RowOutcome::Changed;
        const auto *field = std::get_if<Field>(&row.record);
        if (field != nullptr && isTaken)
            fields.push_back(*field);
        else if (field != nullptr && row.outcome == RowOutcome::Unchanged)
            unchanged.insert(keyOf(*field));
        else if (isTaken) {
            const Line &line = std::get<Line>(row.record);
            if (row.outcome == RowOutcome::Changed)
                renumbered.insert(keyOf(line));
            model.lines.store(line);
        }
    }
    const auto follows = [&](const Field &field) {
        return renumbered.contains(lineKeyOf(field)) && !unchanged.contains(keyOf(field));
    };
    model.fields.copyMessageIndexes(model.lines, {.hasConfiguration = {}, .hasField = follows});
    model.fields.storeAll(std::move(fields));
}

QByteArray refusedRows(const ImportPlan &plan)
{
    const std::vector<FileRowReader> readers(plan.headers.begin(), plan.headers.end());
    // A column that no file has stays out: a blank cell says more than none.
    QStringList header;
    for (const QString &name : csvHeader()) {
        const auto hasColumn = [&](const FileRowReader &reader) {
            return reader.hasColumn(name.toLatin1().constData());
        };
        if (name == kindColumn || std::ranges::any_of(readers, hasColumn))
            header += name;
    }
    std::vector<QStringList> rows{header + QStringList(reasonColumn)};
    for (const FileRow &row : plan.rows) {
        if (row.outcome != RowOutcome::Refused)
            continue;
        QStringList cells;
        for (const QString &name : header)
            cells += readers[row.file].cell(row.cells, name.toLatin1().constData());
        if (isBlank(cells.front()))
            cells.front() = std::holds_alternative<Line>(row.record) ? kindOf<Line> : kindOf<Field>;
        rows.push_back(cells + QStringList(row.problems.join(u' ')));
    }
    return writeCsv(rows);
}

} // namespace varnow

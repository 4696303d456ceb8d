#include "storage/save.h"

#include "base/guarded.h"
#include "base/text.h"
#include "storage/Run.h"
#include "storage/statements.h"

#include <QSet>

namespace varnow {

namespace {

/// What a run tells the user. The failure is the message for an error outside its statements, %1 the number
/// and %2 the description.
struct RunTexts
{
    QString what;
    QString title;
    QString failure = {};
};

template <class Record> struct SaveTexts;

template <> struct SaveTexts<Line>
{
    static inline const RunTexts deletion{
        QStringLiteral("Deleting the removed lines"),
        QStringLiteral("DeleteRemovedLabLineConfigFromDatabase Complete"),
        QStringLiteral("An unexpected error number %1\r\n%2\r\noccurred while deleting the removed\r\n"
                       "Labeled Line configuration records.")};
    static inline const RunTexts save{
        QStringLiteral("Saving the lines"), QStringLiteral("SaveAllLabLineCfg complete"),
        QStringLiteral("An unexpected error number %1\r\n%2\r\noccurred while saving the Labeled Line\r\n"
                       "configuration records.")};
    static inline const QString adoption = QStringLiteral("Looking up the new lines");
};

template <> struct SaveTexts<Field>
{
    static inline const RunTexts deletion{QStringLiteral("Deleting the removed fields"),
                                          QStringLiteral("DeleteRemovedLabLineFieldsFromDatabase Complete")};
    static inline const RunTexts save{
        QStringLiteral("Saving the fields"), QStringLiteral("SaveAllLabLineFldsCfg Complete."),
        QStringLiteral("An unexpected error occurred while saving \r\n"
                       "the Labeled Line Fields configuration.\r\nError: %1\r\n%2")};
    static inline const QString adoption = QStringLiteral("Looking up the new fields");
};

/// A removed line that never had a row has nothing to delete; a field's identifier is tried as it is.
bool hasRow(const Line &line)
{
    return line.id > -1;
}

bool hasRow(const Field &)
{
    return true;
}

/// Fields that lack a part of their row's key are passed over.
bool isComplete(const Line &)
{
    return true;
}

bool isComplete(const Field &field)
{
    return !field.name.isEmpty() && !field.configuration.isEmpty() && !field.line.isEmpty();
}

/// Identifier of the record's row; 0 when there is none or it is Null.
template <class Record> int findId(Run &run, const Record &record)
{
    const db::ResultSet rows = run.query(selectId(record));
    return rows.rowCount() == 0 || rows.value(0).isNull() ? 0 : toLong(rows.value(0));
}

/// The identifier of the next new row. Raises errors::Overflow when there is no higher one.
template <class Record> int nextId(Run &run)
{
    const db::ResultSet rows = run.query(selectGreatestId<Record>());
    const QVariant &greatest = rows.value(0);
    const int next = greatest.isNull() ? 1 : toLong(toDouble(greatest) + 1);
    if (next < 1)
        throw RuntimeError(errors::Overflow);
    return next;
}

/// Updates the record's row, or inserts one where there is none. The identifier in memory plays no part. A
/// look-up that fails is an error: taken for "no row" it would give the record a second one.
template <class Record> void saveRecord(Run &run, Record record)
{
    if (!isComplete(record))
        return;
    const int id = findId(run, record);
    record.id = id > 0 ? id : nextId<Record>(run);
    run.change(id > 0 ? updateRow(record) : insertRow(record));
}

/// Runs `step`, which raises an error when it fails, over every record, `done` when what it wrote is
/// committed, and shows the summary. Records that come after the user stopped the run count as errors.
/// Returns the number of errors.
template <class Records, class Step, class Done>
int runOver(Run &run, const Records &records, const RunTexts &texts, Step step, Done done)
{
    const auto count = static_cast<int>(records.size());
    int stopped = 0;
    RunSteps steps(run);
    {
        RunPart part(run.observer(), texts.what, count);
        for (const auto &record : records) {
            if (part.step())
                steps.add([&step, &record] { step(record); }, [&done, &record] { done(record); });
            else
                ++stopped;
        }
        steps.finish();
    }
    const int errorCount = steps.errorCount() + stopped;
    run.showMessage(QStringList{texts.title, QStringLiteral("  %1 errors occurred").arg(errorCount),
                                QStringLiteral("  %1 records processed correctly.").arg(count - errorCount)}
                        .join(lineBreak));
    return errorCount;
}

/// Runs a whole run; `body` returns the number of records that failed. An error outside its statements is
/// shown, where the run has a message for it.
template <class Body> SaveResult reporting(Run &run, const RunTexts &texts, Body body)
{
    return guarded(
        [&] {
            return SaveResult{0, body()};
        },
        [&](const RuntimeError &error) {
            run.close(); // a group may have begun
            if (!texts.failure.isEmpty())
                run.showMessage(texts.failure.arg(QString::number(error.number()), error.description()));
            return SaveResult{error.number(), 1};
        });
}

/// Does nothing without removed records, and forgets them when all went well; otherwise all stay for the next
/// run. The row of a record that a reload has brought back stays. A deleted row's identifier is forgotten at
/// once, for another row may get it next.
template <class Record, class Order> SaveResult deleteRemoved(Run &run, EditedTable<Record, Order> &table)
{
    if (table.removed().empty())
        return {};
    const RunTexts &texts = SaveTexts<Record>::deletion;
    return reporting(run, texts, [&] {
        QSet<int> inUse;
        for (const Record &record : table)
            inUse.insert(record.id);
        const auto isInUse = [&](const Record &record) { return record.id > 0 && inUse.contains(record.id); };
        const auto deleteOne = [&](const Record &record) {
            if (hasRow(record) && !isInUse(record))
                run.change(deleteRow<Record>(record.id));
        };
        const auto forget = [&](const Record &record) {
            const auto number = static_cast<std::size_t>(&record - table.removed().data());
            table.markDeleted(number, !isInUse(record));
        };
        const int errorCount = runOver(run, table.removed(), texts, deleteOne, forget);
        if (errorCount == 0)
            table.forgetRemoved();
        return errorCount;
    });
}

template <class Record, class Order> SaveResult save(Run &run, EditedTable<Record, Order> &table)
{
    const RunTexts &texts = SaveTexts<Record>::save;
    return reporting(run, texts, [&] {
        if (!table.isEmpty())
            return runOver(
                run, table, texts, [&run](const Record &record) { saveRecord(run, record); },
                [&table](const Record &record) { table.markSaved(record); });
        run.showMessage(QStringLiteral("No records found to process."));
        return 0;
    });
}

template <class Record, class Order> void adopt(Run &run, EditedTable<Record, Order> &table)
{
    RunPart part(run.observer(), SaveTexts<Record>::adoption, table.size());
    table.giveIds([&](const Record &record) {
        if (!part.step() || record.id > 0)
            return record.id;
        const auto lookUp = [&] { return findId(run, record); };
        const int id = guarded(lookUp, [](const RuntimeError &) { return 0; });
        return id > 0 ? id : record.id;
    });
}

} // namespace

SaveResult saveAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    Run run(database, observer);
    const RunPart whole(observer, QStringLiteral("Saving")); // stopping one run stops those that follow
    SaveResult result;
    const auto add = [&result](const SaveResult &part) { result.errorCount += part.errorCount; };
    add(deleteRemoved(run, model.lines));
    const SaveResult lines = save(run, model.lines);
    add(lines);
    result.code = lines.code;
    if (result.code != 0)
        return result;
    add(deleteRemoved(run, model.fields));
    const SaveResult fields = save(run, model.fields);
    add(fields);
    result.code = fields.code == 0 && whole.isStopped() ? errors::UserInterrupt : fields.code;
    return result;
}

void adoptIds(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    Run run(database, observer);
    adopt(run, model.lines);
    adopt(run, model.fields);
}

} // namespace varnow

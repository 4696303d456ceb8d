#include "storage/save.h"

#include "base/guarded.h"
#include "base/text.h"
#include "storage/statements.h"

#include <QSet>

#include <utility>

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

/// Identifier of the record's row; 0 when there is none, when it is Null, and on failure.
template <class Record> int findId(const db::ConnectionSettings &database, const Record &record)
{
    const auto lookUp = [&] {
        const db::ResultSet rows = db::executeOnce(database, selectId(record));
        return rows.rowCount() == 0 || rows.value(0).isNull() ? 0 : toLong(rows.value(0));
    };
    return guarded(lookUp, [](const RuntimeError &) { return 0; });
}

/// The identifier of the next new row. Raises errors::Overflow when there is no higher one.
template <class Record> int nextId(const db::ConnectionSettings &database)
{
    const db::ResultSet rows = db::executeOnce(database, selectGreatestId<Record>());
    const QVariant &greatest = rows.value(0);
    const int next = greatest.isNull() ? 1 : toLong(toDouble(greatest) + 1);
    if (next < 1)
        throw RuntimeError(errors::Overflow);
    return next;
}

/// Updates the record's row, or inserts one where there is none. The identifier in memory plays no part.
template <class Record> void saveRecord(const db::ConnectionSettings &database, Record record)
{
    if (!isComplete(record))
        return;
    const int id = findId(database, record);
    record.id = id > 0 ? id : nextId<Record>(database);
    db::executeOnce(database, id > 0 ? updateRow(record) : insertRow(record));
}

/// Runs `step`, which raises an error when it fails, over every record and shows the summary. Records that
/// come after the user stopped the run count as errors. Returns the number of errors.
template <class Records, class Step>
int runOver(Records &records, const RunTexts &texts, RunObserver &observer, Step step)
{
    const auto count = static_cast<int>(records.size());
    int errorCount = 0;
    {
        RunPart part(observer, texts.what, count);
        for (auto &record : records) {
            const bool done = part.step() && guarded([&] { return step(record), true; },
                                                     [](const RuntimeError &) { return false; });
            if (!done)
                ++errorCount;
        }
    }
    observer.showMessage(
        QStringList{texts.title, QStringLiteral("  %1 errors occurred").arg(errorCount),
                    QStringLiteral("  %1 records processed correctly.").arg(count - errorCount)}
            .join(lineBreak));
    return errorCount;
}

/// Runs a whole run. An error outside its statements is shown, where the run has a message for it. Returns 0
/// or the error's number.
template <class Run> int reporting(const RunTexts &texts, RunObserver &observer, Run run)
{
    return guarded([&] { return run(), 0; },
                   [&](const RuntimeError &error) {
                       if (!texts.failure.isEmpty())
                           observer.showMessage(
                               texts.failure.arg(QString::number(error.number()), error.description()));
                       return error.number();
                   });
}

/// Does nothing without removed records, and forgets them when all went well; otherwise all stay for the next
/// run. A deleted row's identifier is forgotten at once, by the removed record and by one that a reload has
/// put back into the table, for another row may get it next.
template <class Record, class Order>
int deleteRemoved(const db::ConnectionSettings &database, RecordTable<Record, Order> &table,
                  std::vector<Record> &removed, RunObserver &observer)
{
    if (removed.empty())
        return 0;
    const RunTexts &texts = SaveTexts<Record>::deletion;
    return reporting(texts, observer, [&] {
        QSet<int> deleted;
        const auto deleteOne = [&](Record &record) {
            if (hasRow(record))
                db::executeOnce(database, deleteRow<Record>(record.id));
            deleted.insert(std::exchange(record.id, -1));
        };
        if (runOver(removed, texts, observer, deleteOne) == 0)
            removed.clear();
        table.changeEach([&](Record &record) {
            if (deleted.contains(record.id))
                record.id = -1;
        });
    });
}

template <class Record, class Order>
int save(const db::ConnectionSettings &database, const RecordTable<Record, Order> &table,
         RunObserver &observer)
{
    const RunTexts &texts = SaveTexts<Record>::save;
    return reporting(texts, observer, [&] {
        if (table.isEmpty())
            observer.showMessage(QStringLiteral("No records found to process."));
        else
            runOver(table, texts, observer, [&](const Record &record) { saveRecord(database, record); });
    });
}

template <class Record, class Order>
void adopt(const db::ConnectionSettings &database, RecordTable<Record, Order> &table, RunObserver &observer)
{
    RunPart part(observer, SaveTexts<Record>::adoption, table.size());
    table.changeEach([&](Record &record) {
        if (!part.step() || record.id > 0)
            return;
        if (const int id = findId(database, record); id > 0)
            record.id = id;
    });
}

} // namespace

int saveAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    const RunPart whole(observer, QStringLiteral("Saving")); // stopping one run stops those that follow
    deleteRemoved(database, model.lines, model.lines.removed, observer);
    if (const int code = save(database, model.lines, observer))
        return code;
    deleteRemoved(database, model.fields, model.fields.removed, observer);
    const int code = save(database, model.fields, observer);
    return code == 0 && whole.isStopped() ? errors::UserInterrupt : code;
}

void adoptIds(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    adopt(database, model.lines, observer);
    adopt(database, model.fields, observer);
}

} // namespace varnow

#include "storage/load.h"

#include "base/guarded.h"
#include "base/text.h"
#include "storage/statements.h"

#include <QSet>

namespace varnow {

namespace {

/// What stands in memory but not in the rows has no row.
template <class Table> void noteMissing(Table &table, const QSet<RecordKey> &loaded)
{
    for (const auto &record : table) {
        if (!loaded.contains(keyOf(record)))
            table.markWithoutRow(record);
    }
}

void loadLines(Run &run, LineTable &lines)
{
    db::ResultSet rows = run.load(QStringLiteral("Reading the lines"), selectAllRows<Line>());
    if (rows.rowCount() == 0)
        return noteMissing(lines, {});
    lines.assign({});
    for (const RecordReader<Line> reader(rows); !rows.atEnd(); rows.moveNext())
        lines.appendLoaded(reader.read()); // those read before an error stay
}

void mergeFields(db::ResultSet &rows, FieldTable &fields, RunObserver &observer)
{
    RunPart part(observer, QStringLiteral("Arranging the fields"), rows.rowCount());
    const bool isReload = !fields.isEmpty();
    QSet<RecordKey> loaded;
    for (const RecordReader<Field> reader(rows); !rows.atEnd(); rows.moveNext()) {
        if (!part.step())
            throw RuntimeError(errors::UserInterrupt);
        Field field = reader.read();
        if (isReload)
            loaded.insert(keyOf(field));
        fields.load(std::move(field));
    }
    if (isReload)
        noteMissing(fields, loaded);
}

void loadFields(Run &run, FieldTable &fields)
{
    const auto query = [&run] {
        return run.load(QStringLiteral("Reading the fields"), selectAllRows<Field>());
    };
    const auto report = [&](const RuntimeError &error) {
        if (error.number() == errors::UserInterrupt)
            throw error;
        run.showMessage("There was a problem retrieving the Line Field" + lineBreak +
                        QStringLiteral("configuration records.  Return code: %1").arg(error.number()));
        return db::ResultSet();
    };
    db::ResultSet rows = guarded(query, report);
    if (!rows.isOpen())
        return;
    if (rows.rowCount() > 0)
        return mergeFields(rows, fields, run.observer());
    noteMissing(fields, {});
    run.showMessage(QStringLiteral("No configuration data returned from database."));
}

} // namespace

int loadAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    Run run(database, observer);
    return loadAll(run, model);
}

int loadAll(Run &run, Model &model)
{
    const auto load = [&] {
        loadLines(run, model.lines);
        loadFields(run, model.fields);
        return 0;
    };
    const int code = guarded(load, [](const RuntimeError &error) { return error.number(); });
    run.close();
    return code;
}

} // namespace varnow

#include "storage/load.h"

#include "base/guarded.h"
#include "base/text.h"
#include "storage/Run.h"
#include "storage/statements.h"

namespace varnow {

namespace {

void loadLines(Run &run, LineTable &lines)
{
    db::ResultSet rows = run.load(QStringLiteral("Reading the lines"), selectAllRows<Line>());
    if (rows.rowCount() == 0)
        return;
    lines.clear();
    for (const RecordReader<Line> reader(rows); !rows.atEnd(); rows.moveNext())
        lines.append(reader.read()); // those read before an error stay
}

void mergeFields(db::ResultSet &rows, FieldTable &fields, RunObserver &observer)
{
    RunPart part(observer, QStringLiteral("Arranging the fields"), rows.rowCount());
    for (const RecordReader<Field> reader(rows); !rows.atEnd(); rows.moveNext()) {
        if (!part.step())
            throw RuntimeError(errors::UserInterrupt);
        fields.store(reader.read());
    }
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
    if (rows.rowCount() == 0)
        run.showMessage(QStringLiteral("No configuration data returned from database."));
    else
        mergeFields(rows, fields, run.observer());
}

} // namespace

int loadAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    const auto load = [&] {
        Run run(database, observer);
        loadLines(run, model.lines);
        loadFields(run, model.fields);
        return 0;
    };
    return guarded(load, [](const RuntimeError &error) { return error.number(); });
}

} // namespace varnow

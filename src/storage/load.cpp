#include "storage/load.h"

#include "base/guarded.h"
#include "base/text.h"
#include "storage/statements.h"

namespace varnow {

namespace {

template <class Record>
db::ResultSet queryRows(const db::ConnectionSettings &database, RunObserver &observer, const QString &what)
{
    RunPart part(observer, what);
    return db::executeOnce(database, selectAllRows<Record>(), [&] { return part.step(); });
}

void loadLines(const db::ConnectionSettings &database, LineTable &lines, RunObserver &observer)
{
    db::ResultSet rows = queryRows<Line>(database, observer, QStringLiteral("Reading the lines"));
    if (rows.rowCount() == 0)
        return;
    std::vector<Line> loaded(static_cast<std::size_t>(rows.rowCount()));
    try {
        const RecordReader<Line> reader(rows);
        for (auto line = loaded.begin(); !rows.atEnd(); rows.moveNext(), ++line)
            *line = reader.read();
    } catch (const RuntimeError &) {
        lines.assign(std::move(loaded)); // what was read so far is kept, the rest is blank
        throw;
    }
    lines.assign(std::move(loaded));
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

void loadFields(const db::ConnectionSettings &database, FieldTable &fields, RunObserver &observer)
{
    const auto query = [&] {
        return queryRows<Field>(database, observer, QStringLiteral("Reading the fields"));
    };
    const auto report = [&](const RuntimeError &error) {
        observer.showMessage("There was a problem retrieving the Line Field" + lineBreak +
                             QStringLiteral("configuration records.  Return code: %1").arg(error.number()));
        return db::ResultSet();
    };
    db::ResultSet rows = guarded(query, report);
    if (!rows.isOpen())
        return;
    if (rows.rowCount() == 0)
        observer.showMessage(QStringLiteral("No configuration data returned from database."));
    else
        mergeFields(rows, fields, observer);
}

} // namespace

int loadAll(const db::ConnectionSettings &database, Model &model, RunObserver &observer)
{
    const auto load = [&] {
        loadLines(database, model.lines, observer);
        loadFields(database, model.fields, observer);
        return 0;
    };
    return guarded(load, [](const RuntimeError &error) { return error.number(); });
}

} // namespace varnow

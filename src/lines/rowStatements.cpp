#include "lines/rowStatements.h"

#include "base/RuntimeError.h"
#include "base/numbers.h"
#include "db/ConfigADOUtilities.h"

namespace varnow {

int runStatement(const QString &statement)
{
    return db::CompleteCommand(db::GetConfigConnectString(), statement);
}

int identifierFrom(const QString &query, int none)
{
    db::RecordsetPtr rows;
    db::RetrieveRecordset(db::GetConfigConnectString(), query, rows);
    if (!rows)
        throw RuntimeError(errors::NoObject);
    if (rows->recordCount() == 0)
        return none;
    const QVariant &id = rows->value(0);
    return id.isNull() ? none : toLong(id);
}

void updateOrInsert(int id, const QString &table, int failure, const std::function<int(int)> &update,
                    const std::function<int(int)> &insert)
{
    bool done = false;
    if (id > 0) {
        done = update(id) == 0;
    } else {
        const int next = db::GetNextRecordID(db::GetConfigConnectString(), table, QStringLiteral("id"));
        done = next > 0 && insert(next) == 0;
    }
    if (!done)
        throw RuntimeError(failure);
}

} // namespace varnow

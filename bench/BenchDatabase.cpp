#include "BenchDatabase.h"

#include "storage/load.h"
#include "ui/RunWindow.h"

#include <QFile>

#include <malloc.h>
#include <sqlite3.h>

#include <cstdlib>

namespace varnow::bench {

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        std::abort();
    return file.readAll();
}

/// Statements that fill the tables; every text differs from record to record, as the worst case has it.
QString rows(Size size)
{
    return QStringLiteral(
               "CREATE TEMP TABLE c AS WITH RECURSIVE r(c) AS "
               "(SELECT 1 UNION ALL SELECT c + 1 FROM r WHERE c < %1) SELECT c FROM r;"
               "CREATE TEMP TABLE l AS WITH RECURSIVE r(l) AS "
               "(SELECT 1 UNION ALL SELECT l + 1 FROM r WHERE l < %2) SELECT l FROM r;"
               "CREATE TEMP TABLE f AS WITH RECURSIVE r(f) AS "
               "(SELECT 1 UNION ALL SELECT f + 1 FROM r WHERE f < %3) SELECT f FROM r;"
               "INSERT INTO LabLineConfig SELECT (c - 1) * %2 + l, 'Configuration ' || c, "
               "'Segment ' || l, 0, l, NULL, NULL, 'Observation ' || l, '2024-03-01T00:00:00' FROM c, l;"
               "INSERT INTO LabLineFieldConfig SELECT ((c - 1) * %2 + l - 1) * %3 + f, "
               "'Configuration ' || c, 'Observation Value ' || l || '-' || f, 0, 'Segment ' || l, "
               "0, l, f, 12, 'String', 'observation_value_' || l || '_' || f, 'yyyyMMdd', '', "
               "f * 12, 1, ' ', -1 FROM c, l, f;"
               "INSERT INTO data_extractor_fields_config "
               "SELECT 'Configuration ' || c, 'observation_value_' || l FROM c, l WHERE l <= 200;")
        .arg(size.configurations)
        .arg(size.linesEach)
        .arg(size.fieldsPerLine);
}

} // namespace

BenchDatabase::BenchDatabase(Size size)
{
    sqlite3 *connection = nullptr;
    sqlite3_open(file().toUtf8(), &connection);
    const QByteArray statements =
        "BEGIN;" + contents(QStringLiteral(SQL_FOLDER "/schema.sql")) + rows(size).toUtf8() + "COMMIT;";
    if (sqlite3_exec(connection, statements, nullptr, nullptr, nullptr) != SQLITE_OK) {
        qCritical("%s", sqlite3_errmsg(connection));
        std::abort();
    }
    sqlite3_close(connection);
}

void load(const db::ConnectionSettings &settings, Model &model)
{
    ui::RunWindow run;
    const int result = loadAll(settings, model, run);
    if (result != 0 || model.fields.isEmpty()) {
        qCritical("loading failed with %d", result);
        std::abort();
    }
}

double heapInUse()
{
    const auto heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

} // namespace varnow::bench

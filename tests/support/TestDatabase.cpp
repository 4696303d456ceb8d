#include "support/TestDatabase.h"

#include "startup/modGlobals.h"
#include "support/TdsServer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <cstdlib>

namespace varnow::test {

std::string engineName(Engine engine)
{
    return engine == Engine::Sqlite ? "Sqlite" : "SqlServer";
}

namespace {

QString contents(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

/// In memory where the system has a folder for that: a disk makes every statement wait.
QString folderPattern()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + "/varnow-test-XXXXXX";
}

QString cell(sqlite3_stmt *statement, int column)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return QStringLiteral("NULL");
    const auto *text = reinterpret_cast<const char *>(sqlite3_column_text(statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(statement, column));
}

QList<QStringList> query(sqlite3 *connection, const QString &sql)
{
    sqlite3_stmt *statement = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(connection, sql.toUtf8(), -1, &statement, nullptr), SQLITE_OK)
        << sqlite3_errmsg(connection) << "\n"
        << qPrintable(sql);
    QList<QStringList> rows;
    while (statement && sqlite3_step(statement) == SQLITE_ROW) {
        QStringList &cells = rows.emplaceBack();
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            cells.append(cell(statement, i));
    }
    sqlite3_finalize(statement);
    return rows;
}

} // namespace

struct TestDatabase::Private
{
    Private() : file(folder.filePath(QStringLiteral("tables.db")))
    {
        if (sqlite3_open(file.toUtf8(), &connection) != SQLITE_OK)
            std::abort();
        sqlite3_busy_timeout(connection, 30'000);
        // The tables of a test need not survive a power cut.
        sqlite3_exec(connection, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
    }
    ~Private() { sqlite3_close(connection); }

    QTemporaryDir folder{folderPattern()};
    QString file;
    sqlite3 *connection = nullptr;
    std::unique_ptr<TdsServer> server;
};

TestDatabase::TestDatabase(Engine engine, bool sample) : d(std::make_unique<Private>())
{
    run(contents(QStringLiteral(SQL_FOLDER "/schema.sql")));
    if (sample)
        run(contents(QStringLiteral(SQL_FOLDER "/sample.sql")));

    gCfgServer = gVelmoraServer = QStringLiteral("(sqlite)");
    gCfgDatabase = gVelmoraDatabase = d->file;
    if (engine == Engine::SqlServer) {
        d->server = std::make_unique<TdsServer>(d->file);
        gCfgServer = gVelmoraServer = QStringLiteral("127.0.0.1,%1").arg(d->server->port());
        gCfgDatabase = gVelmoraDatabase = QStringLiteral("Configurations");
    }
    gCfgUser = gVelmoraUser = QStringLiteral("tester");
    gCfgPassword = gVelmoraPassword = QStringLiteral("secret");
}

TestDatabase::~TestDatabase()
{
    for (QString *value : {&gCfgServer, &gCfgDatabase, &gCfgUser, &gCfgPassword, &gVelmoraServer,
                           &gVelmoraDatabase, &gVelmoraUser, &gVelmoraPassword})
        value->clear();
}

void TestDatabase::run(const QString &sql)
{
    char *message = nullptr;
    sqlite3_exec(d->connection, sql.toUtf8(), nullptr, nullptr, &message);
    EXPECT_EQ(message, nullptr) << (message ? message : "") << "\n" << qPrintable(sql);
    sqlite3_free(message);
}

QStringList TestDatabase::rows(const QString &sql)
{
    QStringList joined;
    for (const QStringList &cells : query(d->connection, sql))
        joined.append(cells.join(u'|'));
    return joined;
}

QString TestDatabase::value(const QString &sql)
{
    return query(d->connection, sql).value(0).value(0);
}

QString TestDatabase::file() const
{
    return d->file;
}

TdsServer *TestDatabase::server()
{
    return d->server.get();
}

} // namespace varnow::test

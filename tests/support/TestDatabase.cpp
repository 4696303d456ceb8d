#include "support/TestDatabase.h"

#include "support/TdsServer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace varnow::test {

namespace {

/// In memory where the system has a folder for that: a disk makes every statement wait.
QString folderPattern()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + "/varnow-test-XXXXXX";
}

} // namespace

TestDatabase::TestDatabase(Engine engine, bool sample) : m_folder(folderPattern())
{
    sqlite3_open(file().toUtf8(), &m_connection);
    sqlite3_busy_timeout(m_connection, 30'000);
    run("PRAGMA synchronous = OFF"); // the tables of a test need not survive a power cut
    runFile("schema.sql");
    if (sample)
        runFile("sample.sql");

    m_settings = {"(sqlite)", file(), "tester", "secret"};
    if (engine == Engine::SqlServer) {
        m_server = std::make_unique<TdsServer>(file());
        m_settings.server = QStringLiteral("127.0.0.1,%1").arg(m_server->port());
        m_settings.database = "Configurations";
    }
}

TestDatabase::~TestDatabase()
{
    sqlite3_close(m_connection);
}

QStringList TestDatabase::run(const QString &sql)
{
    QStringList rows;
    const auto addRow = [](void *all, int count, char **values, char **) {
        QStringList cells;
        for (int i = 0; i < count; ++i)
            cells += values[i] ? QString::fromUtf8(values[i]) : QStringLiteral("NULL");
        static_cast<QStringList *>(all)->append(cells.join(u'|'));
        return 0;
    };
    EXPECT_EQ(sqlite3_exec(m_connection, sql.toUtf8(), addRow, &rows, nullptr), SQLITE_OK)
        << sqlite3_errmsg(m_connection) << "\n"
        << qPrintable(sql);
    return rows;
}

void TestDatabase::runFile(const QString &name)
{
    QFile statements(QStringLiteral(SQL_FOLDER "/") + name);
    EXPECT_TRUE(statements.open(QIODevice::ReadOnly)) << qPrintable(name);
    run(QString::fromUtf8(statements.readAll()));
}

} // namespace varnow::test

#include "support/TestDatabase.h"

#include "support/TdsServer.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <sqlite3.h>

namespace varnow::test {

namespace {

/// In memory where the system has a folder for that: a disk makes every statement wait.
QString folderPattern()
{
    const QString memory = QStringLiteral("/dev/shm");
    return (QFileInfo(memory).isWritable() ? memory : QDir::tempPath()) + "/varnow-test-XXXXXX";
}

QByteArray contentsOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Threads of this process, without those of the toolkit, which have names of their own.
int threadCount()
{
    const QByteArray name = contentsOf("/proc/self/comm");
    int count = 0;
    for (const QString &thread : QDir("/proc/self/task").entryList(QDir::Dirs | QDir::NoDotAndDotDot))
        count += contentsOf("/proc/self/task/" + thread + "/comm") == name ? 1 : 0;
    return count;
}

} // namespace

TestDatabase::TestDatabase(Engine engine, bool sample)
    : m_threadsBefore(threadCount()), m_folder(folderPattern())
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

/// A thread that the program gave up wakes up when the server goes. The tests end behind it, for else it
/// would run among globals that are destroyed.
TestDatabase::~TestDatabase()
{
    m_server.reset();
    for (int i = 0; i < 200 && threadCount() > m_threadsBefore; ++i)
        QThread::msleep(10);
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

#pragma once

#include "db/ConnectionSettings.h"

#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <ostream>

struct sqlite3;

/// Runs a suite on these engines.
#define ON_ENGINES(Suite, ...)                                                                               \
    INSTANTIATE_TEST_SUITE_P(Engines, Suite, testing::Values(__VA_ARGS__), testing::PrintToStringParamName())

/// Runs a suite on every engine, as every test of the program's behaviour on a database does.
#define ON_EVERY_ENGINE(Suite)                                                                               \
    ON_ENGINES(Suite, varnow::test::Engine::Sqlite, varnow::test::Engine::SqlServer)

namespace varnow::test {

class TdsServer;

/// Where a test keeps its tables: in the embedded engine, or behind SQL Server's protocol on loopback.
enum class Engine { Sqlite, SqlServer };

inline void PrintTo(Engine engine, std::ostream *out)
{
    *out << (engine == Engine::Sqlite ? "Sqlite" : "SqlServer");
}

/// A database made from sql/schema.sql in a folder of its own, gone with this object.
class TestDatabase
{
public:
    /// With `sample` the rows of sql/sample.sql are loaded too, else the tables are empty.
    explicit TestDatabase(Engine engine = Engine::Sqlite, bool sample = false);
    ~TestDatabase();

    /// What leads the program to it.
    const db::ConnectionSettings &settings() const { return m_settings; }

    /// Runs statements on the tables directly, past the program, and returns every row as its values joined
    /// by "|", with "NULL" for Null. Fails the test on an error.
    QStringList run(const QString &sql);

    /// Path of the file that holds the tables, on either engine.
    QString file() const { return m_folder.filePath("tables.db"); }
    /// The server in front of the tables, which fails on demand; nullptr on the embedded engine.
    TdsServer *server() { return m_server.get(); }

private:
    void runFile(const QString &name);

    int m_threadsBefore;
    QTemporaryDir m_folder;
    sqlite3 *m_connection = nullptr;
    std::unique_ptr<TdsServer> m_server;
    db::ConnectionSettings m_settings;
};

} // namespace varnow::test

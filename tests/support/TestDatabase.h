#pragma once

#include <QString>
#include <QStringList>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace varnow::test {

class TdsServer;

/// Where a test keeps its tables: in the embedded engine, or behind SQL Server's protocol on loopback.
enum class Engine { Sqlite, SqlServer };

/// Name of an engine for parameterised tests.
std::string engineName(Engine engine);

/// The engines that every test of the program's behaviour runs on.
inline auto everyEngine()
{
    return testing::Values(Engine::Sqlite, Engine::SqlServer);
}

/// A database made from sql/schema.sql in a folder of its own, gone with this object.
/// While it lives, gCfg… and gVelmora… lead to it.
class TestDatabase
{
public:
    /// With `sample` the rows of sql/sample.sql are loaded too, else the tables are empty.
    explicit TestDatabase(Engine engine = Engine::Sqlite, bool sample = false);
    ~TestDatabase();

    /// Runs statements on the tables directly, past the program. Fails the test on an error.
    void run(const QString &sql);
    /// First value of the first row as text; "NULL" for Null, empty without a row.
    QString value(const QString &sql);
    /// Every row as its values joined by "|".
    QStringList rows(const QString &sql);

    /// Path of the file that holds the tables, on either engine.
    QString file() const;
    /// The server in front of the tables, which fails on demand; nullptr on the embedded engine.
    TdsServer *server();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace varnow::test

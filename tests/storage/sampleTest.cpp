// The tables and sample rows of sql/, filled in by the commands of the README.

#include "support/StorageFixture.h"

#include "storage/schemaVersion.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>

namespace varnow::test {

namespace {

struct SampleTest : StorageTest
{
    void dropTables()
    {
        for (const QString &table : database.run("SELECT name FROM sqlite_master WHERE type = 'table'"))
            database.run("DROP TABLE " + table);
    }

    /// The README's line that runs this program, led to the tables of the test.
    QString command(const QString &program) const
    {
        QFile readme(SQL_FOLDER "/../README.md");
        EXPECT_TRUE(readme.open(QIODevice::ReadOnly));
        const QRegularExpression line("^    (.*\\| " + program + ".*)$", QRegularExpression::MultilineOption);
        return line.match(QString::fromUtf8(readme.readAll()))
            .captured(1)
            .replace("-H host -p 1433", "-H " + QString(database.settings().server).replace(",", " -p "))
            .replace("my.db", database.file());
    }
};

/// Runs a command at a terminal, where a user types the password that it asks for. Returns what the terminal
/// shows.
QString atTerminal(const QString &command)
{
    QProcess terminal;
    terminal.setWorkingDirectory(SQL_FOLDER "/..");
    terminal.start("env", {"SHELL=/bin/sh", "script", "-qec", command, "/dev/null"});
    QString shown;
    while (!shown.contains("Password: ") && terminal.waitForReadyRead())
        shown += terminal.readAll();
    if (terminal.state() == QProcess::Running)
        terminal.write("secret\n");
    terminal.waitForFinished();
    EXPECT_EQ(terminal.exitCode(), 0);
    return shown + terminal.readAll();
}

} // namespace

ON_EVERY_ENGINE(SampleTest);

// A line that one of the programs takes for a command of its own, or SQL that one of the engines refuses, of
// which tsql's exit code says nothing.
TEST_P(SampleTest, FillsADatabaseAsTheReadmeTells)
{
    const bool isFile = GetParam() == Engine::Sqlite;
    dropTables();
    EXPECT_EQ(atTerminal(command(isFile ? "sqlite3" : "tsql")), isFile ? "" : "Password: \r\n");
    load();
    expectMessages({});
    EXPECT_EQ(model.lines.size(), 15);
    EXPECT_EQ(model.fields.size(), 116);
    EXPECT_EQ(checkSchemaVersion(database.settings(), DatabaseRole::Configuration).verdict,
              SchemaVersionCheck::Verdict::Exact);
}

} // namespace varnow::test

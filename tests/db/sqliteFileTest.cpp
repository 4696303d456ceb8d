#include "db/Connection.h"
#include "db/codes.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace varnow::db {

namespace {

const QString countLines = QStringLiteral("SELECT COUNT(*) FROM LabLineConfig;");
const QString insertLine = QStringLiteral("INSERT INTO LabLineConfig (id) VALUES (99);");

/// What can happen to the file that the server name "(sqlite)" asks for.
struct SqliteFile : testing::Test
{
    /// Path of a new file beside the tables.
    QString write(const QString &name, const QByteArray &contents)
    {
        QFile file(beside(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(contents) == contents.size());
        return file.fileName();
    }
    QString beside(const QString &name) const { return QFileInfo(tables.file()).dir().filePath(name); }
    int run(const QString &file, const QString &sql)
    {
        ConnectionSettings settings = tables.settings();
        settings.server = " (SQLite) ";
        settings.database = file;
        return test::errorOf([&] { Connection(settings).execute(sql); });
    }

    test::TestDatabase tables;
};

TEST_F(SqliteFile, OpensUnderAnyNameItsDriverCanTake)
{
    for (const QString name : {"a=b.db", "a{b}.db", "{c}.db", "it's \"q\".db", "100%1 %s.db", "ü 😀.db"}) {
        ASSERT_TRUE(QFile::copy(tables.file(), beside(name)));
        EXPECT_EQ(run(beside(name), countLines), 0) << qPrintable(name);
    }
    QDir::setCurrent(QFileInfo(tables.file()).path());
    EXPECT_EQ(run("tables.db", countLines), 0);
    QDir::setCurrent(QDir::rootPath());

    for (const QString name : {"a", "a;b.db"}) // cut at the semicolon this would be the file before
        ASSERT_TRUE(QFile::copy(tables.file(), beside(name)));
    EXPECT_EQ(run(beside("a;b.db"), countLines), codes::Failure);
}

TEST_F(SqliteFile, IsRefusedWhenItIsMissingOrNoDatabaseAndNeverMade)
{
    for (const QString &file :
         {beside("missing.db"), QFileInfo(tables.file()).path(), QStringLiteral(":memory:"),
          write("letter.txt", "Dear administrator, this is not a database at all."),
          write("short.db", "SQLite"), QString(5000, u'x'),
          write("broken.db", QByteArray("SQLite format 3\0", 16) + QByteArray(4096, 'x'))})
        EXPECT_EQ(run(file, countLines), codes::Failure) << qPrintable(file);
    EXPECT_FALSE(QFile::exists(beside("missing.db")));

    EXPECT_EQ(run(write("empty.db", ""), countLines), codes::MissingTable);
}

TEST_F(SqliteFile, IsReadButNotWrittenWhenItIsReadOnly)
{
    QFile file(tables.file());
    ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(18));
    file.putChar(3); // a file format that only newer versions may write, whoever runs this test
    file.close();
    EXPECT_EQ(run(tables.file(), countLines), 0);
    EXPECT_EQ(run(tables.file(), insertLine), codes::Permission);
}

TEST_F(SqliteFile, TimesOutWhenItIsLocked)
{
    tables.run("BEGIN EXCLUSIVE");
    ConnectionSettings settings = tables.settings();
    settings.timeout = 1;
    Connection connection(settings);
    const auto insert = [&] { connection.execute(insertLine); };
    EXPECT_EQ(test::errorOf(insert), codes::TimeOut);
    tables.run("COMMIT");
    EXPECT_EQ(test::errorOf(insert), 0);
}

} // namespace

} // namespace varnow::db

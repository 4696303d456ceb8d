#include "db/Connection.h"
#include "db/codes.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"

#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <clocale>

namespace varnow::db {

using test::Engine;
using test::errorOf;
using test::TestDatabase;

namespace {

struct DatabaseTest : testing::TestWithParam<Engine>
{
    ResultSet query(const QString &sql) { return Connection(tables.settings()).execute(sql); }
    int codeOf(const QString &sql)
    {
        return errorOf([&] { query(sql); });
    }

    TestDatabase tables{GetParam()};
};

ON_EVERY_ENGINE(DatabaseTest);

TEST_P(DatabaseTest, WalksTheRowsOfAResultForward)
{
    tables.run("INSERT INTO LabLineConfig (id, Name) VALUES (1, 'one'), (2, NULL)");
    ResultSet rows = query("SELECT id, Name FROM LabLineConfig ORDER BY id;");
    EXPECT_EQ(rows.rowCount(), 2);
    EXPECT_EQ(rows.value("NAME").toString(), "one");
    EXPECT_EQ(rows.column("name"), 1);
    EXPECT_EQ(errorOf([&] { rows.value("Name2"); }), errors::NoSuchColumn);
    for (const int missing : {-1, 2})
        EXPECT_EQ(errorOf([&] { rows.value(missing); }), errors::NoSuchColumn);
    rows.moveNext();
    EXPECT_TRUE(rows.value(1).isNull());
    rows.moveNext();
    EXPECT_TRUE(rows.atEnd());
    EXPECT_EQ(errorOf([&] { rows.value(0); }), errors::NoCurrentRow);
    EXPECT_EQ(errorOf([&] { rows.moveNext(); }), errors::NoCurrentRow);
}

TEST_P(DatabaseTest, TellsAnEmptyResultFromAClosedOne)
{
    const ResultSet empty = query("SELECT id FROM LabLineConfig;");
    EXPECT_EQ(empty.rowCount(), 0);
    EXPECT_TRUE(empty.atEnd());

    ResultSet closed = query("DELETE LabLineConfig WHERE id = 1;");
    EXPECT_FALSE(closed.isOpen());
    const std::function<void()> uses[] = {[&] { closed.rowCount(); }, [&] { closed.atEnd(); },
                                          [&] { closed.moveNext(); }, [&] { closed.column("id"); },
                                          [&] { closed.value(0); }};
    for (const auto &use : uses)
        EXPECT_EQ(errorOf(use), errors::ResultSetClosed);
}

TEST_P(DatabaseTest, NamesTheReasonWhyAStatementFailed)
{
    tables.run("INSERT INTO LabLineConfig (id) VALUES (1)");
    const std::pair<QString, int> cases[] = {
        {"SELECT id FROM LabLineConfig;", 0},
        {"SELECT id FROM Nowhere;", codes::MissingTable},
        {"INSERT INTO LabLineConfig (id) VALUES (1);", codes::Constraint},
        {"INSERT INTO LabLineConfig (id) VALUES (NULL);", codes::Constraint},
        {"UPDATE LabLineConfig SET nothing = 1;", codes::Syntax},
        {"SELECTED id;", codes::Syntax},
        {"UPDATE LabLineConfig SET Name = 'open;", codes::Syntax},
        {"UPDATE LabLineConfig SET Name = " + quoted(QString("a") + QChar(0) + "b") + ";", codes::Conversion},
        {"UPDATE LabLineConfig SET Name = " + quoted(QString(QChar(0xdc00))) + ";", codes::Conversion},
    };
    Connection connection(tables.settings());
    for (const auto &[sql, code] : cases) {
        EXPECT_EQ(codeOf(sql), code) << qPrintable(sql);
        EXPECT_EQ(errorOf([&, &sql = sql] { connection.execute(sql); }), code); // whatever failed before
    }
    EXPECT_EQ(tables.run("SELECT id, Name FROM LabLineConfig"), QStringList("1|NULL"));
}

// A keyword of the connection that is another word by the rules of the user's language.
TEST_P(DatabaseTest, IsReachedByATurkishUser)
{
    const QTemporaryDir locales;
    QProcess::execute("localedef", {"-i", "tr_TR", "-f", "UTF-8", locales.filePath("tr_TR.UTF-8")});
    qputenv("LOCPATH", locales.path().toUtf8());
    const bool isTurkish = setlocale(LC_ALL, "tr_TR.UTF-8") != nullptr;
    EXPECT_EQ(codeOf("SELECT id FROM LabLineConfig;"), 0);
    setlocale(LC_ALL, "C.UTF-8");
    qunsetenv("LOCPATH");
    if (!isTurkish)
        GTEST_SKIP() << "this machine cannot make the locale";
}

// A text cut at the size of a buffer or packet, a letter split there, an apostrophe that ends a literal.
TEST_P(DatabaseTest, KeepsEveryTextAsItIs)
{
    QString everything;
    for (ushort c = 1; c < 0x3000; ++c)
        everything += QChar(c);
    QStringList texts{"", "DELETE t", "{fn now()} {ts '2020-01-01'} {call p(?)}", everything};
    for (const int size : {126, 127, 128, 254, 255, 256, 257, 4000, 4096, 8191, 8192, 10'000, 1'000'000})
        texts << QString(size, u'x') << 'x' + QString(size, u'ł') << 'x' + QString("😀").repeated(size / 2);

    tables.run("CREATE TABLE texts (id int, t ntext)");
    for (int i = 0; i < texts.size(); ++i)
        ASSERT_EQ(codeOf(QString("INSERT INTO texts VALUES (%1,").arg(i) + quoted(texts[i]) + ");"), 0);
    ResultSet back = query("SELECT t FROM texts ORDER BY id;");
    ASSERT_EQ(back.rowCount(), texts.size());
    for (int i = 0; i < texts.size(); ++i, back.moveNext()) {
        EXPECT_TRUE(back.value(0).toString() == texts[i]) << i << ' ' << qPrintable(texts[i].left(20));
    }
    EXPECT_TRUE(tables.run("SELECT t FROM texts ORDER BY id") == texts);
}

} // namespace

} // namespace varnow::db

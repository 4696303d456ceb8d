#include "db/ConfigADOUtilities.h"
#include "db/errorCodes.h"
#include "startup/modGlobals.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"

#include <gtest/gtest.h>

namespace varnow::db {

using test::Engine;
using test::errorOf;
using test::TestDatabase;

namespace {

struct DatabaseTest : testing::TestWithParam<Engine>
{
    RecordsetPtr query(const QString &sql)
    {
        RecordsetPtr recordset;
        EXPECT_EQ(RetrieveRecordset(GetConfigConnectString(), sql, recordset), 0) << qPrintable(sql);
        return recordset;
    }
    int complete(const QString &sql) { return CompleteCommand(GetConfigConnectString(), sql); }

    TestDatabase tables{GetParam()};
};

ON_EVERY_ENGINE(DatabaseTest);

TEST_P(DatabaseTest, WalksTheRowsOfAResultForward)
{
    tables.run("INSERT INTO LabLineConfig (id, Name) VALUES (1, 'one'), (2, NULL)");
    const RecordsetPtr rows = query("SELECT id, Name FROM LabLineConfig ORDER BY id;");
    EXPECT_EQ(rows->recordCount(), 2);
    EXPECT_EQ(rows->value("NAME").toString(), "one");
    EXPECT_EQ(rows->column("name"), 1);
    EXPECT_EQ(errorOf([&] { rows->value("Name2"); }), errors::NoSuchColumn);
    for (const int missing : {-1, 2})
        EXPECT_EQ(errorOf([&] { rows->value(missing); }), errors::NoSuchColumn);
    rows->moveNext();
    EXPECT_TRUE(rows->value(1).isNull());
    rows->moveNext();
    EXPECT_TRUE(rows->atEnd());
    EXPECT_EQ(errorOf([&] { rows->value(0); }), errors::NoCurrentRow);
    EXPECT_EQ(errorOf([&] { rows->moveNext(); }), errors::NoCurrentRow);
}

TEST_P(DatabaseTest, TellsAnEmptyResultFromAClosedOne)
{
    const RecordsetPtr empty = query("SELECT id FROM LabLineConfig;");
    EXPECT_EQ(empty->recordCount(), 0);
    EXPECT_TRUE(empty->atEnd());
    empty->close();

    RecordsetPtr failed;
    EXPECT_NE(RetrieveRecordset(GetConfigConnectString(), "SELECT nothing;", failed), 0);
    const RecordsetPtr withoutResult = query("DELETE LabLineConfig WHERE id = 1;");
    for (const RecordsetPtr &closed : {empty, failed, withoutResult}) {
        const std::function<void()> uses[] = {[&] { closed->recordCount(); }, [&] { closed->atEnd(); },
                                              [&] { closed->moveNext(); },    [&] { closed->column("id"); },
                                              [&] { closed->value(0); },      [&] { closed->close(); }};
        for (const auto &use : uses)
            EXPECT_EQ(errorOf(use), errors::ResultSetClosed);
    }
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
    for (const auto &[sql, code] : cases) {
        RecordsetPtr rows;
        EXPECT_EQ(complete(sql), code) << qPrintable(sql);
        gDebugMode = true; // diagnostics change no result
        EXPECT_EQ(RetrieveRecordset(GetConfigConnectString(), sql, rows), code);
        gDebugMode = false;
    }
    EXPECT_EQ(tables.run("SELECT id, Name FROM LabLineConfig"), QStringList("1|NULL"));
}

// A text cut at the size of a buffer or packet, a letter split there, an apostrophe that ends a literal.
TEST_P(DatabaseTest, KeepsEveryTextAsItIs)
{
    QString everything;
    for (ushort c = 1; c < 0x3000; ++c)
        everything += QChar(c);
    QStringList texts{"", "DELETE t", "{fn now()} {ts '2020-01-01'} {call p(?)}", everything};
    for (const int size : {4000, 4096, 8191, 8192, 10'000, 1'000'000})
        texts << QString(size, u'x') << 'x' + QString(size, u'ł') << 'x' + QString("😀").repeated(size / 2);

    tables.run("CREATE TABLE texts (id int, t ntext)");
    for (int i = 0; i < texts.size(); ++i)
        ASSERT_EQ(complete(QString("INSERT INTO texts VALUES (%1,").arg(i) + quoted(texts[i]) + ");"), 0);
    const RecordsetPtr back = query("SELECT t FROM texts ORDER BY id;");
    ASSERT_EQ(back->recordCount(), texts.size());
    for (int i = 0; i < texts.size(); ++i, back->moveNext()) {
        EXPECT_TRUE(back->value(0).toString() == texts[i]) << i << ' ' << qPrintable(texts[i].left(20));
    }
    EXPECT_TRUE(tables.run("SELECT t FROM texts ORDER BY id") == texts);
}

TEST_P(DatabaseTest, FindsTheNextIdentifier)
{
    const auto next = [](const QString &table, const QString &column = "id") {
        return GetNextRecordID(GetConfigConnectString(), table, column);
    };
    EXPECT_EQ(next("LabLineConfig"), 1);
    EXPECT_EQ(next("Nowhere"), -1);
    tables.run("INSERT INTO LabLineConfig (id) VALUES (7), (41)");
    EXPECT_EQ(next("LabLineConfig"), 42);
    EXPECT_EQ(next("LabLineConfig", "nothing"), -1);
    EXPECT_EQ(GetNextRecordID(QString(), "LabLineConfig", "id"), -1);
    tables.run("INSERT INTO LabLineConfig (id) VALUES (2147483647)"); // the last 32-bit one
    EXPECT_EQ(next("LabLineConfig"), -1);
}

TEST_P(DatabaseTest, LeavesUsableObjectsBehindWhateverHappens)
{
    ConnectionPtr connection;
    CommandPtr command;
    RecordsetPtr rows;
    EXPECT_EQ(GetRecordset(connection, command, rows, "SELECT 1;", textCommand, clientCursor, keysetCursor),
              errors::NoObject);
    EXPECT_EQ(ExecuteCommand(command), errors::NoObject);
    EXPECT_EQ(ExecuteCommand(nullptr), errors::NoObject);

    ASSERT_EQ(OpenComnnection(connection, GetConfigConnectString(), clientCursor, connectionTimeout), 0);
    const ConnectionPtr first = connection;
    const QString sql = "SELECT id FROM LabLineConfig;";
    EXPECT_EQ(GetRecordset(connection, command, rows, sql, textCommand, clientCursor, keysetCursor), 0);
    EXPECT_EQ(OpenComnnection(connection, QString(), clientCursor, connectionTimeout), codes::Failure);
    EXPECT_NE(connection, first);
    // The rows outlive their connection, and the command kept the first one.
    command->connection.reset();
    EXPECT_TRUE(rows->atEnd());
    EXPECT_EQ(GetRecordset(connection, command, rows, sql, textCommand, clientCursor, keysetCursor),
              errors::ResultSetClosed);
    EXPECT_EQ(GetRecordset(first, command, rows, sql, textCommand, clientCursor, keysetCursor), 0);
}

} // namespace

} // namespace varnow::db

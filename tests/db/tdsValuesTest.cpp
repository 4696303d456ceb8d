// Values on their way to SQL Server and back, over a real driver and a real socket.

#include "db/ConfigADOUtilities.h"
#include "db/errorCodes.h"
#include "startup/modGlobals.h"
#include "support/TdsServer.h"
#include "support/TestDatabase.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace varnow::test {

using namespace db;

namespace {

/// First column of every row; fails the test when the query fails.
QVariantList column(const QString &sql)
{
    QVariantList values;
    RecordsetPtr rows;
    const int code = RetrieveRecordset(GetConfigConnectString(), sql, rows);
    EXPECT_EQ(code, 0) << sql.toStdString();
    for (; code == 0 && !rows->atEnd(); rows->moveNext())
        values.append(rows->value(0));
    return values;
}

} // namespace

class TdsValues : public testing::Test
{
protected:
    TestDatabase database{Engine::SqlServer};
    TdsServer &server = *database.server();
};

// A column type that the driver hands over as another, a value that loses digits or letters, a lost Null.
TEST_F(TdsValues, EveryColumnTypeAndNull)
{
    const QDateTime moment(QDate(2024, 2, 29), QTime(13, 14, 15, 123));
    const struct
    {
        QString type, literal;
        QVariant value;
    } columns[] = {
        {"int", "-2147483648", -2147483648LL},
        {"smallint", "-32768", -32768LL},
        {"tinyint", "255", 255LL},
        {"bigint", "9223372036854775807", 9223372036854775807LL},
        {"real", "0.5", 0.5},
        {"float", "0.1", 0.1},
        {"decimal(10,3)", "-1234.567", QStringLiteral("-1234.567")},
        {"datetime", "'2024-02-29 13:14:15.123'", moment},
        {"char(4)", "'ab'", QStringLiteral("ab  ")},
        {"nchar(4)", "'łó'", QStringLiteral("łó  ")},
        {"varchar(20)", "'é€ “x”'", QStringLiteral("é€ “x”")},
        {"nvarchar(20)", "'日本 😀'", QStringLiteral("日本 😀")},
        {"nvarchar(max)", "'日本 😀'", QStringLiteral("日本 😀")},
        {"text", "'é€'", QStringLiteral("é€")},
        {"ntext", "'日本 😀'", QStringLiteral("日本 😀")},
        {"varchar(20)", "''", QStringLiteral("")},
    };
    for (const auto &[type, literal, value] : columns) {
        database.run("CREATE TABLE types (id int, v \"" + type + "\")");
        database.run("INSERT INTO types VALUES (1, " + literal + "), (2, NULL), (3, " + literal + ")");
        EXPECT_EQ(column("SELECT v FROM types ORDER BY id;"), (QVariantList{value, QVariant(), value}))
            << type.toStdString();
        database.run("DROP TABLE types");
    }
}

// A client that counts on a packet or a read holding a certain piece of the answer.
TEST_F(TdsValues, AnswersInPiecesOfAnySize)
{
    database.run(
        "INSERT INTO LabLineConfig VALUES (1, 'Standard', 'MSH', 0, 1, NULL, 'ł', 'é', '2024-02-29'),"
        "(2, 'Standard', 'PID', 0, 2, 7, NULL, NULL, NULL)");
    for (int size = 1; size <= 64; ++size) {
        server.setPieces(size);
        RecordsetPtr rows;
        ASSERT_EQ(RetrieveRecordset(GetConfigConnectString(), "SELECT * FROM LabLineConfig;", rows), 0)
            << size;
        ASSERT_EQ(rows->recordCount(), 2) << size;
        EXPECT_EQ(rows->value("text1"), QStringLiteral("é")) << size;
        EXPECT_EQ(rows->value("date1"), QDateTime(QDate(2024, 2, 29), QTime(0, 0))) << size;
        EXPECT_EQ(GetNextRecordID(GetConfigConnectString(), "LabLineConfig", "id"), 3) << size;
    }
}

// A connection value that becomes another keyword, or that arrives changed.
TEST_F(TdsValues, ConnectionValuesArriveAsTyped)
{
    for (const QString value : {"a;b", "a=b", "{ab", "ab}", "{ab}", "a}}b", "a}b=c", "'\"`", "a;PWD=x",
                                "x;App=y", ";Encryption=off", "%s,*", "łó 日本", "😀", "ab;", "}", "{"}) {
        gCfgUser = "u" + value;
        gCfgPassword = value;
        gCfgDatabase = "d" + value + "b";
        EXPECT_EQ(column("SELECT MAX(id) FROM LabLineConfig;"), QVariantList{QVariant()})
            << qPrintable(value);
        const Login login = server.logins().back();
        EXPECT_EQ((QStringList{login.userName, login.password, login.database, login.appName}),
                  (QStringList{gCfgUser, gCfgPassword, gCfgDatabase, "varnow"}));
    }
    // Nothing marks the end of the user but the next key; what is behind it belongs to the password.
    gCfgUser = "u;pwd=x";
    EXPECT_EQ(CompleteCommand(GetConfigConnectString(), "DELETE LabLineConfig WHERE id = 0;"), 0);
    const Login split = server.logins().back();
    EXPECT_EQ((QStringList{split.userName, split.password, split.database, split.appName}),
              (QStringList{"u", "x;pwd=" + gCfgPassword, gCfgDatabase, "varnow"}));
}

// A value that cannot be written whole, sent all the same; a server's name that carries keywords.
TEST_F(TdsValues, ConnectionValuesThatCannotArriveSendNothing)
{
    const QString here = gCfgServer;
    for (const QString &value : QStringList{"};APP={sa", "x};SERVER=127.0.0.1", "a}DRIVER=x", "a}\nDsn={x",
                                            QString(QChar(0xD800))}) {
        for (QString *target : {&gCfgServer, &gCfgUser, &gCfgPassword, &gCfgDatabase}) {
            const QString before = *target;
            *target = target == &gCfgServer ? "127.0.0.1" + value + here.mid(9) : value;
            EXPECT_EQ(CompleteCommand(GetConfigConnectString(), "DELETE LabLineConfig WHERE id = 0;"),
                      codes::Failure)
                << qPrintable(value);
            *target = before;
        }
    }
    for (const QString value : {"127.0.0.1;UID=sa", "{127.0.0.1}", "127.0.0.1}", "127.0.0.1;Port=1"}) {
        gCfgServer = value + here.mid(9);
        EXPECT_EQ(CompleteCommand(GetConfigConnectString(), "DELETE LabLineConfig WHERE id = 0;"),
                  codes::Failure)
            << qPrintable(value);
    }
    EXPECT_TRUE(server.logins().empty());
}

// A spelling of the server's name that SQL Server's own tools know and the driver does not.
TEST_F(TdsValues, ServerSpellings)
{
    for (const char *form : {"127.0.0.1,%1", "tcp:127.0.0.1,%1", " 127.0.0.1 , %1 ", "localhost,%1", ".,%1",
                             "(local),%1", "TCP:(LOCAL),%1", "127.0.0.1\\instance,%1"}) {
        gCfgServer = QString(form).arg(server.port());
        EXPECT_EQ(column("SELECT MAX(id) FROM LabLineConfig;"), QVariantList{QVariant()}) << form;
    }
}

} // namespace varnow::test

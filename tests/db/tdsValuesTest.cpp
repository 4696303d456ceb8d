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

class TdsValues : public testing::Test
{
protected:
    TestDatabase database{Engine::SqlServer};
    TdsServer &server = *database.server();
};

// A column type that the driver hands over as another, a value that loses digits or letters, a lost Null.
TEST_F(TdsValues, EveryColumnTypeAndNull)
{
    const QDateTime moment(QDate(2024, 2, 29), QTime(13, 14, 15, 123), Qt::UTC);
    const struct
    {
        QString type, literal;
        QVariant value;
    } columns[] = {
        {"int", "-2147483648", -2147483648LL},
        {"tinyint", "255", 255LL},
        {"bigint", "9223372036854775807", 9223372036854775807LL},
        {"real", "0.5", 0.5},
        {"float", "0.1", 0.1},
        {"decimal(10,3)", "-1234.567", QStringLiteral("-1234.567")},
        {"datetime", "'2024-02-29 13:14:15.123'", moment},
        {"smallint", "-32768", -32768LL},
        {"char(4)", "'ab'", QStringLiteral("ab  ")},
        {"varchar(20)", "'é ß'", QStringLiteral("é ß")},
        {"nvarchar(20)", "'日本 😀'", QStringLiteral("日本 😀")},
        {"text", "'é ß'", QStringLiteral("é ß")},
        {"varchar(20)", "''", QStringLiteral("")},
    };
    for (const auto &[type, literal, value] : columns) {
        database.run("CREATE TABLE types (id int, v \"" + type + "\")");
        database.run("INSERT INTO types VALUES (1, " + literal + "), (2, NULL), (3, " + literal + ")");
        RecordsetPtr rows;
        ASSERT_EQ(RetrieveRecordset(GetConfigConnectString(), "SELECT v FROM types ORDER BY id;", rows), 0);
        for (const QVariant &expected : {value, QVariant(), value}) {
            EXPECT_EQ(rows->value(0), expected) << qPrintable(type);
            rows->moveNext();
        }
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
        SCOPED_TRACE(size);
        RecordsetPtr rows;
        ASSERT_EQ(RetrieveRecordset(GetConfigConnectString(), "SELECT * FROM LabLineConfig;", rows), 0);
        ASSERT_EQ(rows->recordCount(), 2);
        EXPECT_EQ(rows->value("text1"), QStringLiteral("é"));
        EXPECT_EQ(rows->value("date1"), QDateTime(QDate(2024, 2, 29), QTime(0, 0)));
    }
}

// A connection value that becomes another keyword, or that arrives changed.
TEST_F(TdsValues, ConnectionValuesArriveAsTyped)
{
    for (const QString value : {"a;b", "a=b", "{ab", "ab}", "{ab}", "a}}b", "a}b=c", "'\"`", "a;PWD=x",
                                "x;App=y", ";Encryption=off", "%s,*", "łó 日本", "😀", "ab;", "}", "{"}) {
        gCfgUser = "u" + value, gCfgPassword = value, gCfgDatabase = "d" + value + "b";
        EXPECT_EQ(CompleteCommand(GetConfigConnectString(), "SELECT 1;"), 0) << qPrintable(value);
        const Login login = server.logins().back();
        EXPECT_EQ((QStringList{login.userName, login.password, login.database, login.appName}),
                  (QStringList{gCfgUser, gCfgPassword, gCfgDatabase, "varnow"}));
    }
}

// A value that cannot be written whole, sent all the same; a server's name that carries keywords.
TEST_F(TdsValues, ConnectionValuesThatCannotArriveSendNothing)
{
    const QString port = gCfgServer.section(',', 1);
    const auto expectRefused = [](QString &target, const QString &value) {
        const QString before = std::exchange(target, value);
        EXPECT_EQ(CompleteCommand(GetConfigConnectString(), "SELECT 1;"), codes::Failure)
            << qPrintable(value);
        target = before;
    };
    for (const QString value : {"};APP={sa", "x};SERVER=127.0.0.1", "a}DRIVER=x", "a}\nDsn={x"})
        for (QString *target : {&gCfgUser, &gCfgPassword, &gCfgDatabase})
            expectRefused(*target, value);
    for (const QString value :
         {"127.0.0.1};APP={sa", "127.0.0.1;UID=sa", "{127.0.0.1}", "127.0.0.1}", "127.0.0.1;Port=1"})
        expectRefused(gCfgServer, value + ',' + port);
    expectRefused(gCfgUser, QChar(0xD800));
    EXPECT_TRUE(server.logins().empty());
}

// A spelling of the server's name that SQL Server's own tools know and the driver does not.
TEST_F(TdsValues, ServerSpellings)
{
    for (const char *form : {"127.0.0.1,%1", "tcp:127.0.0.1,%1", " 127.0.0.1 , %1 ", "localhost,%1", ".,%1",
                             "(local),%1", "TCP:(LOCAL),%1", "127.0.0.1\\instance,%1"}) {
        gCfgServer = QString(form).arg(server.port());
        EXPECT_EQ(CompleteCommand(GetConfigConnectString(), "SELECT 1;"), 0) << form;
    }
}

} // namespace varnow::test

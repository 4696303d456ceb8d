// What the database layer makes of SQL Server, well or failing, over a real driver and a real socket.

#include "base/dateTime.h"
#include "db/Connection.h"
#include "db/codes.h"
#include "support/TdsServer.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"

#include <future>

namespace varnow::test {

using namespace db;

namespace {

const QString select = QStringLiteral("SELECT id, Name FROM LabLineConfig;");
const QString update = QStringLiteral("UPDATE LabLineConfig SET MsgIndex = 7 WHERE id = 1;");

struct SqlServer : testing::Test
{
    ResultSet query(const QString &sql) { return Connection(settings).execute(sql); }

    /// The code of a statement, 0 when it went well.
    int codeOf(const QString &sql = "SELECT 1;")
    {
        return errorOf([&] { query(sql); });
    }

    /// The same with a connection made before, which may not wait longer than a second.
    std::function<int()> connected(const QString &sql)
    {
        settings.timeout = 1;
        const auto connection = std::make_shared<Connection>(settings);
        return [=] { return errorOf([&] { connection->execute(sql); }); };
    }

    TestDatabase database{Engine::SqlServer};
    ConnectionSettings settings = database.settings();
    TdsServer &server = *database.server();
};

} // namespace

// A number mapped to the wrong code, or an error that is lost because the driver reports it late.
TEST_F(SqlServer, TurnsEveryNumberIntoItsCode)
{
    const std::pair<int, int> codesOfNumbers[] = {
        {102, codes::Syntax},     {207, codes::Syntax},      {208, codes::MissingTable},
        {229, codes::Permission}, {515, codes::Constraint},  {547, codes::Constraint},
        {1205, codes::Failure},   {2627, codes::Constraint}, {8152, codes::DataOverflow},
        {245, codes::Conversion},
    };
    for (const auto &[number, code] : codesOfNumbers) {
        server.failStatements({.number = number});
        EXPECT_EQ(codeOf(select), code) << number;
        EXPECT_EQ(codeOf(update), code) << number;
        server.clearFaults();
    }
    EXPECT_EQ(codeOf(select), 0);
}

// A connection that fails with a code of its own or that waits for ever, at the log-in or behind it.
TEST_F(SqlServer, GivesEveryLostConnectionOneCode)
{
    settings.timeout = 1;
    for (const Fault &fault : {Fault{.number = 18456}, Fault{.number = 4060}, Fault{.kind = Fault::CutOff},
                               Fault{.kind = Fault::CutOff, .bytes = 20}, Fault{.kind = Fault::NoAnswer},
                               Fault{.kind = Fault::Hang}}) {
        server.failLogins(fault);
        EXPECT_EQ(errorOf([this] { Connection{settings}; }), codes::Failure) << fault.kind << fault.number;
    }
    server.clearFaults();
    server.failStatements({.kind = Fault::CutOff}, "UPDATE");
    EXPECT_EQ(codeOf(update), codes::Failure);
    const auto lost = connected(select);
    server.stop();
    EXPECT_EQ(lost(), codes::Failure);
    EXPECT_EQ(codeOf(select), codes::Failure);
    server.start();
    EXPECT_EQ(codeOf(select), 0);
}

// The worst: a result cut short that passes for a whole one.
TEST_F(SqlServer, NeverTakesATruncatedResultForAWholeOne)
{
    constexpr int rowCount = 50;
    database.run(
        "INSERT INTO LabLineConfig (id, Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
        "FROM n WHERE i < 50) SELECT i, printf('%040d', i) FROM n");
    qsizetype bytes = 0;
    // Every byte where columns, the first rows and the second packet are; in between some are enough.
    for (;; bytes += bytes < 300 || bytes > 4000 ? 1 : 13) {
        server.failStatements({.kind = Fault::CutOff, .bytes = bytes});
        const int code = errorOf([&] { EXPECT_EQ(query(select).rowCount(), rowCount); });
        server.clearFaults();
        if (code == 0)
            break;
        ASSERT_EQ(code, codes::Failure) << bytes;
    }
    EXPECT_GT(bytes, 4096 + rowCount);
}

// A wait without end. The three waits run at once.
TEST_F(SqlServer, TimesOut)
{
    server.failStatements({.kind = Fault::NoAnswer}, "data_extractor_config");
    server.failStatements({.kind = Fault::Hang}, "Misc_upload_constants");
    database.run("BEGIN EXCLUSIVE");
    QList<std::shared_future<int>> waits;
    for (const QString &sql :
         {QString("DELETE data_extractor_config;"), QString("DELETE Misc_upload_constants;"), update})
        waits += std::async(std::launch::async, connected(sql)).share();
    for (const auto &wait : waits)
        EXPECT_EQ(wait.get(), codes::TimeOut);
    database.run("ROLLBACK");
    EXPECT_EQ(codeOf(update), 0);
}

// A column type that the driver hands over as another, a value that loses digits or letters, a lost Null.
TEST_F(SqlServer, ReadsEveryColumnTypeAndNull)
{
    const QDateTime moment = utcDateTime(QDate(2024, 2, 29), QTime(13, 14, 15, 123));
    const std::tuple<QString, QString, QVariant> columns[] = {
        {"int", "-2147483648", -2147483648LL},
        {"tinyint", "255", 255LL},
        {"bigint", "9223372036854775807", 9223372036854775807LL},
        {"real", "0.5", 0.5},
        {"float", "0.1", 0.1},
        {"decimal(10,3)", "-1234.567", "-1234.567"},
        {"datetime", "'2024-02-29 13:14:15.123'", moment},
        {"smallint", "-32768", -32768LL},
        {"char(4)", "'ab'", "ab  "},
        {"varchar(20)", "'é ß'", "é ß"},
        {"nvarchar(20)", "'日本 😀'", "日本 😀"},
        {"text", "'é ß'", "é ß"},
        {"ntext", "'日本 😀'", "日本 😀"},
        {"varchar(20)", "''", ""},
    };
    for (const auto &[type, literal, value] : columns) {
        database.run("CREATE TABLE types (id int, v " + type + "); INSERT INTO types VALUES (1, " + literal +
                     "), (2, NULL), (3, " + literal + ")");
        ResultSet rows = query("SELECT v FROM types ORDER BY id;");
        for (const QVariant &expected : {value, QVariant(), value}) {
            EXPECT_EQ(rows.value(0), expected) << qPrintable(type);
            rows.moveNext();
        }
        database.run("DROP TABLE types");
    }
}

// A client that counts on a packet or a read holding a certain piece of the answer.
TEST_F(SqlServer, ReadsAnswersInPiecesOfAnySize)
{
    database.run("INSERT INTO LabLineConfig VALUES (1, 'S', 'MSH', 0, 1, NULL, 'ł', 'é', '2024-02-29'),"
                 "(2, 'S', 'PID', 0, 2, 7, NULL, NULL, NULL)");
    for (int size = 1; size <= 64; ++size) {
        server.setPieces(size);
        const ResultSet rows = query("SELECT * FROM LabLineConfig;");
        ASSERT_EQ(rows.rowCount(), 2) << size;
        EXPECT_EQ(rows.value("text1"), QStringLiteral("é"));
        EXPECT_EQ(rows.value("date1"), utcDateTime(QDate(2024, 2, 29)));
    }
}

// A connection value that becomes another keyword, or that arrives changed.
TEST_F(SqlServer, TakesConnectionValuesAsTyped)
{
    for (const QString value : {"a;b", "a=b", "{ab", "ab}", "{ab}", "a}}b", "a}b=c", "'\"`", "a;PWD=x",
                                "x;App=y", ";Encryption=off", "%s,*", "łó 日本", "😀", "ab;", "}", "{"}) {
        settings.user = "u" + value, settings.password = value, settings.database = "d" + value + "b";
        EXPECT_EQ(codeOf(), 0) << qPrintable(value);
        const Login login = server.logins().back();
        EXPECT_EQ((QStringList{login.userName, login.password, login.database, login.appName}),
                  (QStringList{settings.user, settings.password, settings.database, "varnow"}));
    }
}

// A value that is missing or cannot be written whole, sent all the same; a server's name that carries
// keywords.
TEST_F(SqlServer, HearsNothingOfValuesThatCannotArriveWhole)
{
    const QString port = settings.server.section(',', 1);
    QList<std::pair<QString *, QString>> refused{{&settings.user, QChar(0xD800)},
                                                 {&settings.password, QChar(0)},
                                                 {&settings.server, "{127.0.0.1}," + port}};
    for (QString *needed : {&settings.server, &settings.user, &settings.database})
        refused += {needed, QString()};
    for (const QString value : {"};APP={sa", "x};SERVER=127.0.0.1", "a}DRIVER=x", "a}\nDsn={x"})
        for (QString *target : {&settings.user, &settings.password, &settings.database})
            refused += {target, value};
    for (const QString value : {"};APP={sa", ";UID=sa", "}", ";Port=1"})
        refused += {&settings.server, "127.0.0.1" + value + ',' + port};
    for (const auto &[target, value] : refused) {
        const QString before = std::exchange(*target, value);
        EXPECT_EQ(codeOf(), codes::Failure) << qPrintable(value);
        *target = before;
    }
    EXPECT_TRUE(server.logins().empty());
    settings.password.clear(); // the only one that may be missing
    EXPECT_EQ(codeOf(), 0);
}

// A spelling of the server's name that SQL Server's own tools know and the driver does not.
TEST_F(SqlServer, IsFoundUnderEverySpellingOfItsName)
{
    for (const char *form : {"127.0.0.1,%1", "tcp:127.0.0.1,%1", " 127.0.0.1 , %1 ", "localhost,%1", ".,%1",
                             "(local),%1", "TCP:(LOCAL),%1", "127.0.0.1\\instance,%1"}) {
        settings.server = QString(form).arg(server.port());
        EXPECT_EQ(codeOf(), 0) << form;
    }
}

} // namespace varnow::test

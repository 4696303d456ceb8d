#include "db/connectionString.h"

#include "db/ConfigADOUtilities.h"
#include "db/errorCodes.h"
#include "startup/modGlobals.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"

#include <gtest/gtest.h>

namespace varnow::db {

using test::errorOf;

namespace {

TEST(ConnectionString, IsBuiltFromTheGlobalValues)
{
    gCfgServer = "  host ", gCfgUser = " sa ", gCfgPassword = QString(), gCfgDatabase = " db ";
    EXPECT_EQ(GetConfigConnectString(), "Provider=sqloledb;server=host;uid= sa ;pwd=;database=db");
    EXPECT_EQ(GetVelmoraConnectString(), QString());
    for (QString *needed : {&gCfgServer, &gCfgUser, &gCfgDatabase}) {
        const QString value = std::exchange(*needed, QString());
        EXPECT_EQ(GetConfigConnectString(), QString());
        *needed = " "; // not empty, for that is judged before the blanks go
        EXPECT_NE(GetConfigConnectString(), QString());
        *needed = value;
    }
    gVelmoraServer = "v", gVelmoraUser = "u", gVelmoraPassword = "p;=", gVelmoraDatabase = "d";
    EXPECT_EQ(GetVelmoraConnectString(), "Provider=sqloledb;server=v;uid=u;pwd=p;=;database=d");
    for (QString *value : test::connectionValues())
        value->clear();
}

TEST(ConnectionString, ComesApartWhereThePasswordLooksLikeKeys)
{
    const QStringList values[] = {
        {"host", "sa", ";database=x", "db", ""},
        {"host", "sa", "a;uid=b;pwd=c;App=d;", "db", "varnow"},
        {"host", "sa", "{};'\"=", "a;b=c", "varnow"},
        {"(sqlite)", "a;b", "p", "/folder/a=b.db", "varnow"},
    };
    for (const QStringList &value : values) {
        const QString text = "Provider=sqloledb;server=" + value[0] + ";uid=" + value[1] +
                             ";pwd=" + value[2] + ";database=" + value[3];
        const QString suffix = value[4].isEmpty() ? QString() : ";App=" + value[4];
        for (const QString &whole : {text + suffix, text + ';' + suffix}) {
            const ConnectionValues got = parseConnectionString(whole);
            EXPECT_EQ((QStringList{got.server, got.user, got.password, got.database, got.application}),
                      value);
        }
    }
    const QString form = "Provider=sqloledb;server=h;uid=u;pwd=%1;database=d";
    for (const QString &text :
         {QString(), QString(form).remove(";database=d"), QString(form).replace("uid", "user"),
          QString(form).replace("sqloledb", "other"), form.arg(QChar(0)), form.arg(QChar(0xd800))})
        EXPECT_EQ(errorOf([&] { parseConnectionString(text); }), codes::Failure) << qPrintable(text);
}

TEST(ConnectionString, TakesServerNamesAsSqlServersToolsWriteThem)
{
    const auto odbc = [](const QString &server, const QString &driver) {
        return sqlServerConnectionString({server, "u", "p}", "d", "varnow"}, driver);
    };
    const QString freeTds = "Driver={FreeTDS};Server=%1UID={u};PWD={p}};Database={d};APP={varnow};";
    const QString vendor = "Driver={SQL Server};Server=%1UID={u};PWD={p}}};Database={d};APP={varnow};";
    const QStringList cases[] = {
        {" host ", "{host};TDS_Version=7.4;Port=1433;", "{host,1433};"},
        {"host\\inst,1500", "{host};TDS_Version=7.4;Port=1500;", "{host,1500};"},
        {"(LOCAL)\\inst", "{localhost\\inst};TDS_Version=7.4;", "{localhost\\inst};"},
        {"a;UID=b", "{a;UID=b};TDS_Version=7.4;Port=1433;", "{a;UID=b,1433};"},
    };
    for (const QStringList &given : cases) {
        EXPECT_EQ(odbc(given[0], "FreeTDS"), freeTds.arg(given[1]));
        EXPECT_EQ(odbc(given[0], "SQL Server"), vendor.arg(given[2]));
    }
    for (const QString server : {"", "tcp:", "host,", "host,0", "host,65536", "host,x", ",1433", "\\inst"})
        EXPECT_EQ(errorOf([&] { odbc(server, "FreeTDS"); }), codes::Failure) << qPrintable(server);
}

} // namespace

} // namespace varnow::db

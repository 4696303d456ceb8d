#include "db/connectionString.h"

#include "base/RuntimeError.h"
#include "db/ConfigADOUtilities.h"
#include "db/errorCodes.h"
#include "startup/modGlobals.h"

#include <gtest/gtest.h>

namespace varnow::db {

namespace {

template <class Body> int errorOf(Body body)
{
    try {
        body();
        return 0;
    } catch (const RuntimeError &error) {
        return error.number();
    }
}

QStringList parts(const QString &text)
{
    const ConnectionValues values = parseConnectionString(text);
    return {values.server, values.user, values.password, values.database, values.application};
}

TEST(ConnectionString, IsBuiltFromTheGlobalValues)
{
    gCfgServer = "  host ";
    gCfgUser = " sa ";
    gCfgPassword = QString();
    gCfgDatabase = " db ";
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
    for (QString *value : {&gCfgServer, &gCfgUser, &gCfgDatabase, &gVelmoraServer, &gVelmoraUser,
                           &gVelmoraPassword, &gVelmoraDatabase})
        value->clear();
}

TEST(ConnectionString, ComesApartWhereThePasswordLooksLikeKeys)
{
    const QStringList values[] = {
        {"host", "sa", "", "db", "varnow"},
        {"host", "sa", "secret", "db", ""},
        {"host", "sa", ";database=x", "db", "varnow"},
        {"host", "sa", "a;uid=b;pwd=c;App=d;", "db", "varnow"},
        {"host", "sa", "{};'\"=", "a;b=c", "varnow"},
        {"(sqlite)", "a;b", "p", "/folder/a=b.db", "varnow"},
    };
    for (const QStringList &value : values) {
        const QString text = "Provider=sqloledb;server=" + value[0] + ";uid=" + value[1] +
                             ";pwd=" + value[2] + ";database=" + value[3];
        const QString suffix = value[4].isEmpty() ? QString() : ";App=" + value[4];
        EXPECT_EQ(parts(text + suffix), value);
        EXPECT_EQ(parts(text + ';' + suffix), value);
    }
    for (const QString &text :
         {QString(), QStringLiteral("Provider=sqloledb;server=h;uid=u;pwd=p"),
          QStringLiteral("Provider=other;server=h;uid=u;pwd=p;database=d"),
          QStringLiteral("Provider=sqloledb;server=h;pwd=p;uid=u;database=d"),
          "Provider=sqloledb;server=h;uid=u;pwd=" + QString(QChar(0)) + ";database=d",
          "Provider=sqloledb;server=h;uid=u;pwd=" + QString(QChar(0xd800)) + ";database=d"})
        EXPECT_EQ(errorOf([&] { parseConnectionString(text); }), codes::Failure) << qPrintable(text);
}

TEST(ConnectionString, TakesServerNamesAsSqlServersToolsWriteThem)
{
    const auto odbc = [](const QString &server, const QString &driver) {
        return sqlServerConnectionString({server, "u", "p}", "d", "varnow"}, driver);
    };
    const struct
    {
        QString server, freeTds, vendor;
    } cases[] = {
        {" host ", "Server={host};TDS_Version=7.4;Port=1433;", "Server={host,1433};"},
        {"host, 1500", "Server={host};TDS_Version=7.4;Port=1500;", "Server={host,1500};"},
        {"TCP:host,1500", "Server={host};TDS_Version=7.4;Port=1500;", "Server={host,1500};"},
        {"host\\inst", "Server={host\\inst};TDS_Version=7.4;", "Server={host\\inst};"},
        {"host\\inst,1500", "Server={host};TDS_Version=7.4;Port=1500;", "Server={host,1500};"},
        {".", "Server={localhost};TDS_Version=7.4;Port=1433;", "Server={localhost,1433};"},
        {"(LOCAL)\\inst", "Server={localhost\\inst};TDS_Version=7.4;", "Server={localhost\\inst};"},
        {"a;UID=b", "Server={a;UID=b};TDS_Version=7.4;Port=1433;", "Server={a;UID=b,1433};"},
    };
    for (const auto &given : cases) {
        EXPECT_EQ(odbc(given.server, "FreeTDS"),
                  "Driver={FreeTDS};" + given.freeTds + "UID={u};PWD={p}};Database={d};APP={varnow};");
        EXPECT_EQ(odbc(given.server, "ODBC Driver 18 for SQL Server"),
                  "Driver={ODBC Driver 18 for SQL Server};" + given.vendor +
                      "UID={u};PWD={p}}};Database={d};APP={varnow};");
    }
    for (const QString server : {"", "tcp:", "host,", "host,0", "host,65536", "host,x", ",1433", "\\inst"})
        EXPECT_EQ(errorOf([&] { odbc(server, "FreeTDS"); }), codes::Failure) << qPrintable(server);
}

TEST(ConnectionString, RefusesWhatFreeTdsWouldReadAsAnotherKeyword)
{
    for (std::size_t i = 0; i < 4; ++i) {
        std::array<QString, 4> value{"host", "u", "p", "d"};
        value[i] = "x};Database=evil";
        const ConnectionValues values{value[0], value[1], value[2], value[3], "varnow"};
        EXPECT_EQ(errorOf([&] { sqlServerConnectionString(values, "FreeTDS"); }), codes::Failure) << i;
        EXPECT_EQ(errorOf([&] { sqlServerConnectionString(values, "SQL Server"); }), 0) << i;
    }
}

} // namespace

} // namespace varnow::db

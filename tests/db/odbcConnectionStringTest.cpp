#include "db/odbcConnectionString.h"

#include "db/codes.h"
#include "support/errorOf.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace varnow::db {

using test::errorOf;

namespace {

TEST(OdbcConnectionString, TakesServerNamesAsSqlServersToolsWriteThem)
{
    const auto odbc = [](const QString &server, const QString &driver) {
        return sqlServerConnectionString({server, " d ", " u ", "p}"}, driver);
    };
    const QString freeTds = "DRIVER={FreeTDS};Server=%1UID={ u };PWD={p}};Database={d};APP={varnow};%2";
    const QString vendor = "DRIVER={SQL Server};Server=%1UID={ u };PWD={p}}};Database={d};APP={varnow};%2";
    const std::tuple<QString, QString, QString, bool> cases[] = {
        {" host ", "{host};TDS_Version=7.4;Port=1433;", "{host,1433};", true},
        {"host\\inst,1500", "{host};TDS_Version=7.4;Port=1500;", "{host,1500};", true},
        {"(LOCAL)\\inst", "{localhost\\inst};TDS_Version=7.4;", "{localhost\\inst};", false},
        {"a;UID=b", "{a;UID=b};TDS_Version=7.4;Port=1433;", "{a;UID=b,1433};", true},
    };
    for (const auto &[server, freeTdsServer, vendorServer, isRemote] : cases) {
        EXPECT_EQ(odbc(server, "FreeTDS"), freeTds.arg(freeTdsServer, isRemote ? "Encryption=require;" : ""));
        EXPECT_EQ(odbc(server, "SQL Server"), vendor.arg(vendorServer, isRemote ? "Encrypt=yes;" : ""));
    }
    for (const QString server : {"", "tcp:", "host,", "host,0", "host,65536", "host,x", ",1433", "\\inst"})
        EXPECT_EQ(errorOf([&] { odbc(server, "FreeTDS"); }), codes::Failure) << qPrintable(server);
}

// A password sent in the clear to a machine whose name only looks like this one's.
TEST(OdbcConnectionString, DemandsEncryptionOfEveryServerButThisMachine)
{
    const auto isDemanded = [](const QString &server) {
        const QString freeTds = sqlServerConnectionString({server, "d", "u", "p"}, "FreeTDS");
        const QString vendor = sqlServerConnectionString({server, "d", "u", "p"}, "ODBC Driver 18");
        EXPECT_EQ(freeTds.contains("Encrypt"), freeTds.endsWith("};Encryption=require;"));
        EXPECT_EQ(vendor.contains("Encrypt"), vendor.endsWith("};Encrypt=yes;"));
        EXPECT_EQ(freeTds.contains("Encrypt"), vendor.contains("Encrypt"));
        return freeTds.contains("Encrypt");
    };
    const auto here = QString("127.0.0.1|127.255.0.9,1500|tcp:127.0.0.1|::1|::1,1500|.|.\\inst|(local)|"
                              "(Local)\\inst,1500|localhost| LocalHost |LOCALHOST\\inst")
                          .split('|');
    const auto elsewhere = QString("host|10.0.0.1|128.0.0.1|127.0.0.1.example.com|127.0.0|127.0.0.256|"
                                   "127.0.0.08|1127.0.0.1|0127.0.0.1|127.0.0.٣|127.0.0.1\n|127x0x0x1|::2|"
                                   "localhost.example.com|localhost.|xlocalhost|localhoſt|host\\localhost|"
                                   "localhost;x|.x")
                               .split('|');
    const std::tuple<const char *, bool, bool> settings[] = {{"", false, true},
                                                             {"remote", false, true},
                                                             {"always", true, true},
                                                             {"never", false, false},
                                                             {"Remote", true, true}};
    for (const auto &[setting, ofThisMachine, ofOthers] : settings) {
        qputenv("VARNOW_ENCRYPTION", setting);
        for (const QString &server : here)
            EXPECT_EQ(isDemanded(server), ofThisMachine) << qPrintable(server) << ' ' << setting;
        for (const QString &server : elsewhere)
            EXPECT_EQ(isDemanded(server), ofOthers) << qPrintable(server) << ' ' << setting;
    }
    qunsetenv("VARNOW_ENCRYPTION");
}

} // namespace

} // namespace varnow::db

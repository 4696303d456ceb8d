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
    const QString freeTds = "Driver={FreeTDS};Server=%1UID={ u };PWD={p}};Database={d};APP={varnow};";
    const QString vendor = "Driver={SQL Server};Server=%1UID={ u };PWD={p}}};Database={d};APP={varnow};";
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

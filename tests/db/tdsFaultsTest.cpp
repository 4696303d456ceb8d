// What the database layer makes of a SQL Server that fails, over a real driver and a real socket.

#include "base/RuntimeError.h"
#include "db/ConfigADOUtilities.h"
#include "db/errorCodes.h"
#include "support/TdsServer.h"
#include "support/TestDatabase.h"

#include <future>
#include <gtest/gtest.h>

namespace varnow::test {

using namespace db;

namespace {

const QString select = QStringLiteral("SELECT id, Name FROM LabLineConfig;");
const QString update = QStringLiteral("UPDATE LabLineConfig SET MsgIndex = 7 WHERE id = 1;");

/// The code of a query; one that failed must not leave rows behind.
int query(const QString &sql, int expectedRows = 0)
{
    RecordsetPtr rows;
    const int code = RetrieveRecordset(GetConfigConnectString(), sql, rows);
    if (code == 0) {
        EXPECT_EQ(rows->recordCount(), expectedRows);
    } else if (rows) {
        EXPECT_THROW(rows->recordCount(), RuntimeError);
    }
    return code;
}

int command(const QString &sql)
{
    return CompleteCommand(GetConfigConnectString(), sql);
}

} // namespace

class TdsFaults : public testing::Test
{
protected:
    TestDatabase database{Engine::SqlServer};
    TdsServer &server = *database.server();
};

// A number mapped to the wrong code, or an error that is lost because the driver reports it late.
TEST_F(TdsFaults, EveryErrorNumberHasItsCode)
{
    const std::pair<int, int> codesOfNumbers[] = {
        {102, codes::Syntax},     {207, codes::Syntax},      {208, codes::MissingTable},
        {229, codes::Permission}, {515, codes::Constraint},  {547, codes::Constraint},
        {1205, codes::Failure},   {2627, codes::Constraint}, {8152, codes::DataOverflow},
        {245, codes::Conversion},
    };
    for (const auto &[number, code] : codesOfNumbers) {
        server.failStatements({.number = number});
        EXPECT_EQ(query(select), code) << number;
        EXPECT_EQ(command(update), code) << number;
        EXPECT_EQ(GetNextRecordID(GetConfigConnectString(), "LabLineConfig", "id"), -1) << number;
        server.clearFaults();
    }
    EXPECT_EQ(query(select), 0);
}

// A log-in that fails with a code of its own, or that waits for ever.
TEST_F(TdsFaults, EveryFailedLogInIsOneCode)
{
    const Fault faults[] = {
        {.number = 18456},         {.number = 4060},
        {.kind = Fault::CutOff},   {.kind = Fault::CutOff, .bytes = 20},
        {.kind = Fault::NoAnswer}, {.kind = Fault::Hang},
    };
    for (const Fault &fault : faults) {
        server.failLogins(fault);
        ConnectionPtr connection;
        EXPECT_EQ(OpenComnnection(connection, GetConfigConnectString(), clientCursor, 1), codes::Failure)
            << fault.kind << fault.number;
    }
    server.clearFaults();
    server.stop();
    EXPECT_EQ(query(select), codes::Failure);
    server.start();
    EXPECT_EQ(query(select), 0);
}

// A connection lost on the way to the statement, behind it, or with the server's death in between.
TEST_F(TdsFaults, LostConnection)
{
    server.failStatements({.kind = Fault::CutOff}, "UPDATE");
    EXPECT_EQ(command(update), codes::Failure);

    ConnectionPtr connection;
    ASSERT_EQ(OpenComnnection(connection, GetConfigConnectString(), clientCursor, 5), 0);
    server.stop();
    EXPECT_EQ(ExecuteCommand(std::make_shared<Command>(Command{connection, select})), codes::Failure);
    server.start();
    EXPECT_EQ(query(select), 0);
}

// The worst: a result cut short that passes for a whole one.
TEST_F(TdsFaults, TruncatedResultIsNeverWhole)
{
    constexpr int rowCount = 50;
    database.run(
        "INSERT INTO LabLineConfig (id, Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
        "FROM n WHERE i < 50) SELECT i, printf('%040d', i) FROM n");
    qsizetype bytes = 0;
    // Every byte where columns, the first rows and the second packet are; in between some are enough.
    for (;; bytes += bytes < 300 || bytes > 4000 ? 1 : 13) {
        server.failStatements({.kind = Fault::CutOff, .bytes = bytes});
        const int code = query(select, rowCount);
        server.clearFaults();
        if (code == 0)
            break;
        ASSERT_EQ(code, codes::Failure) << bytes;
    }
    EXPECT_GT(bytes, 4096 + rowCount);
}

// A wait without end. The three waits run at once.
TEST_F(TdsFaults, StatementsTimeOut)
{
    server.failStatements({.kind = Fault::NoAnswer}, "data_extractor_config");
    server.failStatements({.kind = Fault::Hang}, "Misc_upload_constants");
    const auto later = [](const QString &sql) {
        return std::async(std::launch::async, [sql] {
            ConnectionPtr connection;
            EXPECT_EQ(OpenComnnection(connection, GetConfigConnectString(), clientCursor, 1), 0);
            return ExecuteCommand(std::make_shared<Command>(Command{connection, sql}));
        });
    };
    database.run("BEGIN EXCLUSIVE");
    std::future<int> waits[] = {later("DELETE data_extractor_config;"),
                                later("DELETE Misc_upload_constants;"), later(update)};
    for (auto &wait : waits)
        EXPECT_EQ(wait.get(), codes::TimeOut);
    database.run("ROLLBACK");
    EXPECT_EQ(command(update), 0);
}

} // namespace varnow::test

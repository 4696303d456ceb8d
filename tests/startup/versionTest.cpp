// What the login tells about the schema version of either database.

#include "startup/LoginTest.h"

#include "db/ConfigADOUtilities.h"
#include "db/errorCodes.h"
#include "support/TdsServer.h"
#include "ui/Application.h"

#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace varnow::test {

namespace {

/// A bound socket on loopback; once it listens, the system accepts its clients and nobody answers them.
class SilentHost
{
public:
    SilentHost() : m_socket(socket(AF_INET, SOCK_STREAM, 0))
    {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof address;
        auto *const plain = reinterpret_cast<sockaddr *>(&address);
        if (bind(m_socket, plain, size) == 0 && getsockname(m_socket, plain, &size) == 0)
            name = QStringLiteral("127.0.0.1,%1").arg(ntohs(address.sin_port));
    }
    ~SilentHost() { ::close(m_socket); }

    void accept() const { listen(m_socket, 5); }

    QString name;

private:
    const int m_socket;
};

} // namespace

class VersionTest : public LoginTest
{
protected:
    /// Logs in to either database and expects these boxes; without a reminder at their end the start is over.
    void expectBoxes(const Entries &entries, const std::vector<Box> &configuration,
                     const std::vector<Box> &velmora)
    {
        for (const int mode : {0, 1}) {
            EXPECT_EQ(showDialog(mode, {logIn(entries)}), mode == 0 ? configuration : velmora)
                << "mode " << mode;
            EXPECT_EQ(LoginState::SeriousProblem, mode == 0 && configuration.back() != reminder);
            EXPECT_FALSE(LoginState::BadData || LoginState::Canceled);
        }
    }
};

// A verdict that depends on the column's type, on text order, or on another row than the first; a failed
// query that stops the start, or a run-time error that does not.
TEST_P(VersionTest, JudgesTheFirstRowWhateverItsType)
{
    const struct
    {
        QString type, rows;
        std::vector<Box> boxes;
        int errorNumber = 0;
    } cases[] = {
        {"real", "(2.001, 2.008)", exact},
        {"float", "(2.001, 2.008)", exact},
        {"decimal(6, 3)", "(2.001, 2.008)", exact},
        {"nvarchar(20)", "('2.001', ' 2.008 ')", exact},
        {"text", "('2.001', '2.008')", exact},
        // A whole number is all that SQL Server keeps in such a column; SQLite keeps the fraction.
        {"int", "(2.001, 2.008)", GetParam() == Engine::Sqlite ? exact : earlier},
        {"real", "(2.002, 2.009)", newer},
        {"int", "(3, 3)", newer},
        {"nvarchar(20)", "('10.1', '1e1')", newer},
        {"real", "(2.0, 2.0)", earlier},
        {"float", "(2.0009, 2.0079)", earlier},
        {"real", "(NULL, NULL)", earlier},
        {"real", "(2.001, 2.008), (1, 1)", exact},
        {"real", "(1, 1), (2.001, 2.008)", earlier},
        {"real", "", {}, 3021},
        {"nvarchar(20)", "('2.0O1', '2,008')", {}, 13},
        {"nvarchar(20)", "('', ' ')", {}, 13},
        {"datetime", "('2024-03-01T00:00:00', '2024-03-01T00:00:00')", {}, 13},
    };
    for (const auto &[type, rows, boxes, errorNumber] : cases) {
        SCOPED_TRACE(qPrintable(type + " " + rows));
        database.run("DROP TABLE database_version; CREATE TABLE database_version (database_version " + type +
                     ", version " + type + ");");
        if (!rows.isEmpty())
            database.run("INSERT INTO database_version VALUES " + rows);
        if (errorNumber == 0)
            expectBoxes(valid, boxes, boxes);
        else
            expectBoxes(valid, unreadable(errorNumber), {errorBox(errorNumber), earlier[0], reminder});
    }
    database.run("DROP TABLE database_version; CREATE TABLE database_version (other real)");
    expectBoxes(valid, earlier, earlier);
    database.run("DROP TABLE database_version");
    expectBoxes(valid, earlier, earlier);
}

// A database that cannot be opened and whose error is lost, shown twice, or stops the second round.
TEST_P(VersionTest, ReportsADatabaseThatCannotBeOpened)
{
    Entries entries = valid;
    if (TdsServer *server = database.server())
        server->failLogins({.number = 18456});
    else
        entries.database += "x";
    expectBoxes(entries, unreadable(db::codes::Failure), earlier);
    const SilentHost nobodyListens;
    for (const QString &server : {nobodyListens.name, QStringLiteral("no-such-host.invalid")})
        expectBoxes({server, "db", "user", ""}, unreadable(db::codes::Failure), earlier);
}

// A wait without end, or one that leaves the hourglass behind or never shows it.
TEST_P(VersionTest, WaitsForASilentHostUntilTheTimeOut)
{
    const SilentHost host;
    host.accept();
    db::ConnectionPtr connection;
    const QString connectString =
        "Provider=sqloledb;server=" + host.name + ";uid=user;pwd=;database=Configurations";
    EXPECT_EQ(db::OpenComnnection(connection, connectString, db::clientCursor, 1), db::codes::Failure);

    std::vector<int> pointers;
    const auto before = ui::setMessageBoxHandler([&](const QString &, int, const QString &) {
        pointers.push_back(ui::screenPointer());
        return ui::answer::Ok;
    });
    showDialog(0, {logIn(valid)});
    ui::setMessageBoxHandler(before);
    EXPECT_EQ(pointers, (std::vector<int>{11, 11}));
    EXPECT_EQ(ui::screenPointer(), 0);
}

INSTANTIATE_TEST_SUITE_P(Engines, VersionTest, everyEngine(),
                         [](const auto &engine) { return engineName(engine.param); });

} // namespace varnow::test

// What somebody between the program and SQL Server gets to read, and what a connection is worth on which
// that is nothing.

#include "db/Connection.h"
#include "db/codes.h"
#include "support/TdsServer.h"
#include "support/TestDatabase.h"
#include "support/errorOf.h"

#include <algorithm>
#include <future>

namespace varnow::test {

using namespace db;

namespace {

const QString secret = QStringLiteral("geheim ł");

struct Encryption : testing::Test
{
    Encryption() { server.takeWire(); }
    ~Encryption() override
    {
        for (const char *variable : {"VARNOW_ENCRYPTION", "TDSVER", "TDSHOST", "TDSPORT"})
            qunsetenv(variable);
    }

    /// The code of a statement that tells a secret, 0 when it went well.
    int codeOf(const QString &sql = "SELECT " + quoted(secret) + ";")
    {
        return errorOf([&] { Connection(settings).execute(sql); });
    }

    /// Those of the texts that could be read in what arrived since the last look: as they are, or as a
    /// password, which the protocol only disguises.
    QStringList readOnTheWay()
    {
        const QByteArray wire = server.takeWire();
        QStringList found;
        for (const QString &text : {settings.user, settings.password, settings.database, secret}) {
            const QByteArray utf16(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
            QByteArray disguised;
            for (const char c : utf16) {
                const auto byte = static_cast<quint8>(c);
                disguised += static_cast<char>((byte << 4 | byte >> 4) ^ 0xA5);
            }
            const QByteArray forms[] = {text.toUtf8(), utf16, disguised};
            if (std::any_of(std::begin(forms), std::end(forms),
                            [&](const auto &f) { return wire.contains(f); }))
                found += text;
        }
        return found;
    }

    TestDatabase database{Engine::SqlServer};
    ConnectionSettings settings{database.settings().server, "Konfiguration", "Prüferin", "Paßwort"};
    TdsServer &server = *database.server();
};

} // namespace

// A log-in or a statement that travels in the clear against the setting; a slip of the pen that switches
// encryption off.
TEST_F(Encryption, HidesWhatTheSettingWantsHidden)
{
    const QStringList nothing, statement(secret);
    const QStringList everything{settings.user, settings.password, settings.database, secret};
    const auto expect = [this](const QByteArray &setting, int code, const QStringList &read) {
        qputenv("VARNOW_ENCRYPTION", setting);
        EXPECT_EQ(codeOf(), code) << setting.data();
        EXPECT_EQ(readOnTheWay(), read) << setting.data();
    };
    const QByteArray lax[] = {"", "remote", "never"};
    const QByteArray strict[] = {"always", "allways", "Never", " "};
    for (const QByteArray &setting : lax)
        expect(setting, 0, everything);
    const std::size_t logins = server.logins().size();
    for (const QByteArray &setting : strict)
        expect(setting, codes::Failure, nothing);
    EXPECT_EQ(server.logins().size(), logins);

    server.encrypt();
    for (const QByteArray &setting : lax)
        expect(setting, 0, statement);
    for (const QByteArray &setting : strict)
        expect(setting, 0, nothing);
    EXPECT_EQ(server.logins().back().userName, settings.user);
    EXPECT_EQ(server.logins().back().password, settings.password);
}

// A value or a variable of the driver's own that switches encryption off or leads elsewhere.
TEST_F(Encryption, CannotBeTalkedOutOf)
{
    qputenv("VARNOW_ENCRYPTION", "always");
    for (QString *target : {&settings.user, &settings.password, &settings.database}) {
        const QString before = *target;
        for (const QString value :
             {";Encryption=off", "x;Encryption=off;", "x};Encryption=off;", "x;pwd=y;Encryption=off",
              "x;database=y;Encryption=off;", "}Encryption=off", ";TDS_Version=7.0", "x\";Encryption=off;"}) {
            *target = value;
            EXPECT_EQ(codeOf(), codes::Failure) << qPrintable(value);
        }
        *target = before;
    }
    const std::pair<const char *, const char *> variables[] = {
        {"TDSVER", "7.0"}, {"TDSVER", "5.0"}, {"TDSHOST", "127.0.0.2"}, {"TDSPORT", "1"}};
    for (const auto &[name, value] : variables) {
        qputenv(name, value);
        EXPECT_EQ(codeOf(), codes::Failure) << name;
    }
    EXPECT_TRUE(server.logins().empty());
    EXPECT_EQ(readOnTheWay(), QStringList());

    server.encrypt();
    for (const auto &[name, value] : variables) {
        qputenv(name, value);
        EXPECT_EQ(codeOf(), 0) << name;
    }
    EXPECT_EQ(readOnTheWay(), QStringList());
}

// A text, an error or a connection that fares worse encrypted than in the clear.
TEST_F(Encryption, CarriesTextsAndErrorsOfAnySize)
{
    qputenv("VARNOW_ENCRYPTION", "always");
    server.encrypt();
    database.run("CREATE TABLE texts (id int, t ntext)");
    Connection connection(settings);
    for (const int size : {1, 4000, 16'384, 1'000'000}) {
        const QString text = secret.repeated(size / secret.size() + 1);
        connection.execute("INSERT INTO texts VALUES (" + QString::number(size) + ", " + quoted(text) + ");");
        EXPECT_EQ(errorOf([&] { connection.execute("SELECT id FROM Nowhere;"); }), codes::MissingTable);
        const ResultSet back =
            connection.execute("SELECT t FROM texts WHERE id = " + QString::number(size) + ";");
        EXPECT_TRUE(back.value(0).toString() == text) << size;
    }
    for (int size = 1; size <= 64; ++size) {
        server.setPieces(size);
        ASSERT_EQ(connection.execute("SELECT id FROM texts;").rowCount(), 4) << size;
    }
    EXPECT_EQ(readOnTheWay(), QStringList());
}

// A result cut short that passes for a whole one, a wait without end, a connection lost with another code.
TEST_F(Encryption, LosesConnectionsAsUsual)
{
    qputenv("VARNOW_ENCRYPTION", "always");
    server.encrypt();
    const QString select = QStringLiteral("SELECT id, Name FROM LabLineConfig;");
    constexpr int rowCount = 50;
    database.run(
        "INSERT INTO LabLineConfig (id, Name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 "
        "FROM n WHERE i < 50) SELECT i, printf('%040d', i) FROM n");
    for (qsizetype bytes = 0;; bytes += 37) {
        server.failStatements({.kind = Fault::CutOff, .bytes = bytes});
        const int code =
            errorOf([&] { EXPECT_EQ(Connection(settings).execute(select).rowCount(), rowCount); });
        server.clearFaults();
        if (code == 0)
            break;
        ASSERT_EQ(code, codes::Failure) << bytes;
    }
    for (const Fault &fault : {Fault{.number = 18456}, Fault{.kind = Fault::CutOff, .bytes = 20}}) {
        server.failLogins(fault);
        EXPECT_EQ(codeOf(), codes::Failure) << fault.kind;
    }
    server.clearFaults();

    server.failStatements({.kind = Fault::NoAnswer}, "data_extractor_config");
    server.failStatements({.kind = Fault::Hang}, "Misc_upload_constants");
    QList<std::shared_future<int>> waits;
    ConnectionSettings impatient = settings;
    impatient.timeout = 1;
    for (const QString sql : {"DELETE data_extractor_config;", "DELETE Misc_upload_constants;"}) {
        const auto slow = std::make_shared<Connection>(impatient);
        waits += std::async(std::launch::async, [=] { return errorOf([&] { slow->execute(sql); }); }).share();
    }
    server.failLogins({.kind = Fault::Hang});
    EXPECT_EQ(errorOf([&] { Connection{impatient}; }), codes::Failure);
    server.clearFaults();
    for (const auto &wait : waits)
        EXPECT_EQ(wait.get(), codes::TimeOut);

    Connection connection(settings);
    server.stop();
    EXPECT_EQ(errorOf([&] { connection.execute(select); }), codes::Failure);
    server.start();
    EXPECT_EQ(codeOf(), 0);
}

// Somebody who looks for a server's fault or a password's where the encryption is missing, or the other way
// round.
TEST_F(Encryption, IsNamedWhereItMayBeTheReason)
{
    const auto isNamed = [this] {
        try {
            Connection{settings};
        } catch (const RuntimeError &error) {
            return error.description().contains(u"VARNOW_ENCRYPTION");
        }
        return false;
    };
    EXPECT_FALSE(isNamed());
    qputenv("VARNOW_ENCRYPTION", "always");
    EXPECT_TRUE(isNamed());
    server.encrypt();
    server.failLogins({.number = 18456});
    EXPECT_FALSE(isNamed());
    server.stop();
    EXPECT_FALSE(isNamed());
}

} // namespace varnow::test

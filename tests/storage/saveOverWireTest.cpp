// What a save promises while SQL Server fails: the summary counts, memory loses nothing, the next save
// completes what this one left.

#include "base/RuntimeError.h"
#include "support/StorageFixture.h"
#include "support/TdsServer.h"

#include <QDir>

#include <future>
#include <malloc.h>
#include <thread>

namespace varnow::test {

namespace {

const QString standard = QStringLiteral("Standard");

struct SaveOverWire : StorageTest
{
    /// Lines L1 to Ln.
    void storeLines(int count)
    {
        for (int i = 1; i <= count; ++i)
            storeLine(0, standard, QStringLiteral("L%1").arg(i), 0, i);
    }

    /// Saves lines alone and expects the summary.
    void expectSave(int errors, int correct)
    {
        EXPECT_EQ(save(), 0);
        expectMessages({summary(linesSaved, errors, correct), nothingToSave});
    }

    QStringList rows() { return database.run("SELECT id, Name, MsgIndex FROM LabLineConfig ORDER BY id"); }

    TdsServer &server = *database.server();
};

/// A save of twenty records: one row is deleted, ten are updated and nine inserted.
struct TwentyRecords : Storage
{
    TwentyRecords() : Storage(Engine::SqlServer)
    {
        const QString ids =
            "WITH RECURSIVE n(id) AS (SELECT 1 UNION SELECT id + 1 FROM n WHERE id < 6) SELECT id";
        database.run("INSERT INTO LabLineConfig (id, Configuration, Name, NameIndex) " + ids +
                     ", 'S', 'L' || id, 0 FROM n;"
                     "INSERT INTO LabLineFieldConfig (id, Configuration, Name, NameIndex, Line, LineIndex) " +
                     ids + ", 'S', 'F' || id, 0, 'PID', 0 FROM n WHERE id < 6");
        for (int i = 1; i <= 11; ++i)
            storeLine(i, "S", "L" + QString::number(i), 0, i);
        lines.remove(5);
        for (int i = 1; i <= 9; ++i)
            fields.store(field("S", "F" + QString::number(i), i));
    }

    /// Saves and adds up the errors in the summaries.
    int errorsOfSave()
    {
        EXPECT_EQ(save(), 0);
        int errors = 0;
        for (const QString &message : run.takeMessages())
            errors += message.section("\r\n", 1).trimmed().section(' ', 0, 0).toInt();
        return errors;
    }

    QStringList rows()
    {
        return database.run("SELECT Name, MsgIndex FROM LabLineConfig UNION ALL "
                            "SELECT Name, Position FROM LabLineFieldConfig ORDER BY Name");
    }

    void expectTheNextSaveToComplete(const QStringList &expectedRows)
    {
        server.clearFaults();
        server.stop();
        server.start();
        EXPECT_EQ(errorsOfSave(), 0);
        EXPECT_EQ(rows(), expectedRows);
        EXPECT_TRUE(lines.removed().empty());
    }

    TdsServer &server = *database.server();
};

} // namespace

ON_ENGINES(SaveOverWire, Engine::SqlServer);

// Faults: a connection for every statement, or one that stays open while the user reads or between two runs.
TEST_P(SaveOverWire, KeepsOneConnectionForEachRun)
{
    run.onMessage = [this](const QString &text) { EXPECT_TRUE(server.waitUntilLeft()) << qPrintable(text); };
    const auto expectLogins = [this](int count, const std::function<void()> &work) {
        const std::size_t before = server.logins().size();
        work();
        server.waitUntilLeft();
        EXPECT_EQ(server.logins().size(), before + std::size_t(count));
    };
    expectLogins(1, [this] { load(); });
    storeLines(3);
    fields.store(field(standard, "A", 1));
    lines.removeRow({});
    lines.removeRow({});
    expectLogins(3, [this] { save(); });
    expectLogins(1, [this] { adoptIds(); });
    database.run("DROP TABLE LabLineFieldConfig");
    expectLogins(1, [this] { load(); });
    EXPECT_EQ(run.takeMessages().size(), 5);
}

// Faults: a look-up whose failure passes for "no row" and gives its record a second one, a change sent twice,
// a connection that is used on after its end or given up without need, an error that is not counted, stops
// the run, or keeps its record from the next save.
TEST(TwentyRecords, AreSavedOnceWhicheverStatementFails)
{
    TwentyRecords undisturbed;
    EXPECT_EQ(undisturbed.errorsOfSave(), 0);
    const QStringList rows = undisturbed.rows();
    const QStringList statements = undisturbed.server.statements();
    EXPECT_EQ(rows.size(), 19);
    ASSERT_EQ(statements.size(), 1 + 10 * 2 + 9 * 3);
    const auto changes = [&](qsizetype from, qsizetype count) {
        const QStringList some = statements.mid(from, count);
        return int(some.size() - some.filter(QLatin1String("SELECT")).size());
    };
    const Fault cut{.kind = Fault::CutOff};
    const int numbers[] = {102, 547, 1205, 1222, 8152};
    for (qsizetype i = 0; i < statements.size(); ++i) {
        // what happens at this statement and the next, and the errors that the summaries may count
        const std::tuple<const char *, std::vector<Fault>, int> cases[] = {
            {"error", {{.number = numbers[i % 5]}}, 1},
            {"lost", {cut}, changes(i, 1)},
            {"lost again", {cut, cut}, 1},
            {"server restarted behind it", {{.kind = Fault::CutOff, .bytes = 100'000}}, changes(i + 1, 1)},
            {"server killed", {{.kind = Fault::Death}}, 20 - changes(0, i)},
        };
        for (const auto &[what, faults, errors] : cases) {
            SCOPED_TRACE(testing::Message() << what << " at " << i << ": " << qPrintable(statements[i]));
            TwentyRecords records;
            for (std::size_t later = 0; later < faults.size(); ++later)
                records.server.failStatements(faults[later], {}, int(i) + 1 + int(later));
            EXPECT_EQ(records.errorsOfSave(), errors);
            records.expectTheNextSaveToComplete(rows);
        }
    }
}

// The same for waits: without an answer, as behind a lock, and without any sign of life.
TEST(TwentyRecords, AreSavedOnceWhicheverStatementIsNotAnswered)
{
    TwentyRecords undisturbed;
    undisturbed.errorsOfSave();
    std::vector<std::future<void>> saves;
    for (const char *statement : {"DELETE", "SELECT id", "MAX(id)", "UPDATE", "INSERT"}) {
        for (const Fault::Kind kind : {Fault::NoAnswer, Fault::Hang}) {
            saves.push_back(std::async(std::launch::async, [=, rows = undisturbed.rows()] {
                SCOPED_TRACE(testing::Message() << statement << kind);
                TwentyRecords records;
                records.settings.timeout = 2;
                records.server.failStatements({.kind = kind}, statement, 1);
                EXPECT_EQ(records.errorsOfSave(), 1);
                records.expectTheNextSaveToComplete(rows);
            }));
        }
    }
}

// Faults: a result cut short that passes for a whole one or fills the table twice, a load that gives up
// although the server is there, lines lost with a connection.
TEST_P(SaveOverWire, LoadsAgainWhatWasLostOnTheWay)
{
    storeLines(100);
    fields.store(field(standard, "A", 1));
    EXPECT_EQ(save(), 0);
    run.takeMessages();
    for (const char *table : {"LabLineConfig", "LabLineFieldConfig"}) {
        for (const qsizetype bytes : {0, 1000, 100'000}) {
            emptyModel();
            server.failStatements({.kind = Fault::CutOff, .bytes = bytes}, table, 1);
            EXPECT_EQ(load(), 0);
            EXPECT_EQ(lines.size() + fields.size(), 101) << table << bytes;
            expectMessages({});
            server.clearFaults();
        }
    }
}

// Fault: a query for a user who has stopped waiting while the server was slow to let him in.
TEST_P(SaveOverWire, AsksNothingWhenNobodyWaits)
{
    server.setDelay(1000);
    run.goesOn = [this](const QString &, int) { return server.logins().empty(); };
    EXPECT_EQ(load(), errors::UserInterrupt);
    server.waitUntilLeft();
    EXPECT_EQ(server.statements(), QStringList());
}

// Fault: an editor that takes an identifier another one took meanwhile, and overwrites or loses a line.
TEST_P(SaveOverWire, CountsALineWhoseIdentifierAnotherEditorTakesFirst)
{
    storeLine(0, standard, "Mine", 0, 1);
    database.run("BEGIN IMMEDIATE; INSERT INTO LabLineConfig (id, Name, MsgIndex) VALUES (1, 'Other', 1)");
    std::jthread other([this] { // commits when ours has its identifier and waits for the lock
        while (server.statements().filter("INSERT").isEmpty())
            std::this_thread::yield();
        database.run("COMMIT");
    });
    expectSave(1, 0);
    expectSave(0, 1);
    EXPECT_EQ(rows(), (QStringList{"1|Other|1", "2|Mine|1"}));
}

// Fault: a handle, socket, descriptor or memory left behind by a save that succeeds or fails.
TEST_P(SaveOverWire, LeaksNothingInAThousandSaves)
{
    const auto inUse = [this] {
        server.waitUntilLeft();
        return std::pair(
            QDir("/proc/self/fd").entryList(QDir::NoDotAndDotDot | QDir::AllEntries | QDir::System).size(),
            qint64(mallinfo2().uordblks));
    };
    storeLines(1);
    expectSave(0, 1); // loads the driver
    const auto [descriptors, bytes] = inUse();
    for (int i = 0; i < 1000; ++i)
        expectSave(0, 1);
    server.failStatements({.number = 547}, "UPDATE", 1);
    server.failStatements({.kind = Fault::CutOff, .bytes = 30}, "UPDATE");
    for (int i = 0; i < 100; ++i)
        expectSave(1, 0);
    const auto [descriptorsNow, bytesNow] = inUse();
    EXPECT_EQ(descriptorsNow, descriptors);
    // The server's own record of what arrived takes 1.5 kB for a save; a lost connection would take far more.
    EXPECT_LT(bytesNow - bytes, 1100 * 2500);
}

} // namespace varnow::test

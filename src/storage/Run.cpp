#include "storage/Run.h"

#include "base/guarded.h"
#include "base/text.h"
#include "db/Connection.h"
#include "db/codes.h"

#include <atomic>
#include <chrono>
#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace varnow {

namespace {

constexpr qint64 longestTransaction = 250; // milliseconds

bool succeeds(const std::function<void()> &step)
{
    return guarded([&] { return step(), true; }, [](const RuntimeError &) { return false; });
}

/// Runs a statement on a connection, opened before where there is none, and gives the connection up when it
/// died of it.
db::ResultSet execute(std::unique_ptr<db::Connection> &connection, const db::ConnectionSettings &database,
                      const QString &sql, const db::RowObserver &onRow)
{
    if (!connection)
        connection = std::make_unique<db::Connection>(database);
    try {
        return connection->execute(sql, onRow);
    } catch (const RuntimeError &) {
        if (connection->isDead())
            connection.reset();
        throw;
    }
}

/// The same for a query, which is sent once more when the connection was lost.
db::ResultSet query(std::unique_ptr<db::Connection> &connection, const db::ConnectionSettings &database,
                    const QString &sql, const db::RowObserver &onRow)
{
    if (!connection)
        connection = std::make_unique<db::Connection>(database); // not tried twice
    try {
        return execute(connection, database, sql, onRow);
    } catch (const RuntimeError &error) {
        if (connection || error.number() != db::codes::Failure)
            throw;
    }
    return execute(connection, database, sql, onRow);
}

/// A query that runs in a thread of its own, so that the user can be served meanwhile. The thread shares it,
/// for it may end long after the user has stopped waiting.
struct BackgroundQuery
{
    db::ConnectionSettings database;
    QString sql;
    std::unique_ptr<db::Connection> connection;
    std::atomic<bool> isStopped = false;
    std::atomic<int> rows = 0;
    std::atomic<bool> isConnected = false;
    std::promise<db::ResultSet> result;

    void run()
    {
        try {
            if (!connection)
                connection = std::make_unique<db::Connection>(database);
            isConnected = true;
            if (!isStopped)
                result.set_value(query(connection, database, sql, [this] { return ++rows, !isStopped; }));
        } catch (...) {
            result.set_exception(std::current_exception());
        }
    }
};

/// Waits until the query is done. Raises errors::UserInterrupt when the user does not.
void await(const BackgroundQuery &query, const std::future<db::ResultSet> &result, RunObserver &observer,
           const QString &what)
{
    const auto isDone = [&result] {
        return result.wait_for(std::chrono::milliseconds(20)) == std::future_status::ready;
    };
    const auto goOn = [](bool wanted) {
        if (!wanted)
            throw RuntimeError(errors::UserInterrupt);
    };
    {
        RunPart connecting(observer, "Connecting to " + trim(query.database.server));
        while (!query.isConnected && !isDone())
            goOn(connecting.advance(0));
    }
    RunPart reading(observer, what);
    for (int seen = 0; !isDone();) {
        const int rows = query.rows;
        goOn(reading.advance(rows - seen));
        seen = rows;
    }
}

} // namespace

Run::Run(const db::ConnectionSettings &database, RunObserver &observer)
    : m_database(database), m_observer(observer)
{
}

Run::~Run() = default;

void Run::close()
{
    m_connection.reset();
}

db::ResultSet Run::load(const QString &what, const QString &sql)
{
    const auto query = std::make_shared<BackgroundQuery>();
    query->database = m_database;
    query->sql = sql;
    query->isConnected = m_connection != nullptr;
    query->connection = std::exchange(m_connection, {});
    std::future<db::ResultSet> result = query->result.get_future();
    std::thread thread([query] { query->run(); });
    try {
        await(*query, result, m_observer, what);
    } catch (...) {
        query->isStopped = true;
        thread.detach();
        throw;
    }
    thread.join();
    m_connection = std::move(query->connection);
    return result.get();
}

db::ResultSet Run::query(const QString &sql)
{
    return varnow::query(m_connection, m_database, sql, {});
}

void Run::change(const QString &sql)
{
    execute(m_connection, m_database, sql, {});
}

void Run::showMessage(const QString &text)
{
    close();
    m_observer.showMessage(text);
}

bool Run::tryChange(const QString &sql)
{
    return succeeds([&] { change(sql); });
}

bool Run::beginTransaction()
{
    switch (m_database.dialect()) {
    case db::Dialect::SqlServer:
        return false;
    case db::Dialect::Sqlite:
        return tryChange(QStringLiteral("BEGIN IMMEDIATE;"));
    }
    Q_UNREACHABLE();
}

bool Run::commitTransaction()
{
    if (tryChange(QStringLiteral("COMMIT;")))
        return true;
    tryChange(QStringLiteral("ROLLBACK;")); // fails where the database has done so
    return false;
}

void RunSteps::add(const std::function<void()> &step, const std::function<void()> &done)
{
    if (m_triesTransactions && !m_isTransactionOpen) {
        m_isTransactionOpen = m_triesTransactions = m_run.beginTransaction();
        m_sinceTransactionBegan.start();
    }
    const Step added{step, done, succeeds(step)};
    if (!m_isTransactionOpen) {
        conclude(added);
        return;
    }
    m_group.push_back(added);
    // The database may have given up the whole group at a failure, which its end will show.
    if (!added.succeeded || m_sinceTransactionBegan.elapsed() >= longestTransaction)
        finish();
}

void RunSteps::finish()
{
    if (!std::exchange(m_isTransactionOpen, false))
        return;
    const std::vector<Step> group = std::exchange(m_group, {});
    const bool committed = m_run.commitTransaction();
    for (Step step : group) {
        if (!committed)
            step.succeeded = m_run.observer().advance(0) && succeeds(step.run);
        conclude(step);
    }
}

void RunSteps::conclude(const Step &step)
{
    if (step.succeeded)
        step.done();
    else
        ++m_errorCount;
}

} // namespace varnow

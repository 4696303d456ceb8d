#pragma once

#include "base/RunObserver.h"

#include <QElapsedTimer>

#include <functional>
#include <memory>
#include <vector>

namespace varnow {

namespace db {
class Connection;
class ResultSet;
struct ConnectionSettings;
} // namespace db

/// A run over the database. All its statements go over one connection, which is opened with the first of them
/// and closed with the run; one that died is replaced.
class Run
{
public:
    /// Both must outlive the run.
    Run(const db::ConnectionSettings &database, RunObserver &observer);
    ~Run();
    Run(const Run &) = delete;
    Run &operator=(const Run &) = delete;

    RunObserver &observer() { return m_observer; }

    /// The rows of a query that may take long. While it is waited for, the user sees `what` is going on and
    /// may stop it, which raises errors::UserInterrupt.
    db::ResultSet load(const QString &what, const QString &sql);

    /// The rows of a query. When the connection was lost, it is sent once more on a fresh one. Raises the
    /// provider's error code.
    db::ResultSet query(const QString &sql);

    /// Runs a statement that changes rows. It is never sent twice: nobody knows whether one whose answer was
    /// lost has run. Raises the provider's error code.
    void change(const QString &sql);

    /// Closes the connection. The next statement opens another one.
    void close();

    /// Shows a message. Nothing stays open while the user reads it.
    void showMessage(const QString &text);

    /// Begins a group of statements that are committed together. Returns false where each is committed by
    /// itself: on an engine where that costs no more, and when the group cannot begin.
    bool beginTransaction();
    /// Commits the group. Returns false when that failed; then none of its statements has changed anything.
    bool commitTransaction();

private:
    bool tryChange(const QString &sql);

    const db::ConnectionSettings &m_database;
    RunObserver &m_observer;
    std::unique_ptr<db::Connection> m_connection;
};

/// The steps of a run, one for each record. Where the engine waits for the disk at every commit, those of a
/// quarter of a second are committed together; a group that cannot be committed is taken back and its steps
/// run again, each by itself.
class RunSteps
{
public:
    explicit RunSteps(Run &run) : m_run(run) {}

    /// Runs a step, which raises an error when it fails. `done` is called when what it wrote is committed.
    void add(const std::function<void()> &step, const std::function<void()> &done);
    /// Commits what is not yet. To be called after the last step.
    void finish();

    /// Number of steps that failed, once they are finished.
    int errorCount() const { return m_errorCount; }

private:
    struct Step
    {
        std::function<void()> run;
        std::function<void()> done;
        bool succeeded;
    };

    void conclude(const Step &step);

    Run &m_run;
    std::vector<Step> m_group;
    QElapsedTimer m_sinceTransactionBegan;
    bool m_isTransactionOpen = false;
    bool m_triesTransactions = true;
    int m_errorCount = 0;
};

} // namespace varnow

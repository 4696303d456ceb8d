#pragma once

#include "support/TdsProtocol.h"

#include <QString>
#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <list>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace varnow::test {

namespace tds {
class Database;
}

/// What goes wrong with an answer.
struct Fault
{
    enum Kind {
        Error,    ///< the error `number` is the answer
        NoAnswer, ///< nothing comes until the client cancels, as behind a long row lock
        Hang,     ///< nothing comes, whatever the client does
        CutOff,   ///< the connection closes after `bytes` bytes of the answer
        Death     ///< the statement runs, then the server dies without an answer until start()
    };
    Kind kind = Error;
    int number = 0;
    qsizetype bytes = 0;
};

/// A server on 127.0.0.1 that speaks SQL Server's protocol over the tables of an SQLite file, and fails on
/// demand. It accepts every log-in. All of it may be called while clients are connected.
class TdsServer
{
public:
    /// Starts to listen on a free port.
    explicit TdsServer(const QString &sqliteFile);
    ~TdsServer();
    TdsServer(const TdsServer &) = delete;
    TdsServer &operator=(const TdsServer &) = delete;

    int port() const { return m_port; }

    /// Dies: stops to listen and closes every connection at once.
    void stop();
    /// Comes back on the same port.
    void start();

    /// What arrived so far: log-ins, and the statements other than the options that a driver sets.
    std::vector<Login> logins() const;
    QStringList statements() const;
    /// Waits until no client is connected, but not for ever on one that stays.
    void waitUntilLeft();

    /// The next log-ins fail: an error such as 18456 or 4060, or no proper answer.
    void failLogins(const Fault &fault);
    /// Statements that contain the text fail: all of them, or the n-th counted from 1.
    void failStatements(const Fault &fault, const QString &containing = QString(), int nth = 0);
    /// Ends all faults.
    void clearFaults();

    /// Every answer comes that much later.
    void setDelay(int milliseconds);
    /// Answers come in packets of that many bytes, written that many bytes at a time; 0 means whole.
    void setPieces(int bytes);

private:
    struct Session
    {
        int socket;
        bool finished = false;
        std::jthread thread{};
    };
    struct StatementFault
    {
        Fault fault;
        QString containing;
        int nth;
        int seen = 0;
    };

    void die();
    void acceptClients();
    void serve(Session &session);
    void talk(int socket);
    bool logIn(int socket, const QByteArray &record);
    bool runBatch(int socket, tds::Database &database, const QString &batch);
    bool fail(int socket, const Fault &fault, const QByteArray &tokens);
    bool send(int socket, const QByteArray &tokens, std::optional<qsizetype> cutOff = {});
    std::optional<Fault> faultFor(const QString &statement);

    QString m_file;
    int m_port = 0;
    int m_listener = -1;
    std::jthread m_acceptor;

    mutable std::mutex m_mutex; // guards all below
    std::condition_variable_any m_changed;
    std::list<Session> m_sessions;
    std::vector<Login> m_logins;
    QStringList m_statements;
    std::optional<Fault> m_loginFault;
    std::vector<StatementFault> m_statementFaults;
    std::chrono::milliseconds m_delay{0};
    int m_pieces = 0;
    bool m_stopping = false;
};

} // namespace varnow::test

#pragma once

#include "support/TdsDatabase.h"
#include "support/TdsProtocol.h"

#include <QStringList>
#include <QTcpServer>
#include <QThread>

#include <functional>
#include <optional>
#include <vector>

namespace varnow::test {

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
/// demand. It accepts every log-in and encrypts nothing unless it is told to. All of it may be called while
/// clients are connected.
class TdsServer
{
public:
    /// Starts to listen on a free port.
    explicit TdsServer(const QString &sqliteFile);
    ~TdsServer();

    int port() const { return m_port; }

    /// Dies: stops to listen and closes every connection at once.
    void stop();
    /// Comes back on the same port.
    void start();

    /// What arrived so far: log-ins, and the statements other than the options that a driver sets.
    std::vector<Login> logins() { return copyOf(m_logins); }
    QStringList statements() { return copyOf(m_statements); }
    /// Every byte that came in since the last call, as somebody on the way sees it. The first call starts
    /// the record.
    QByteArray takeWire()
    {
        std::optional<QByteArray> bytes(QByteArray{});
        inThread([&] { m_wire.swap(bytes); });
        return bytes.value_or(QByteArray());
    }
    /// Waits until no client is connected, but not for ever on one that stays. Returns whether all have left.
    bool waitUntilLeft();

    /// The next log-ins fail: an error such as 18456 or 4060, or no proper answer.
    void failLogins(const Fault &fault)
    {
        inThread([&] { m_loginFault = fault; });
    }
    /// Statements that contain the text fail: all of them, or the n-th counted from 1.
    void failStatements(const Fault &fault, const QString &containing = QString(), int nth = 0)
    {
        inThread([&] { m_statementFaults.push_back({fault, containing, nth}); });
    }
    /// Ends all faults.
    void clearFaults()
    {
        inThread([this] { m_loginFault.reset(), m_statementFaults.clear(); });
    }

    /// From now on encrypts what new clients ask for: everything, or the log-in alone.
    void encrypt()
    {
        inThread([this] { m_encrypts = true; });
    }
    /// Every answer comes that much later.
    void setDelay(int milliseconds)
    {
        inThread([=, this] { m_delay = milliseconds; });
    }
    /// Answers come in packets of that many bytes, written that many bytes at a time; 0 means whole.
    void setPieces(int bytes)
    {
        inThread([=, this] { m_pieces = bytes; });
    }

private:
    class Session;
    struct StatementFault
    {
        Fault fault;
        QString containing;
        int nth;
        int seen = 0;
    };

    void inThread(const std::function<void()> &work);
    template <class Value> Value copyOf(const Value &value)
    {
        Value copy;
        inThread([&] { copy = value; });
        return copy;
    }
    void die();
    std::optional<Fault> faultFor(const QString &statement);

    int m_port = 0;
    QThread m_thread; // the only one that touches what follows
    QTcpServer m_listener;
    tds::Database m_database;
    std::vector<Login> m_logins;
    QStringList m_statements;
    std::optional<QByteArray> m_wire;
    bool m_encrypts = false;
    std::optional<Fault> m_loginFault;
    std::vector<StatementFault> m_statementFaults;
    int m_delay = 0;
    int m_pieces = 0;
};

} // namespace varnow::test

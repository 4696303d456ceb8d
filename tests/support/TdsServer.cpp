#include "support/TdsServer.h"

#include "support/TdsDatabase.h"

#include <algorithm>
#include <arpa/inet.h>
#include <cstdio>
#include <cstdlib>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace varnow::test {

using namespace tds;

namespace {

constexpr int packetPayload = 4096 - 8;

/// A socket that listens on 127.0.0.1; port 0 picks a free one and receives its number.
int listenOn(int &port)
{
    const int listener = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const int yes = 1;
    setsockopt(listener, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes); // to come back on the same port
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<in_port_t>(port));
    auto *const plain = reinterpret_cast<sockaddr *>(&address);
    socklen_t size = sizeof address;
    if (bind(listener, plain, size) != 0 || listen(listener, SOMAXCONN) != 0 ||
        getsockname(listener, plain, &size) != 0) {
        perror("loopback server");
        abort();
    }
    port = ntohs(address.sin_port);
    return listener;
}

} // namespace

TdsServer::TdsServer(const QString &sqliteFile) : m_file(sqliteFile)
{
    start();
}

TdsServer::~TdsServer()
{
    stop();
}

void TdsServer::start()
{
    stop();
    m_stopping = false;
    m_listener = listenOn(m_port);
    m_acceptor = std::jthread([this] { acceptClients(); });
}

void TdsServer::stop()
{
    if (!m_acceptor.joinable())
        return;
    shutdown(m_listener, SHUT_RDWR); // ends accept()
    m_acceptor.join();
    die(); // nobody comes any more
    close(m_listener);

    std::list<Session> ending; // joins the threads, which need the lock to end
    const std::lock_guard lock(m_mutex);
    ending.swap(m_sessions);
}

/// Ends every connection; the threads end by themselves.
void TdsServer::die()
{
    shutdown(m_listener, SHUT_RDWR); // ends accept()
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        for (const Session &session : m_sessions)
            if (!session.finished)
                shutdown(session.socket, SHUT_RDWR); // ends recv() and send()
    }
    m_changed.notify_all();
}

void TdsServer::acceptClients()
{
    for (int client; (client = accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC)) >= 0;) {
        const int yes = 1;
        setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &yes, sizeof yes);
        const std::lock_guard lock(m_mutex);
        m_sessions.remove_if([](const Session &session) { return session.finished; });
        Session &session = m_sessions.emplace_back(client);
        session.thread = std::jthread([this, &session] { serve(session); });
    }
}

void TdsServer::serve(Session &session)
{
    talk(session.socket);
    const std::lock_guard lock(m_mutex);
    close(session.socket);
    session.finished = true;
    m_changed.notify_all();
}

void TdsServer::talk(int socket)
{
    Database database(m_file, [socket] { // interrupted when the client cancels or leaves
        pollfd news{socket, POLLIN, 0};
        return poll(&news, 1, 5) != 0;
    });
    for (bool on = true; on;) {
        const auto message = receive(socket);
        if (!message)
            return;
        switch (message->type) {
        case Packet::PreLogin:
            on = sendBytes(socket, packets(preLoginAnswer(), packetPayload), 0); // never split by any server
            break;
        case Packet::Login:
            on = logIn(socket, message->body);
            break;
        case Packet::Batch:
            on = runBatch(socket, database, batchText(message->body));
            break;
        case Packet::Attention:
            on = send(socket, doneToken(DoneAttention));
            break;
        default:
            on = false;
        }
    }
}

bool TdsServer::logIn(int socket, const QByteArray &record)
{
    const Login login = parseLogin(record);
    std::optional<Fault> fault;
    {
        const std::lock_guard lock(m_mutex);
        m_logins.push_back(login);
        fault = m_loginFault;
    }
    const QByteArray accepted = loginAccepted();
    if (!fault)
        return send(socket, accepted);
    fail(socket, *fault, accepted);
    return fault->kind == Fault::NoAnswer;
}

bool TdsServer::runBatch(int socket, Database &database, const QString &batch)
{
    const auto fault = faultFor(batch);
    if (fault && fault->kind != Fault::CutOff && fault->kind != Fault::Death)
        return fail(socket, *fault, QByteArray());
    const QByteArray tokens = database.run(batch);
    if (tokens.isNull())
        return true; // interrupted: the client's cancel comes next
    return fault ? fail(socket, *fault, tokens) : send(socket, tokens);
}

/// Lets an answer go wrong. False when the connection has to close.
bool TdsServer::fail(int socket, const Fault &fault, const QByteArray &tokens)
{
    switch (fault.kind) {
    case Fault::Error:
        return send(socket, errorToken(fault.number, "as the test wants it") + doneToken(DoneError));
    case Fault::NoAnswer:
        return true;
    case Fault::Hang:
        while (receive(socket)) {
        }
        return false;
    case Fault::Death:
        die();
        return false;
    case Fault::CutOff:
        send(socket, tokens, fault.bytes);
        return false;
    }
    return false;
}

bool TdsServer::send(int socket, const QByteArray &tokens, std::optional<qsizetype> cutOff)
{
    int pieces = 0;
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait_for(lock, m_delay, [this] { return m_stopping; });
        pieces = m_pieces;
    }
    const QByteArray bytes = packets(tokens, pieces ? pieces : packetPayload);
    return sendBytes(socket, cutOff ? bytes.left(*cutOff) : bytes, pieces);
}

std::optional<Fault> TdsServer::faultFor(const QString &statement)
{
    if (isSessionOption(statement))
        return std::nullopt;
    const std::lock_guard lock(m_mutex);
    m_statements.append(statement);
    std::optional<Fault> found;
    for (StatementFault &candidate : m_statementFaults) {
        if (!statement.contains(candidate.containing))
            continue;
        ++candidate.seen;
        if (!found && (candidate.nth == 0 || candidate.nth == candidate.seen))
            found = candidate.fault;
    }
    return found;
}

std::vector<Login> TdsServer::logins() const
{
    const std::lock_guard lock(m_mutex);
    return m_logins;
}

QStringList TdsServer::statements() const
{
    const std::lock_guard lock(m_mutex);
    return m_statements;
}

void TdsServer::waitUntilLeft()
{
    std::unique_lock lock(m_mutex);
    const auto left = [](const Session &session) { return session.finished; };
    m_changed.wait_for(lock, std::chrono::seconds(10),
                       [&] { return std::all_of(m_sessions.begin(), m_sessions.end(), left); });
    m_sessions.remove_if(left);
}

void TdsServer::failLogins(const Fault &fault)
{
    const std::lock_guard lock(m_mutex);
    m_loginFault = fault;
}

void TdsServer::failStatements(const Fault &fault, const QString &containing, int nth)
{
    const std::lock_guard lock(m_mutex);
    m_statementFaults.push_back({fault, containing, nth});
}

void TdsServer::clearFaults()
{
    const std::lock_guard lock(m_mutex);
    m_loginFault.reset();
    m_statementFaults.clear();
}

void TdsServer::setDelay(int milliseconds)
{
    const std::lock_guard lock(m_mutex);
    m_delay = std::chrono::milliseconds(milliseconds);
}

void TdsServer::setPieces(int bytes)
{
    const std::lock_guard lock(m_mutex);
    m_pieces = bytes;
}

} // namespace varnow::test

#include "support/TdsServer.h"

#include "support/TdsEncryption.h"

#include <QDeadlineTimer>
#include <QTcpSocket>
#include <QTimer>

namespace varnow::test {

using namespace tds;

/// The conversation with one client. It lives in the server's thread and ends with its socket.
class TdsServer::Session : public QObject
{
public:
    Session(TdsServer &server, QTcpSocket *socket) : QObject(socket), m_server(server), m_socket(*socket)
    {
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        m_lockWait.setSingleShot(true);
        connect(&m_lockWait, &QTimer::timeout, this, [this] { runBatch(); });
        connect(socket, &QTcpSocket::readyRead, this, [this] { read(); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }

private:
    void read()
    {
        const QByteArray arrived = m_socket.readAll();
        if (m_server.m_wire)
            *m_server.m_wire += arrived;
        m_received +=
            m_encryption && m_encryption->isEstablished() ? m_encryption->decrypt(arrived) : arrived;
        while (const auto message = m_isDeaf ? std::nullopt : takeMessage(m_received))
            answer(*message);
    }

    void answer(const Message &message)
    {
        switch (message.type) {
        case Packet::PreLogin:
            answerPreLogin(message.body);
            break;
        case Packet::Login:
            if (m_encrypted == Encrypted::LoginOnly)
                m_encryption.reset();
            m_server.m_logins.push_back(parseLogin(message.body));
            answerWith(loginAccepted(m_server.m_logins.back().database), m_server.m_loginFault);
            break;
        case Packet::Batch:
            m_batch = batchText(message.body);
            m_fault = m_server.faultFor(m_batch);
            runBatch();
            break;
        case Packet::Attention:
            m_lockWait.stop();
            send(doneToken(DoneAttention));
            break;
        default:
            m_socket.abort();
        }
    }

    /// Agrees on what is encrypted; what comes in such packets behind that is the handshake.
    void answerPreLogin(const QByteArray &body)
    {
        if (m_encryption) {
            m_socket.write(packets(m_encryption->shakeHands(body), packetPayload, Packet::PreLogin));
            return;
        }
        m_encrypted = m_server.m_encrypts ? encryptionAsked(body) : Encrypted::Nothing;
        if (m_encrypted != Encrypted::Nothing)
            m_encryption.emplace();
        m_socket.write(packets(preLoginAnswer(m_encrypted), packetPayload)); // never split by any server
    }

    void runBatch()
    {
        const bool runs = !m_fault || m_fault->kind == Fault::CutOff || m_fault->kind == Fault::Death;
        const QByteArray tokens = runs ? m_server.m_database.run(m_batch) : "";
        if (tokens.isNull())
            m_lockWait.start(5);
        else
            answerWith(tokens, m_fault);
    }

    void answerWith(const QByteArray &tokens, const std::optional<Fault> &fault)
    {
        if (!fault)
            return send(tokens);
        switch (fault->kind) {
        case Fault::Error:
            return send(errorToken(fault->number, "as the test wants it") + doneToken(DoneError));
        case Fault::NoAnswer:
            return;
        case Fault::Hang:
            m_isDeaf = true;
            return;
        case Fault::CutOff:
            m_socket.write(onWire(packets(tokens, packetPayload)).left(fault->bytes));
            return m_socket.disconnectFromHost();
        case Fault::Death:
            m_server.die();
        }
    }

    void send(const QByteArray &tokens)
    {
        QTimer::singleShot(m_server.m_delay, Qt::PreciseTimer, this, [this, tokens] {
            const int pieces = m_server.m_pieces;
            const QByteArray bytes = onWire(packets(tokens, pieces ? pieces : packetPayload));
            const qsizetype piece = pieces ? pieces : bytes.size();
            for (qsizetype at = 0; at < bytes.size(); at += piece) {
                m_socket.write(bytes.mid(at, piece));
                m_socket.flush();
                QThread::yieldCurrentThread(); // lets the client see the piece before the next one joins it
            }
        });
    }

    QByteArray onWire(const QByteArray &bytes) { return m_encryption ? m_encryption->encrypt(bytes) : bytes; }

    static constexpr int packetPayload = 4096 - 8;

    TdsServer &m_server;
    QTcpSocket &m_socket;
    QByteArray m_received; // in the clear
    Encrypted m_encrypted = Encrypted::Nothing;
    std::optional<Encryption> m_encryption;
    QString m_batch;
    std::optional<Fault> m_fault; // of the batch
    QTimer m_lockWait;
    bool m_isDeaf = false;
};

TdsServer::TdsServer(const QString &sqliteFile) : m_database(sqliteFile)
{
    m_listener.moveToThread(&m_thread);
    QObject::connect(&m_listener, &QTcpServer::newConnection, &m_listener, [this] {
        while (QTcpSocket *client = m_listener.nextPendingConnection())
            new Session(*this, client);
    });
    m_thread.start();
    start();
}

TdsServer::~TdsServer()
{
    stop();
    m_thread.quit();
    m_thread.wait();
}

void TdsServer::start()
{
    inThread([this] {
        if (!m_listener.listen(QHostAddress::LocalHost, static_cast<quint16>(m_port)))
            qFatal("loopback server: %s", qPrintable(m_listener.errorString()));
        m_port = m_listener.serverPort();
    });
}

void TdsServer::stop()
{
    inThread([this] { die(); });
}

/// Runs work in the server's thread and waits for its end.
void TdsServer::inThread(const std::function<void()> &work)
{
    QMetaObject::invokeMethod(&m_listener, work, Qt::BlockingQueuedConnection);
}

void TdsServer::die()
{
    m_listener.close();
    for (QTcpSocket *client : m_listener.findChildren<QTcpSocket *>())
        client->abort();
}

std::optional<Fault> TdsServer::faultFor(const QString &statement)
{
    if (isSessionOption(statement))
        return std::nullopt;
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

bool TdsServer::waitUntilLeft()
{
    const QDeadlineTimer deadline(10'000);
    bool left = false;
    for (; !left && !deadline.hasExpired(); QThread::yieldCurrentThread())
        inThread([&] { left = m_listener.findChildren<QTcpSocket *>().isEmpty(); });
    return left;
}

} // namespace varnow::test

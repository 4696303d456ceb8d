#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The wire format of SQL Server's protocol, TDS 7.4: packets, the log-in record, and the tokens of an answer
// other than columns and rows.

namespace varnow::test {

/// What a client said about itself when it logged in.
struct Login
{
    QString userName;
    QString password;
    QString appName;
    QString database;
};

namespace tds {

/// Kinds of packets.
enum class Packet : quint8 { Batch = 1, Answer = 4, Attention = 6, Login = 16, PreLogin = 18 };

/// A whole message, put together from its packets.
struct Message
{
    Packet type{};
    QByteArray body;
};

/// Takes the first message out of what has arrived; nothing while its end is missing.
std::optional<Message> takeMessage(QByteArray &received);

/// The packets of an answer, each with at most `payload` bytes of it.
QByteArray packets(const QByteArray &answer, int payload, Packet type = Packet::Answer);

/// What of a conversation is encrypted, as either side says it before the log-in.
enum class Encrypted : quint8 { LoginOnly = 0, Everything = 1, Nothing = 2 };

/// What a pre-login message asks for.
Encrypted encryptionAsked(const QByteArray &preLogin);

/// The answer to a pre-login message.
QByteArray preLoginAnswer(Encrypted encrypted);

/// Takes a log-in record apart.
Login parseLogin(const QByteArray &record);

/// Text of an SQL batch.
QString batchText(const QByteArray &body);

/// Appends a whole number in little-endian order.
template <class Number> void put(QByteArray &out, Number number)
{
    for (std::size_t i = 0; i < sizeof(Number); ++i)
        out.append(static_cast<char>(static_cast<quint64>(number) >> (8 * i)));
}

/// Appends the UTF-16 of a text after its length in characters, a number of type Length.
template <class Length> void putText(QByteArray &out, const QString &text)
{
    put(out, static_cast<Length>(text.size()));
    out.append(reinterpret_cast<const char *>(text.utf16()), 2 * text.size());
}

/// Tokens that accept a log-in to a database.
QByteArray loginAccepted(const QString &database);

/// Token of an error message.
QByteArray errorToken(int number, const QString &message);

/// Flags of a DONE token.
enum DoneFlag : quint16 { DoneFinal = 0, DoneMore = 1, DoneError = 2, DoneCount = 16, DoneAttention = 32 };

/// Token that ends the result of a statement.
QByteArray doneToken(int flags, qint64 rowCount = 0);

} // namespace tds
} // namespace varnow::test

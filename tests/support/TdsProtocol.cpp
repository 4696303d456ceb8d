#include "support/TdsProtocol.h"

#include <QtEndian>

namespace varnow::test::tds {

namespace {

constexpr int headerSize = 8;
constexpr char endOfMessage = 1;

enum Token : quint8 { Error = 0xAA, LoginAck = 0xAD, EnvironmentChange = 0xE3, Done = 0xFD };

template <class Number> Number littleEndian(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<Number>(bytes.data() + at);
}

QString utf16(const QByteArray &bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    qFromLittleEndian<char16_t>(bytes.data(), text.size(), text.data());
    return text;
}

/// A token with its two-byte length.
QByteArray token(Token type, const QByteArray &body)
{
    QByteArray out(1, static_cast<char>(type));
    put(out, static_cast<quint16>(body.size()));
    return out + body;
}

} // namespace

std::optional<Message> takeMessage(QByteArray &received)
{
    Message message;
    for (qsizetype at = 0; at + headerSize <= received.size();) {
        const qsizetype size = qFromBigEndian<quint16>(received.data() + at + 2);
        if (size < headerSize || at + size > received.size())
            break;
        message.type = static_cast<Packet>(received[at]);
        message.body += received.mid(at + headerSize, size - headerSize);
        const bool isLast = received[at + 1] & endOfMessage;
        at += size;
        if (isLast) {
            received.remove(0, at);
            return message;
        }
    }
    return std::nullopt;
}

QByteArray packets(const QByteArray &answer, int payload, Packet type)
{
    QByteArray out;
    quint8 number = 1;
    for (qsizetype at = 0; at < answer.size(); at += payload, ++number) {
        const QByteArray part = answer.mid(at, payload);
        const bool last = at + payload >= answer.size();
        put(out, static_cast<quint8>(type));
        put(out, static_cast<quint8>(last ? endOfMessage : 0));
        put(out, qToBigEndian(static_cast<quint16>(part.size() + headerSize)));
        put(out, quint16{0});
        put(out, number);
        put(out, quint8{0});
        out += part;
    }
    return out;
}

// A pre-login message holds options, each with its number, offset and size (big-endian), an end mark, then
// their values.

Encrypted encryptionAsked(const QByteArray &preLogin)
{
    for (qsizetype at = 0; at + 5 <= preLogin.size() && preLogin[at] != '\xFF'; at += 5)
        if (preLogin[at] == 1)
            return static_cast<Encrypted>(preLogin.at(qFromBigEndian<quint16>(preLogin.data() + at + 1)));
    return Encrypted::Nothing;
}

QByteArray preLoginAnswer(Encrypted encrypted)
{
    static constexpr char answer[] = "\x00\x00\x0B\x00\x06" // version: 6 bytes at 11
                                     "\x01\x00\x11\x00\x01" // encryption: 1 byte at 17
                                     "\xFF"
                                     "\x0F\x00\x07\xD0\x00\x00"; // 15.0.2000.0
    return QByteArray(answer, sizeof answer - 1) + static_cast<char>(encrypted);
}

Login parseLogin(const QByteArray &record)
{
    // The fixed part ends with pairs of offset and length (in characters) of the texts behind it.
    const auto bytes = [&record](int entry) {
        return record.mid(littleEndian<quint16>(record, entry), 2 * littleEndian<quint16>(record, entry + 2));
    };
    QByteArray password = bytes(44);
    for (char &c : password) {
        const auto byte = static_cast<quint8>(static_cast<quint8>(c) ^ 0xA5u);
        c = static_cast<char>((byte << 4 | byte >> 4) & 0xFF);
    }
    return {utf16(bytes(40)), utf16(password), utf16(bytes(48)), utf16(bytes(68))};
}

QString batchText(const QByteArray &body)
{
    return utf16(body.mid(littleEndian<quint32>(body, 0))); // behind headers, whose size comes first
}

QByteArray loginAccepted(const QString &database)
{
    QByteArray change(1, '\x01'); // of the database
    putText<quint8>(change, database);
    putText<quint8>(change, QStringLiteral("master"));

    QByteArray acknowledgement("\x01\x74\x00\x00\x04", 5); // speaks T-SQL, version 7.4
    putText<quint8>(acknowledgement, QStringLiteral("Microsoft SQL Server"));
    acknowledgement.append("\x0F\x00\x07\xD0", 4);

    return token(EnvironmentChange, change) + token(LoginAck, acknowledgement) + doneToken(DoneFinal);
}

QByteArray errorToken(int number, const QString &message)
{
    QByteArray body;
    put(body, static_cast<qint32>(number));
    body.append("\x01\x10"); // state and severity
    putText<quint16>(body, message);
    putText<quint8>(body, QStringLiteral("loopback"));
    putText<quint8>(body, QString());
    put(body, qint32{1}); // line
    return token(Error, body);
}

QByteArray doneToken(int flags, qint64 rowCount)
{
    QByteArray out(1, static_cast<char>(Done));
    put(out, static_cast<quint32>(flags)); // two bytes, then two of the command that is done
    put(out, rowCount);
    return out;
}

} // namespace varnow::test::tds

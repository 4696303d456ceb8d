#include "support/TdsProtocol.h"

#include <QtEndian>

#include <algorithm>
#include <sys/socket.h>
#include <thread>

namespace varnow::test::tds {

namespace {

constexpr int headerSize = 8;
constexpr char endOfMessage = 1;

enum Token : quint8 { Error = 0xAA, LoginAck = 0xAD, Done = 0xFD };

bool receiveExactly(int socket, QByteArray &bytes)
{
    const auto size = static_cast<size_t>(bytes.size());
    return size == 0 || recv(socket, bytes.data(), size, MSG_WAITALL) == bytes.size();
}

template <class Number> Number littleEndian(const QByteArray &bytes, qsizetype at)
{
    return qFromLittleEndian<Number>(bytes.data() + at);
}

QString utf16(const QByteArray &bytes)
{
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::copy_n(bytes.data(), 2 * text.size(), reinterpret_cast<char *>(text.data()));
    return text;
}

/// A token with its two-byte length.
QByteArray token(Token type, const QByteArray &body)
{
    QByteArray out;
    put(out, static_cast<quint8>(type));
    put(out, static_cast<quint16>(body.size()));
    return out + body;
}

} // namespace

std::optional<Message> receive(int socket)
{
    Message message{};
    QByteArray header(headerSize, '\0');
    do {
        if (!receiveExactly(socket, header))
            return std::nullopt;
        QByteArray payload(qFromBigEndian<quint16>(header.data() + 2) - headerSize, '\0');
        if (!receiveExactly(socket, payload))
            return std::nullopt;
        message.type = static_cast<Packet>(header[0]);
        message.body += payload;
    } while (!(header[1] & endOfMessage));
    return message;
}

bool sendBytes(int socket, const QByteArray &bytes, int segment)
{
    for (qsizetype sent = 0; sent < bytes.size();) {
        const qsizetype rest = bytes.size() - sent;
        const auto size = static_cast<size_t>(segment ? std::min<qsizetype>(segment, rest) : rest);
        const auto n = ::send(socket, bytes.data() + sent, size, MSG_NOSIGNAL);
        if (n <= 0)
            return false;
        sent += n;
        if (segment)
            std::this_thread::yield(); // lets the client see the piece before the next one joins it
    }
    return true;
}

QByteArray packets(const QByteArray &answer, int payload)
{
    QByteArray out;
    quint8 number = 1;
    for (qsizetype at = 0; at < answer.size(); at += payload, ++number) {
        const QByteArray part = answer.mid(at, payload);
        const bool last = at + payload >= answer.size();
        put(out, static_cast<quint8>(Packet::Answer));
        put(out, static_cast<quint8>(last ? endOfMessage : 0));
        put(out, qToBigEndian(static_cast<quint16>(part.size() + headerSize)));
        put(out, quint16{0});
        put(out, number);
        put(out, quint8{0});
        out += part;
    }
    return out;
}

QByteArray preLoginAnswer()
{
    // Two options, each with its number, offset and size (big-endian), an end mark, then their values.
    static constexpr char answer[] = "\x00\x00\x0B\x00\x06" // version: 6 bytes at 11
                                     "\x01\x00\x11\x00\x01" // encryption: 1 byte at 17
                                     "\xFF"
                                     "\x0F\x00\x07\xD0\x00\x00" // 15.0.2000.0
                                     "\x02";                    // not supported
    return QByteArray(answer, sizeof answer - 1);
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

QByteArray loginAccepted()
{
    QByteArray acknowledgement;
    put(acknowledgement, quint8{1}); // speaks T-SQL
    acknowledgement.append(QByteArray("\x74\x00\x00\x04", 4));
    putText<quint8>(acknowledgement, QStringLiteral("Microsoft SQL Server"));
    acknowledgement.append(QByteArray("\x0F\x00\x07\xD0", 4));

    return token(LoginAck, acknowledgement) + doneToken(DoneFinal);
}

QByteArray errorToken(int number, const QString &message)
{
    QByteArray body;
    put(body, static_cast<qint32>(number));
    put(body, quint8{1});  // state
    put(body, quint8{16}); // severity
    putText<quint16>(body, message);
    putText<quint8>(body, QStringLiteral("loopback"));
    putText<quint8>(body, QString());
    put(body, qint32{1}); // line
    return token(Error, body);
}

QByteArray doneToken(int flags, qint64 rowCount)
{
    QByteArray out;
    put(out, static_cast<quint8>(Done));
    put(out, static_cast<quint16>(flags));
    put(out, quint16{0});
    put(out, rowCount);
    return out;
}

} // namespace varnow::test::tds

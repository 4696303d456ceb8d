#pragma once

#include <QByteArray>

#include <gnutls/gnutls.h>

namespace varnow::test::tds {

/// The server's end of one encrypted conversation. It knows nothing of sockets: bytes go in, bytes come out.
/// It speaks TLS 1.2 as SQL Server does inside this protocol, with a certificate that nobody has signed.
class Encryption
{
public:
    Encryption();
    ~Encryption();
    Encryption(const Encryption &) = delete;
    Encryption &operator=(const Encryption &) = delete;

    /// The next step of the handshake: what the client said, and what it hears.
    QByteArray shakeHands(const QByteArray &said);
    /// True when the handshake is over.
    bool isEstablished() const { return m_isEstablished; }

    QByteArray encrypt(const QByteArray &text);
    /// As much of the text as has arrived whole.
    QByteArray decrypt(const QByteArray &bytes);

private:
    static ssize_t pull(void *self, void *target, std::size_t size);
    static ssize_t push(void *self, const void *bytes, std::size_t size);

    gnutls_session_t m_session{};
    bool m_isEstablished = false;
    QByteArray m_in;  // not yet read by the library
    QByteArray m_out; // not yet handed on
};

} // namespace varnow::test::tds

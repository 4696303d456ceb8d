#include "support/TdsEncryption.h"

#include <QtGlobal>

#include <gnutls/x509.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <utility>

namespace varnow::test::tds {

namespace {

void check(int result)
{
    if (result < 0)
        qFatal("loopback server: %s", gnutls_strerror(result));
}

/// One for all servers, made at the first need: no key lies in the sources.
gnutls_certificate_credentials_t makeCredentials()
{
    gnutls_x509_privkey_t key{};
    check(gnutls_x509_privkey_init(&key));
    check(gnutls_x509_privkey_generate(key, GNUTLS_PK_ECDSA, GNUTLS_CURVE_TO_BITS(GNUTLS_ECC_CURVE_SECP256R1),
                                       0));

    gnutls_x509_crt_t certificate{};
    check(gnutls_x509_crt_init(&certificate));
    check(gnutls_x509_crt_set_version(certificate, 3));
    check(gnutls_x509_crt_set_serial(certificate, "\x01", 1));
    check(gnutls_x509_crt_set_dn(certificate, "CN=loopback", nullptr));
    const std::time_t now = std::time(nullptr);
    check(gnutls_x509_crt_set_activation_time(certificate, now - 3600));
    check(gnutls_x509_crt_set_expiration_time(certificate, now + 86'400));
    check(gnutls_x509_crt_set_key(certificate, key));
    check(gnutls_x509_crt_sign2(certificate, certificate, key, GNUTLS_DIG_SHA256, 0));

    gnutls_certificate_credentials_t credentials{};
    check(gnutls_certificate_allocate_credentials(&credentials));
    check(gnutls_certificate_set_x509_key(credentials, &certificate, 1, key));
    gnutls_x509_crt_deinit(certificate);
    gnutls_x509_privkey_deinit(key);
    return credentials;
}

} // namespace

Encryption::Encryption()
{
    static const gnutls_certificate_credentials_t credentials = makeCredentials();
    check(gnutls_init(&m_session, GNUTLS_SERVER | GNUTLS_NONBLOCK));
    // FreeTDS 1.3.17 never comes to the end of a handshake of TLS 1.3.
    check(gnutls_priority_set_direct(m_session, "NORMAL:-VERS-ALL:+VERS-TLS1.2", nullptr));
    check(gnutls_credentials_set(m_session, GNUTLS_CRD_CERTIFICATE, credentials));
    gnutls_transport_set_ptr(m_session, this);
    gnutls_transport_set_pull_function(m_session, pull);
    gnutls_transport_set_push_function(m_session, push);
}

Encryption::~Encryption()
{
    gnutls_deinit(m_session);
}

ssize_t Encryption::pull(void *self, void *target, std::size_t size)
{
    auto &encryption = *static_cast<Encryption *>(self);
    const QByteArray bytes = encryption.m_in.left(static_cast<qsizetype>(size));
    if (bytes.isEmpty()) {
        gnutls_transport_set_errno(encryption.m_session, EAGAIN);
        return -1;
    }
    encryption.m_in.remove(0, bytes.size());
    std::copy(bytes.begin(), bytes.end(), static_cast<char *>(target));
    return bytes.size();
}

ssize_t Encryption::push(void *self, const void *bytes, std::size_t size)
{
    static_cast<Encryption *>(self)->m_out.append(static_cast<const char *>(bytes),
                                                  static_cast<qsizetype>(size));
    return static_cast<ssize_t>(size);
}

QByteArray Encryption::shakeHands(const QByteArray &said)
{
    m_in += said;
    m_isEstablished = gnutls_handshake(m_session) == GNUTLS_E_SUCCESS;
    return std::exchange(m_out, {});
}

QByteArray Encryption::encrypt(const QByteArray &text)
{
    for (qsizetype at = 0; at < text.size();) {
        const auto sent =
            gnutls_record_send(m_session, text.data() + at, static_cast<std::size_t>(text.size() - at));
        check(static_cast<int>(sent));
        at += sent;
    }
    return std::exchange(m_out, {});
}

QByteArray Encryption::decrypt(const QByteArray &bytes)
{
    m_in += bytes;
    QByteArray text;
    std::array<char, 16384> record; // the largest that there is
    for (;;) {
        const auto size = gnutls_record_recv(m_session, record.data(), record.size());
        if (size <= 0)
            return text;
        text.append(record.data(), size);
    }
}

} // namespace varnow::test::tds

#include "tests/support/tlschannel.h"

#include <QTcpSocket>

#include <openssl/pem.h>
#include <openssl/ssl.h>

#include <algorithm>

namespace {

template <class Object, class Read, class Free>
std::unique_ptr<Object, Free> fromPem(const QByteArray &pem, Read read, Free free)
{
    const std::unique_ptr<BIO, decltype(&BIO_free)> memory(
        BIO_new_mem_buf(pem.constData(), pem.size()), BIO_free);
    return {read(memory.get(), nullptr, nullptr, nullptr), free};
}

SSL *serverOf(const TestCertificates::KeyPair &pair)
{
    const std::unique_ptr<SSL_CTX, decltype(&SSL_CTX_free)> context(
        SSL_CTX_new(TLS_server_method()), SSL_CTX_free);
    const auto certificate = fromPem<X509>(pair.certificate, PEM_read_bio_X509, X509_free);
    const auto key = fromPem<EVP_PKEY>(pair.key, PEM_read_bio_PrivateKey, EVP_PKEY_free);
    if (SSL_CTX_use_certificate(context.get(), certificate.get()) != 1 ||
        SSL_CTX_use_PrivateKey(context.get(), key.get()) != 1)
        qFatal("a key and a certificate that do not fit");
    SSL *tls = SSL_new(context.get());
    SSL_set_bio(tls, BIO_new(BIO_s_mem()), BIO_new(BIO_s_mem()));
    SSL_set_accept_state(tls);
    return tls;
}

} // namespace

TlsChannel::TlsChannel(QTcpSocket *socket, const TestCertificates::KeyPair &pair)
    : m_socket(socket), m_tls(serverOf(pair), SSL_free)
{
}

TlsChannel::~TlsChannel() = default;

QByteArray TlsChannel::read()
{
    const QByteArray arrived = m_socket->readAll();
    BIO_write(SSL_get_rbio(m_tls.get()), arrived.constData(), arrived.size());
    QByteArray said;
    char bytes[16 * 1024];
    int count = 0;
    while ((count = SSL_read(m_tls.get(), bytes, int(sizeof bytes))) > 0)
        said.append(bytes, count);
    const int reason = SSL_get_error(m_tls.get(), count);
    flush();
    if (reason == SSL_ERROR_SSL || reason == SSL_ERROR_ZERO_RETURN)
        m_socket->disconnectFromHost();
    return said;
}

// In pieces: a large reply is in memory only once more.
void TlsChannel::write(const QByteArray &bytes)
{
    constexpr int Piece = 1024 * 1024;
    for (int at = 0; at < bytes.size(); at += Piece) {
        SSL_write(m_tls.get(), bytes.constData() + at, std::min(Piece, bytes.size() - at));
        flush();
    }
}

void TlsChannel::end()
{
    SSL_shutdown(m_tls.get());
    flush();
}

void TlsChannel::flush()
{
    BIO *out = SSL_get_wbio(m_tls.get());
    char *bytes = nullptr;
    const long count = BIO_get_mem_data(out, &bytes);
    if (count > 0)
        m_socket->write(bytes, count);
    BIO_reset(out);
}

// The server's end of an encrypted connection. By OpenSSL on every system: what Qt
// encrypts with on Windows is of use to clients only.
#pragma once

#include "tests/support/testcertificates.h"

#include <memory>

class QTcpSocket;
struct ssl_st;

class TlsChannel
{
public:
    // The socket is connected, and lives longer.
    TlsChannel(QTcpSocket *socket, const TestCertificates::KeyPair &pair);
    ~TlsChannel();

    // What the client says, of what has arrived so far. Answers its handshake.
    QByteArray read();
    void write(const QByteArray &bytes); // once the client has said something
    void end();                          // nothing is written after this

private:
    void flush();

    QTcpSocket *m_socket;
    std::unique_ptr<ssl_st, void (*)(ssl_st *)> m_tls;
};

// Certificates for servers in tests, made when they are first asked for and signed
// by an authority of the process's own.
#pragma once

#include <QByteArray>
#include <QString>

namespace TestCertificates {

enum Kind
{
    Proper, // for localhost and 127.0.0.1
    SelfSigned,
    Expired,
    WrongHost
};

// What a server listens with, as PEM.
struct KeyPair
{
    QByteArray key;
    QByteArray certificate;
};
KeyPair server(Kind kind);

// The authority that signed all but the self-signed one, as PEM.
QByteArray authority();
// The same in a file, for clients that want a path. Lives as long as the process.
QString authorityFile();

} // namespace TestCertificates

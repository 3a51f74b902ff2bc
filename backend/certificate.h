// The back end's certificate, and the authority of its own that signs it: clients
// trust the authority's file and verify the rest as they would any server's.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

class DataFolder;

struct CertificateOptions
{
    QStringList hosts{QStringLiteral("127.0.0.1"), QStringLiteral("localhost")};
    // Seconds from now.
    qint64 validFrom = -3600;
    qint64 validUntil = 365LL * 24 * 3600;
};

// PEM texts.
struct KeyPair
{
    QByteArray certificate, key;
    bool isNull() const { return certificate.isEmpty() || key.isEmpty(); }
};

namespace Certificates {

// Null when the library fails, which it does only without memory or random numbers.
KeyPair makeAuthority();
KeyPair makeLeaf(const KeyPair &authority, const CertificateOptions &options);

// Whether both belong together, the authority signed the certificate, and both are
// good for another month.
bool isUsable(const KeyPair &authority, const KeyPair &leaf);

struct Files
{
    QString authority; // the certificate for clients
    KeyPair leaf;
};

// The folder's pair, made anew when it is missing, damaged or about to expire.
// With `special`, the authority's files and a certificate made for this time only.
// *problem is set, and the pair null, when files cannot be written.
Files provide(const DataFolder &folder, const CertificateOptions *special, QString *problem);

} // namespace Certificates

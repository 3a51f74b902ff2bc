#include "backend/certificate.h"

#include "backend/datafolder.h"

#include <QFile>
#include <QHostAddress>

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <memory>

namespace {
constexpr qint64 Day = 24 * 3600;
constexpr qint64 AuthorityLife = 10 * 365 * Day;
constexpr qint64 LeastRest = 30 * Day;

template <auto function> struct Free
{
    template <typename T> void operator()(T *object) const { function(object); }
};
using KeyHandle = std::unique_ptr<EVP_PKEY, Free<EVP_PKEY_free>>;
using CertificateHandle = std::unique_ptr<X509, Free<X509_free>>;
using BioHandle = std::unique_ptr<BIO, Free<BIO_free_all>>;
using ExtensionHandle = std::unique_ptr<X509_EXTENSION, Free<X509_EXTENSION_free>>;
using NumberHandle = std::unique_ptr<BIGNUM, Free<BN_free>>;

BioHandle reader(const QByteArray &pem)
{
    return BioHandle(BIO_new_mem_buf(pem.constData(), pem.size()));
}

QByteArray content(const BioHandle &bio)
{
    char *bytes = nullptr;
    const long size = BIO_get_mem_data(bio.get(), &bytes);
    return QByteArray(bytes, int(size));
}

CertificateHandle certificateOf(const KeyPair &pair)
{
    return CertificateHandle(
        PEM_read_bio_X509(reader(pair.certificate).get(), nullptr, nullptr, nullptr));
}

KeyHandle keyOf(const KeyPair &pair)
{
    return KeyHandle(PEM_read_bio_PrivateKey(reader(pair.key).get(), nullptr, nullptr, nullptr));
}

KeyPair pemOf(X509 *certificate, EVP_PKEY *key)
{
    const BioHandle certificateText(BIO_new(BIO_s_mem()));
    const BioHandle keyText(BIO_new(BIO_s_mem()));
    if (!PEM_write_bio_X509(certificateText.get(), certificate) ||
        !PEM_write_bio_PrivateKey(keyText.get(), key, nullptr, nullptr, 0, nullptr, nullptr))
        return {};
    return {content(certificateText), content(keyText)};
}

void addExtension(X509 *certificate, X509 *issuer, int kind, const QByteArray &value)
{
    X509V3_CTX context;
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    const ExtensionHandle extension(
        X509V3_EXT_conf_nid(nullptr, &context, kind, value.constData()));
    if (extension)
        X509_add_ext(certificate, extension.get(), -1);
}

// Without extensions and signature yet.
CertificateHandle blank(EVP_PKEY *key, const char *name, qint64 from, qint64 until)
{
    CertificateHandle certificate(X509_new());
    X509_set_version(certificate.get(), X509_VERSION_3);
    const NumberHandle serial(BN_new());
    BN_rand(serial.get(), 127, BN_RAND_TOP_ANY, BN_RAND_BOTTOM_ANY);
    BN_to_ASN1_INTEGER(serial.get(), X509_get_serialNumber(certificate.get()));
    X509_gmtime_adj(X509_getm_notBefore(certificate.get()), long(from));
    X509_gmtime_adj(X509_getm_notAfter(certificate.get()), long(until));
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate.get()), "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char *>(name), -1, -1, 0);
    X509_set_pubkey(certificate.get(), key);
    return certificate;
}

QByteArray alternativeNames(const QStringList &hosts)
{
    QByteArrayList names;
    for (const QString &host : hosts) {
        const bool isAddress = !QHostAddress(host).isNull();
        names.append((isAddress ? "IP:" : "DNS:") + host.toLatin1());
    }
    return names.join(',');
}

bool lasts(const X509 *certificate)
{
    int days = 0, seconds = 0;
    ASN1_TIME_diff(&days, &seconds, nullptr, X509_get0_notAfter(certificate));
    const bool hasBegun = X509_cmp_current_time(X509_get0_notBefore(certificate)) < 0;
    return hasBegun && days * Day + seconds > LeastRest;
}

QByteArray fileContent(const QString &name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

struct StoredPair
{
    QString certificateFile, keyFile;

    KeyPair read() const { return {fileContent(certificateFile), fileContent(keyFile)}; }
    bool write(const KeyPair &pair, QString *problem) const
    {
        return writeOwnerOnly(keyFile, pair.key, problem) &&
               writeOwnerOnly(certificateFile, pair.certificate, problem);
    }
};
} // namespace

namespace Certificates {

KeyPair makeAuthority()
{
    const KeyHandle key(EVP_EC_gen("P-256"));
    if (!key)
        return {};
    const CertificateHandle own =
        blank(key.get(), "Sample back end authority", -3600, AuthorityLife);
    X509_set_issuer_name(own.get(), X509_get_subject_name(own.get()));
    addExtension(own.get(), own.get(), NID_basic_constraints, "critical,CA:TRUE,pathlen:0");
    addExtension(own.get(), own.get(), NID_key_usage, "critical,keyCertSign,cRLSign");
    addExtension(own.get(), own.get(), NID_subject_key_identifier, "hash");
    if (!X509_sign(own.get(), key.get(), EVP_sha256()))
        return {};
    return pemOf(own.get(), key.get());
}

KeyPair makeLeaf(const KeyPair &authority, const CertificateOptions &options)
{
    const CertificateHandle issuer = certificateOf(authority);
    const KeyHandle issuerKey = keyOf(authority);
    const KeyHandle key(EVP_EC_gen("P-256"));
    if (!issuer || !issuerKey || !key)
        return {};
    const CertificateHandle own =
        blank(key.get(), "Sample back end", options.validFrom, options.validUntil);
    X509_set_issuer_name(own.get(), X509_get_subject_name(issuer.get()));
    addExtension(own.get(), issuer.get(), NID_basic_constraints, "critical,CA:FALSE");
    addExtension(own.get(), issuer.get(), NID_key_usage, "critical,digitalSignature");
    addExtension(own.get(), issuer.get(), NID_ext_key_usage, "serverAuth");
    addExtension(own.get(), issuer.get(), NID_subject_key_identifier, "hash");
    addExtension(own.get(), issuer.get(), NID_authority_key_identifier, "keyid");
    addExtension(own.get(), issuer.get(), NID_subject_alt_name, alternativeNames(options.hosts));
    if (!X509_sign(own.get(), issuerKey.get(), EVP_sha256()))
        return {};
    return pemOf(own.get(), key.get());
}

bool isUsable(const KeyPair &authority, const KeyPair &leaf)
{
    const CertificateHandle issuer = certificateOf(authority);
    const CertificateHandle own = certificateOf(leaf);
    const KeyHandle issuerKey = keyOf(authority);
    const KeyHandle key = keyOf(leaf);
    return issuer && own && issuerKey && key && X509_check_private_key(own.get(), key.get()) == 1 &&
           X509_check_private_key(issuer.get(), issuerKey.get()) == 1 &&
           X509_verify(own.get(), issuerKey.get()) == 1 && lasts(issuer.get()) && lasts(own.get());
}

Files provide(const DataFolder &folder, const CertificateOptions *special, QString *problem)
{
    const StoredPair authorityFiles{folder.path(QStringLiteral("ca.pem")),
                                    folder.path(QStringLiteral("ca-key.pem"))};
    const StoredPair leafFiles{folder.path(QStringLiteral("server.pem")),
                               folder.path(QStringLiteral("server-key.pem"))};
    KeyPair authority = authorityFiles.read();
    KeyPair leaf = leafFiles.read();
    if (!isUsable(authority, leaf)) {
        // A sound authority is kept: clients may have its file already.
        leaf = makeLeaf(authority, {});
        if (!isUsable(authority, leaf)) {
            authority = makeAuthority();
            leaf = makeLeaf(authority, {});
            if (!authorityFiles.write(authority, problem))
                return {};
        }
        if (!leafFiles.write(leaf, problem))
            return {};
    }
    if (special)
        leaf = makeLeaf(authority, *special);
    if (leaf.isNull())
        *problem = QStringLiteral("no certificate could be made");
    return {authorityFiles.certificateFile, leaf};
}

} // namespace Certificates

#include "tests/support/testcertificates.h"

#include <QTemporaryFile>

#include <openssl/ec.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <memory>

namespace {

constexpr long Day = 24 * 60 * 60;

struct Identity
{
    std::shared_ptr<EVP_PKEY> key;
    std::shared_ptr<X509> certificate;
};

struct Subject
{
    const char *name;
    const char *alternatives; // as OpenSSL writes them; null for an authority
    long begin = -Day;        // seconds from now
    long end = 30 * Day;
};

void addExtension(X509 *certificate, X509 *issuer, int id, const char *value)
{
    X509V3_CTX context;
    X509V3_set_ctx_nodb(&context);
    X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
    X509_EXTENSION *extension = X509V3_EXT_conf_nid(nullptr, &context, id, value);
    Q_ASSERT(extension);
    X509_add_ext(certificate, extension, -1);
    X509_EXTENSION_free(extension);
}

// Signed by the issuer; by itself without one.
Identity make(const Subject &subject, const Identity *issuer)
{
    static long serial = 1;
    Identity made{{EVP_EC_gen("P-256"), EVP_PKEY_free}, {X509_new(), X509_free}};
    X509 *const certificate = made.certificate.get();
    X509 *const signer = issuer ? issuer->certificate.get() : certificate;
    X509_set_version(certificate, X509_VERSION_3);
    ASN1_INTEGER_set(X509_get_serialNumber(certificate), serial++);
    X509_gmtime_adj(X509_getm_notBefore(certificate), subject.begin);
    X509_gmtime_adj(X509_getm_notAfter(certificate), subject.end);
    X509_set_pubkey(certificate, made.key.get());
    X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC,
                               reinterpret_cast<const unsigned char *>(subject.name), -1, -1, 0);
    X509_set_issuer_name(certificate, X509_get_subject_name(signer));
    if (subject.alternatives)
        addExtension(certificate, signer, NID_subject_alt_name, subject.alternatives);
    else
        addExtension(certificate, signer, NID_basic_constraints, "critical,CA:TRUE");
    X509_sign(certificate, issuer ? issuer->key.get() : made.key.get(), EVP_sha256());
    return made;
}

template <class Write> QByteArray pem(Write &&write)
{
    const std::unique_ptr<BIO, decltype(&BIO_free)> memory(BIO_new(BIO_s_mem()), BIO_free);
    write(memory.get());
    char *bytes = nullptr;
    const long length = BIO_get_mem_data(memory.get(), &bytes);
    return QByteArray(bytes, int(length));
}

QByteArray certificatePem(const Identity &identity)
{
    return pem([&](BIO *out) { PEM_write_bio_X509(out, identity.certificate.get()); });
}

const Identity &rootIdentity()
{
    static const Identity root = make({"Test authority", nullptr}, nullptr);
    return root;
}

Identity serverIdentity(TestCertificates::Kind kind)
{
    constexpr char local[] = "DNS:localhost,IP:127.0.0.1";
    switch (kind) {
    case TestCertificates::Proper:
        return make({"localhost", local}, &rootIdentity());
    case TestCertificates::SelfSigned:
        return make({"localhost", local}, nullptr);
    case TestCertificates::Expired:
        return make({"localhost", local, -10 * Day, -Day}, &rootIdentity());
    case TestCertificates::WrongHost:
        return make({"other.example", "DNS:other.example"}, &rootIdentity());
    }
    return {};
}

} // namespace

namespace TestCertificates {

KeyPair server(Kind kind)
{
    const Identity identity = serverIdentity(kind);
    const QByteArray key = pem([&](BIO *out) {
        PEM_write_bio_PrivateKey(out, identity.key.get(), nullptr, nullptr, 0, nullptr, nullptr);
    });
    return {key, certificatePem(identity)};
}

QByteArray authority()
{
    return certificatePem(rootIdentity());
}

QString authorityFile()
{
    static QTemporaryFile file;
    if (!file.isOpen() && file.open()) {
        file.write(authority());
        file.flush();
    }
    return file.fileName();
}

} // namespace TestCertificates

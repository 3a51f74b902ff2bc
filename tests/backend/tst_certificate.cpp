// The certificate as a client with an eye for it sees it.
#include "backend/certificate.h"
#include "backend/datafolder.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QSslCertificate>
#include <QSslConfiguration>
#include <QSslSocket>

Q_DECLARE_METATYPE(CertificateOptions)

namespace {
constexpr qint64 Day = 24 * 3600;

bool verifies(const BackEnd &backEnd, const QString &host, bool trusted)
{
    QSslSocket socket;
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(trusted ? QSslCertificate::fromPath(backEnd.caFile())
                                            : QList<QSslCertificate>());
    socket.setSslConfiguration(configuration);
    socket.setPeerVerifyMode(QSslSocket::VerifyPeer);
    socket.connectToHostEncrypted(QStringLiteral("127.0.0.1"), quint16(backEnd.port()), host);
    return socket.waitForEncrypted(10000);
}

CertificateOptions lasting(qint64 from, qint64 until)
{
    CertificateOptions options;
    options.validFrom = from;
    options.validUntil = until;
    return options;
}
} // namespace

class TstCertificate : public QObject
{
    Q_OBJECT

private slots:
    void verifiesForItsHostsOnly()
    {
        RunningBackEnd backEnd;
        QVERIFY(verifies(*backEnd, QStringLiteral("127.0.0.1"), true));
        QVERIFY(verifies(*backEnd, QStringLiteral("localhost"), true));
        QVERIFY(!verifies(*backEnd, QStringLiteral("elsewhere.example"), true));
        QVERIFY(!verifies(*backEnd, QStringLiteral("127.0.0.1"), false));
    }

    void bad_data()
    {
        const Rows<CertificateOptions> row{"special"};
        row("expired", lasting(-30 * Day, -Day));
        row("not yet", lasting(Day, 30 * Day));
        CertificateOptions elsewhere;
        elsewhere.hosts = QStringList{QStringLiteral("elsewhere.example")};
        row("another host", elsewhere);
    }
    void bad()
    {
        QFETCH(CertificateOptions, special);
        BackEndOptions options;
        options.specialCertificate = special;
        RunningBackEnd backEnd(options);
        QVERIFY(!verifies(*backEnd, QStringLiteral("127.0.0.1"), true));
    }

    void keptWhileItIsGood_data()
    {
        // spoiled: file; empty: none
        const Rows<QString, CertificateOptions, bool, bool> row{"spoiled", "leaf", "sameAuthority",
                                                                "sameLeaf"};
        const CertificateOptions good;
        row("good", QString(), good, true, true);
        row("about to expire", QString(), lasting(-Day, 7 * Day), true, false);
        row("key lost", "server-key.pem", good, true, false);
        row("authority lost", "ca.pem", good, false, false);
    }
    void keptWhileItIsGood()
    {
        QFETCH(QString, spoiled);
        QFETCH(CertificateOptions, leaf);
        QTemporaryDir place;
        QString problem;
        DataFolder folder;
        QVERIFY(folder.open(place.path(), &problem));
        const KeyPair authority = Certificates::makeAuthority();
        const KeyPair pair = Certificates::makeLeaf(authority, leaf);
        const QVector<QPair<QString, QByteArray>> files{
            {QStringLiteral("ca.pem"), authority.certificate},
            {QStringLiteral("ca-key.pem"), authority.key},
            {QStringLiteral("server.pem"), pair.certificate},
            {QStringLiteral("server-key.pem"), pair.key}};
        for (const auto &file : files) {
            const bool isSpoiled = file.first == spoiled;
            QVERIFY(
                writeOwnerOnly(folder.path(file.first), isSpoiled ? "x" : file.second, &problem));
        }
        const Certificates::Files provided = Certificates::provide(folder, nullptr, &problem);
        const QByteArray ca = contentOf(provided.authority);
        QTEST(ca == authority.certificate, "sameAuthority");
        QTEST(provided.leaf.certificate == pair.certificate, "sameLeaf");
        const QByteArray key = contentOf(folder.path(QStringLiteral("ca-key.pem")));
        QVERIFY(Certificates::isUsable({ca, key}, provided.leaf));
    }
};

FRIENDUI_TEST(TstCertificate)
#include "tst_certificate.moc"

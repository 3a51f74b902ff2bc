// Servers with certificates that are good, and with others.
#include "tests/http/sessionfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

class TstSessionTls : public QObject
{
    Q_OBJECT

private slots:
    void certificates_data();
    void certificates();
    void redirectIntoABadCertificate();
    void requestWithoutVerification();
};

void TstSessionTls::certificates_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("authorityKnown");
    QTest::addColumn<QString>("host");
    QTest::addColumn<bool>("good");
    const QString address = QStringLiteral("127.0.0.1");
    const QString name = QStringLiteral("localhost");
    QTest::newRow("proper") << int(TestCertificates::Proper) << true << address << true;
    QTest::newRow("proper by name") << int(TestCertificates::Proper) << true << name << true;
    QTest::newRow("unknown authority") << int(TestCertificates::Proper) << false << name << false;
    QTest::newRow("self-signed") << int(TestCertificates::SelfSigned) << true << name << false;
    QTest::newRow("expired") << int(TestCertificates::Expired) << true << name << false;
    QTest::newRow("wrong host") << int(TestCertificates::WrongHost) << true << name << false;
}

void TstSessionTls::certificates()
{
    QFETCH(int, kind);
    QFETCH(bool, authorityKnown);
    QFETCH(QString, host);
    QFETCH(bool, good);
    WebHost web;
    if (!authorityKnown)
        web.context.authorities.clear();
    web.passport.setAuthId(QStringLiteral("auth1"));
    LogCapture log(web.context);
    FakeServer server(TestCertificates::server(TestCertificates::Kind(kind)));
    server.reply("/a", FakeReply::of(200, "secret"));
    Call call;
    call.get(server.url(QStringLiteral("/a"), host));
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.succeeded(), good);
    QCOMPARE(server.requests().size(), good ? 1 : 0);
    QCOMPARE(log.linesWith("ssl error=").isEmpty(), good);
    if (good) {
        QCOMPARE(server.last().cookie("imAuthId"), QByteArray("auth1"));
    } else {
        QCOMPARE(call.error, QNetworkReply::SslHandshakeFailedError);
        QVERIFY(call.body.isEmpty());
    }
}

void TstSessionTls::redirectIntoABadCertificate()
{
    WebHost web;
    FakeServer good(TestCertificates::server(TestCertificates::Proper));
    FakeServer bad(TestCertificates::server(TestCertificates::SelfSigned));
    good.reply("/a", FakeReply::redirect(302, bad.url(QStringLiteral("/b")).toEncoded()));
    bad.reply("/b", FakeReply::of(200));
    Call call;
    call.post(good.url(QStringLiteral("/a")));
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.error, QNetworkReply::SslHandshakeFailedError);
    QVERIFY(bad.requests().isEmpty());
}

void TstSessionTls::requestWithoutVerification()
{
    WebHost web;
    FakeServer bad(TestCertificates::server(TestCertificates::SelfSigned));
    QNetworkRequest request(bad.url(QStringLiteral("/a")));
    QSslConfiguration lax = QSslConfiguration::defaultConfiguration();
    lax.setPeerVerifyMode(QSslSocket::VerifyNone);
    request.setSslConfiguration(lax);
    Call call;
    call.session->get(request);
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.error, QNetworkReply::SslHandshakeFailedError);
    QVERIFY(bad.requests().isEmpty());
}

FRIENDUI_TEST(TstSessionTls)
#include "tst_sessiontls.moc"

// Redirects on the wire. The two names of the loopback address are two hosts.
#include "tests/http/sessionfixture.h"
#include "tests/support/testrunner.h"

namespace {

const QString Elsewhere = QStringLiteral("localhost");

} // namespace

class TstSessionRedirects : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<WebHost>();
        m_host->passport.setAuthId(QStringLiteral("auth1"));
        m_server = std::make_unique<FakeServer>();
    }
    void cleanup()
    {
        m_server.reset();
        m_host.reset();
    }

    void sameRequestAgain_data()
    {
        QTest::addColumn<bool>("isPost");
        QTest::addColumn<int>("status");
        for (const int status : {301, 302}) {
            QTest::addRow("POST %d", status) << true << status;
            QTest::addRow("GET %d", status) << false << status;
        }
    }

    void sameRequestAgain()
    {
        QFETCH(bool, isPost);
        QFETCH(int, status);
        m_server->reply("/center/a.do", FakeReply::redirect(status, "b.do?x=%2C"));
        m_server->reply("/center/b.do", FakeReply::of(200, "end"));
        Call call;
        const QUrl url = m_server->url(QStringLiteral("/center/a.do"));
        if (isPost)
            call.post(url, QStringLiteral("a=1"));
        else
            call.get(url);
        QVERIFY(call.waitForEnd());
        QCOMPARE(call.body, QByteArray("end"));
        QCOMPARE(call.ends, 1);
        const FakeRequest second = m_server->last();
        QCOMPARE(second.path, QByteArray("/center/b.do?x=%2C"));
        QCOMPARE(second.method, QByteArray(isPost ? "POST" : "GET"));
        QCOMPARE(second.body, QByteArray(isPost ? "a=1" : ""));
        QCOMPARE(second.header("Content-Type"), QByteArray("application/x-www-form-urlencoded"));
        QCOMPARE(second.header("User-Agent"), QByteArray("PcClient"));
        QCOMPARE(second.header("Accept-Encoding"), QByteArray("identity"));
    }

    // The redirect itself may bring a new log-in.
    void cookiesOfTheHop()
    {
        m_server->reply("/a", FakeReply::redirect(302, "/b").header(
                                  "Set-Cookie", "imAuthId=auth2; Path=/; HttpOnly"));
        m_server->reply("/b", FakeReply::of(200));
        Call call;
        call.get(m_server->url(QStringLiteral("/a")));
        QVERIFY(call.waitForEnd());
        QCOMPARE(m_server->last().cookie("imAuthId"), QByteArray("auth2"));
        QCOMPARE(m_host->passport.authId(), QStringLiteral("auth2"));
    }

    void whatGoesAlong_data()
    {
        const Rows<bool, bool> row{"sameHost", "isService"};
        row("the same host", true, false);
        row("another host", false, false);
        row("a service", false, true);
    }

    void whatGoesAlong()
    {
        QFETCH(bool, sameHost);
        QFETCH(bool, isService);
        const QUrl target = sameHost ? m_server->url(QStringLiteral("/b"))
                                     : m_server->url(QStringLiteral("/b"), Elsewhere);
        if (isService)
            m_host->addresses(m_server->url(QString(), Elsewhere));
        m_server->reply(
            "/a",
            FakeReply::redirect(302, target.toEncoded()).header("Set-Cookie", "seat=7; Path=/"));
        m_server->reply("/b", FakeReply::of(200, "end"));
        Call call;
        QVERIFY(send(call, m_server->url(QStringLiteral("/a"))));
        QCOMPARE(call.body, QByteArray("end"));
        QCOMPARE(m_server->requests().first().header("Authorization"), QByteArray("Basic secret"));
        QCOMPARE(m_server->requests().first().header("Token"), QByteArray("secret"));

        const FakeRequest second = m_server->last();
        const bool trusted = sameHost || isService;
        QCOMPARE(second.hasHeader("Authorization"), trusted);
        QCOMPARE(second.hasHeader("Token"), trusted);
        QCOMPARE(second.cookie("imAuthId"), trusted ? QByteArray("auth1") : QByteArray());
        QCOMPARE(second.hasHeader("Cookie"), trusted);
        QCOMPARE(second.cookie("seat"), sameHost ? QByteArray("7") : QByteArray());
    }

    // Somebody else's server must not log the user in as somebody else.
    void strangersCookies()
    {
        const QUrl stranger = m_server->url(QStringLiteral("/b"), Elsewhere);
        m_server->reply("/a", FakeReply::redirect(302, stranger.toEncoded()));
        m_server->reply("/b", FakeReply::of(200).header("Set-Cookie", "imAuthId=evil; Path=/"));
        Call call;
        QVERIFY(send(call, m_server->url(QStringLiteral("/a"))));
        QCOMPARE(call.status, 200);
        QCOMPARE(m_host->passport.authId(), QStringLiteral("auth1"));
    }

    void loop()
    {
        m_server->reply("/a", FakeReply::redirect(302, "/b"));
        m_server->reply("/b", FakeReply::redirect(301, "/a"));
        Call call;
        call.throttled().get(m_server->url(QStringLiteral("/a")));
        QVERIFY(call.waitForEnd());
        QCOMPARE(call.error, QNetworkReply::TooManyRedirectsError);
        QCOMPARE(call.status, 0);
        QCOMPARE(call.ends, 1);
        QCOMPARE(m_server->requests().size(), CHttpSession::MaximumRedirects + 1);
    }

    void refusedTargets_data()
    {
        const Rows<QByteArray> row{"location"};
        for (const char *location :
             {"file:///etc/hostname", "ftp://127.0.0.1/a", "data:text/plain,a", "qrc:/a",
              "javascript:alert(1)", "https://"})
            row(location, QByteArray(location));
    }

    void refusedTargets()
    {
        QFETCH(QByteArray, location);
        m_server->reply("/a", FakeReply::redirect(302, location));
        Call call;
        call.get(m_server->url(QStringLiteral("/a")));
        QVERIFY(call.waitForEnd());
        QCOMPARE(call.error, QNetworkReply::ProtocolUnknownError);
        QVERIFY(call.body.isEmpty());
        QCOMPARE(m_server->requests().size(), 1);
    }

    void encryptedToPlain()
    {
        FakeServer encrypted(TestCertificates::server(TestCertificates::Proper));
        encrypted.reply("/a",
                        FakeReply::redirect(302, m_server->url(QStringLiteral("/b")).toEncoded()));
        Call call;
        QVERIFY(send(call, encrypted.url(QStringLiteral("/a"))));
        QCOMPARE(encrypted.requests().size(), 1);
        QCOMPARE(call.error, QNetworkReply::InsecureRedirectError);
        QVERIFY(m_server->requests().isEmpty());
    }

    // Two hops that together take longer than the time-out.
    void timeStartsAnew()
    {
        m_server->reply("/a", FakeReply::redirect(302, "/b").after(500));
        m_server->reply("/b", FakeReply::of(200).after(500));
        Call call;
        call.session->setTimeout(800);
        call.get(m_server->url(QStringLiteral("/a")));
        QVERIFY(call.waitForEnd());
        QCOMPARE(call.error, QNetworkReply::NoError);
    }

private:
    // Sends a POST with secrets and returns whether it ended.
    bool send(Call &call, const QUrl &url)
    {
        QNetworkRequest request = RequestHeaders::formRequest(url);
        request.setRawHeader("Authorization", "Basic secret");
        call.session->addRawHeader("Token", "secret");
        call.session->post(request, QStringLiteral("a=1"));
        return call.waitForEnd();
    }

    std::unique_ptr<WebHost> m_host;
    std::unique_ptr<FakeServer> m_server;
};

FRIENDUI_TEST(TstSessionRedirects)
#include "tst_sessionredirects.moc"

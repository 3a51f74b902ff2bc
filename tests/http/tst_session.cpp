#include "http/cmonitorlogger.h"
#include "http/logurl.h"
#include "tests/http/sessionfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QHttpMultiPart>

class TstSession : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_host = std::make_unique<WebHost>(); }
    void cleanup() { m_host.reset(); }

    void requestOnTheWire()
    {
        FakeServer server;
        server.reply("/a.do", FakeReply::json("{\"code\":0}"));
        Call post;
        post.session->addRawHeader("App-code", "7");
        post.post(server.url(QStringLiteral("/a.do?x=%2C")), QString::fromUtf8("name=张&b=%2B"));
        QVERIFY(post.waitForEnd());
        QVERIFY(post.succeeded());
        QCOMPARE(post.body, QByteArray("{\"code\":0}"));

        const FakeRequest sent = server.last();
        QCOMPARE(sent.method, QByteArray("POST"));
        QCOMPARE(sent.path, QByteArray("/a.do?x=%2C"));
        QCOMPARE(sent.body, QByteArray("name=张&b=%2B"));
        QCOMPARE(sent.header("Content-Type"), QByteArray("application/x-www-form-urlencoded"));
        QCOMPARE(sent.header("User-Agent"), QByteArray("PcClient"));
        QCOMPARE(sent.header("Accept-Encoding"), QByteArray("identity"));
        QCOMPARE(sent.header("App-code"), QByteArray("7"));

        // Even a request that was made elsewhere is neither packed nor redirected by Qt.
        Call bare;
        bare.session->get(QNetworkRequest(server.url(QStringLiteral("/a.do"))));
        QVERIFY(bare.waitForEnd());
        QCOMPARE(server.last().method, QByteArray("GET"));
        QCOMPARE(server.last().header("Accept-Encoding"), QByteArray("identity"));
    }

    void statusesAreDelivered_data()
    {
        const Rows<int, QByteArray> row{"status", "location"};
        for (int status : {200, 204, 300, 301, 302, 304, 400, 403, 404, 480, 500, 503})
            QTest::addRow("%d", status) << status << QByteArray();
        for (int status : {200, 303, 307, 308})
            QTest::addRow("%d with a target", status) << status << QByteArray("/elsewhere");
        row("302 with an empty target", 302, "");
    }

    // Only 301 and 302 with a target are anything but a reply.
    void statusesAreDelivered()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, location);
        FakeServer server;
        FakeReply reply = FakeReply::of(status, status == 204 || status == 304 ? "" : "text");
        if (!location.isNull())
            reply.header("Location", location);
        server.reply("/a.do", reply);
        Call call;
        call.post(server.url(QStringLiteral("/a.do")));
        QVERIFY(call.waitForEnd());
        QCOMPARE(call.status, status);
        QCOMPARE(call.body, reply.body);
        QCOMPARE(call.error == QNetworkReply::NoError, status < 400);
        QCOMPARE(server.requests().size(), 1);
        QCOMPARE(call.ends, 1);
    }

    void addressesThatAreNone_data()
    {
        const Rows<QString> row{"address"};
        for (const char *address : {"", "/center/a.do", "file:///etc/hostname", "ftp://127.0.0.1/a",
                                    "data:text/plain,a", "http://", "http://a b/"})
            row(address, QString::fromLatin1(address));
    }

    void addressesThatAreNone()
    {
        QFETCH(QString, address);
        Call call;
        call.get(QUrl(address));
        QCOMPARE(call.ends, 0); // never inside the call
        QVERIFY(call.waitForEnd());
        QVERIFY(call.hadReply);
        QCOMPARE(call.error, QNetworkReply::ProtocolUnknownError);
        QCOMPARE(call.status, 0);
        QVERIFY(call.body.isEmpty());
    }

    void cancelled()
    {
        FakeServer server;
        server.reply("/a.do", FakeReply::of(200).onRelease());
        Call call;
        call.get(server.url(QStringLiteral("/a.do")));
        QTRY_COMPARE(server.unanswered(), 1);
        call.session->cancel();
        QCOMPARE(call.ends, 0);
        QVERIFY(call.waitForEnd());
        QCOMPARE(call.error, QNetworkReply::OperationCanceledError);
        QTRY_COMPARE(server.unanswered(), 0); // nobody waits for it any more
        call.session->cancel();
        QCoreApplication::processEvents();
        QCOMPARE(call.ends, 1);
    }

    void deletedWhileRunning()
    {
        FakeServer server;
        server.reply("/a.do", FakeReply::of(200).onRelease());
        Call call;
        call.get(server.url(QStringLiteral("/a.do")));
        QTRY_COMPARE(server.unanswered(), 1);
        call.session.reset();
        QTRY_COMPARE(server.unanswered(), 0);
        QCOMPARE(call.ends, 0);
    }

    void endingFromTheSlot()
    {
        FakeServer server;
        server.reply("/a.do", FakeReply::of(200, "first"));
        server.reply("/b.do", FakeReply::of(200, "second"));
        auto *session = new CHttpSession;
        QPointer<CHttpSession> watched = session;
        Call second;
        QByteArray body;
        connect(session, &CHttpSession::signal_finished, this, [&](QNetworkReply *reply) {
            second.get(server.url(QStringLiteral("/b.do")));
            session->deleteLater();
            body = reply->readAll();
        });
        session->get(RequestHeaders::request(server.url(QStringLiteral("/a.do"))));
        QVERIFY(second.waitForEnd());
        QCOMPARE(body, QByteArray("first"));
        QCOMPARE(second.body, QByteArray("second"));
        QTRY_VERIFY(!watched);
    }

    void oneRequestPerSession()
    {
        FakeServer server;
        server.reply("/a.do", FakeReply::of(200));
        Call call;
        call.get(server.url(QStringLiteral("/a.do")));
        call.get(server.url(QStringLiteral("/b.do")));
        QVERIFY(call.waitForEnd());
        call.get(server.url(QStringLiteral("/c.do")));
        Call other; // whatever the session might have sent is on the wire before this
        other.get(server.url(QStringLiteral("/a.do")));
        QVERIFY(other.waitForEnd());
        QCOMPARE(call.ends, 1);
        QCOMPARE(server.count("/a.do"), 2);
        QCOMPARE(server.requests().size(), 2);
    }

    void formWithFiles()
    {
        FakeServer server;
        server.reply("/upload.do", FakeReply::redirect(302, "/other.do"));
        Call call;
        QSignalSpy progress(call.session.get(), &CHttpSession::signal_uploadProgress);
        auto *parts = new QHttpMultiPart(QHttpMultiPart::FormDataType);
        QHttpPart part;
        part.setHeader(QNetworkRequest::ContentDispositionHeader,
                       QStringLiteral("form-data; name=\"type\""));
        part.setBody("head");
        parts->append(part);
        call.session->postParts(
            RequestHeaders::formRequest(server.url(QStringLiteral("/upload.do"))), parts);
        QVERIFY(call.waitForEnd());
        QVERIFY(server.last().header("Content-Type").startsWith("multipart/form-data"));
        QVERIFY(server.last().body.contains("name=\"type\"\r\n\r\nhead"));
        QVERIFY(!progress.isEmpty());
        // Its body has been read and cannot be sent again.
        QCOMPARE(call.status, 302);
        QCOMPARE(server.requests().size(), 1);
    }

    // Who stores a large file as it arrives has the same limit in bytes, not a larger.
    void bodyReadWhileItArrives()
    {
        FakeServer server;
        const QByteArray body(300 * 1024, 'x');
        server.reply("/a", FakeReply::of(200, body));
        for (const bool fits : {true, false}) {
            Call call;
            QByteArray stored;
            call.session->setMaximumReply(fits ? body.size() : body.size() - 1);
            connect(call.session.get(), &CHttpSession::signal_readyRead, call.session.get(),
                    [&](QNetworkReply *reply) { stored += reply->readAll(); });
            call.get(server.url(QStringLiteral("/a")));
            QVERIFY(call.waitForEnd());
            QCOMPARE(call.succeeded(), fits);
            if (fits)
                QCOMPARE(stored + call.body, body);
        }
    }

    void logLines()
    {
        LogCapture log(m_host->context);
        FakeServer server;
        server.reply("/a.do", FakeReply::redirect(302, "/b%2C.do?x=%20"));
        server.reply("/b%2C.do", FakeReply::of(200).header("passport.login.flag", "true"));
        const QString address = server.url(QStringLiteral("/a.do?n=%2C%1")).toString();
        const QString target = server.url(QStringLiteral("/b%2C.do?x=%20")).toString();

        Call post, get, raw;
        post.post(QUrl(address));
        get.get(QUrl(address));
        raw.session->postWithRedirectRaw(RequestHeaders::formRequest(QUrl(address)), QString());
        for (Call *call : {&post, &get, &raw})
            QVERIFY(call->waitForEnd());

        const QString text = log.lines().join(QLatin1Char('\n'));
        for (const QString &line :
             {QStringLiteral("CHttpSession::post().url=") + address,
              QStringLiteral("CHttpSession::get().url=") + address,
              QStringLiteral("CHttpSession::postWithRedirectRaw url") + address,
              QStringLiteral("HttpSession::replyFinished redirect url") + target,
              QStringLiteral("HttpSession::replyFinished cookie expires, url is") + target,
              QStringLiteral("HttpSession::replyFinished status") + target +
                  QStringLiteral(", 200")})
            QVERIFY2(text.contains(line), qPrintable(line + QLatin1Char('\n') + text));
    }

    void secretsInAddresses_data()
    {
        QTest::addColumn<QString>("address");
        QTest::addColumn<QString>("shown");
        const auto row = [](const char *name, const char *address, const char *shown) {
            QTest::newRow(name) << QString::fromLatin1(address) << QString::fromLatin1(shown);
        };
        row("nothing secret", "https://h/a?x=1&y=%2C", "https://h/a?x=1&y=%2C");
        row("ticket", "https://h/a?x=1&ticket=ST-12345678&y=2",
            "https://h/a?x=1&ticket=ST-1***&y=2");
        row("any case", "https://h/a?accessToken=abcdefgh", "https://h/a?accessToken=abcd***");
        row("user information", "https://user:pass@h/a", "https://h/a");
    }

    void secretsInAddresses()
    {
        QFETCH(QString, address);
        QFETCH(QString, shown);
        QCOMPARE(logUrl(QUrl(address)), shown);
    }

    void recordForTheMonitor()
    {
        FakeServer server;
        server.reply("/a.do", FakeReply::redirect(302, "/b.do"));
        server.reply("/b.do", FakeReply::of(500, "12345"));
        Call call;
        call.post(server.url(QStringLiteral("/a.do?ticket=secret")), QStringLiteral("abc"));
        QVERIFY(call.waitForEnd());
        const QVector<WebRequestRecord> &records = m_host->context.webRequests;
        QCOMPARE(records.size(), 2); // each that was on the wire
        QCOMPARE(records.first().status, 302);
        QCOMPARE(records.first().sent, 3);
        QCOMPARE(records.last().status, 500);
        QCOMPARE(records.last().received, 5);
        QVERIFY(!records.last().error.isEmpty());
        QVERIFY(!records.first().address.contains(QLatin1String("secret")));
    }

private:
    std::unique_ptr<WebHost> m_host;
};

FRIENDUI_TEST(TstSession)
#include "tst_session.moc"

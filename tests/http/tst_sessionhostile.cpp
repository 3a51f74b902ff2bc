// Servers that mean no good, or have a bad day: each request ends, once, as a
// failure, and the next one is served.
#include "http/headerguard.h"
#include "tests/http/sessionfixture.h"
#include "tests/support/testrunner.h"

#include <QAbstractEventDispatcher>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QThread>

Q_DECLARE_METATYPE(FakeReply)

namespace {

constexpr qint64 MiB = 1024 * 1024;

QByteArray manyHeaders(int count)
{
    QByteArray reply = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n";
    reply.reserve(count * 32);
    for (int i = 0; i < count; ++i)
        reply += "X-" + QByteArray::number(i) + ": " + QByteArray(8, 'v') + "\r\n";
    return reply + "\r\n{}";
}

// Without the length that qCompress() puts in front.
QByteArray deflated(const QByteArray &bytes)
{
    return qCompress(bytes, 9).mid(4);
}

} // namespace

class TstSessionHostile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_host = std::make_unique<WebHost>(); }
    void cleanup() { m_host.reset(); }

    void replies_data();
    void replies();
    void lateReply();
    void droppedWhileItsErrorIsOnTheWay();
    void secondReplyToOneRequest();
    void deadlineOverRedirects();
    void serverGone();
    void serverRestarts();
    void endlessBodyIsCutOff();

private:
    std::unique_ptr<WebHost> m_host;
};

void TstSessionHostile::replies_data()
{
    QTest::addColumn<FakeReply>("reply");
    QTest::addColumn<int>("error"); // -1: any
    QTest::addColumn<bool>("encrypted");
    const auto row = [](const char *name, const FakeReply &reply, int error = -1) {
        QTest::newRow(name) << reply << error << false;
    };
    const int refused = QNetworkReply::UnknownContentError;
    // Qt takes headers from a plain connection byte by byte, each by a call of the
    // system: a good many take minutes under Wine.
    const auto headers = [refused](const char *name, const FakeReply &reply) {
        QTest::newRow(name) << reply << refused << true;
    };
    row("never", FakeReply::of(200).onRelease(), QNetworkReply::TimeoutError);
    row("one byte a second", FakeReply::of(200, "{}").trickled(1000), QNetworkReply::TimeoutError);
    row("a body that trickles", FakeReply::of(200, QByteArray(10000, 'x')).trickled(1),
        QNetworkReply::TimeoutError);
    row("nothing and closed", FakeReply::of(200).dropped(0));
    row("dropped in the headers", FakeReply::of(200, "{}").dropped(20));
    row("dropped in the body", FakeReply::of(200, QByteArray(5000, 'x')).dropped(3000),
        QNetworkReply::RemoteHostClosedError);
    row("64 MB", FakeReply::of(200, QByteArray(64 * int(MiB), 'x')), refused);
    row("64 MB without a length",
        FakeReply::verbatim("HTTP/1.1 200 OK\r\n\r\n" + QByteArray(64 * int(MiB), 'x')), refused);
    row("length of many GB", FakeReply::of(200, "{}").header("Content-Length", "99999999999"),
        refused);
    row("length too long", FakeReply::of(200, "{}").header("Content-Length", "50").dropped(150));
    row("packed",
        FakeReply::of(200, deflated(QByteArray(64 * int(MiB), ' ')))
            .header("Content-Encoding", "deflate"),
        refused);
    row("packed, twice", FakeReply::of(200, "x").header("content-encoding", "gzip, gzip"), refused);
    headers("5,000 headers", FakeReply::verbatim(manyHeaders(5000)));
    if (HeaderGuard::isAvailable()) {
        headers("200,000 headers", FakeReply::verbatim(manyHeaders(200000)));
        headers("200,000 of one name", FakeReply::verbatim("HTTP/1.1 200 OK\r\n" +
                                                           QByteArray("X: y\r\n").repeated(200000) +
                                                           "Content-Length: 2\r\n\r\n{}"));
    }
    headers("one header of 1 MB", FakeReply::of(200).header("X-Long", QByteArray(int(MiB), 'x')));
    row("no HTTP", FakeReply::verbatim("220 mail.example ESMTP\r\n\r\n"));
    row("bytes", FakeReply::verbatim(QByteArray(1000, '\0')));
    row("chunks that lie", FakeReply::verbatim("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n"
                                               "\r\n7fffffff\r\nabc"));
}

void TstSessionHostile::replies()
{
    QFETCH(FakeReply, reply);
    QFETCH(int, error);
    QFETCH(bool, encrypted);
    const auto server =
        encrypted ? std::make_unique<FakeServer>(TestCertificates::server(TestCertificates::Proper))
                  : std::make_unique<FakeServer>();
    server->reply("/a.do", reply);
    server->reply("/good.do", FakeReply::of(200, "{}"));
    Call call;
    call.throttled();
    // Long enough for 64 MB under a sanitizer where it is not the time that counts.
    call.session->setTimeout(error == QNetworkReply::TimeoutError ? 300 : 15000);
    call.get(server->url(QStringLiteral("/a.do")));
    QVERIFY(call.waitForEnd());
    QVERIFY(call.hadReply);
    QVERIFY(call.error != QNetworkReply::NoError);
    if (error >= 0)
        QCOMPARE(int(call.error), error);

    Call next; // gets the manager that the other had
    next.get(server->url(QStringLiteral("/good.do")));
    QVERIFY(next.waitForEnd());
    QVERIFY(next.succeeded());
    QCOMPARE(call.ends, 1);
}

void TstSessionHostile::lateReply()
{
    FakeServer server;
    server.reply("/a.do", FakeReply::of(200, "late").onRelease());
    server.reply("/b.do", FakeReply::of(200, "other"));
    Call call;
    call.session->setTimeout(100);
    call.get(server.url(QStringLiteral("/a.do")));
    QVERIFY(call.waitForEnd());
    server.release();
    Call other;
    other.get(server.url(QStringLiteral("/b.do")));
    QVERIFY(other.waitForEnd());
    QCOMPARE(other.body, QByteArray("other"));
    QCOMPARE(call.ends, 1);
    QCOMPARE(call.error, QNetworkReply::TimeoutError);
    QCOMPARE(call.errorText, QStringLiteral("timed out"));
}

void TstSessionHostile::droppedWhileItsErrorIsOnTheWay()
{
    QTcpServer nobody;
    QVERIFY(nobody.listen(QHostAddress::LocalHost));
    const QUrl url(QStringLiteral("http://127.0.0.1:%1/").arg(nobody.serverPort()));
    nobody.close();
    static QStringList warnings;
    warnings.clear();
    const auto before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext &, const QString &text) { warnings.append(text); });
    // Whether the error waits already is a matter of luck.
    const QDeadlineTimer deadline(20000);
    for (int i = 0; i < 20; ++i) {
        Call call;
        call.get(url);
        QCoreApplication::processEvents(); // it sets off
        while (!QAbstractEventDispatcher::instance()->hasPendingEvents() && !deadline.hasExpired())
            QThread::yieldCurrentThread();
        call.session.reset();
        QCoreApplication::processEvents();
    }
    qInstallMessageHandler(before);
    QVERIFY(!deadline.hasExpired());
    QCOMPARE(warnings.join(QLatin1Char('\n')), QString());
}

// The second must not become the answer to the next request.
void TstSessionHostile::secondReplyToOneRequest()
{
    FakeServer server;
    const QByteArray once = "HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n";
    FakeReply twice;
    twice.raw = once + "first" + once + "bogus";
    server.reply("/a.do", twice);
    server.reply("/b.do", FakeReply::of(200, "right"));
    Call call;
    call.get(server.url(QStringLiteral("/a.do")));
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.body, QByteArray("first"));
    Call next;
    next.get(server.url(QStringLiteral("/b.do")));
    QVERIFY(next.waitForEnd());
    QCOMPARE(next.body, QByteArray("right"));
    QCOMPARE(call.ends, 1);
}

// Each redirect gets the time-out anew, but not for ever.
void TstSessionHostile::deadlineOverRedirects()
{
    FakeServer server;
    constexpr int Delay = 300, Timeout = 1500; // ms
    server.reply("/loop.do", FakeReply::redirect(302, "/loop.do").after(Delay));
    Call call;
    call.session->setTimeout(Timeout);
    call.get(server.url(QStringLiteral("/loop.do")));
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.error, QNetworkReply::TimeoutError);
    QVERIFY(server.requests().size() > 1);
    QVERIFY(server.requests().size() <= CHttpSession::DeadlineFactor * Timeout / Delay + 1);
}

void TstSessionHostile::serverGone()
{
    FakeServer server;
    const QUrl url = server.url();
    server.stop();
    Call call;
    call.get(url);
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.error, QNetworkReply::ConnectionRefusedError);
    QCOMPARE(call.status, 0);
}

void TstSessionHostile::serverRestarts()
{
    FakeServer server;
    server.reply("/a.do", FakeReply::of(200).onRelease());
    server.reply("/b.do", FakeReply::of(200, "{}"));
    std::vector<std::unique_ptr<Call>> running;
    for (int i = 0; i < 10; ++i) {
        running.push_back(std::make_unique<Call>());
        running.back()->throttled().get(server.url(QStringLiteral("/a.do")));
    }
    QTRY_COMPARE(server.unanswered(), 10);
    server.stop();
    for (const auto &call : running) {
        QVERIFY(call->waitForEnd());
        QVERIFY(call->error != QNetworkReply::NoError);
    }
    // Managers that kept a connection to the server of before serve all the same.
    server.restart();
    std::vector<std::unique_ptr<Call>> next;
    for (int i = 0; i < 20; ++i) {
        next.push_back(std::make_unique<Call>());
        next.back()->throttled().get(server.url(QStringLiteral("/b.do")));
    }
    for (const auto &call : next) {
        QVERIFY(call->waitForEnd());
        QVERIFY(call->succeeded());
    }
}

// What arrives beyond the limit is not collected until the server has enough.
void TstSessionHostile::endlessBodyIsCutOff()
{
    FakeServer server;
    const int sent = 32 * int(MiB);
    server.reply("/a.do", FakeReply::verbatim("HTTP/1.1 200 OK\r\n\r\n" + QByteArray(sent, 'x')));
    Call call;
    call.session->setMaximumReply(100000);
    qint64 most = 0;
    connect(call.session.get(), &CHttpSession::signal_downloadProgress, call.session.get(),
            [&most](qint64 received) { most = std::max(most, received); });
    call.get(server.url(QStringLiteral("/a.do")));
    QVERIFY(call.waitForEnd());
    QCOMPARE(call.error, QNetworkReply::UnknownContentError);
    QVERIFY2(most < sent / 2, qPrintable(QString::number(most)));
}

FRIENDUI_TEST(TstSessionHostile)
#include "tst_sessionhostile.moc"

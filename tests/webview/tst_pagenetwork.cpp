// What a page may load, and which cookies it has, with or without a browser.
#include "http/cpassportloginserver.h"
#include "tests/http/servicefixture.h"
#include "tests/support/testcertificates.h"
#include "tests/support/testrunner.h"
#include "webview/pagenetwork.h"
#include "webview/systembrowser.h"

#include <QDesktopServices>
#include <QNetworkCookie>
#include <QNetworkCookieJar>
#include <QNetworkReply>

namespace {
struct Network
{
    ServiceFixture services;
    PageNetwork network;

    std::unique_ptr<QNetworkReply> get(const QUrl &url)
    {
        std::unique_ptr<QNetworkReply> reply(network.get(QNetworkRequest(url)));
        QSignalSpy finished(reply.get(), &QNetworkReply::finished);
        finished.wait(TestPatience);
        return reply;
    }
};
} // namespace

Q_DECLARE_METATYPE(FakeReply)

class TstPageNetwork : public QObject
{
    Q_OBJECT

private slots:
    void schemes_data()
    {
        const Rows<QString> row{"url"};
        row("file", "file:///etc/passwd");
        row("resource", "qrc:/FriendUI/Resources/images/icon/glyph_close.png");
        row("data", "data:text/html,<p>");
        row("ftp", "ftp://127.0.0.1/x");
        row("script", "javascript:alert(1)");
        row("without a host", "http:///x");
        row("own", "mailto:a@b.c");
    }

    void schemes()
    {
        QFETCH(QString, url);
        Network page;
        const auto reply = page.get(QUrl(url));
        QCOMPARE(reply->error(), QNetworkReply::ProtocolUnknownError);
        QVERIFY(page.network.hasFailed());
    }

    void endings_data()
    {
        const Rows<FakeReply, bool> row{"reply", "arrived"};
        row("page", FakeReply::of(200, "<p>"), true);
        row("not found", FakeReply::of(404, "<p>"), false);
        row("no content", FakeReply::of(204), false);
        row("server error", FakeReply::of(500, "<p>"), false);
        row("a file to store", FakeReply::of(200, "x").header("Content-Disposition", "attachment"),
            false);
        row("packed", FakeReply::of(200, "x").header("Content-Encoding", "gzip"), false);
        row("huge", FakeReply::of(200, "x").header("Content-Length", "99999999999"), false);
        row("endless", FakeReply::of(200, QByteArray(int(PageNetwork::MaximumReply) + 1, 'x')),
            false);
        row("cut off", FakeReply::of(200, QByteArray(5000, 'x')).dropped(3000), false);
        row("to a file", FakeReply::redirect(302, "file:///etc/passwd"), false);
    }

    void endings()
    {
        QFETCH(FakeReply, reply);
        QFETCH(bool, arrived);
        Network page;
        page.services.server.reply("/page", reply);
        page.network.begin(page.services.server.url(QStringLiteral("/page")));
        page.get(page.services.server.url(QStringLiteral("/page")));
        QCOMPARE(page.network.hasArrived(), arrived);
        QCOMPARE(page.network.hasFailed(), !arrived);
        QCOMPARE(page.services.server.last().header("User-Agent"), QByteArray("PcClient"));
        QCOMPARE(page.services.server.last().header("Accept-Encoding"), QByteArray("identity"));
    }

    void floodEnds()
    {
        Network page;
        page.services.server.replyElsewhere([](const FakeRequest &) { return FakeReply::of(200); });
        const QUrl url = page.services.server.url(QStringLiteral("/page"));
        page.network.begin(url);
        for (int i = 0; i < PageNetwork::MaximumRequests + 20; ++i)
            page.network.get(QNetworkRequest(url))->setParent(&page.network);
        const auto last = page.get(url);
        QCOMPARE(last->error(), QNetworkReply::ProtocolUnknownError);
        QTRY_COMPARE(page.services.server.requests().size(), PageNetwork::MaximumRequests);
        page.network.begin(url);
        QCOMPARE(page.get(url)->error(), QNetworkReply::NoError);
    }

    void encryptedPagesStaySo()
    {
        Network page;
        FakeServer secure(TestCertificates::server(TestCertificates::Proper));
        page.services.host.authorities = TestCertificates::authorityFile();
        const QUrl plain = page.services.server.url(QStringLiteral("/x"));
        secure.reply("/page", FakeReply::of(200, "<p>"));
        secure.reply("/down", FakeReply::redirect(302, plain.toEncoded()));
        page.network.begin(secure.url(QStringLiteral("/page")));
        QCOMPARE(page.get(secure.url(QStringLiteral("/page")))->error(), QNetworkReply::NoError);
        QVERIFY(page.get(plain)->error() != QNetworkReply::NoError);
        page.network.begin(secure.url(QStringLiteral("/down")));
        page.get(secure.url(QStringLiteral("/down")));
        QVERIFY(page.network.hasFailed());
        QVERIFY(page.services.server.requests().isEmpty());
        // Without that authority nobody knows the server.
        page.services.host.authorities.clear();
        PageNetwork other;
        other.begin(secure.url());
        QSignalSpy failed(&other, &PageNetwork::pageFailed);
        other.get(QNetworkRequest(secure.url(QStringLiteral("/page"))));
        QVERIFY(failed.wait(TestPatience));
    }

    void ticketsForTheCentreAlone()
    {
        CPassportLoginServer passport;
        Network page;
        page.services.host.passportServer = &passport;
        passport.setAuthId(QStringLiteral("secret"));
        FakeServer other;
        for (FakeServer *server : {&page.services.server, &other})
            server->reply("/page", FakeReply::of(200).header("Set-Cookie", "seen=1; Path=/"));
        for (int i = 0; i < 2; ++i)
            for (FakeServer *server : {&page.services.server, &other})
                page.get(server->url(QStringLiteral("/page")));
        QCOMPARE(page.services.server.last().cookie("imAuthId"), QByteArray("secret"));
        QCOMPARE(page.services.server.last().cookie("seen"), QByteArray("1"));
        QVERIFY(!other.last().header("Cookie").contains("secret"));
        const QList<QNetworkCookie> cookies =
            page.network.cookieJar()->cookiesForUrl(page.services.server.url());
        for (const QNetworkCookie &cookie : cookies)
            QCOMPARE(cookie.isHttpOnly(), cookie.name() == "imAuthId");
        // The newest one, not that of the page's beginning; and pages change nothing.
        passport.setAuthId(QStringLiteral("newer"));
        page.services.server.reply("/page",
                                   FakeReply::of(200).header("Set-Cookie", "imAuthId=x; Path=/"));
        page.get(page.services.server.url(QStringLiteral("/page")));
        page.get(page.services.server.url(QStringLiteral("/page")));
        QCOMPARE(page.services.server.last().cookie("imAuthId"), QByteArray("newer"));
        QCOMPARE(passport.authId(), QStringLiteral("newer"));
    }

    void systemBrowser_data()
    {
        const Rows<QString, bool> row{"url", "opens"};
        row("https", "https://a.example/x", true);
        row("http", "http://a.example/", true);
        row("file", "file:///etc/passwd", false);
        row("share", "file://host/share", false);
        row("script", "javascript:alert(1)", false);
        row("mail", "mailto:a@b.c", false);
        row("no host", "http:", false);
    }

    void systemBrowser()
    {
        QFETCH(QString, url);
        QFETCH(bool, opens);
        for (const char *scheme : {"http", "https", "file", "mailto", "javascript"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
        m_opened.clear();
        QCOMPARE(SystemBrowser::open(QUrl(url)), opens);
        QCOMPARE(m_opened, opens ? QList<QUrl>{QUrl(url)} : QList<QUrl>{});
        for (const char *scheme : {"http", "https", "file", "mailto", "javascript"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }

public slots:
    void open(const QUrl &url) { m_opened.append(url); }

private:
    QList<QUrl> m_opened;
};

FRIENDUI_TEST(TstPageNetwork)
#include "tst_pagenetwork.moc"

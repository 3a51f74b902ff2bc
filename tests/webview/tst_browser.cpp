// Pages in the embedded browser: what they may not do, and how they end.
#include "tests/webview/browserfixture.h"

Q_DECLARE_METATYPE(FakeReply)

class TstBrowser : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { NEED_BROWSER(); }

    void endings_data()
    {
        const Rows<FakeReply, bool> row{"reply", "ok"};
        row("page", html("hello"), true);
        row("empty page", html(""), true);
        row("not found", FakeReply::of(404, "<html>no</html>"), false);
        row("not found, without a word", FakeReply::of(404), false);
        row("no content", FakeReply::of(204), false);
        row("another kind", FakeReply::of(200, "PK").header("Content-Type", "application/zip"),
            false);
        row("a file to store",
            html("x").header("Content-Disposition", "attachment; filename=\"a.html\""), false);
        row("cut off", html(QByteArray(5000, 'x')).dropped(3000), false);
        row("to a file", FakeReply::redirect(302, "file:///etc/passwd"), false);
        row("to a script", FakeReply::redirect(302, "javascript:alert(1)"), false);
        row("to itself", FakeReply::redirect(302, "/page"), false);
        row("to the next", FakeReply::redirect(302, "/next"), true);
        row("huge",
            FakeReply::of(200, QByteArray(int(PageNetwork::MaximumReply) + 1, 'x'))
                .header("Content-Type", "text/html"),
            false);
    }

    void endings()
    {
        QFETCH(FakeReply, reply);
        QFETCH(bool, ok);
        BrowserFixture browser;
        browser.server.reply("/page", reply);
        browser.server.reply("/next", html("next"));
        QCOMPARE(browser.opens(browser.server.url(QStringLiteral("/page"))), ok);
        QCOMPARE(browser.finished.size(), 1);
    }

    void whatIsNoPage_data()
    {
        const Rows<QString> row{"url"};
        row("file", "file:///etc/passwd");
        row("script", "javascript:1");
        row("data", "data:text/html,x");
        row("blank", "about:blank");
        row("nothing", "");
        row("refused", "http://127.0.0.1:1/");
    }

    void whatIsNoPage()
    {
        QFETCH(QString, url);
        BrowserFixture browser;
        QVERIFY(!browser.opens(QUrl(url)));
    }

    void redirectToSomebodyElse()
    {
        BrowserFixture browser;
        FakeServer other;
        other.reply("/x", html("other"));
        const QByteArray target = other.url(QStringLiteral("/x")).toEncoded();
        browser.server.reply("/page", FakeReply::redirect(302, target));
        QVERIFY(!browser.opens(browser.server.url(QStringLiteral("/page"))));
        browser.opens("<meta http-equiv=refresh content='0;url=" + target + "'>");
        QTRY_COMPARE(browser.server.unanswered(), 0);
        QVERIFY(other.requests().isEmpty());
    }

    // Neither in time nor ever; the page is shown when only a part of it is missing.
    void neverFinished_data()
    {
        const Rows<FakeReply, bool> row{"reply", "ok"};
        row("nothing comes", html("x").onRelease(), false);
        row("a byte now and then", html(QByteArray(100000, 'x')).trickled(20), false);
        row("a picture is missing", html("x<img src=/held>"), true);
    }

    void neverFinished()
    {
        QFETCH(FakeReply, reply);
        QFETCH(bool, ok);
        BrowserFixture browser;
        browser.server.reply("/page", reply);
        browser.server.reply("/held", FakeReply::of(200).onRelease());
        browser.widget.setTimeout(400);
        QCOMPARE(browser.opens(browser.server.url(QStringLiteral("/page"))), ok);
        // The way on is open.
        QVERIFY(browser.opens("again"));
    }

    // Each would show a window, block in a dialog, or ask for what no page may have.
    void hostilePages_data()
    {
        const Rows<QByteArray> row{"page"};
        row("window", "<script>window.open('/other')</script>");
        row("dialogs", "<script>alert(1);confirm(2);prompt(3);showModalDialog('/other')</script>");
        row("endless script", "<script>while(true){}</script>");
        row("script of an event", "<img src='x' onerror=\"location='/other'\">");
        row("script in a frame", "<iframe src=\"javascript:top.location='/other'\"></iframe>");
        row("script in a drawing", "<svg onload=\"location='/other'\"></svg>");
        row("leaving is refused", "<body onbeforeunload=\"return 'stay'\">");
        row("file in a frame", "<iframe src='file:///etc/passwd'></iframe>");
        row("file as a picture", "<img src='file:///etc/passwd'>");
        row("away to a file", "<meta http-equiv=refresh content='0;url=file:///etc/passwd'>");
        row("plug-in", "<embed src='/other' type='application/x-shockwave-flash'>"
                       "<applet code='/other'></applet>");
    }

    void hostilePages()
    {
        QFETCH(QByteArray, page);
        BrowserFixture browser;
        const int before = QApplication::topLevelWidgets().size();
        QVERIFY(browser.opens("text" + page + "<img src='/done'>"));
        QCOMPARE(browser.server.count("/done"), 1);
        QVERIFY(browser.opens("next")); // what was to come later has come
        QCOMPARE(browser.server.count("/other"), 0);
        QCOMPARE(QApplication::topLevelWidgets().size(), before);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(browser.widget.isVisible());
        QVERIFY(browser.links.isEmpty());
    }

    void floods_data()
    {
        const Rows<QByteArray, int> row{"part", "times"};
        row("pictures", "<img src='/i?%1'>", 5000);
        row("frames", "<iframe src='/f?%1'></iframe>", 400);
        row("itself again", "<meta http-equiv=refresh content='0'>", 1);
        row("frames within frames", "<iframe src='/page?%1'></iframe><iframe src='/page?b%1'>", 2);
    }

    void floods()
    {
        QFETCH(QByteArray, part);
        QFETCH(int, times);
        BrowserFixture browser;
        browser.server.replyElsewhere([](const FakeRequest &) { return html(""); });
        browser.widget.setTimeout(5000);
        QByteArray parts;
        for (int i = 0; i < times; ++i)
            parts += QByteArray(part).replace("%1", QByteArray::number(i));
        browser.opens(parts);
        QVERIFY(browser.server.requests().size() <= PageNetwork::MaximumRequests);
        QVERIFY(browser.opens("after"));
    }

    void links_data()
    {
        const Rows<QByteArray, QString> row{"link", "told"};
        row("plain", "<a href='/x?a=1'>LINKLINKLINK</a>", "/x?a=1");
        row("to a window", "<a href='/x' target='_blank'>LINKLINKLINK</a>", "/x");
        row("for mail", "<a href='mailto:a@b.example'>LINKLINKLINK</a>", "mailto:a@b.example");
    }

    void links()
    {
        QFETCH(QByteArray, link);
        QFETCH(QString, told);
        BrowserFixture browser;
        QVERIFY(browser.opens("<p style='margin:0;font-size:24px'>" + link));
        browser.click();
        QTRY_COMPARE(browser.links.size(), 1);
        const QUrl expected = browser.server.url(QStringLiteral("/page")).resolved(QUrl(told));
        QCOMPARE(browser.links.first().first().toUrl(), expected);
        QCOMPARE(browser.server.count("/x"), 0);
        browser.click();
        QTRY_COMPARE(browser.links.size(), 2);
    }

    void destroyedWhileLoading()
    {
        ServiceFixture services;
        services.server.reply("/page", html("x<img src=/held>"));
        services.server.reply("/held", FakeReply::of(200).onRelease());
        auto widget = std::make_unique<BrowserWidget>();
        widget->open(services.server.url(QStringLiteral("/page")));
        QTRY_COMPARE(services.server.count("/held"), 1);
        widget.reset();
        services.server.release();
        QTRY_COMPARE(services.server.unanswered(), 0);
    }
};

FRIENDUI_TEST(TstBrowser)
#include "tst_browser.moc"

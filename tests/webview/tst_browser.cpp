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
        browser.opens("<script>location='" + target + "'</script>");
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

    // Each would show a window, block in a dialog, or ask somebody else's server.
    void hostileScripts_data()
    {
        const Rows<QByteArray> row{"script"};
        row("window", "window.open('/other')");
        row("window, later", "setTimeout(function(){window.open('/other')},1)");
        row("alert", "alert(1);confirm(2);prompt(3)");
        row("modal dialog", "showModalDialog('/other')");
        row("print", "print()");
        row("close", "window.close()");
        row("link", "var a=document.createElement('a');a.href='/other';"
                    "document.body.appendChild(a);a.click()");
        row("link to a window", "var a=document.createElement('a');a.href='/other';"
                                "a.target='_blank';document.body.appendChild(a);a.click()");
        row("file", "location='file:///etc/passwd'");
        row("file in a frame", "document.write('<iframe src=\"file:///etc/passwd\"></iframe>')");
        row("file asked for", "var f=document.createElement('input');f.type='file';"
                              "document.body.appendChild(f);f.click()");
        row("leaving is refused", "onbeforeunload=function(){return 'stay'}");
    }

    void hostileScripts()
    {
        QFETCH(QByteArray, script);
        BrowserFixture browser;
        const int before = QApplication::topLevelWidgets().size();
        browser.opens("text <script>new Image().src='/done';" + script + "</script>");
        QTRY_COMPARE(browser.server.count("/done"), 1);
        QVERIFY(browser.opens("next")); // what was to come later has come
        QCOMPARE(browser.server.count("/other"), 0);
        QCOMPARE(QApplication::topLevelWidgets().size(), before);
        QVERIFY(!QApplication::activeModalWidget());
        QVERIFY(browser.widget.isVisible());
        QVERIFY(browser.links.isEmpty());
    }

    void nothingIsKept()
    {
        BrowserFixture browser;
        const QByteArray report = "<script>var s='no';try{if(localStorage.getItem('a'))s='yes';"
                                  "localStorage.setItem('a','b')}catch(e){}"
                                  "var d='no';try{openDatabase('x','1','x',1000);d='yes'}catch(e){}"
                                  "var p=navigator.plugins.length;var j=navigator.javaEnabled();"
                                  "new Image().src='/r?'+[s,d,p,j].join('-')</script>";
        for (int i = 0; i < 2; ++i)
            QVERIFY(browser.opens(report));
        for (const FakeRequest &request : browser.server.requests())
            if (request.path.startsWith("/r?"))
                QCOMPARE(request.path, QByteArray("/r?no-no-0-false"));
        QCOMPARE(browser.server.count("/r"), 2);
    }

    void floods_data()
    {
        const Rows<QByteArray> row{"script"};
        row("pictures", "for(var i=0;i<5000;++i)new Image().src='/i?'+i");
        row("frames", "for(var i=0;i<400;++i)document.write('<iframe src=\"/f?'+i+'\"></iframe>')");
        row("itself again", "location.reload()");
        row("an endless script", "while(true){}");
    }

    void floods()
    {
        QFETCH(QByteArray, script);
        BrowserFixture browser;
        browser.server.replyElsewhere([](const FakeRequest &) { return html(""); });
        browser.widget.setTimeout(5000);
        browser.opens("<script>" + script + "</script>");
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
        // Another click is another link; a script cannot take the first for itself.
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

// The window with the history of a service number: when it loads, where its links lead,
// and what becomes of it without a browser of its own.
#include "controls/skinbutton.h"
#include "controls/statestack.h"
#include "controls/tipbox.h"
#include "servicenum/cservicenohistory.h"
#include "tests/servicenum/numberfixture.h"
#include "webview/browsermodule.h"
#include "webview/browserwidget.h"

#include <QApplication>
#include <QDesktopServices>
#include <QLabel>

namespace {
constexpr char Page[] = "/center/isrvHis/pcMsg.do";
const QString code = QStringLiteral("a b");

FakeReply html(const QByteArray &body)
{
    return FakeReply::of(200, "<html>" + body).header("Content-Type", "text/html");
}

CServiceNoHistory *window()
{
    for (QWidget *widget : QApplication::topLevelWidgets())
        if (auto *history = qobject_cast<CServiceNoHistory *>(widget))
            return history;
    return nullptr;
}

QString shown()
{
    auto *states = window()->findChild<StateStack *>();
    const bool isPage = qobject_cast<BrowserWidget *>(states->currentWidget());
    return isPage ? QStringLiteral("page") : states->currentWidget()->objectName();
}

SkinButton *button(const char *name)
{
    return window()->findChild<SkinButton *>(QLatin1String(name));
}
} // namespace

class TstServiceNoHistory : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_opened.clear();
        for (const char *scheme : {"http", "https", "file"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
    }

    void cleanup()
    {
        for (const char *scheme : {"http", "https", "file"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
        TipBox::setNextAnswers(TipBox::ShowBox);
        BrowserModule::reset();
        QTRY_VERIFY(!window()); // the fixture's log-out closes it
    }

    void loadedOncePerNumber()
    {
        if (!BrowserWidget::isAvailable())
            QSKIP("the browser module was not built: QtWebKit is missing");
        NumberFixture fixture;
        fixture.server.reply(Page, html("messages"));
        CServiceNoHistory::showHistory(code, QStringLiteral("<b>News</b>"));
        QCOMPARE(shown(), QStringLiteral("loading"));
        QCOMPARE(window()->windowTitle(), QStringLiteral("<b>News</b>"));
        QTRY_COMPARE(shown(), QStringLiteral("page"));
        QCOMPARE(fixture.server.last().path, QByteArray(Page) + "?id=a%20b");
        CServiceNoHistory::showHistory(code, {});
        QVERIFY(window()->close());
        CServiceNoHistory::showHistory(code, {});
        QVERIFY(window()->isVisible());
        QCOMPARE(shown(), QStringLiteral("page"));
        QCOMPARE(fixture.server.count(Page), 1);
        CServiceNoHistory::showHistory(QStringLiteral("other"), {});
        QTRY_COMPARE(fixture.server.count(Page), 2);
        QCOMPARE(window()->windowTitle(), QStringLiteral("other"));
        QTRY_COMPARE(shown(), QStringLiteral("page"));
    }

    void failureHasAWayOn()
    {
        if (!BrowserWidget::isAvailable())
            QSKIP("the browser module was not built: QtWebKit is missing");
        NumberFixture fixture;
        fixture.server.reply(Page, {FakeReply::of(404), FakeReply::of(500), html("messages")});
        CServiceNoHistory::showHistory(code, {});
        QTRY_COMPARE(shown(), QStringLiteral("historyFailed"));
        CServiceNoHistory::showHistory(code, {}); // not shown yet: asked for again
        QTRY_COMPARE(fixture.server.count(Page), 2);
        QTRY_COMPARE(shown(), QStringLiteral("historyFailed"));
        window()->findChild<QPushButton *>(QStringLiteral("retry"))->click();
        QTRY_COMPARE(shown(), QStringLiteral("page"));
    }

    void links()
    {
        if (!BrowserWidget::isAvailable())
            QSKIP("the browser module was not built: QtWebKit is missing");
        NumberFixture fixture;
        fixture.server.reply(Page, html("messages"));
        fixture.server.reply("/second", {html("second"), FakeReply::of(404)});
        CServiceNoHistory::showHistory(code, {});
        QTRY_COMPARE(shown(), QStringLiteral("page"));
        QVERIFY(!button("btnBack")->isEnabled());

        const QUrl second = fixture.server.url(QStringLiteral("/second"));
        window()->slot_openLink(second);
        QTRY_COMPARE(fixture.server.count("/second"), 1);
        QTRY_COMPARE(shown(), QStringLiteral("page"));
        button("btnBack")->click();
        QCOMPARE(shown(), QStringLiteral("page"));
        QVERIFY(!button("btnBack")->isEnabled());
        window()->slot_openLink(second);
        QTRY_COMPARE(shown(), QStringLiteral("historyFailed"));
        button("btnBack")->click();
        QCOMPARE(shown(), QStringLiteral("page"));
        QCOMPARE(fixture.server.count(Page), 1);
        QVERIFY(m_opened.isEmpty());

        // Somebody else's page: the user sees whose, and decides.
        const QUrl outside(QStringLiteral("https://xn--80ak6aa92e.example/x"));
        TipBox::setNextAnswers(TipBox::Cancel);
        window()->slot_openLink(outside);
        QVERIFY(m_opened.isEmpty());
        TipBox::setNextAnswers(TipBox::Sure);
        window()->slot_openLink(outside);
        QCOMPARE(m_opened, QList<QUrl>{outside});
        const int boxes = TipBox::count();
        for (const char *refused : {"file:///etc/passwd", "javascript:1", "mailto:a@b.c", ""})
            window()->slot_openLink(QUrl(QLatin1String(refused)));
        QCOMPARE(m_opened.size(), 1);
        QCOMPARE(TipBox::count(), boxes);
        QCOMPARE(shown(), QStringLiteral("page"));
    }

    void withoutBrowser()
    {
        BrowserModule::replace(nullptr);
        NumberFixture fixture;
        fixture.server.reply(Page, {FakeReply::of(404), html("messages")});
        CServiceNoHistory::showHistory(code, {});
        QTRY_COMPARE(shown(), QStringLiteral("historyFailed"));
        QVERIFY(m_opened.isEmpty());
        window()->findChild<QPushButton *>(QStringLiteral("retry"))->click();
        QTRY_COMPARE(shown(), QStringLiteral("historyInBrowser"));
        QCOMPARE(m_opened.size(), 1);
        QCOMPARE(m_opened.first().toEncoded(),
                 fixture.server.url(QLatin1String(Page)).toEncoded() + "?id=a%20b");
        auto *where = window()->findChild<QLabel *>(QStringLiteral("where"));
        QVERIFY(where->isVisible());
        QCOMPARE(where->text(), QStringLiteral("127.0.0.1"));
    }

public slots:
    void open(const QUrl &url) { m_opened.append(url); }

private:
    QList<QUrl> m_opened;
};

FRIENDUI_TEST(TstServiceNoHistory)
#include "tst_servicenohistory.moc"

// The pages of the organisation and when each of them shows.
#include "controls/skin.h"
#include "plugin/frienduisignalsender.h"
#include "tests/org/orgfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QDesktopServices>
#include <QLabel>
#include <QPushButton>

namespace {

// Takes what would be opened in a browser.
class Browser : public QObject
{
    Q_OBJECT

public:
    Browser()
    {
        for (const char *scheme : {"http", "https", "file", "javascript", "ftp"})
            QDesktopServices::setUrlHandler(QLatin1String(scheme), this, "open");
    }
    ~Browser() override
    {
        for (const char *scheme : {"http", "https", "file", "javascript", "ftp"})
            QDesktopServices::unsetUrlHandler(QLatin1String(scheme));
    }
    QStringList opened;

public slots:
    void open(const QUrl &url) { opened.append(url.toString()); }
};

FriendUISignalSender *hub()
{
    return FriendUISignalSender::instance();
}

} // namespace

class TstOrgWidget : public QObject
{
    Q_OBJECT

private slots:
    void loadsOnFirstShow()
    {
        OrgFixture org;
        OrgWidget hidden;
        QCOMPARE(org.asks.size(), 0);
        org.show();
        QCOMPARE(org.page->objectName(), QStringLiteral("orgWidget"));
        QCOMPARE(org.asked("C"), 1);
        QCOMPARE(org.shownPage(), QStringLiteral("orgWidgetLoading"));
        org.answer("C", org.topmost());
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
        org.page->hide();
        org.page->show();
        QCOMPARE(org.asks.size(), 1);
    }

    void failurePageAndRetry()
    {
        OrgFixture org;
        org.show();
        org.fail("C", 403);
        QCOMPARE(org.shownPage(), QStringLiteral("loadErrorAndCrazyRetry"));
        auto *button = org.page->findChild<QPushButton *>(QStringLiteral("retry"));
        QVERIFY(button && button->isVisible());
        QTest::mouseClick(button, Qt::LeftButton);
        QCOMPARE(org.shownPage(), QStringLiteral("orgWidgetLoading"));
        QCOMPARE(org.asked("C"), 2);
        org.answer("C", org.topmost());
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
    }

    void silentServicesFailAtLast()
    {
        OrgFixture org;
        org.show();
        QSignalSpy failed(org.tree, &OrgStructureTreeView::signal_LoadFail);
        delete org.pending("C"); // a log-in that is over ends without an answer
        org.tree->slot_loadOrgTimeOut();
        QCOMPARE(failed.size(), 1);
        QCOMPARE(failed.first().first().toString(), org.id("C"));
        QCOMPARE(org.shownPage(), QStringLiteral("loadErrorAndCrazyRetry"));
        org.page->slot_reLoad();
        QCOMPARE(org.asked("C"), 2);
        org.answer("C", org.topmost());
        // A department below is told in its place.
        org.tree->expandItem(org.row("D1"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 ~ D2"));
        org.tree->slot_loadOrgTimeOut();
        QCOMPARE(org.rowText(), QStringLiteral("D1 ! D2"));
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
        // The root once more, this time in vain: the whole page is out of date.
        org.page->slot_reLoad();
        org.fail("C");
        QCOMPARE(org.shownPage(), QStringLiteral("loadErrorAndCrazyRetry"));
    }

    void companyWithoutDepartments()
    {
        OrgFixture org;
        org.show();
        org.answer("C", {});
        QCOMPARE(org.shownPage(), QStringLiteral("orgEmpty"));
        QTest::mouseClick(org.page->findChild<QPushButton *>(QStringLiteral("freshPersionInfo")),
                          Qt::LeftButton);
        QCOMPARE(org.asked("C"), 2);
    }

    void connectionComesBack()
    {
        OrgFixture org;
        emit hub()->signal_isConnected(true);
        org.show();
        org.fail("C");
        emit hub()->signal_isConnected(false);
        QCOMPARE(org.asked("C"), 1);
        emit hub()->signal_isConnected(true);
        QCOMPARE(org.asked("C"), 2);
        org.answer("C", org.topmost());
        emit hub()->signal_isConnected(true);
        QCOMPARE(org.asks.size(), 2);
        // The tree is there, but a failed reload hides it.
        org.page->slot_reLoad();
        org.fail("C");
        emit hub()->signal_isConnected(true);
        QCOMPARE(org.asks.size(), 4);
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
    }

    void refreshOfTheHost()
    {
        OrgFixture org;
        org.showOpen();
        emit hub()->signal_refreshOrganization();
        QCOMPARE(org.asked("C"), 2);
        QCOMPARE(org.asked("D1"), 2);
        QCOMPARE(org.asked("D2"), 0);
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
        org.fail("D1");
        QVERIFY(TipBox::lastText() == QObject::tr("orgRefreshFailed"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
    }

    void shownAgainFromTheCache()
    {
        OrgFixture org;
        org.showOpen();
        org.page.reset();
        org.show();
        QCOMPARE(org.shownPage(), QStringLiteral("OrgStructureTreeView"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
        org.tree->expandItem(org.row("D1"));
        QCOMPARE(org.rowText(), QStringLiteral("D1 D11 anna bob D2"));
        QCOMPARE(org.asked("D1"), 1);
    }

    void noEnterprise()
    {
        OrgFixture org;
        LogCapture log(org.host.context);
        org.host.context.company.clear();
        org.show();
        QCOMPARE(org.shownPage(), QStringLiteral("notInENterprise"));
        QCOMPARE(log.linesWith("strRootId.isEmpty() is true").size(), 1);
        QCOMPARE(org.asks.size(), 0);
        const auto *tip = org.page->findChild<QLabel *>(QStringLiteral("lblEnterpriseTip"));
        QVERIFY(tip && tip->isVisible());
        QCOMPARE(tip->font().pixelSize(), 12);
        const auto *button =
            org.page->findChild<QPushButton *>(QStringLiteral("btnRegisterEnterprise"));
        QVERIFY(button && button->isVisible());
        QVERIFY(org.page->findChild<QPushButton *>(QStringLiteral("orgStructureManage")));
        // A place in no organisation is not looked for.
        org.page->slot_orgPosition(org.id("anna"));
        QCOMPARE(org.asks.size(), 0);
    }

    void noPermission()
    {
        OrgFixture org;
        org.host.context.deniedRights.insert(ApplicationContext::Org);
        org.show();
        QCOMPARE(org.asks.size(), 0);
        QVERIFY(org.page->findChild<QLabel *>(QStringLiteral("OrgNotPremisionPic"))->isVisible());
        QCOMPARE(org.page->findChild<QLabel *>(QStringLiteral("OrgNotPremissionText"))->text(),
                 QStringLiteral("OrgNotPremissionText"));
    }

    void logInAsSomebodyElse()
    {
        OrgFixture org;
        org.host.context.company.clear();
        org.show();
        org.host.context.company = org.id("C");
        emit hub()->signal_login();
        org.answer("C", org.topmost());
        QCOMPARE(org.rowText(), QStringLiteral("D1 D2"));
        // Another company shows nothing of the one before.
        org.host.context.company = org.id("other");
        emit hub()->signal_login();
        QCOMPARE(org.shownPage(), QStringLiteral("orgWidgetLoading"));
        org.answer("other", {makeDepartment(org.id("X"), org.id("other"), QStringLiteral("X"))});
        QCOMPARE(org.rowText(), QStringLiteral("X"));
    }

    void realLinks_data()
    {
        const Rows<bool, QString, bool> row{"success", "url", "opens"};
        row("https", true, "https://admin.corp.example/org?t=1", true);
        row("http", true, "http://admin.corp.example/", true);
        row("failed", false, "https://admin.corp.example/", false);
        row("empty", true, "", false);
        row("file", true, "file:///etc/passwd", false);
        row("script", true, "javascript:alert(1)", false);
        row("ftp", true, "ftp://corp.example/x", false);
        row("no host", true, "https:///x", false);
    }

    void realLinks()
    {
        QFETCH(bool, success);
        QFETCH(QString, url);
        QFETCH(bool, opens);
        OrgFixture org;
        LogCapture log(org.host.context);
        Browser browser;
        org.show();
        org.page->slot_GetThirdPartyRealLinkFinish(success, url);
        QCOMPARE(browser.opened, opens ? QStringList{url} : QStringList());
        QCOMPARE(log.linesWith("entry fun OrgWidget::slot_GetThirdPartyRealLinkFinish(),bSuccess=")
                     .size(),
                 1);
        // Nobody asked here: the answer is another's.
        browser.opened.clear();
        emit HttpMgr::instance()->signal_getThirdPartyRealLinkFinish(true,
                                                                     QStringLiteral("https://x/"));
        QCOMPARE(browser.opened.size(), 0);
    }

    void watermarkByRight()
    {
        OrgFixture org;
        org.show();
        QVERIFY2(
            org.page->styleSheet().startsWith(
                QStringLiteral("QWidget#orgWidget{background-image: url(") + org.folder.path()),
            qPrintable(org.page->styleSheet()));
        VcardInfo own;
        own.nickName = QStringLiteral("Somebody");
        org.host.context.profiles.insert(org.jid("me"), own);
        emit hub()->signal_myProfileRecv();
        QVERIFY(org.page->styleSheet().contains(QStringLiteral("/waterMark/Somebody_#")));
        org.page->dealWatermark(false);
        QCOMPARE(org.page->styleSheet(),
                 QStringLiteral("QWidget#orgWidget{background-image: url();} "));
        org.host.context.deniedRights.insert(ApplicationContext::OrgWatermark);
        org.show();
        QCOMPARE(org.page->styleSheet(),
                 QStringLiteral("QWidget#orgWidget{background-image: url();} "));
    }

    void destroyedWhileLoading()
    {
        OrgFixture org;
        org.showFilled();
        org.tree->expandItem(org.row("D1"));
        org.page->slot_orgPosition(org.id("carl"));
        org.tester.reset();
        org.page.reset();
        QPointer<FakeOrgRequest> place = org.pending("carl", "person");
        org.answer("D1", org.belowD1());
        QVERIFY(place);
        emit place->signal_locateOrgFail(org.id("carl"));
        // Nobody is left to be told.
        emit place->signal_noLocate();
    }
};

FRIENDUI_TEST(TstOrgWidget)
#include "tst_orgwidget.moc"

// The page of external contacts in the pane.
#include "ExternalFriend/addexternalfrdmanager.h"
#include "ExternalFriend/externalfriendwidget.h"
#include "contacts/friendcommands.h"
#include "contacts/search/searchcommands.h"
#include "contacts/search/searchindex.h"
#include "plugin/frienduisignalsender.h"
#include "tests/contacts/panefixture.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>

namespace {
const QString Xena = QStringLiteral("xena@corp.example");
const QString Page = QStringLiteral("outsidefrd");
} // namespace

class TstExternalPane : public QObject
{
    Q_OBJECT

private slots:
    void madeWhenItIsShown()
    {
        PaneFixture pane;
        QVERIFY(!pane.pane->hasExternalPage());
        // What has come before the page is not missed, and what the list shows is known.
        addXena(pane);
        FakeHost::send(4202, true);
        QVERIFY(pane.pane->raisePage(Page));
        const ExternalFriendWidget *page = pane.pane->externalPage();
        QVERIFY(page->isVisible());
        QVERIFY(page->model()->hasContact(Xena) && page->model()->hidesOffline());
        QCOMPARE(pane.host.count(4356), 0);
        FakeHost::send(4202, false);
        QVERIFY(!page->model()->hidesOffline());
        // Hiding is for all lists.
        FakeHost::send(4101, jidOf(QStringLiteral("bob")), true);
        emit FriendUISignalSender::instance()->signal_hidealloff(true, true);
        QVERIFY(page->model()->hidesOffline());
    }

    void locates()
    {
        PaneFixture pane;
        addXena(pane);
        FakeHost::send(4202, true);
        FakeHost::send(4898, Xena);
        QCOMPARE(pane.pane->currentPage(), Page);
        const FriendTreeView *view = pane.pane->externalPage()->view();
        QCOMPARE(view->currentIndex().data(FriendTreeRole::Id).toString(), Xena);
        QVERIFY(view->hasFocus());
        // There is no other place to look for somebody outside the company.
        SearchEntry found;
        found.id = Xena;
        QVERIFY(!SearchCommands::mayLocateInOrganisation(found));
        found.id = jidOf(QStringLiteral("bob"));
        QVERIFY(SearchCommands::mayLocateInOrganisation(found));
        FakeHost::send(4898, jidOf(QStringLiteral("bob")));
        QCOMPARE(pane.pane->currentPage(), QStringLiteral("friends"));
    }

    // The answer to what was chosen in a menu opens no window; a failure is told.
    void answersToTheBlacklist()
    {
        PaneFixture pane;
        addXena(pane);
        pane.pane->raisePage(Page);
        TipBox::setNextAnswers(TipBox::Sure);
        for (const bool ok : {true, false}) {
            pane.pane->externalPage()->view()->commands()->blacklist(Xena);
            const int boxes = TipBox::count();
            FakeHost::send(4890, Xena, ok, qint32(ok ? 0 : 1), qint32(2));
            QCOMPARE(TipBox::count() - boxes, ok ? 0 : 1);
            QVERIFY(!AddExternalFrdManager::instance()->dialog(Xena));
        }
    }

    // The host takes the pane away inside a request of the page.
    void destroyedWhileAsking_data()
    {
        const Rows<bool> row{"known"};
        row("at first", false);
        row("by the button", true);
    }

    void destroyedWhileAsking()
    {
        QFETCH(bool, known);
        PaneFixture pane;
        pane.host.onRequest = [&pane](const FakeHost::Request &request) {
            if (request.code == Outbound::RefreshGroups)
                pane.destroy();
        };
        if (known)
            addXena(pane);
        pane.pane->raisePage(Page);
        if (known)
            pane.pane->externalPage()->findChild<QAbstractButton *>("btnRefresh")->click();
        QTRY_VERIFY(pane.pane.isNull());
    }

private:
    static void addXena(PaneFixture &pane)
    {
        FriendData xena =
            makeContact(QStringLiteral("xena"), QStringLiteral("xena"), QStringLiteral("e1"));
        xena.outside = 1;
        pane.host.context.externalGroups = {{QStringLiteral("e1"), QStringLiteral("Clients")}};
        pane.host.context.addContact(xena);
    }
};

FRIENDUI_TEST(TstExternalPane)
#include "tst_externalpane.moc"

// The search as it is used: keys in the box and in the list, answers that come while
// somebody looks at the rows, and where opening and locating lead.
#include "contacts/search/searchpage.h"

#include "contacts/search/peoplesearch.h"
#include "contacts/search/searchcommands.h"
#include "controls/skinmenu.h"
#include "plugin/frienduisignalsender.h"
#include "tests/search/searchfixture.h"
#include "tests/support/recordingactions.h"
#include "tests/support/testrunner.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QPushButton>
#include <QScrollBar>

namespace {

QString jid(const char *user)
{
    return QString::fromLatin1(user) + QStringLiteral("@corp.example");
}

} // namespace

class TstSearchPage : public QObject
{
    Q_OBJECT

private slots:
    void eachKeystroke()
    {
        SearchFixture f;
        f.make();
        QTest::keyClick(f.box, Qt::Key_A);
        QCOMPARE(f.names(), (QStringList{QStringLiteral("anna"), QStringLiteral("anton")}));
        QTest::keyClicks(f.box, QStringLiteral("nn"));
        QCOMPARE(f.names(), QStringList{QStringLiteral("anna")});
        QTest::keyClick(f.box, Qt::Key_Backspace);
        QCOMPARE(f.names().size(), 2);
        QTest::keyClicks(f.box, QStringLiteral("xx"));
        QCOMPARE(f.names(), QStringList());
    }

    // Somebody is about to press Enter on a row while the answer comes.
    void anAnswerMovesNoRow()
    {
        PeopleService service;
        SearchFixture f;
        f.make();
        QTest::keyClicks(f.box, QStringLiteral("an"));
        QTest::keyClick(f.box, Qt::Key_Down);
        QTest::keyClick(f.page->view(), Qt::Key_Down);
        QCOMPARE(f.currentName(), QStringLiteral("anton"));
        QTRY_COMPARE(service.asks, QStringList{QStringLiteral("page 1 an")});
        service.answer(0, {PeopleService::user(QStringLiteral("an0"), QStringLiteral("An")),
                           PeopleService::user(QStringLiteral("anna"), QStringLiteral("anna")),
                           PeopleService::user(QStringLiteral("an0"), QStringLiteral("An"))});
        QCOMPARE(f.names(), (QStringList{QStringLiteral("anna"), QStringLiteral("anton"),
                                         QStringLiteral("An")}));
        QCOMPARE(f.currentName(), QStringLiteral("anton"));
    }

    void failureAndRetry()
    {
        PeopleService service;
        SearchFixture f;
        f.make();
        auto *state = f.page->findChild<QWidget *>(QStringLiteral("noticeText"));
        auto *retry = f.page->findChild<QPushButton *>(QStringLiteral("noticeRetry"));
        QTest::keyClicks(f.box, QStringLiteral("an"));
        QVERIFY(state->isVisible() && !retry->isVisible());
        QTRY_COMPARE(service.asks.size(), 1);
        service.fail(0);
        QVERIFY(retry->isVisible());
        QCOMPARE(f.names().size(), 2); // what is known stays
        QTest::mouseClick(retry, Qt::LeftButton);
        QCOMPARE(service.asks.size(), 2);
        service.answer(1, {PeopleService::user(QStringLiteral("andy"))});
        QVERIFY(!state->isVisible() && !retry->isVisible());
        QCOMPARE(f.names().last(), QStringLiteral("andy"));
    }

    void nothingFound()
    {
        PeopleService service;
        SearchFixture f;
        f.make();
        QTest::keyClicks(f.box, QStringLiteral("zzz"));
        QVERIFY(visible(f, "searchSearching"));
        QTRY_COMPARE(service.asks.size(), 1);
        service.fail(0);
        QVERIFY(visible(f, "searchFailed"));
        f.page->findChild<QPushButton *>(QStringLiteral("retry"))->click();
        QVERIFY(visible(f, "searchSearching"));
        service.answer(1, {});
        QVERIFY(visible(f, "searchNothing"));
    }

    void nothingFoundYet()
    {
        SearchFixture f;
        f.host.context.deniedRights = {ApplicationContext::Org};
        f.make();
        QList<FriendData> many;
        for (int i = 0; i < 3000; ++i)
            many.append(contactNamed(QStringLiteral("u%1").arg(i), QStringLiteral("Udo%1").arg(i)));
        emit FriendUISignalSender::instance()->signal_addAllFriend(many);
        QTest::keyClicks(f.box, QStringLiteral("zzz"));
        QVERIFY(f.sources->isBusy() && visible(f, "searchSearching"));
        QTRY_VERIFY(visible(f, "searchNothing"));
    }

    void furtherPagesAsSomebodyScrolls()
    {
        PeopleService service;
        SearchFixture f;
        f.make();
        QTest::keyClicks(f.box, QStringLiteral("us"));
        QTRY_COMPARE(service.asks.size(), 1);
        service.answer(0, PeopleService::users(QStringLiteral("us"), PeopleSearch::PageSize));
        QCoreApplication::processEvents();
        QCOMPARE(service.asks.size(), 1);
        QTest::keyClick(f.box, Qt::Key_Down);
        QTest::keyClick(f.page->view(), Qt::Key_End);
        QTRY_COMPARE(service.asks.last(), QStringLiteral("page 2 us"));
        service.answer(1, {PeopleService::user(QStringLiteral("ursula"))});
        QCOMPARE(f.names().size(), PeopleSearch::PageSize + 1);
    }

    // Nobody is missing because there are many; the service's come behind all of them.
    void manyLocalHits()
    {
        PeopleService service;
        SearchFixture f;
        for (int i = 0; i < 2 * SearchPage::LocalPage + 20; ++i)
            f.host.context.addContact(
                contactNamed(QStringLiteral("u%1").arg(i), QStringLiteral("Udo%1").arg(i)));
        f.make();
        QTest::keyClicks(f.box, QStringLiteral("udo"));
        QCOMPARE(f.names().size(), SearchPage::LocalPage);
        QTRY_COMPARE(service.asks.size(), 1);
        service.answer(0, {PeopleService::user(QStringLiteral("udo"), QStringLiteral("Udo"))});
        QCOMPARE(f.names().size(), SearchPage::LocalPage);
        const QStringList first = f.names();
        QScrollBar *bar = f.page->view()->verticalScrollBar();
        const auto scrolled = [&f, bar] {
            QCoreApplication::processEvents();
            bar->setValue(bar->maximum());
            return f.names().size();
        };
        QTRY_COMPARE(scrolled(), 2 * SearchPage::LocalPage + 21);
        QCOMPARE(f.names().mid(0, first.size()), first);
        QCOMPARE(f.names().last(), QStringLiteral("Udo"));
    }

    void keysBetweenBoxAndList()
    {
        SearchFixture f;
        f.make();
        QSignalSpy left(f.page, &SearchPage::left);
        QTest::keyClicks(f.box, QStringLiteral("an"));
        QTest::keyClick(f.box, Qt::Key_Down);
        QVERIFY(f.page->view()->hasFocus());
        QCOMPARE(f.currentName(), QStringLiteral("anna"));
        QTest::keyClick(f.page->view(), Qt::Key_Up);
        QVERIFY(f.box->hasFocus());
        QTest::keyClick(f.box, Qt::Key_Down);
        // Letters go on with what is typed.
        QTest::keyClicks(f.page->view(), QStringLiteral("t"));
        QVERIFY(f.box->hasFocus());
        QCOMPARE(f.box->text(), QStringLiteral("ant"));
        QTest::keyClick(f.box, Qt::Key_Down);
        QTest::keyClick(f.page->view(), Qt::Key_Backspace);
        QCOMPARE(f.box->text(), QStringLiteral("an"));
        QTest::keyClick(f.box, Qt::Key_Down);
        QTest::keyClick(f.page->view(), Qt::Key_Escape);
        QCOMPARE(left.size(), 1);
    }

    void opening_data()
    {
        const Rows<int, QString, QString, QString> row{"kind", "id", "opens", "locates"};
        row("contact", SearchEntry::Person, jid("anna"), "chat 0", "locateContact");
        row("colleague", SearchEntry::Person, jid("carl"), "chat 0", "locateInOrganisation");
        row("room", SearchEntry::Room, "r@conference", "chat 1", "locateRoom");
        row("channel", SearchEntry::Channel, "c1", "chat 3", "locateChannel");
        row("service number", SearchEntry::ServiceNumber, "s1", "openServiceNumber",
            "openServiceNumber");
        row("group", SearchEntry::Group, "g1", "locateGroup", "locateGroup");
        row("department", SearchEntry::Department, "d1", "locateInOrganisation",
            "locateInOrganisation");
        row("team", SearchEntry::Team, "t1", "locateTeam", "locateTeam");
    }

    void opening()
    {
        QFETCH(int, kind);
        QFETCH(QString, id);
        QFETCH(QString, opens);
        QFETCH(QString, locates);
        SearchFixture f;
        f.make();
        RecordingActions actions;
        const SearchEntry entry = searchFor(&f, SearchEntry::Kind(kind), id);
        connect(f.page, &SearchPage::leaveFor, this,
                [](const SearchEntry &found) { SearchCommands::locate(found); });

        QTest::keyClick(f.box, Qt::Key_Return);
        QString done = actions.calls.value(0).section(QLatin1Char(' '), 0, 0);
        if (f.host.count(Outbound::OpenChat) == 1) {
            const auto [opened, chatKind] = f.host.arguments<QString, qint32>(Outbound::OpenChat);
            QCOMPARE(opened, id);
            done = QStringLiteral("chat %1").arg(chatKind);
        }
        QCOMPARE(done, opens);

        actions.calls.clear();
        QTest::keyClick(f.box, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(actions.calls.size(), 1);
        QCOMPARE(actions.calls.first().section(QLatin1Char(' '), 0, 0), locates);
        if (kind == SearchEntry::Person && !entry.isContact)
            QCOMPARE(actions.calls.first(), QStringLiteral("locateInOrganisation carl false"));
    }

    void menu_data()
    {
        const Rows<int, QString, QStringList> row{"kind", "id", "entries"};
        row("contact", SearchEntry::Person, jid("anna"),
            {"invitechat", "viewdetail", "locateFound", "locateInOrganisation", "sendemail"});
        row("colleague", SearchEntry::Person, jid("carl"),
            {"invitechat", "viewdetail", "locateInOrganisation", "addcon", "sendemail"});
        row("oneself", SearchEntry::Person, jid("me"), {"viewdetail", "locateInOrganisation"});
        row("room", SearchEntry::Room, "r@conference", {"openFound", "locateFound"});
        row("department", SearchEntry::Department, "d1", {"locateFound"});
        row("service number", SearchEntry::ServiceNumber, "s1", {"viewdetail"});
    }

    void menu()
    {
        QFETCH(int, kind);
        QFETCH(QString, id);
        QFETCH(QStringList, entries);
        SearchFixture f;
        f.make();
        RecordingActions actions;
        searchFor(&f, SearchEntry::Kind(kind), id);
        QTest::keyClick(f.box, Qt::Key_Down);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(1, 1));
        QApplication::sendEvent(f.page->view()->viewport(), &event);
        auto *menu = qobject_cast<SkinMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QStringList offered;
        for (const QAction *action : menu->actions()) {
            if (action->isVisible())
                offered.append(action->objectName());
        }
        QCOMPARE(offered, entries);
        menu->close();
    }

    void whatTheUserMayNotSee()
    {
        SearchFixture f;
        f.host.context.deniedRights = {ApplicationContext::Org, ApplicationContext::GroupChat};
        f.make();
        SearchEntry entry;
        entry.name = QStringLiteral("anna too");
        for (const auto kind : {SearchEntry::Person, SearchEntry::Room, SearchEntry::Department}) {
            entry.kind = kind;
            entry.id = QStringLiteral("x%1").arg(kind);
            f.sources->index().put(entry);
        }
        QTest::keyClicks(f.box, QStringLiteral("anna"));
        QCOMPARE(f.names(), QStringList{QStringLiteral("anna")});
    }

    // News of the index while nobody points at a row, and while somebody does.
    void theIndexChanges()
    {
        SearchFixture f;
        f.make();
        QTest::keyClicks(f.box, QStringLiteral("an"));
        QSignalSpy changed(f.sources.get(), &SearchSources::changed);
        const auto add = [&changed](const char *user) {
            emit FriendUISignalSender::instance()->signal_addFriend(jid(user));
            QVERIFY(changed.wait(TestPatience));
        };
        add("an");
        QCOMPARE(f.names().size(), 3);
        QTest::keyClick(f.box, Qt::Key_Down);
        const QStringList seen = f.names();
        add("ana");
        QCOMPARE(f.names(), seen);
        QTest::keyClick(f.page->view(), Qt::Key_Up);
        QCOMPARE(f.names().size(), 4);
    }

    void thePaneIsTakenAway()
    {
        SearchFixture f;
        f.make();
        QTest::keyClicks(f.box, QStringLiteral("an"));
        f.host.onRequest = [&f](const FakeHost::Request &) {
            f.tester.reset();
            f.window.reset();
        };
        QTest::keyClick(f.box, Qt::Key_Return);
        QCOMPARE(f.host.count(Outbound::OpenChat), 1);
        QVERIFY(!f.window);
    }

private:
    // Finds this one alone; anna is a contact.
    static SearchEntry searchFor(SearchFixture *f, SearchEntry::Kind kind, const QString &id)
    {
        SearchEntry entry;
        entry.kind = kind;
        entry.id = id;
        entry.name = QStringLiteral("Quux");
        entry.isContact = id == jid("anna");
        f->sources->index().put(entry);
        QTest::keyClicks(f->box, QStringLiteral("quux"));
        return entry;
    }
    static bool visible(const SearchFixture &f, const char *name)
    {
        const auto *page = f.page->findChild<QWidget *>(QLatin1String(name));
        return page && page->isVisible();
    }
};

FRIENDUI_TEST(TstSearchPage)
#include "tst_searchpage.moc"

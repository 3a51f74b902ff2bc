// The search in the pane: what it covers, where the focus goes, where locating leads;
// and the pages that the pane keeps beside it.
#include "contacts/friendlistview.h"
#include "contacts/rooms/muclistview.h"
#include "contacts/rooms/mucroles.h"
#include "contacts/rooms/mucwidget.h"
#include "contacts/search/searchpage.h"
#include "contacts/search/searchresultmodel.h"
#include "contacts/search/searchresultview.h"
#include "contacts/search/searchsources.h"
#include "controls/searchbox.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"
#include "servicenum/ccustomerserverlistview.h"
#include "servicenum/ccustomerserverpage.h"
#include "servicenum/customerserverroles.h"
#include "tests/contacts/panefixture.h"
#include "tests/support/testrunner.h"

namespace {

const QString RoomJid = QStringLiteral("r1@conference.corp.example");

MucData room()
{
    MucData data;
    data.roomJid = RoomJid;
    data.roomName = QStringLiteral("Quarry");
    return data;
}

CSChannelData channel()
{
    CSChannelData data;
    data.id = QStringLiteral("c1");
    data.name = QStringLiteral("Quarry help");
    return data;
}

MessageData messageFrom(const QString &jid)
{
    MessageData message;
    message.sessionJid = jid;
    message.fromJid = jid;
    message.body = QStringLiteral("hello");
    message.time = QStringLiteral("2026-01-05 10:00:00");
    return message;
}

} // namespace

class TstPaneSearch : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_pane = std::make_unique<PaneFixture>();
        QVERIFY(QTest::qWaitForWindowActive(m_pane->pane));
        m_box = m_pane->pane->findChild<SearchBox *>();
    }
    void cleanup() { m_pane.reset(); }

    void coversThePagesAndGivesTheFocusBack()
    {
        QVERIFY(m_pane->view->hasFocus());
        QVERIFY(!m_pane->pane->findChild<SearchPage *>()); // nobody has searched
        QTest::keyClick(m_pane->view, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(m_box->hasFocus());
        QTest::keyClicks(m_box, QStringLiteral("an"));
        QTRY_VERIFY(results()->isVisible()); // once what is known has been taken in
        QVERIFY(!m_pane->view->isVisible());
        QVERIFY(m_pane->pane->findChild<FriendListView *>()->isVisible());
        QTest::keyClick(m_box, Qt::Key_Down);
        QVERIFY(results()->hasFocus());
        QTest::keyClick(results(), Qt::Key_Up);
        QTest::keyClick(m_box, Qt::Key_Down);
        QTest::keyClick(results(), Qt::Key_Escape);
        QVERIFY(m_box->text().isEmpty());
        QVERIFY(m_pane->view->isVisible() && m_pane->view->hasFocus());
        // And again.
        QTest::keyClick(m_pane->view, Qt::Key_F, Qt::ControlModifier);
        QTest::keyClicks(m_box, QStringLiteral("an"));
        QTest::keyClick(m_box, Qt::Key_Escape);
        QVERIFY(m_pane->view->hasFocus());
    }

    void anEntryEndsTheSearch()
    {
        auto *entries = m_pane->pane->findChild<FriendListView *>();
        for (const char *id : {"friends", "groupChat"}) {
            QTest::keyClicks(m_box, QStringLiteral("an"));
            const QModelIndex entry =
                entries->model()
                    ->match(entries->model()->index(0, 0), EntryRole::Id, QLatin1String(id))
                    .value(0);
            QTest::mouseClick(entries->viewport(), Qt::LeftButton, Qt::NoModifier,
                              entries->visualRect(entry).center());
            QVERIFY(m_box->text().isEmpty());
            QCOMPARE(m_pane->pane->currentPage(), QLatin1String(id));
            QVERIFY(!results()->isVisible());
        }
    }

    void locatesAContact()
    {
        m_pane->view->collapseAll();
        search("dora");
        QTest::keyClick(m_box, Qt::Key_Return, Qt::ControlModifier);
        QVERIFY(m_pane->view->isVisible() && m_pane->view->hasFocus());
        QCOMPARE(m_pane->view->currentIndex(), m_pane->contact("dora"));
        QVERIFY(m_pane->view->viewport()->rect().contains(
            m_pane->view->visualRect(m_pane->contact("dora"))));
        QVERIFY(m_box->text().isEmpty());
    }

    void opensAGroup()
    {
        search("beta");
        QTest::keyClick(m_box, Qt::Key_Return);
        QVERIFY(m_pane->view->hasFocus());
        QCOMPARE(m_pane->view->currentIndex(), m_pane->model->groupIndex(QStringLiteral("g2")));
        QCOMPARE(m_pane->host.requests.size(), 0);
    }

    void locatesARoom()
    {
        emit FriendUISignalSender::instance()->signal_addMuc(room(), true);
        search("quarry");
        QTest::keyClick(m_box, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("groupChat"));
        const auto *list = m_pane->pane->rooms()->findChild<MucListView *>();
        QCOMPARE(list->currentIndex().data(MucRole::Id).toString(), RoomJid);
        QVERIFY(list->hasFocus());
    }

    void locatesAChannelOfAnEarlierPane()
    {
        emit FriendUISignalSender::instance()->signal_notifyAddChannel(channel());
        m_pane->destroy();
        m_pane->make();
        m_box = m_pane->pane->findChild<SearchBox *>();
        search("quarry");
        QTest::keyClick(m_box, Qt::Key_Return, Qt::ControlModifier);
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("customer"));
        const auto *list = m_pane->pane->findChild<CCustomerServerPage *>()->list();
        QCOMPARE(list->currentIndex().data(ChannelRole::Id).toString(), QStringLiteral("c1"));
    }

    void locatesSomebodyWhoIsNotThere()
    {
        for (const char *kind : {"contact", "group", "room", "channel"}) {
            const QString id = QStringLiteral("nobody'%");
            PaneActions *actions = paneActions();
            if (kind == QLatin1String("contact"))
                actions->locateContact(id);
            else if (kind == QLatin1String("group"))
                actions->locateGroup(id);
            else if (kind == QLatin1String("room"))
                actions->locateRoom(id);
            else
                actions->locateChannel(id);
        }
        QCOMPARE(m_pane->pane->currentPage(), QStringLiteral("customer"));
    }

    void whoOneTalksToComesFirst()
    {
        const QString late = jidOf(QStringLiteral("zx"));
        for (const char *user : {"ax", "bx", "zx"}) {
            FriendData contact = makeContact(QLatin1String(user), QStringLiteral("Quill"));
            contact.remark = QStringLiteral("Quill ") + QLatin1String(user);
            m_pane->host.context.addContact(contact);
            emit FriendUISignalSender::instance()->signal_addFriend(contact.jid);
        }
        emit FriendUISignalSender::instance()->signal_latestFriend(true, messageFrom(late));
        search("quill");
        const QAbstractItemModel *model = results()->model();
        QCOMPARE(model->rowCount(), 3);
        QCOMPARE(model->index(0, 0).data(SearchRole::Id).toString(), late);
    }

    void unreadMessagesAtTheEntry()
    {
        const auto unread = [this] {
            const QAbstractItemModel *model = m_pane->pane->findChild<FriendListView *>()->model();
            return model->match(model->index(0, 0), EntryRole::Id, QStringLiteral("latestContact"))
                .value(0)
                .data(EntryRole::Unread)
                .toInt();
        };
        auto *hub = FriendUISignalSender::instance();
        emit hub->signal_latestFriend(true, messageFrom(jidOf(QStringLiteral("anna"))));
        emit hub->signal_latestFriend(true, messageFrom(jidOf(QStringLiteral("anna"))));
        emit hub->signal_latestFriend(true, messageFrom(jidOf(QStringLiteral("bob"))));
        QTRY_COMPARE(unread(), 3);
        emit hub->signal_paintDelegateMsgCount(jidOf(QStringLiteral("anna")));
        QTRY_COMPARE(unread(), 1);
    }

    void anotherUserLogsIn()
    {
        search("anna");
        QCOMPARE(results()->model()->rowCount(), 1);
        m_pane->host.context.user = QStringLiteral("you");
        emit FriendUISignalSender::instance()->signal_login();
        QVERIFY(m_box->text().isEmpty());
        QVERIFY(!results()->isVisible());
    }

private:
    SearchResultView *results() const { return m_pane->pane->findChild<SearchResultView *>(); }
    // What was heard of before is in the index.
    void search(const char *text)
    {
        auto *sources = m_pane->pane->findChild<SearchSources *>();
        sources->start();
        QTRY_VERIFY(!sources->isBusy());
        m_box->setFocus();
        QTest::keyClicks(m_box, QLatin1String(text));
    }

    std::unique_ptr<PaneFixture> m_pane;
    SearchBox *m_box = nullptr; // of the pane
};

FRIENDUI_TEST(TstPaneSearch)
#include "tst_panesearch.moc"

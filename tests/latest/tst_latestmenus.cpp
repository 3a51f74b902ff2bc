// What the user does with a row: keys, menu.
#include "controls/skinmenu.h"
#include "tests/latest/latestfixture.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QContextMenuEvent>

namespace {
const char Entries[] = "invitechat setGroupToppest cancelGroupToppest messageSetting viewdetail "
                       "locateEntry removeLatest clearLatest";
} // namespace

class TstLatestMenus : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_page.reset(new LatestFixture);
        MucData room;
        room.roomJid = LatestFixture::room(QStringLiteral("r"));
        room.roomName = QStringLiteral("Room");
        m_page->host.context.rooms.insert(room.roomJid, room);
        FriendData contact;
        contact.jid = LatestFixture::jid(QStringLiteral("anna"));
        m_page->host.context.addContact(contact);
    }
    void cleanup() { m_page.reset(); }

    void entries_data()
    {
        const Rows<QString, int, bool, QString, QString> row{"jid", "kind", "pinned", "hidden",
                                                             "located"};
        row("contact", LatestFixture::jid(QStringLiteral("anna")), 0, false,
            QStringLiteral("cancelGroupToppest messageSetting"),
            QStringLiteral("locateContact anna@corp.example"));
        row("stranger, pinned", LatestFixture::jid(QStringLiteral("dora")), 0, true,
            QStringLiteral("setGroupToppest messageSetting"),
            QStringLiteral("locateInOrganisation dora false"));
        row("room", LatestFixture::room(QStringLiteral("r")), 1, false,
            QStringLiteral("cancelGroupToppest viewdetail"),
            QStringLiteral("locateRoom r@conference.corp.example"));
        row("service number", LatestFixture::jid(QStringLiteral("news")), 2, false,
            QStringLiteral("cancelGroupToppest messageSetting viewdetail"),
            QStringLiteral("openServiceNumber news"));
        row("channel", QStringLiteral("C7"), 3, false,
            QStringLiteral("cancelGroupToppest messageSetting viewdetail"),
            QStringLiteral("locateChannel C7"));
    }

    void entries()
    {
        QFETCH(QString, jid);
        QFETCH(int, kind);
        QFETCH(bool, pinned);
        QFETCH(QString, hidden);
        QFETCH(QString, located);
        if (pinned)
            m_page->host.context.topSessions.insert(jid);
        receive(jid, MessageData::Kind(kind));
        openByKey(jid);
        const QStringList missing = hidden.split(QLatin1Char(' '));
        for (const char *key : QByteArray(Entries).split(' '))
            QVERIFY2(menu()->action(key)->isVisible() != missing.contains(QLatin1String(key)), key);
        choose("locateEntry");
        QCOMPARE(m_page->actions.calls, QStringList{located});

        openByKey(jid);
        choose("invitechat");
        const auto opened = m_page->host.arguments<QString, qint32>(Outbound::OpenChat);
        QCOMPARE(std::get<0>(opened), jid);
        QCOMPARE(std::get<1>(opened), kind);
    }

    void pins()
    {
        const QString anna = LatestFixture::jid(QStringLiteral("anna"));
        receive(anna, MessageData::Person, QStringLiteral("5 09:00"));
        receive(LatestFixture::jid(QStringLiteral("bob")), MessageData::Person);
        // As a host does: the request changes its answer.
        m_page->host.onRequest = [this](const FakeHost::Request &request) {
            if (request.code != Outbound::PinConversation)
                return;
            const auto [jid, top] = FakeHost::decode<QString, bool>(request.payload);
            if (top)
                m_page->host.context.topSessions.insert(jid);
            else
                m_page->host.context.topSessions.remove(jid);
        };
        openByKey(anna);
        choose("setGroupToppest");
        QTRY_COMPARE(m_page->rows(), (QStringList{"anna", "bob"}));
        QTRY_COMPARE(int(m_page->stored(anna).isTop), 1);
        openByKey(anna);
        choose("cancelGroupToppest");
        QTRY_COMPARE(m_page->rows(), (QStringList{"bob", "anna"}));
    }

    void messageSetting()
    {
        const QString room = LatestFixture::room(QStringLiteral("r"));
        receive(room, MessageData::Room);
        m_page->host.context.notifications.insert(room, 1);
        openByKey(room);
        auto *settings = menu()->findChild<SkinMenu *>(QStringLiteral("messageSetting"));
        QVERIFY(settings->action("recivenoremind")->isChecked());
        QVERIFY(!settings->action("reciveremind")->isChecked());
        QVERIFY(settings->action("reciveremind")->isEnabled());
        menu()->close();
        FakeHost::send(Inbound::ConnectionChanged, false);
        openByKey(room);
        QVERIFY(!settings->action("reciveremind")->isEnabled());
        QVERIFY(!settings->action("recivenoremind")->isEnabled());
        menu()->close();
        FakeHost::send(Inbound::ConnectionChanged, true);
    }

    void deleteKeyRemoves()
    {
        receive(LatestFixture::jid(QStringLiteral("anna")), MessageData::Person);
        receive(LatestFixture::jid(QStringLiteral("bob")), MessageData::Person,
                QStringLiteral("5 09:00"));
        select(LatestFixture::jid(QStringLiteral("anna")));
        QTest::keyClick(m_page->view(), Qt::Key_Delete);
        QCOMPARE(m_page->rows(), QStringList{"bob"});
        // The next row is the current one: the key may go on.
        QTest::keyClick(m_page->view(), Qt::Key_Delete);
        QCOMPARE(m_page->rows(), QStringList());
        QTest::keyClick(m_page->view(), Qt::Key_Delete);
    }

    void clearingAsks()
    {
        const QString anna = LatestFixture::jid(QStringLiteral("anna"));
        receive(anna, MessageData::Person);
        openByKey(anna);
        choose("clearLatest");
        QCOMPARE(m_page->rows(), QStringList{"anna"});
        TipBox::setNextAnswers(TipBox::Sure);
        openByKey(anna);
        choose("clearLatest");
        QCOMPARE(m_page->rows(), QStringList());
    }

    // The row goes while its menu is open: the menu is about nobody.
    void menuOfWhoIsGone()
    {
        const QString anna = LatestFixture::jid(QStringLiteral("anna"));
        receive(anna, MessageData::Person);
        receive(LatestFixture::jid(QStringLiteral("bob")), MessageData::Person);
        openByKey(anna);
        emit FriendUISignalSender::instance()->signal_removelatest(anna);
        choose("invitechat");
        QCOMPARE(m_page->host.count(Outbound::OpenChat), 0);
    }

    // The host takes the page away inside the request.
    void pageGoesWhileAChatIsOpened()
    {
        const QString anna = LatestFixture::jid(QStringLiteral("anna"));
        receive(anna, MessageData::Person);
        openByKey(anna);
        m_page->host.onRequest = [this](const FakeHost::Request &) {
            m_page->tester.reset();
            m_page->widget.reset();
        };
        choose("invitechat");
        QVERIFY(!m_page->widget);
        QCOMPARE(m_page->host.count(Outbound::OpenChat), 1);
    }

    void enterOpens()
    {
        receive(LatestFixture::jid(QStringLiteral("anna")), MessageData::Person);
        select(LatestFixture::jid(QStringLiteral("anna")));
        QTest::keyClick(m_page->view(), Qt::Key_Return);
        QCOMPARE(m_page->host.count(Outbound::OpenChat), 1);
        m_page->host.context.deniedRights.insert(ApplicationContext::Chat);
        QTest::keyClick(m_page->view(), Qt::Key_Return);
        QCOMPARE(m_page->host.count(Outbound::OpenChat), 1);
    }

private:
    void receive(const QString &jid, MessageData::Kind kind,
                 const QString &when = QStringLiteral("5 10:00")) const
    {
        MessageData message = m_page->message(jid, QStringLiteral("x"), when);
        message.kind = kind;
        emit FriendUISignalSender::instance()->signal_latestFriend(true, message);
        QTRY_VERIFY(m_page->model()->indexOf(jid).isValid());
    }
    void select(const QString &jid) const
    {
        m_page->view()->selectionModel()->setCurrentIndex(m_page->model()->indexOf(jid),
                                                          QItemSelectionModel::ClearAndSelect);
    }
    SkinMenu *menu() const
    {
        return m_page->view()->findChild<SkinMenu *>(QStringLiteral("latestMenu"),
                                                     Qt::FindDirectChildrenOnly);
    }
    void openByKey(const QString &jid) const
    {
        select(jid);
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(0, 0));
        QApplication::sendEvent(m_page->view()->viewport(), &event);
        QVERIFY(menu()->isVisible());
    }
    void choose(const char *key) const
    {
        QAction *action = menu()->action(key);
        QVERIFY2(action, key);
        menu()->close();
        action->trigger();
        LatestFixture::settle();
    }

    std::unique_ptr<LatestFixture> m_page;
};

FRIENDUI_TEST(TstLatestMenus)
#include "tst_latestmenus.moc"

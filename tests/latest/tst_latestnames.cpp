// What a row tells of the other side, and that it follows what the host tells.
#include "tests/latest/latestfixture.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

using Hub = FriendUISignalSender;

class TstLatestNames : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_page.reset(new LatestFixture);
        FakeContext &context = m_page->host.context;
        anna.jid = LatestFixture::jid(QStringLiteral("anna"));
        anna.nickName = QStringLiteral("Anna Nick");
        anna.remark = QStringLiteral("My Anna");
        context.addContact(anna);
        VcardInfo bob;
        bob.nickName = QStringLiteral("Bob Card");
        context.profiles.insert(LatestFixture::jid(QStringLiteral("bob")), bob);
        room.roomJid = LatestFixture::room(QStringLiteral("r"));
        room.roomName = QStringLiteral("The Room");
        context.rooms.insert(room.roomJid, room);
    }
    void cleanup() { m_page.reset(); }

    void recordOfAMessage_data()
    {
        const Rows<bool, MessageData, QString, QString, QString> row{"received", "message", "jid",
                                                                     "name", "sender"};
        const auto make = [](const char *session, const char *from, const char *to, int kind = 0,
                             const char *name = "") {
            MessageData message;
            message.sessionJid = QLatin1String(session);
            message.fromJid = QLatin1String(from);
            message.toJid = QLatin1String(to);
            message.kind = MessageData::Kind(kind);
            message.displayName = QLatin1String(name);
            return message;
        };
        const QString a = QStringLiteral("anna@corp.example"), none;
        const QString inRoom = QStringLiteral("r@conference.corp.example");
        row("received", true, make("", "anna@corp.example", "me@corp.example"), a, "My Anna", none);
        row("sent", false, make("", "me@corp.example", "anna@corp.example"), a, "My Anna", none);
        row("own full jid", false, make("", "me@corp.example/pc", "anna@corp.example/phone"), a,
            "My Anna", none);
        row("own jid in capitals", false, make("", "Me@Corp.Example", "anna@corp.example"), a,
            "My Anna", none);
        row("sent elsewhere by oneself", true, make("", "me@corp.example/web", "anna@corp.example"),
            a, "My Anna", none);
        row("session given", true, make("anna@corp.example", "x@y", "z@y"), a, "My Anna", none);
        row("to oneself", false, make("", "me@corp.example/pc", "me@corp.example"),
            "me@corp.example", "me", none);
        row("profile", true, make("bob@corp.example", "", ""), "bob@corp.example", "Bob Card",
            none);
        row("stranger with a name", true, make("x@y", "x@y", "", 0, "Given"), "x@y", "Given", none);
        row("stranger", true, make("x@y", "x@y", ""), "x@y", "x", none);
        row("sent, with the own name", false, make("x@y", "me@corp.example", "x@y", 0, "Me"), "x@y",
            "x", none);
        row("room", true, make("r@conference.corp.example", "anna@corp.example", "", 1, "Old"),
            inRoom, "The Room", "My Anna");
        row("room, not said to be one", true,
            make("", "r@conference.corp.example/Ann", "me@corp.example"), inRoom, "The Room",
            "Ann");
        row("room, by oneself", false, make("r@conference.corp.example", "me@corp.example", "", 1),
            inRoom, "The Room", none);
        row("unknown room", true, make("q@rooms.example", "", "", 1, "Named"), "q@rooms.example",
            "Named", none);
        row("service number", true, make("news@corp.example", "", "", 2, "News"),
            "news@corp.example", "News", none);
        row("blank name", true, make("news@corp.example", "", "", 2, " \n"), "news@corp.example",
            "news", none);
        row("nobody", true, make("", "", ""), "", "", none);
    }

    void recordOfAMessage()
    {
        QFETCH(bool, received);
        QFETCH(MessageData, message);
        DBFriendData record;
        m_page->widget->getDBFriendData(received, message, record);
        QTEST(record.jid, "jid");
        QTEST(record.displayName, "name");
        if (message.kind == MessageData::Room)
            QTEST(record.signature, "sender");
    }

    void follows_data()
    {
        const Rows<int, QString> row{"step", "name"};
        row("remark", 0, "Renamed");
        row("remark taken away", 1, "Anna Nick");
        row("profile does not beat the remark", 2, "My Anna");
        row("room renamed", 3, "New Room");
        row("room delivered again", 4, "Delivered");
        row("roster comes later", 7, "Late Anna");
        row("hostile name", 5, "<b>x</b> y");
        row("blank name", 6, "My Anna");
    }

    // The row, and the table.
    void follows()
    {
        QFETCH(int, step);
        QFETCH(QString, name);
        const bool ofRoom = step == 3 || step == 4;
        const QString jid = ofRoom ? room.roomJid : anna.jid;
        m_page->receive(jid, QStringLiteral("x"), QStringLiteral("5 10:00"));
        QTRY_VERIFY(m_page->model()->indexOf(jid).isValid());
        LatestFixture::settle();
        Hub *hub = Hub::instance();
        VcardInfo profile;
        profile.nickName = QStringLiteral("Anna Card");
        MucData delivered = room;
        delivered.roomName = name;
        if (step == 0)
            emit hub->signal_notifyFriendRemarkName(jid, name);
        else if (step == 1)
            emit hub->signal_notifyFriendRemarkName(jid, QString());
        else if (step == 2)
            emit hub->signal_FriendVcardInfo(jid, profile);
        else if (step == 3)
            emit hub->signal_roomSubjectChanged(jid, name, QStringLiteral("x"));
        else if (step == 4)
            emit hub->signal_addMuc(delivered, true);
        else if (step == 5)
            emit hub->signal_notifyFriendRemarkName(jid, QStringLiteral("<b>x</b>\ny"));
        else if (step == 6)
            emit hub->signal_roomSubjectChanged(jid, QStringLiteral(" "), QString());
        else
            deliverRoster(name);
        QTRY_COMPARE(m_page->of(jid, LatestRole::Name).toString(), name);
        LatestFixture::settle();
        QCOMPARE(m_page->stored(jid).displayName, name);
        emit hub->signal_notifyFriendRemarkName(LatestFixture::jid(QStringLiteral("nobody")), name);
        QCOMPARE(m_page->rows().size(), 1);
    }

    // A room that the plug-in was not told of yet is one all the same.
    void kindSurvives()
    {
        const QString jid = QStringLiteral("q@rooms.example");
        MessageData message = m_page->message(jid, QStringLiteral("x"), QStringLiteral("5 10:00"));
        message.kind = MessageData::Room;
        message.displayName = QStringLiteral("Given");
        emit Hub::instance()->signal_latestFriend(true, message);
        message.displayName.clear(); // the name stays known
        emit Hub::instance()->signal_latestFriend(true, message);
        QTRY_COMPARE(m_page->of(jid, LatestRole::Unread).toInt(), 2);
        m_page->make();
        QTRY_COMPARE(m_page->of(jid, LatestRole::Kind).toInt(), int(MessageData::Room));
        QCOMPARE(m_page->of(jid, LatestRole::Name).toString(), QStringLiteral("Given"));
    }

    void presence()
    {
        m_page->host.context.presences.insert(anna.jid, {PresenceData::Away, 0});
        m_page->receive(anna.jid, QStringLiteral("x"), QStringLiteral("5 10:00"));
        QTRY_COMPARE(shown(), int(PresenceData::Away));
        emit Hub::instance()->signal_updateFriendPresence(
            {{anna.jid, {PresenceData::DoNotDisturb, 0}}, {QStringLiteral("x@y"), {}}});
        QTRY_COMPARE(shown(), int(PresenceData::DoNotDisturb));
        QVERIFY(m_page->of(anna.jid, LatestRole::ShowsPresence).toBool());
        // Of a contact removed the conversation stays, and nothing of the presence.
        emit Hub::instance()->signal_delFriend(anna.jid);
        QTRY_COMPARE(shown(), int(PresenceData::Offline));
        QVERIFY(!m_page->of(anna.jid, LatestRole::ShowsPresence).toBool());
        emit Hub::instance()->signal_updateFriendPresence({{anna.jid, {PresenceData::Away, 0}}});
        QTRY_COMPARE(shown(), int(PresenceData::Away));
        emit Hub::instance()->signal_doalloffline();
        QTRY_COMPARE(shown(), int(PresenceData::Offline));
    }

    // Who is no colleague is marked, from the hour when the host says so.
    void outsideTheCompany()
    {
        m_page->receive(anna.jid, QStringLiteral("x"), QStringLiteral("5 10:00"));
        const auto isMarked = [this] { return m_page->of(anna.jid, LatestRole::Outside).toBool(); };
        QTRY_VERIFY(m_page->model()->indexOf(anna.jid).isValid() && !isMarked());
        anna.outside = 1;
        m_page->host.context.addContact(anna);
        FakeHost::send(Inbound::ContactAdded, anna.jid);
        QTRY_VERIFY(isMarked());
        for (const int role : {Qt::ToolTipRole, Qt::AccessibleTextRole})
            QVERIFY(m_page->of(anna.jid, role).toString().contains(QStringLiteral("outsidefrd")));
        m_page->make();
        QTRY_VERIFY(isMarked());
        m_page->host.context.contacts.clear();
        FakeHost::send(Inbound::ContactRemoved, anna.jid, false);
        QTRY_VERIFY(!isMarked());
    }

    void pictures()
    {
        MessageData news = m_page->message(LatestFixture::jid(QStringLiteral("news")),
                                           QStringLiteral("x"), QStringLiteral("5 10:00"));
        news.kind = MessageData::ServiceNumber;
        news.icon = QStringLiteral("//elsewhere/share/a.png");
        emit Hub::instance()->signal_latestFriend(true, news);
        QTRY_COMPARE(m_page->rows().size(), 1);
        QCOMPARE(m_page->of(news.sessionJid, LatestRole::Icon).toString(), QString());
        const QString file = QStringLiteral("/tmp/none.png");
        emit Hub::instance()->signal_notifyDownloadServiceIconResult(QStringLiteral("news"), file);
        QTRY_COMPARE(m_page->of(news.sessionJid, LatestRole::Icon).toString(), file);
        LatestFixture::settle();
        QCOMPARE(m_page->stored(news.sessionJid).icon, file);
        news.icon.clear(); // does not take it away
        emit Hub::instance()->signal_latestFriend(true, news);
        QTRY_COMPARE(m_page->of(news.sessionJid, LatestRole::Unread).toInt(), 2);
        QCOMPARE(m_page->of(news.sessionJid, LatestRole::Icon).toString(), file);
    }

    // All that a row shows can be heard, the day included that it is now.
    void accessibleText()
    {
        room.forbidden = true;
        m_page->host.context.rooms.insert(room.roomJid, room);
        m_page->host.context.topSessions.insert(room.roomJid);
        m_page->receive(room.roomJid, QStringLiteral("hello"), QStringLiteral("5 10:00"));
        QTRY_COMPARE(m_page->rows().size(), 1);
        QCOMPARE(m_page->of(room.roomJid, Qt::AccessibleTextRole).toString(),
                 QStringLiteral("The Room, %1, pinned, mayNotWrite, 10:00, hello")
                     .arg(QStringLiteral("unreadMessages")));
        emit Hub::instance()->signal_setForbiddenIcon(room.roomJid, false);
        QTRY_VERIFY(!m_page->of(room.roomJid, LatestRole::Muted).toBool());
        m_page->now = m_page->now.addDays(1);
        QCOMPARE(m_page->of(room.roomJid, LatestRole::TimeText).toString(),
                 QStringLiteral("yesterday"));
    }

    void goneWithTheirHistory()
    {
        m_page->receive(anna.jid, QStringLiteral("secret"), QStringLiteral("5 10:00"));
        QTRY_COMPARE(m_page->rows().size(), 1);
        emit Hub::instance()->signal_clearFriend(anna.jid);
        QTRY_COMPARE(m_page->of(anna.jid, LatestRole::Content).toString(), QString());
        LatestFixture::settle();
        QCOMPARE(m_page->stored(anna.jid).lastContent, QString());
        // Who has left the company goes from the list.
        anna.onJob = 0;
        deliverRoster(QStringLiteral("Anna"));
        QTRY_COMPARE(m_page->rows().size(), 0);
    }

private:
    void deliverRoster(const QString &name)
    {
        anna.remark = name;
        m_page->host.context.addContact(anna);
        emit Hub::instance()->signal_addAllFriend({anna});
    }
    int shown() const { return m_page->of(anna.jid, LatestRole::Presence).toInt(); }

    std::unique_ptr<LatestFixture> m_page;
    FriendData anna;
    MucData room;
};

FRIENDUI_TEST(TstLatestNames)
#include "tst_latestnames.moc"

// Rows of rooms with unread messages shake once.
#include "tests/rooms/roomsfixture.h"
#include "tests/support/testrunner.h"

#include <functional>

namespace {
MessageData messageIn(const QString &room)
{
    MessageData message;
    message.sessionJid = room;
    message.kind = MessageData::Room;
    return message;
}
} // namespace

class TstMucShake : public QObject
{
    Q_OBJECT

private slots:
    void playsOnceAndRests()
    {
        const RoomsFixture page;
        page.widget->slot_shakeRoom(roomJid("r1"));
        QCOMPARE(offset(page, "r1"), QPoint(0, 0));
        const QPoint expected[] = {{1, -1}, {2, 0}, {1, -1}, {0, 0}, {0, 0}, {0, 0}};
        for (const QPoint &point : expected) {
            page.view->slot_shakeTimeOut();
            QCOMPARE(offset(page, "r1"), point);
            QCOMPARE(offset(page, "r2"), QPoint(0, 0));
        }
    }

    void timerPlaysIt()
    {
        const RoomsFixture page;
        QSet<QPair<int, int>> seen;
        connect(page.model, &QAbstractItemModel::dataChanged, this, [&] {
            const QPoint point = offset(page, "r1");
            seen.insert({point.x(), point.y()});
        });
        page.widget->slot_shakeRoom(roomJid("r1"));
        QTRY_VERIFY(seen.contains({0, 0}));
        QCOMPARE(seen.size(), 3);
    }

    void secondRequestDoesNotRestart()
    {
        const RoomsFixture page;
        page.widget->slot_shakeRoom(roomJid("r1"));
        page.view->slot_shakeTimeOut();
        page.widget->slot_shakeRoom(roomJid("r1"));
        page.view->slot_shakeTimeOut();
        QCOMPARE(offset(page, "r1"), QPoint(2, 0));
    }

    // Also when it comes after the first one has played.
    void eachNewRoomPlays()
    {
        const RoomsFixture page;
        page.widget->slot_shakeRoom(roomJid("r1"));
        for (int i = 0; i < 6; ++i)
            page.view->slot_shakeTimeOut();
        page.widget->slot_shakeRoom(roomJid("r2"));
        page.view->slot_shakeTimeOut();
        QCOMPARE(offset(page, "r2"), QPoint(1, -1));
    }

    void whatStopsIt_data()
    {
        const Rows<QString> row{"what"};
        for (const char *what : {"double click", "Enter", "menu", "read", "read elsewhere", "gone"})
            row(what, QString::fromLatin1(what));
    }

    void whatStopsIt()
    {
        QFETCH(QString, what);
        const RoomsFixture page;
        auto *hub = page.hub();
        QString jid = roomJid("r1");
        page.widget->slot_shakeRoom(jid);
        page.view->slot_shakeTimeOut();
        QCOMPARE(offset(page, "r1"), QPoint(1, -1));
        if (what == QLatin1String("double click")) {
            QTest::mouseDClick(page.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                               page.middleOf("r1"));
        } else if (what == QLatin1String("Enter")) {
            page.view->select(jid);
            QTest::keyClick(page.view, Qt::Key_Return);
        } else if (what == QLatin1String("menu")) {
            page.choose("r1", "sendGroupMessage");
        } else if (what == QLatin1String("read")) {
            emit hub->signal_paintDelegateMsgCount(jid);
        } else if (what == QLatin1String("read elsewhere")) {
            QString content, time;
            emit hub->signal_updateLatestContact(jid, content, time);
            QCOMPARE(jid, roomJid("r1"));
        } else {
            emit hub->signal_removedRoom(jid);
            page.view->slot_shakeTimeOut();
            QCOMPARE(page.model->rowCount(), 2);
            return;
        }
        QCOMPARE(offset(page, "r1"), QPoint(0, 0)); // not left crooked
        page.view->slot_shakeTimeOut();
        QCOMPARE(offset(page, "r1"), QPoint(0, 0));
    }

    void messagesShakeTheirRoom_data()
    {
        const QString r1 = roomJid("r1");
        MessageData person = messageIn(r1);
        person.kind = MessageData::Person;
        MessageData unnamed = messageIn(QString());
        unnamed.fromJid = r1;
        const Rows<MessageData, bool, int, bool> row{"message", "received", "notify", "shakes"};
        row("received", messageIn(r1), true, 0, true);
        row("from the room", unnamed, true, 0, true);
        row("sent", messageIn(r1), false, 0, false);
        row("silent room", messageIn(r1), true, 1, false);
        row("of a person", person, true, 0, false);
        row("unknown room", messageIn(roomJid("nobody")), true, 0, false);
    }

    void messagesShakeTheirRoom()
    {
        QFETCH(MessageData, message);
        QFETCH(bool, received);
        QFETCH(int, notify);
        RoomsFixture page;
        page.host.context.notifications.insert(roomJid("r1"), notify);
        emit page.hub()->signal_latestFriend(received, message);
        page.view->slot_shakeTimeOut();
        QTEST(offset(page, "r1") == QPoint(1, -1), "shakes");
    }

private:
    static QPoint offset(const RoomsFixture &page, const char *user)
    {
        return page.row(user).data(267).toPoint();
    }
};

FRIENDUI_TEST(TstMucShake)
#include "tst_mucshake.moc"

// What the list of latest contacts holds, and in which order; that it is the same
// after a restart.
#include "common/sessionsettings.h"
#include "controls/rowpainter.h"
#include "http/httpmgr.h"
#include "plugin/frienduieventprocess.h"
#include "tests/latest/latestfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QScrollBar>

using Hub = FriendUISignalSender;

class TstLatestList : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_page.reset(new LatestFixture); }
    void cleanup() { m_page.reset(); }

    void newestFirstPinnedBefore()
    {
        m_page->host.context.topSessions = {jid("b")};
        receive("a", "5 10:00");
        receive("b", "5 09:00");
        receive("c", "5 11:00");
        QTRY_COMPARE(rows(), "b c a");
        receive("a", "5 11:30");
        QTRY_COMPARE(rows(), "b a c");

        m_page->host.context.topSessions = {jid("c"), jid("a")};
        emit Hub::instance()->signal_latestSessionReceived();
        QTRY_COMPARE(rows(), "a c b");
        QVERIFY(m_page->of(jid("c"), LatestRole::Pinned).toBool());
        // A time of another century neither stays on top nor is believed.
        MessageData odd = m_page->message(jid("d"), QStringLiteral("x"), QStringLiteral("5 10:00"));
        odd.time = QStringLiteral("2399-01-01 00:00:00");
        emit Hub::instance()->signal_latestFriend(true, odd);
        QTRY_COMPARE(m_page->of(jid("d"), LatestRole::TimeText).toString(),
                     QStringLiteral("12:00"));
    }

    void sameAfterRestart()
    {
        m_page->host.context.topSessions = {jid("b")};
        receive("a", "5 10:00");
        receive("b", "4 09:00");
        receive("a", "5 10:01");
        MessageData inRoom = m_page->message(LatestFixture::room(QStringLiteral("r")),
                                             QStringLiteral("hello"), QStringLiteral("5 10:02"));
        inRoom.fromJid = inRoom.sessionJid + QStringLiteral("/Anna");
        inRoom.kind = MessageData::Room;
        inRoom.displayName = QStringLiteral("The room");
        emit Hub::instance()->signal_latestFriend(true, inRoom);
        MessageData channel = m_page->message(QStringLiteral("C7"), QStringLiteral("queue"),
                                              QStringLiteral("5 10:03"));
        channel.kind = MessageData::Channel;
        emit Hub::instance()->signal_latestFriend(true, channel);
        QTRY_COMPARE(rows(), "b C7 r a");
        const QStringList before = everything();
        QVERIFY(before.at(2).contains(QLatin1String("Anna: hello")));

        LocalDatabase::instance().close();
        m_page->make();
        QTRY_COMPARE(rows(), "b C7 r a");
        QCOMPARE(everything(), before);
    }

    void storedWithinTheTurn()
    {
        receive("a", "5 10:00");
        receive("a", "5 10:01");
        QVERIFY(m_page->stored(jid("a")).jid.isEmpty());
        QCoreApplication::sendPostedEvents();
        QCOMPARE(m_page->stored(jid("a")).unread, 2);
        // Without an event loop, too.
        receive("b", "5 10:02");
        m_page->widget.reset();
        QCOMPARE(m_page->stored(jid("b")).unread, 1);
    }

    void listsWhatTheTableLists_data()
    {
        const Rows<QString, int, qint32, bool> row{"user", "kind", "onJob", "listed"};
        row("a person", "anna", 0, 1, true);
        row("who has left", "anna", 0, 0, false);
        row("a system notice", "anna", 4, 1, false);
        row("system in the name", "Systematic", 0, 1, false);
        row("friend in the name", "befriended", 0, 1, false);
        row("conference notice", "cnotify", 0, 1, false);
        row("customer service", "xKFCNLx", 0, 1, false);
        row("virtual room", "vroom1", 0, 1, false);
        row("percent sign", "a%b", 0, 1, true);
        row("quote", "o'brien", 0, 1, true);
    }

    // A live message makes a row exactly when the table would list it at the next start.
    void listsWhatTheTableLists()
    {
        QFETCH(QString, user);
        QFETCH(int, kind);
        QFETCH(qint32, onJob);
        QFETCH(bool, listed);
        FriendData contact;
        contact.jid = LatestFixture::jid(user);
        contact.nickName = QStringLiteral("name");
        contact.onJob = onJob;
        m_page->host.context.addContact(contact);
        MessageData message =
            m_page->message(contact.jid, QStringLiteral("x"), QStringLiteral("5 10:00"));
        message.kind = MessageData::Kind(kind);
        emit Hub::instance()->signal_latestFriend(true, message);
        receive("last", "5 09:00");
        QTRY_COMPARE(m_page->rows().contains(QStringLiteral("last")), true);
        QCOMPARE(m_page->rows().contains(user), listed);
        m_page->make();
        QTRY_COMPARE(m_page->rows().contains(QStringLiteral("last")), true);
        QCOMPARE(m_page->rows().contains(user), listed);
    }

    void removes()
    {
        LogCapture log(m_page->host.context);
        receive("a", "5 10:00");
        receive("b", "5 11:00");
        QTRY_COMPARE(rows(), "b a");
        emit Hub::instance()->signal_removelatest(jid("nobody"));
        emit Hub::instance()->signal_removelatest(QString());
        QCOMPARE(rows(), "b a");
        emit Hub::instance()->signal_removelatest(jid("b"));
        QCOMPARE(rows(), "a");
        m_page->make();
        QTRY_COMPARE(rows(), "a");
        const QString function =
            QStringLiteral("MyLatestFriendWidget::slot_removelatest(const QString &jid)");
        QCOMPARE(log.lines().filter(QStringLiteral("entry fun ") + function).size(), 3);
        QCOMPARE(log.lines().filter(QStringLiteral("exit fun ") + function).size(), 3);
        QCOMPARE(log.linesWith("(const QString &jid) jid is empty").size(), 1);
        // Comes back, with nothing of before.
        receive("b", "5 11:30");
        QTRY_COMPARE(rows(), "b a");
        QCOMPARE(m_page->of(jid("b"), LatestRole::Unread).toInt(), 1);
    }

    void clears()
    {
        LogCapture log(m_page->host.context);
        receive("a", "5 10:00");
        receive("b", "5 11:00");
        QTRY_COMPARE(rows(), "b a");
        receive("c", "5 11:00"); // not yet stored
        emit Hub::instance()->signal_clearlatest();
        QCOMPARE(rows(), "");
        QVERIFY(m_page->widget->findChild<QWidget *>(QStringLiteral("latestEmpty"))->isVisible());
        m_page->make();
        QCOMPARE(rows(), "");
        receive("d", "5 11:30");
        QTRY_COMPARE(rows(), "d");
        QCOMPARE(log.linesWith("entry fun MyLatestFriendWidget::slot_clearlatest()").size(), 1);
        QCOMPARE(log.linesWith("exit fun MyLatestFriendWidget::slot_clearlatest()").size(), 1);
    }

    void pages()
    {
        const int count = 850;
        store(count);
        m_page->host.context.topSessions = {user(840)};
        SessionSettings::setPinned(user(840), true);
        m_page->make();
        QTRY_COMPARE(m_page->rows().size(), 101);
        QCOMPARE(m_page->model()->at(0).row.jid, user(840)); // pinned, far down
        // Pages come also under the pointer, where no row may move.
        m_page->model()->setOrderFrozen(true);
        // A row less does not make the next page leave one out.
        emit Hub::instance()->signal_removelatest(user(3));
        scrollUntil(700);
        // Read anew, but not all of it: what stands further down stays.
        SessionSettings::setMuted(user(650), true);
        emit HttpMgr::instance()->signal_clientSettingsLoaded(true);
        QTRY_VERIFY(!m_page->model()->indexOf(user(650)).isValid());
        QVERIFY(m_page->rows().size() >= 699);
        m_page->model()->setOrderFrozen(false);
        scrollUntil(count - 2);
        QStringList expected{m_page->rows().first()};
        for (int i = 0; i < count; ++i) {
            if (i != 3 && i != 650 && i != 840)
                expected.append(user(i).section(QLatin1Char('@'), 0, 0));
        }
        QCOMPARE(m_page->rows(), expected);
        QScrollBar *bar = m_page->view()->verticalScrollBar();
        bar->setValue(bar->maximum());
        LatestFixture::settle();
        QCOMPARE(m_page->rows(), expected);
    }

    // Of a conversation whose row was not read, from wherever the user pins it.
    void pinBeyondThePage()
    {
        store(450);
        m_page->make();
        QTRY_COMPARE(m_page->rows().size(), 100);
        QSet<QString> &pinned = m_page->host.context.topSessions;
        m_page->host.onRequest = [&](const FakeHost::Request &) { pinned = {user(440)}; };
        FriendUIEventProcess::pinConversation(user(440), true);
        QTRY_COMPARE(m_page->model()->at(0).row.jid, user(440));
        m_page->make();
        QTRY_COMPARE(m_page->rows().size(), 101);
        QCOMPARE(m_page->model()->at(0).row.jid, user(440));
        // A host that takes no pins is right.
        m_page->host.onRequest = nullptr;
        FriendUIEventProcess::pinConversation(user(430), true);
        QTRY_COMPARE(LatestContactsTable::pinned().size(), 1);
        QCOMPARE(m_page->model()->at(1).row.jid, user(0));
    }

    void mutedOnesAreNotListed()
    {
        receive("a", "5 10:00");
        receive("b", "5 11:00");
        QTRY_COMPARE(rows(), "b a");
        HttpMgr *http = HttpMgr::instance();
        const QString key = QStringLiteral("isNotHint");
        emit http->signal_setSessionMsgConfigDone(false, jid("b"), key, true);
        QCOMPARE(rows(), "b a");
        emit http->signal_setSessionMsgConfigDone(true, jid("b"), key, true);
        QTRY_COMPARE(rows(), "a");
        receive("b", "5 11:30");
        receive("a", "5 11:31");
        QTRY_COMPARE(m_page->of(jid("a"), LatestRole::Unread).toInt(), 2);
        QCOMPARE(rows(), "a");
        emit http->signal_setSessionMsgConfigDone(true, jid("b"), key, false);
        QTRY_COMPARE(rows(), "a b");
        QCOMPARE(m_page->of(jid("b"), LatestRole::Unread).toInt(), 2);
        // What the service tells at the next start.
        SessionSettings::replaceMuted({jid("a")});
        emit http->signal_clientSettingsLoaded(true);
        QTRY_COMPARE(rows(), "b");
    }

    void unread_data()
    {
        const Rows<int, int> row{"step", "left"};
        row("another message", 0, 3);
        row("the user writes", 1, 0);
        row("the user writes elsewhere", 5, 0);
        row("the chat is opened", 2, 0);
        row("the host says it was read", 3, 0);
        row("another chat is opened", 4, 2);
    }

    void unread()
    {
        QFETCH(int, step);
        QFETCH(int, left);
        receive("a", "5 10:00");
        receive("a", "5 10:01");
        QTRY_COMPARE(m_page->of(jid("a"), LatestRole::Unread).toInt(), 2);
        MessageData sent =
            m_page->message(jid("a"), QStringLiteral("mine"), QStringLiteral("5 10:02"));
        std::swap(sent.fromJid, sent.toJid);
        if (step == 0)
            receive("a", "5 10:02");
        else if (step == 1)
            emit Hub::instance()->signal_latestFriend(false, sent);
        else if (step == 5)
            emit Hub::instance()->signal_latestFriend(true, sent);
        else if (step == 2)
            FriendUIEventProcess::openChat(jid("a"), MessageData::Person);
        else if (step == 3)
            FakeHost::send(Inbound::LatestContactChanged, jid("a"), QString(), QString());
        else
            FriendUIEventProcess::openChat(jid("b"), MessageData::Person);
        QTRY_COMPARE(m_page->of(jid("a"), LatestRole::Unread).toInt(), left);
        m_page->make();
        QTRY_COMPARE(m_page->of(jid("a"), LatestRole::Unread).toInt(), left);
    }

    void hostTellsTheNewest()
    {
        receive("a", "5 10:00");
        receive("b", "5 11:00");
        QTRY_COMPARE(rows(), "b a");
        QString who = jid("a"), what = QStringLiteral("news"),
                when = QStringLiteral("2026-03-05 11:30:00");
        emit Hub::instance()->signal_updateLatestContact(who, what, when);
        QTRY_COMPARE(rows(), "a b");
        QCOMPARE(m_page->of(jid("a"), LatestRole::Content).toString(), QStringLiteral("news"));
        who = jid("nobody");
        emit Hub::instance()->signal_updateLatestContact(who, what, when);
        QCOMPARE(who + what + when, jid("nobody") + QStringLiteral("news2026-03-05 11:30:00"));
        receive("c", "5 09:00");
        QTRY_COMPARE(rows(), "a b c");
    }

    // Nobody touches anything at midnight.
    void timesTurnOverByThemselves()
    {
        m_page->now = QDateTime(QDate(2026, 3, 5), QTime(23, 59, 59, 900));
        m_page->make();
        receive("a", "5 23:58");
        QTRY_COMPARE(rows(), "a");
        QCOMPARE(timeText("a"), QStringLiteral("23:58"));
        bool told = false;
        connect(m_page->model(), &QAbstractItemModel::dataChanged, m_page->widget.get(),
                [&told](const QModelIndex &, const QModelIndex &, const QVector<int> &roles) {
                    told = told || roles.contains(LatestRole::TimeText);
                });
        m_page->now = m_page->now.addSecs(1);
        QTRY_VERIFY(told);
        QCOMPARE(timeText("a"), QStringLiteral("yesterday"));
    }

    void displayFlag()
    {
        receive("a", "5 10:00");
        QTRY_COMPARE(rows(), "a");
        m_page->widget->setDisplay(false);
        receive("b", "5 11:00");
        receive("a", "5 11:30");
        QCoreApplication::sendPostedEvents();
        QCOMPARE(rows(), "a");
        QCOMPARE(m_page->stored(jid("b")).jid, jid("b"));
        m_page->widget->setDisplay(true);
        QCOMPARE(rows(), "a b");
        QCOMPARE(m_page->of(jid("a"), LatestRole::Unread).toInt(), 2);
    }

    void anotherUser()
    {
        receive("a", "5 10:00");
        QTRY_COMPARE(rows(), "a");
        receive("a", "5 10:01");
        FakeHost::send(Inbound::LoginChanged, false);
        m_page->host.context.user = QStringLiteral("other");
        FakeHost::send(Inbound::LoginChanged, true);
        receive("b", "5 11:00"); // within the same turn
        QTRY_COMPARE(rows(), "b");
        QCOMPARE(m_page->stored(jid("b")).unread, 1);
        // Without a word of the log-out, what is left over is nobody's.
        receive("c", "5 11:00");
        m_page->host.context.user = QStringLiteral("me");
        FakeHost::send(Inbound::LoginChanged, true);
        QTRY_COMPARE(rows(), "a");
        QCOMPARE(m_page->of(jid("a"), LatestRole::Unread).toInt(), 2);
    }

    // While the list is on screen, its file is damaged, and the host or the plug-in has
    // begun another.
    void aNewFileGetsWhatIsListed_data()
    {
        const Rows<bool> row{"byReload"};
        row("the file is opened anew", false);
        row("and found when the list is read", true);
    }
    void aNewFileGetsWhatIsListed()
    {
        QFETCH(bool, byReload);
        receive("a", "5 10:00");
        receive("b", "5 11:00");
        m_page->settle();
        LocalDatabase::instance().close();
        QFile file(m_page->folder.filePath(QStringLiteral("me/localData.db")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no database") > 0);
        file.close();
        if (byReload)
            FakeHost::send(Inbound::ConnectionChanged, true);
        else
            QVERIFY(LocalDatabase::instance().isOpen());
        m_page->settle();
        QTRY_COMPARE(m_page->stored(jid("a")).unread, 1);
        QTRY_COMPARE(rows(), "b a");
        m_page->make();
        QTRY_COMPARE(rows(), "b a");
    }

    // The folder of the user is a file: there is no database to be had.
    void worksWithoutADatabase()
    {
        m_page->widget.reset();
        LocalDatabase::instance().close();
        m_page->host.context.user = QStringLiteral("blocked");
        QFile file(m_page->folder.filePath(QStringLiteral("blocked")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        m_page->make();
        LogCapture log(m_page->host.context);
        const int boxes = TipBox::count();
        receive("a", "5 10:00");
        m_page->settle();
        receive("b", "5 11:00");
        QTRY_COMPARE(rows(), "b a");
        m_page->settle();
        QCOMPARE(TipBox::count(), boxes + 1);
        // Not tried again with each message: it might have to wait each time.
        QCOMPARE(log.linesWith("could not be stored").size(), 1);
        FakeHost::send(Inbound::ConnectionChanged, true);
        QCOMPARE(rows(), "b a");
        // What could not be stored is, once there is a database.
        file.remove();
        LocalDatabase::instance().close();
        receive("b", "5 11:30");
        QTRY_COMPARE(m_page->stored(jid("a")).jid, jid("a"));
        m_page->make();
        QTRY_COMPARE(rows(), "b a");
    }

private:
    static QString jid(const char *user) { return LatestFixture::jid(QLatin1String(user)); }
    static QString user(int number)
    {
        return LatestFixture::jid(QStringLiteral("u%1").arg(number, 4, 10, QLatin1Char('0')));
    }
    void receive(const char *user, const char *when) const
    {
        m_page->receive(jid(user), QStringLiteral("text"), QLatin1String(when));
    }
    QString timeText(const char *user) const
    {
        return m_page->of(jid(user), LatestRole::TimeText).toString();
    }
    QString rows() const { return m_page->rows().join(QLatin1Char(' ')); }
    QStringList everything() const
    {
        QStringList texts;
        for (int row = 0; row < m_page->model()->rowCount(); ++row) {
            const QModelIndex index = m_page->model()->index(row);
            QStringList roles;
            for (const int role : {LatestRole::Name, LatestRole::Content, LatestRole::Time,
                                   LatestRole::Unread, LatestRole::Kind, LatestRole::Pinned})
                roles.append(index.data(role).toString());
            texts.append(roles.join(QLatin1Char('|')));
        }
        return texts;
    }
    // By the key and the bar in turn.
    void scrollUntil(int rows) const
    {
        QScrollBar *bar = m_page->view()->verticalScrollBar();
        for (int before = 0; m_page->rows().size() < rows;) {
            before = m_page->rows().size();
            QTRY_VERIFY(bar->maximum() > bar->value() + RowPainter::RowHeight);
            if (before % 200 < 100)
                bar->setValue(bar->maximum());
            else
                QTest::keyClick(m_page->view(), Qt::Key_End);
            QTRY_VERIFY(m_page->rows().size() > before);
            QVERIFY(m_page->rows().size() <= before + 100);
        }
    }
    // Rows u0000..., in the order of the list; every seventy of them of the same second.
    static void store(int count)
    {
        QVector<DBFriendData> records;
        const QDateTime newest(QDate(2026, 3, 5), QTime(11, 0));
        for (int i = 0; i < count; ++i) {
            DBFriendData record;
            record.jid = user(i);
            record.displayName = QStringLiteral("name");
            record.time =
                newest.addSecs(-60 * (i / 70)).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
            records.append(record);
        }
        QVERIFY(LatestContactsTable::store(records));
    }

    std::unique_ptr<LatestFixture> m_page;
};

FRIENDUI_TEST(TstLatestList)
#include "tst_latestlist.moc"

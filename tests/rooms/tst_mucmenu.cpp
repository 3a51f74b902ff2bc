// The menu of a group chat: what it offers to whom, and the setting of messages.
#include "http/httpmgr.h"
#include "tests/rooms/roomsfixture.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

namespace {
constexpr char SettingPath[] = "/center/session/setSetting.do";
}

class TstMucMenu : public QObject
{
    Q_OBJECT

private slots:
    void order()
    {
        const RoomsFixture page;
        QStringList keys;
        const QList<QAction *> actions = page.menu()->actions();
        for (const QAction *action : actions)
            keys.append(action->isSeparator() ? QStringLiteral("|") : action->objectName());
        QCOMPARE(keys.join(QLatin1Char(' ')),
                 QStringLiteral("sendGroupMessage sendFile sendemail | msgrecord | modifyGroupName "
                                "messageSetting setGroupToppest cancelGroupToppest "
                                "saveToAddresslist | quitmuc dismissmuc changemanage"));
        QStringList settings;
        const QList<QAction *> entries = page.setMenu()->actions();
        for (const QAction *action : entries) {
            QVERIFY(action->isCheckable());
            settings.append(action->objectName());
        }
        QCOMPARE(settings.join(QLatin1Char(' ')), QStringLiteral("reciveremind recivenoremind"));
    }

    void offersByRole_data()
    {
        const Rows<int, QString> row{"role", "offered"};
        row("member", 0, QStringLiteral("quitmuc"));
        row("manager", 1, QStringLiteral("modifyGroupName quitmuc"));
        row("owner", 2, QStringLiteral("modifyGroupName dismissmuc changemanage"));
        row("nonsense", 77, QStringLiteral("quitmuc"));
    }

    void offersByRole()
    {
        QFETCH(int, role);
        RoomsFixture page;
        page.host.context.roomRoles.insert(roomJid("r1"), role);
        page.openMenu("r1");
        QStringList offered;
        for (const char *key : {"modifyGroupName", "quitmuc", "dismissmuc", "changemanage"}) {
            if (page.menu()->action(key)->isVisible())
                offered.append(QString::fromLatin1(key));
        }
        QTEST(offered.join(QLatin1Char(' ')), "offered");
        page.menu()->close();
    }

    void offersByRight()
    {
        RoomsFixture page;
        page.host.context.deniedRights = {ApplicationContext::Mail, ApplicationContext::SendFile};
        page.openMenu("r1");
        QVERIFY(!page.menu()->action("sendemail")->isVisible());
        QVERIFY(!page.menu()->action("sendFile")->isVisible());
        QVERIFY(page.menu()->action("msgrecord")->isVisible());
        page.menu()->close();
    }

    // What the menu says of a room is as it is at that moment.
    void followsTheState()
    {
        RoomsFixture page;
        page.openMenu("r1");
        QVERIFY(page.menu()->action("setGroupToppest")->isVisible());
        QVERIFY(!page.menu()->action("cancelGroupToppest")->isVisible());
        QVERIFY(page.menu()->action("deleteFromContact"));
        page.menu()->close();

        page.host.context.topSessions.insert(roomJid("r4"));
        QTest::mouseClick(page.localTab(), Qt::LeftButton);
        page.openMenu("r4");
        QVERIFY(!page.menu()->action("setGroupToppest")->isVisible());
        QVERIFY(page.menu()->action("cancelGroupToppest")->isVisible());
        QVERIFY(page.menu()->action("saveToAddresslist"));
        page.menu()->close();
    }

    void followsTheLanguage()
    {
        const RoomsFixture page;
        page.openMenu("r1");
        const Language chinese(QStringLiteral("zh_CN"));
        RoomsFixture::settle();
        QCOMPARE(page.menu()->action("deleteFromContact")->text(),
                 QString::fromUtf8("从通讯录移除"));
        QCOMPARE(page.setMenu()->title(), QString::fromUtf8("消息设置"));
        QCOMPARE(page.setMenu()->action("reciveremind")->text(), QString::fromUtf8("接收并提醒"));
        page.menu()->close();
    }

    void opensOnlyOnARow()
    {
        const RoomsFixture page;
        page.view->slot_showMenu(QPoint(10, 480));
        QVERIFY(!page.menu()->isVisible());
        page.view->select(roomJid("r2"));
        QContextMenuEvent key(QContextMenuEvent::Keyboard, QPoint(1, 1));
        QApplication::sendEvent(page.view, &key);
        QVERIFY(page.menu()->isVisible());
        page.menu()->close();
        QCOMPARE(page.currentRoom(), roomJid("r2"));
    }

    void closesWithItsRoom()
    {
        const RoomsFixture page;
        page.openMenu("r1");
        emit page.hub()->signal_removedRoom(roomJid("r2"));
        QVERIFY(page.menu()->isVisible());
        emit page.hub()->signal_removedRoom(roomJid("r1"));
        QVERIFY(!page.menu()->isVisible());
        // What was chosen before the room went reaches nobody.
        page.menu()->action("msgrecord")->trigger();
        page.setMenu()->action("recivenoremind")->trigger();
        QCOMPARE(page.host.requests.size(), 0);
    }

    // --- The setting ---------------------------------------------------------------

    void marksTellTheSetting()
    {
        RoomsFixture page;
        QCOMPARE(marks(page), QStringLiteral("notify enabled"));
        page.host.context.notifications.insert(roomJid("r1"), 1);
        QCOMPARE(marks(page), QStringLiteral("silent enabled"));
        page.host.context.settings.setConnected(false);
        QCOMPARE(marks(page), QStringLiteral("silent disabled"));
    }

    void settingIsAskedFor()
    {
        RoomsFixture page;
        FakeServer server;
        serve(page, server);
        server.reply(SettingPath, FakeReply::json(R"({"code":0})").onRelease());
        page.choose("r1", "recivenoremind");
        // The mark waits for the answer, and nobody asks twice.
        QCOMPARE(shownMarks(page), QStringLiteral("notify enabled"));
        QCOMPARE(marks(page), QStringLiteral("notify disabled"));
        QTRY_COMPARE(server.requests().size(), 1);
        QCOMPARE(server.last().body, QByteArray("sessionJid=r1%40conf.corp.example&isNotHint=1"));
        const QSignalSpy done(HttpMgr::instance(), &HttpMgr::signal_setSessionMsgConfigDone);
        server.release();
        QTRY_COMPARE(done.size(), 1);
        QVERIFY(page.setMenu()->action("recivenoremind")->isChecked());
        QVERIFY(!page.setMenu()->action("reciveremind")->isChecked());
    }

    void refusedSettingChangesNothing()
    {
        RoomsFixture page;
        FakeServer server;
        serve(page, server);
        server.reply(SettingPath, FakeReply::json(R"({"code":10001})"));
        const int boxes = TipBox::count();
        page.choose("r1", "recivenoremind");
        QTRY_COMPARE(TipBox::count(), boxes + 1);
        QCOMPARE(TipBox::lastText(), QStringLiteral("messageSettingFailed"));
        QCOMPARE(shownMarks(page), QStringLiteral("notify enabled"));
        QCOMPARE(marks(page), QStringLiteral("notify enabled"));
    }

    void answerIsForItsRoom()
    {
        const RoomsFixture page;
        page.openMenu("r2");
        const auto answer = [&page](const char *user, const QString &key) {
            page.view->slot_setMucMsgConfigFinish(true, roomJid(user), key, true);
        };
        answer("r1", QStringLiteral("isNotHint"));
        answer("r2", QStringLiteral("other"));
        QCOMPARE(shownMarks(page), QStringLiteral("notify enabled"));
        answer("r2", QStringLiteral("isNotHint"));
        QCOMPARE(shownMarks(page), QStringLiteral("silent enabled"));
        page.menu()->close();
    }

private:
    static void serve(const RoomsFixture &page, const FakeServer &server)
    {
        writeFile(page.folder.filePath(QStringLiteral("allurl.ini")),
                  "[Hosts]\ncenter=" + server.url().toEncoded() + '\n');
    }
    static QString shownMarks(const RoomsFixture &page)
    {
        const QAction *notify = page.setMenu()->action("reciveremind");
        const QAction *silent = page.setMenu()->action("recivenoremind");
        QString text = notify->isChecked() && !silent->isChecked()   ? QStringLiteral("notify")
                       : !notify->isChecked() && silent->isChecked() ? QStringLiteral("silent")
                                                                     : QStringLiteral("confused");
        return text + (notify->isEnabled() && silent->isEnabled() ? QStringLiteral(" enabled")
                                                                  : QStringLiteral(" disabled"));
    }
    static QString marks(const RoomsFixture &page)
    {
        page.openMenu("r1");
        const QString shown = shownMarks(page);
        page.menu()->close();
        return shown;
    }
};

FRIENDUI_TEST(TstMucMenu)
#include "tst_mucmenu.moc"

// The page of group chats: tabs, the empty pages, and what the host tells of rooms.
#include "plugin/frienduieventprocess.h"
#include "tests/rooms/roomsfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QCursor>
#include <QDir>
#include <QLabel>
#include <QScreen>

#include <functional>

class TstMucWidget : public QObject
{
    Q_OBJECT

private slots:
    void startsWithTheList()
    {
        const RoomsFixture page(false);
        QVERIFY(page.listIsShown());
        QCOMPARE(page.addressBookTab()->text(), QStringLiteral("groupChat[0]"));
        QCOMPARE(page.localTab()->text(), QStringLiteral("localGroup[0]"));
        QVERIFY(page.addressBookTab()->isChecked());
    }

    void tabsShowTheirRooms()
    {
        const RoomsFixture page;
        QCOMPARE(page.rows().join(QLatin1Char(' ')), QStringLiteral("Zeta Alpha Beta"));
        QCOMPARE(page.addressBookTab()->text(), QStringLiteral("groupChat[3]"));
        QCOMPARE(page.localTab()->text(), QStringLiteral("localGroup[1]"));
        QTest::mouseClick(page.localTab(), Qt::LeftButton);
        QCOMPARE(page.rows(), QStringList{QStringLiteral("Delta")});
        QVERIFY(page.localTab()->isChecked() && !page.addressBookTab()->isChecked());
        QTest::mouseClick(page.addressBookTab(), Qt::LeftButton);
        QCOMPARE(page.model->rowCount(), 3);
    }

    void tabsByKey()
    {
        const RoomsFixture page;
        page.addressBookTab()->setFocus();
        QTest::keyClick(page.addressBookTab(), Qt::Key_Right);
        QVERIFY(page.localTab()->hasFocus());
        QCOMPARE(page.localTab()->isChecked(), page.model->page() == MucModel::LocalPage);
        QTest::keyClick(page.localTab(), Qt::Key_Space);
        QCOMPARE(page.rows(), QStringList{QStringLiteral("Delta")});
    }

    // Exactly as wide as its text and 20 pixels, whatever changes the text.
    void tabIsAsWideAsItsText()
    {
        RoomsFixture page;
        const auto exact = [&page] {
            const QPushButton *tab = page.addressBookTab();
            return tab->fontMetrics().horizontalAdvance(tab->text()) + 20 == tab->width();
        };
        QCOMPARE(page.addressBookTab()->font().pixelSize(), 16);
        QVERIFY(exact());
        for (int i = 0; i < 10; ++i)
            page.add(makeRoom(QByteArray::number(i).constData(), QStringLiteral("n")));
        RoomsFixture::settle();
        QCOMPARE(page.addressBookTab()->text(), QStringLiteral("groupChat[13]"));
        QVERIFY(exact());
        const Language chinese(QStringLiteral("zh_CN"));
        RoomsFixture::settle();
        QCOMPARE(page.addressBookTab()->text(), QString::fromUtf8("讨论组[13]"));
        QVERIFY(exact());
    }

    void tabsAreSeenWhole_data()
    {
        const Rows<int, bool> row{"width", "isBeside"};
        row("wide", 320, true);
        row("narrow", 200, false);
    }

    void tabsAreSeenWhole()
    {
        QFETCH(int, width);
        QFETCH(bool, isBeside);
        const RoomsFixture page;
        page.widget->setMinimumWidth(1); // as in the pane, which gives what it has
        page.widget->resize(width, 500);
        RoomsFixture::settle();
        const QRect first = page.addressBookTab()->geometry();
        const QRect second = page.localTab()->geometry();
        QVERIFY(!first.intersects(second));
        QVERIFY(page.widget->rect().contains(first.united(second)));
        QCOMPARE(first.top() == second.top(), isBeside);
    }

    void emptyPages()
    {
        const RoomsFixture page(false);
        const auto texts = [&page] {
            QStringList shown;
            for (const char *name : {"labelMucEmpty", "labelMucExplanation"})
                shown += page.widget->findChild<QLabel *>(QLatin1String(name))->text();
            return shown;
        };
        page.hub()->signal_roomIsNull();
        QVERIFY(!page.listIsShown());
        QCOMPARE(texts(), QStringList({QStringLiteral("contactGroupMultiDeviceSynchronous"),
                                       QString::fromUtf8("通讯录讨论组支持多终端同步")}));
        QTest::mouseClick(page.localTab(), Qt::LeftButton);
        QVERIFY(!page.listIsShown());
        QCOMPARE(texts(),
                 QStringList({QStringLiteral("showlocalgroup"),
                              QString::fromUtf8("本地最近发生过会话且未保存到通讯录的讨论\n"
                                                "组，多端异地不同步")}));
    }

    void emptyPageComesAndGoes()
    {
        RoomsFixture page(false);
        page.hub()->signal_roomIsNull();
        page.add(makeRoom("r1", QStringLiteral("Alpha"), MucData::LocalRoom));
        RoomsFixture::settle();
        QVERIFY(!page.listIsShown()); // it is of the other page
        page.hub()->siganl_mucClassifyChanged(roomJid("r1"), MucData::AddressBookRoom);
        QVERIFY(page.listIsShown());
        RoomsFixture::settle();
        page.hub()->signal_deleteMucRoon(roomJid("r1"));
        RoomsFixture::settle();
        QVERIFY(!page.listIsShown());
    }

    void linkCreatesARoom()
    {
        RoomsFixture page(false);
        page.hub()->signal_roomIsNull();
        RoomsFixture::settle();
        QPushButton *link = page.button("btnCreateMuc");
        QCOMPARE(link->text(), QString::fromUtf8("创建讨论组"));
        QTest::mouseClick(link, Qt::LeftButton);
        QCOMPARE(std::get<0>(page.host.arguments<QStringList>(4393)), QStringList());
        link->setFocus();
        QTest::keyClick(link, Qt::Key_Return);
        QCOMPARE(page.host.count(4393), 2);

        const int boxes = TipBox::count();
        page.host.context.settings.setConnected(false);
        QTest::mouseClick(link, Qt::LeftButton);
        QCOMPARE(page.host.count(4393), 2);
        QCOMPARE(TipBox::count(), boxes + 1);
        QCOMPARE(TipBox::lastText(), QStringLiteral("offlineNoInviteMember"));
    }

    void pagesKeepTheirSelection()
    {
        const RoomsFixture page;
        page.click("r2");
        QCOMPARE(page.currentRoom(), roomJid("r2"));
        QTest::mouseClick(page.localTab(), Qt::LeftButton);
        page.click("r4");
        QTest::mouseClick(page.addressBookTab(), Qt::LeftButton);
        QCOMPARE(page.currentRoom(), roomJid("r2"));
        page.hub()->signal_removedRoom(roomJid("r4"));
        QTest::mouseClick(page.localTab(), Qt::LeftButton);
        QCOMPARE(page.currentRoom(), QString());
    }

    void locate()
    {
        RoomsFixture page;
        for (int i = 100; i < 200; ++i)
            page.add(makeRoom(QByteArray::number(i).constData(), QStringLiteral("local %1").arg(i),
                              MucData::LocalRoom));
        QVERIFY(page.widget->locateRoom(roomJid("190")));
        RoomsFixture::settle();
        QVERIFY(page.localTab()->isChecked());
        QCOMPARE(page.currentRoom(), roomJid("190"));
        QVERIFY(page.view->viewport()->rect().contains(page.middleOf("190")));
        QVERIFY(!page.widget->locateRoom(roomJid("nobody")));
        QVERIFY(page.localTab()->isChecked());
        QVERIFY(page.widget->locateRoom(roomJid("r1")));
        QCOMPARE(page.currentRoom(), roomJid("r1"));
    }

    // Delivered while the pointer holds the order: the row is there at once.
    void locatesARoomThatWaits()
    {
        RoomsFixture page;
        QTest::mouseMove(page.view->viewport(), QPoint(5, 5));
        QTRY_VERIFY(page.view->viewport()->underMouse());
        page.add(makeRoom("r9", QStringLiteral("Aaa")));
        QVERIFY(!page.row("r9").isValid());
        QVERIFY(page.widget->locateRoom(roomJid("r9")));
        QCOMPARE(page.currentRoom(), roomJid("r9"));
        // A real pointer would be over the next test's list, too.
        QCursor::setPos(page.widget->screen()->geometry().bottomRight());
    }

    void hostEvents_data()
    {
        const Rows<QString, int, QVariant> row{"event", "role", "expected"};
        row("subject", QStringLiteral("subject"), 257, QStringLiteral("Omega"));
        row("subject: key", QStringLiteral("subject"), 262, QStringLiteral("2|omega"));
        row("head", QStringLiteral("head"), 258, QStringLiteral("/new.png"));
        row("members", QStringLiteral("members"), 291, QStringLiteral("12"));
        row("no members", QStringLiteral("no members"), 291, QStringLiteral("0"));
        row("forbidden", QStringLiteral("forbidden"), 306, true);
        row("classification", QStringLiteral("classification"), 332, 2);
    }

    void hostEvents()
    {
        QFETCH(QString, event);
        QFETCH(int, role);
        const RoomsFixture page;
        tell(event, roomJid("r1"));
        QTEST(page.row("r1").data(role), "expected");
        QCOMPARE(page.model->rowCount(), 3);
    }

    void unknownRoomsAreIgnored_data() { hostEventNames(); }
    void unknownRoomsAreIgnored()
    {
        QFETCH(QString, event);
        const RoomsFixture page;
        for (const QString &jid : {QString(), roomJid("nobody"), QStringLiteral("' OR 1=1 --")})
            tell(event, jid);
        QCOMPARE(page.rows().join(QLatin1Char(' ')), QStringLiteral("Zeta Alpha Beta"));
        QCOMPARE(page.model->localCount(), 1);
    }

    void classificationMovesBetweenPages()
    {
        RoomsFixture page;
        LogCapture log(page.host.context);
        page.hub()->siganl_mucClassifyChanged(roomJid("r2"), MucData::LocalRoom);
        RoomsFixture::settle();
        QVERIFY(!page.row("r2").isValid());
        QCOMPARE(page.addressBookTab()->text(), QStringLiteral("groupChat[2]"));
        QCOMPARE(page.localTab()->text(), QStringLiteral("localGroup[2]"));
        page.hub()->siganl_mucClassifyChanged(roomJid("r2"), MucData::MucClassify(9));
        QCOMPARE(page.model->localCount(), 2);
        QCOMPARE(log.linesWith("[ERROR][MucListView.cpp:").size(), 1);
        QCOMPARE(log.linesWith("void MucListView::slot_mucClassifyChanged(),ERROR："
                               "分类更改，非通讯录，非本地.")
                     .size(),
                 1);
    }

    void localRoomIsAdded()
    {
        RoomsFixture page;
        LogCapture log(page.host.context);
        const auto added = [&page](const char *user) {
            page.hub()->signal_localMucAdded(roomJid(user), QStringLiteral("auto_save"));
        };
        added("nobody"); // the host does not know it either
        QCOMPARE(page.model->localCount(), 1);
        const MucData room = makeRoom("r5", QStringLiteral("Eta"), MucData::LocalRoom);
        page.host.context.rooms.insert(room.roomJid, room);
        added("r5");
        QCOMPARE(page.model->localCount(), 2);
        added("r5");
        QCOMPARE(page.model->localCount(), 2);
        QCOMPARE(log.linesWith("auto_save").size(), 3);
        QCOMPARE(log.linesWith("MucListView::slot_localMucAdded(),ERROR:添加本地群，群已在列表中。")
                     .size(),
                 1);
    }

    void pictures_data()
    {
        const Rows<QString, QString> row{"named", "path"};
        row("known to the host", QStringLiteral("id5"),
            QDir::rootPath() + QLatin1String("id5.png"));
        const QString file = QDir::rootPath() + QLatin1String("heads/r5.png");
        row("a file", file, file);
        row("a share", QStringLiteral("//evil.example/share/x.png"), QString());
        row("a share of Windows", QStringLiteral("\\\\evil.example\\share\\x.png"), QString());
        row("an address", QStringLiteral("http://evil.example/x.png"), QString());
        row("in the module", QStringLiteral(":/FriendUI/x.png"), QString());
        row("climbing", QStringLiteral("../../x.png"), QString());
    }

    // Delivered with the room, and changed later.
    void pictures()
    {
        QFETCH(QString, named);
        RoomsFixture page;
        page.host.context.headPaths.insert(QStringLiteral("id5"),
                                           QDir::rootPath() + QLatin1String("id5.png"));
        MucData room = makeRoom("r5", QStringLiteral("e"));
        room.headImage = named;
        page.add(room);
        QTEST(page.row("r5").data(258).toString(), "path");
        if (named == QLatin1String("id5"))
            return;
        emit page.hub()->signal_mucChatHeadChanged(roomJid("r1"), named);
        QTEST(page.row("r1").data(258).toString(), "path");
    }

    // Which support people look for.
    void logTexts()
    {
        RoomsFixture page;
        LogCapture log(page.host.context);
        const MucListView another;
        QTest::mouseClick(page.view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 400));
        page.widget->slot_shakeRoom(roomJid("r1"));
        for (const char *text :
             {"[MucListView.cpp:", "entry fun MucTreeView::createMenu()",
              "exit fun MucTreeView::createMenu()",
              "entry fun MucTreeView::slot_clicked(QModelIndex index)", ": item is null",
              "exit fun MucTreeView::slot_clicked("
              "QModelIndex index)",
              "entry fun MucWidget::slot_shakeRoom(QString roomJid)"})
            QVERIFY2(!log.linesWith(text).isEmpty(), text);
    }

    // Labels do not follow each of many rooms.
    void manyRoomsInATurn()
    {
        RoomsFixture page(false);
        const QSignalSpy told(page.view, &MucListView::signal_updateFrequentlyRoomSize);
        for (int i = 0; i < 500; ++i)
            page.add(makeRoom(QByteArray::number(i).constData(), QStringLiteral("n")));
        QCOMPARE(told.size(), 1);
        RoomsFixture::settle();
        QCOMPARE(told.size(), 2);
        QCOMPARE(page.addressBookTab()->text(), QStringLiteral("groupChat[500]"));
    }

    void anotherUsersRoomsGo()
    {
        RoomsFixture page;
        page.hub()->signal_login();
        QCOMPARE(page.model->recordCount(), 4); // the same user again
        page.host.context.user = QStringLiteral("you");
        page.add(makeRoom("r7", QStringLiteral("Theta"))); // before the host says so
        page.hub()->signal_login();
        QCOMPARE(page.rows(), QStringList{QStringLiteral("Theta")});
        QCOMPARE(page.model->recordCount(), 1);
    }

private:
    static void tell(const QString &event, const QString &jid)
    {
        auto *hub = RoomsFixture::hub();
        const QMap<QString, std::function<void()>> events{
            {QStringLiteral("subject"),
             [=] { emit hub->signal_roomSubjectChanged(jid, QStringLiteral("Omega"), QString()); }},
            {QStringLiteral("head"),
             [=] { emit hub->signal_mucChatHeadChanged(jid, QStringLiteral("/new.png")); }},
            {QStringLiteral("members"),
             [=] { emit hub->signal_updateRoomMembers(QStringLiteral("12"), jid); }},
            {QStringLiteral("no members"),
             [=] { emit hub->signal_updateRoomMembers(QString(), jid); }},
            {QStringLiteral("forbidden"), [=] { emit hub->signal_setForbiddenIcon(jid, true); }},
            {QStringLiteral("classification"),
             [=] { emit hub->siganl_mucClassifyChanged(jid, MucData::PreferredRoom); }},
            {QStringLiteral("dismissed"), [=] { emit hub->signal_deleteMucRoon(jid); }},
            {QStringLiteral("left"), [=] { emit hub->signal_removedRoom(jid); }},
            {QStringLiteral("local"),
             [=] { emit hub->signal_localMucAdded(jid, QStringLiteral("auto_save")); }}};
        QVERIFY2(events.contains(event), qPrintable(event));
        events[event]();
    }

    static void hostEventNames()
    {
        const Rows<QString> row{"event"};
        for (const char *name : {"subject", "head", "members", "forbidden", "classification",
                                 "dismissed", "left", "local"})
            row(name, QString::fromLatin1(name));
    }
};

FRIENDUI_TEST(TstMucWidget)
#include "tst_mucwidget.moc"

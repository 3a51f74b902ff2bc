// What is done with a group chat, by menu and keys.
#include "tests/rooms/roomsfixture.h"
#include "tests/support/testrunner.h"

#include <QLineEdit>

class TstMucActions : public QObject
{
    Q_OBJECT

private slots:
    void requests_data()
    {
        const QString chat = QString::fromLatin1(PluginId::Chat);
        const QString mail = QString::fromLatin1(PluginId::Mail);
        const QString rooms = QStringLiteral("{2172");
        const QString r1 = roomJid("r1");
        const QString r4 = roomJid("r4");
        const Rows<QString, QString, int, QString, QByteArray> row{"room", "key", "code",
                                                                   "receiver", "payload"};
        const QString a = QStringLiteral("r1");
        const QString b = QStringLiteral("r4");
        const auto key = [](const char *text) { return QString::fromLatin1(text); };
        row("chat", a, key("sendGroupMessage"), 4251, chat, FakeHost::encode(r1, 1));
        row("file", a, key("sendFile"), 4264, chat, FakeHost::encode(QStringList{r1}, 1));
        row("mail", a, key("sendemail"), 4233, mail, FakeHost::encode(QStringList{r1}));
        row("history", a, key("msgrecord"), 4330, chat, FakeHost::encode(r1, 1));
        row("dismiss", a, key("dismissmuc"), 4425, rooms, FakeHost::encode(r1));
        row("manage", a, key("changemanage"), 4426, rooms, FakeHost::encode(r1));
        row("quit", b, key("quitmuc"), 4423, rooms, FakeHost::encode(r4));
        row("pin", a, key("setGroupToppest"), 4396, chat, FakeHost::encode(r1, true));
        row("unpin", b, key("cancelGroupToppest"), 4396, chat, FakeHost::encode(r4, false));
        row("take out", a, key("deleteFromContact"), 4540, rooms, FakeHost::encode(r1, 0));
        row("save", b, key("saveToAddresslist"), 4540, rooms, FakeHost::encode(r4, 1));
    }

    void requests()
    {
        QFETCH(QString, room);
        QFETCH(QString, key);
        QFETCH(int, code);
        QFETCH(QString, receiver);
        QFETCH(QByteArray, payload);
        RoomsFixture page;
        page.host.context.roomRoles.insert(roomJid("r1"), 2);
        page.host.context.topSessions.insert(roomJid("r4"));
        if (room == QLatin1String("r4"))
            QTest::mouseClick(page.localTab(), Qt::LeftButton);
        TipBox::setNextAnswers(TipBox::Sure);
        const QSignalSpy sessions(page.hub(), &FriendUISignalSender::signal_latestSessionReceived);
        page.choose(room.toLatin1().constData(), key.toLatin1().constData());
        QCOMPARE(page.host.requests.size(), 1);
        const FakeHost::Request request = page.host.last(code);
        QVERIFY(request.receiver.startsWith(receiver));
        QCOMPARE(request.payload, payload);
        QCOMPARE(sessions.size(), code == 4396 ? 1 : 0);
    }

    // --- Keys ------------------------------------------------------------------------

    void keys_data()
    {
        const Rows<int, int, QString> row{"key", "role", "asks"};
        row("owner's Delete", Qt::Key_Delete, 2, QStringLiteral("sureToDismissTheGroup"));
        row("member's Delete", Qt::Key_Delete, 0, QStringLiteral("sureToSignOutTheGroup"));
        row("owner's F2", Qt::Key_F2, 2, QStringLiteral("modifyGroupName"));
        row("member's F2", Qt::Key_F2, 0, QString());
    }

    void keys()
    {
        QFETCH(int, key);
        QFETCH(int, role);
        QFETCH(QString, asks);
        RoomsFixture page;
        page.host.context.roomRoles.insert(roomJid("r1"), role);
        QTest::keyClick(page.view, Qt::Key(key)); // of no row
        page.view->select(roomJid("r1"));
        const int boxes = TipBox::count();
        QTest::keyClick(page.view, Qt::Key(key));
        const QString asked = page.inputBox()           ? page.inputBox()->windowTitle()
                              : TipBox::count() > boxes ? TipBox::lastText()
                                                        : QString();
        QCOMPARE(asked, asks);
        QCOMPARE(page.host.requests.size(), 0); // nothing before it is confirmed
    }

    void enterAndDoubleClickOpen()
    {
        const RoomsFixture page;
        page.view->select(roomJid("r2"));
        QTest::keyClick(page.view, Qt::Key_Return);
        const auto [opened, kind] = page.host.arguments<QString, int>(4251);
        QCOMPARE(opened, roomJid("r2"));
        QCOMPARE(kind, 1);
        QTest::mouseDClick(page.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                           page.middleOf("r1"));
        QCOMPARE(page.host.count(4251), 2); // each once
        QCOMPARE(page.host.last(4251).payload, FakeHost::encode(roomJid("r1"), 1));
    }

    void clickBesideTheRows()
    {
        const RoomsFixture page;
        page.click("r2");
        QTest::mouseClick(page.view->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(10, 400));
        QVERIFY(!page.view->selectionModel()->hasSelection());
    }

    // --- Renaming --------------------------------------------------------------------

    void rename_data()
    {
        const Rows<QString, QString, QString> row{"old", "typed", "sent"};
        const QString long300(300, QLatin1Char('x'));
        row("another", QStringLiteral("Alpha"), QStringLiteral(" Omega "), QStringLiteral("Omega"));
        row("unchanged", QStringLiteral("Alpha"), QStringLiteral("Alpha "), QString());
        row("empty", QStringLiteral("Alpha"), QStringLiteral("  "), QString());
        row("cut", QStringLiteral("Alpha"), long300, long300.left(200));
        row("too long before", long300, QString(), QString()); // nothing typed
        row("markup", QStringLiteral("<b>a & b</b>"), QStringLiteral("<i>"), QStringLiteral("<i>"));
    }

    void rename()
    {
        QFETCH(QString, old);
        QFETCH(QString, typed);
        QFETCH(QString, sent);
        RoomsFixture page;
        emit page.hub()->signal_roomSubjectChanged(roomJid("r1"), old, QString());
        page.host.context.roomRoles.insert(roomJid("r1"), 1);
        page.choose("r1", "modifyGroupName");
        InputBox *box = page.inputBox();
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("modifyGroupName"));
        QCOMPARE(box->labelText(), QStringLiteral("name"));
        auto *edit = box->findChild<QLineEdit *>();
        QCOMPARE(edit->text(), old.left(200));
        if (!typed.isEmpty())
            QTest::keyClicks(edit, typed); // in the place of all that was there
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(page.host.requests.size(), sent.isEmpty() ? 0 : 1);
        if (!sent.isEmpty())
            QCOMPARE(page.host.last(4421).payload, FakeHost::encode(roomJid("r1"), sent));
        QCOMPARE(page.row("r1").data(257).toString(), old); // until the host says so
    }

    void renameWithoutConnection()
    {
        RoomsFixture page;
        page.host.context.roomRoles.insert(roomJid("r1"), 1);
        page.choose("r1", "modifyGroupName");
        page.inputBox()->setTextValue(QStringLiteral("Omega"));
        page.host.context.settings.setConnected(false); // while the box is open
        page.inputBox()->accept();
        QCOMPARE(TipBox::lastText(), QStringLiteral("cannotChangeThemeForSelfOffLine"));
        QCOMPARE(page.host.requests.size(), 0);
        RoomsFixture::settle();
        const int boxes = TipBox::count();
        page.choose("r1", "modifyGroupName");
        QCOMPARE(TipBox::count(), boxes + 1);
    }

    void renameBoxClosesWithItsRoom()
    {
        RoomsFixture page;
        page.host.context.roomRoles.insert(roomJid("r1"), 1);
        page.choose("r1", "modifyGroupName");
        const QPointer<InputBox> box = page.inputBox();
        box->setTextValue(QStringLiteral("Omega"));
        emit page.hub()->signal_removedRoom(roomJid("r1"));
        QVERIFY(!box || !box->isVisible());
        QCOMPARE(page.host.requests.size(), 0);
    }

    // --- Quitting --------------------------------------------------------------------

    void quitWithTransfers_data()
    {
        const Rows<bool, QList<int>> row{"sure", "codes"};
        row("sure", true, {4394, 4423});
        row("cancel", false, {});
    }

    void quitWithTransfers()
    {
        QFETCH(bool, sure);
        QFETCH(QList<int>, codes);
        RoomsFixture page;
        page.host.context.transferring.insert(roomJid("r1"));
        TipBox::setNextAnswers(sure ? TipBox::Sure : TipBox::Cancel);
        const int boxes = TipBox::count();
        page.choose("r1", "quitmuc");
        QList<int> sent;
        for (const FakeHost::Request &request : qAsConst(page.host.requests))
            sent.append(request.code);
        QCOMPARE(sent, codes);
        QCOMPARE(TipBox::count() - boxes, sure ? 2 : 1);
        QCOMPARE(TipBox::lastText(), sure ? QStringLiteral("sureToSignOutTheGroup")
                                          : QStringLiteral("quitfiletransfer"));
    }

    // Sure of the transfers but not of leaving: they go on.
    void secondThoughtsKeepTheTransfers()
    {
        RoomsFixture page;
        page.host.context.transferring.insert(roomJid("r1"));
        TipBox::setNextAnswers(TipBox::ShowBox);
        page.choose("r1", "quitmuc");
        auto *first = page.view->findChild<TipBox *>();
        QVERIFY(first);
        QCOMPARE(first->windowTitle(), QStringLiteral("fileTransfer"));
        first->buttons().first()->click();
        RoomsFixture::settle();
        TipBox *second = nullptr;
        const QList<TipBox *> open = page.view->findChildren<TipBox *>();
        for (TipBox *box : open) {
            if (box->isVisible())
                second = box;
        }
        QVERIFY(second);
        QCOMPARE(second->text(), QStringLiteral("sureToSignOutTheGroup"));
        QTest::keyClick(second, Qt::Key_Escape);
        QCOMPARE(page.host.requests.size(), 0);
    }

    void hostTakesThePageAway_data()
    {
        const Rows<QString> row{"key"};
        for (const char *key :
             {"sendGroupMessage", "quitmuc", "setGroupToppest", "double click", "Enter"})
            row(key, QString::fromLatin1(key));
    }

    // Inside the request that the user has made.
    void hostTakesThePageAway()
    {
        QFETCH(QString, key);
        RoomsFixture page;
        page.host.context.transferring.insert(roomJid("r1"));
        TipBox::setNextAnswers(TipBox::Sure);
        page.host.onRequest = [&page](const FakeHost::Request &) {
            page.tester.reset();
            page.widget.reset();
        };
        page.view->select(roomJid("r1"));
        if (key == QLatin1String("Enter")) {
            QTest::keyClick(page.view, Qt::Key_Return);
        } else if (key == QLatin1String("double click")) {
            QTest::mouseDClick(page.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                               page.middleOf("r1"));
        } else {
            page.openMenu("r1");
            page.menu()->setActiveAction(page.menu()->action(key.toLatin1().constData()));
            QTest::keyClick(page.menu(), Qt::Key_Return);
        }
        QVERIFY(!page.widget);
        RoomsFixture::settle();
    }
};

FRIENDUI_TEST(TstMucActions)
#include "tst_mucactions.moc"

// Chats in the host's window with a recording core: what they show and send, files,
// and the management of group chats.
#include "host/chat/chatarea.h"
#include "host/chat/chatpage.h"
#include "host/chat/chatview.h"
#include "host/chat/messagetext.h"
#include "host/filetransfers.h"
#include "host/samplepicture.h"
#include "host/windows/roommanagement.h"
#include "tests/host/ui/windowbench.h"
#include "tests/support/testrunner.h"

#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>

class TstHostChats : public QObject
{
    Q_OBJECT

private slots:
    void aChatShowsItsHistoryAndSends()
    {
        WindowBench bench;
        bench.core.history[u1()] = {message(u1(), u1(), QStringLiteral("hello"))};
        bench.window.windows()->openChat(u1(), MessageData::Person);
        ChatPage *page = bench.window.chats()->currentPage();
        QVERIFY(page);
        QVERIFY(page->findChild<ChatView *>()->toPlainText().contains(QLatin1String("hello")));

        auto *input = page->findChild<QPlainTextEdit *>(QStringLiteral("chatInput"));
        QTest::keyClicks(input, QStringLiteral("  one"));
        QTest::keyClick(input, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(input, QStringLiteral("two"));
        QVERIFY(bench.core.calls.isEmpty());
        QTest::keyClick(input, Qt::Key_Return);
        QCOMPARE(bench.core.calls,
                 QStringList{QStringLiteral("sendMessage(%1, 0, one\ntwo)").arg(u1())});
        QVERIFY(input->toPlainText().isEmpty());
        QTest::keyClick(input, Qt::Key_Return); // nothing to send
        QCOMPARE(bench.core.calls.size(), 1);

        emit bench.core.requestFailed(QStringLiteral("sendMessage"), u1());
        QVERIFY(page->findChild<ChatView *>()->toPlainText().contains(
            QLatin1String("could not be sent")));
    }

    void aServiceNumberThatOnlySendsTakesNothing_data()
    {
        const Rows<bool, bool> row{"interactive", "icon"};
        row("one way", false, true);
        row("interactive", true, false);
    }
    void aServiceNumberThatOnlySendsTakesNothing()
    {
        QFETCH(bool, interactive);
        QFETCH(bool, icon);
        WindowBench bench;
        const QString jid = QStringLiteral("sn1@corp.example");
        bench.core.numbers[jid].name = hostile();
        bench.core.numbers[jid].isInteractive = interactive;
        if (icon)
            SamplePicture::draw(bench.context.pictureFolder(), QStringLiteral("sn1.png"),
                                QStringLiteral("S"));
        bench.window.show();
        bench.window.windows()->openChat(jid, MessageData::ServiceNumber);
        const ChatPage *page = bench.window.chats()->currentPage();
        const auto *hint = page->findChild<QLabel *>(QStringLiteral("chatOneWay"));
        for (const char *name : {"chatInput", "chatSend", "chatSendFile", "chatSendLink"})
            QCOMPARE(page->findChild<QWidget *>(QLatin1String(name))->isVisible(), interactive);
        QCOMPARE(hint->isVisible(), !interactive);
        QVERIFY(!hint->text().isEmpty());
        QCOMPARE(page->findChild<QLabel *>(QStringLiteral("chatPicture"))->isVisible(), icon);
    }

    void thereIsOneChatPerJid()
    {
        WindowBench bench;
        bench.window.windows()->openChat(u1(), 0);
        bench.window.windows()->openChat(u2(), 0);
        bench.window.windows()->openChat(u1(), 0);
        QCOMPARE(bench.window.chats()->count(), 2);
        QCOMPARE(bench.window.chats()->currentPage()->jid(), u1());

        auto *tabs = bench.find<QTabWidget>("chatTabs");
        emit bench.core.messageReceived(true, message(u2(), u2(), QStringLiteral("hi")));
        QVERIFY(tabs->tabText(1).startsWith(QString::fromUtf8("●")));
        tabs->setCurrentIndex(1);
        QVERIFY(!tabs->tabText(1).startsWith(QString::fromUtf8("●")));

        emit tabs->tabCloseRequested(1);
        emit tabs->tabCloseRequested(0);
        QCOMPARE(bench.window.chats()->count(), 0);
        QCOMPARE(bench.window.chats()->currentWidget()->objectName(),
                 QStringLiteral("welcomePage"));
        emit bench.core.messageReceived(true, message(u1(), u1(), QStringLiteral("again")));
        QVERIFY(bench.status().contains(QString::fromUtf8("李雷")));
    }

    void othersTextIsNeverMarkup()
    {
        WindowBench bench;
        bench.core.history[u2()] = {message(u2(), u2(), hostile())};
        ChatPage *page = bench.window.chats()->open(u2(), MessageData::Person);
        const QString shown = page->findChild<ChatView *>()->toPlainText();
        QVERIFY(shown.contains(QLatin1String("<img src=/etc/passwd>")));
        const auto labels = page->findChildren<QLabel *>();
        for (const QLabel *label : labels)
            QCOMPARE(label->textFormat(), Qt::PlainText);
        QVERIFY(!page->title().contains(QLatin1Char('\n')));
        auto *tabs = bench.find<QTabWidget>("chatTabs");
        QVERIFY(tabs->tabText(0).contains(QLatin1String("&& \"Co\"")));
    }

    void aFileTakesItsTimeAndBecomesAMessage()
    {
        WindowBench bench;
        FileTransfers &transfers = *bench.window.windows()->transfers();
        transfers.start(u1(), MessageData::Person, QStringLiteral("/tmp/a/plan.pdf"), 7);
        transfers.start(u2(), MessageData::Person, QStringLiteral("other.txt"), 7);
        QVERIFY(bench.context.isTransferring(u1()));
        QVERIFY(bench.find<QWidget>("transferStatus")->isVisibleTo(&bench.window));
        bench.window.windows()->cancelTransfers(u2());
        QVERIFY(!bench.context.isTransferring(u2()));
        QVERIFY(bench.context.isTransferring(u1()));
        QVERIFY(bench.core.calls.isEmpty());

        transfers.setDuration(1);
        QTRY_COMPARE(bench.core.calls.size(), 1);
        QVERIFY(
            bench.core.calls.first().startsWith(QStringLiteral("sendMessage(%1, 0, ").arg(u1())));
        QVERIFY(bench.core.calls.first().contains(QLatin1String("plan.pdf")));
        QVERIFY(!bench.core.calls.first().contains(QLatin1String("/tmp")));
        QVERIFY(!bench.context.isTransferring(u1()));
        QVERIFY(!bench.find<QWidget>("transferStatus")->isVisibleTo(&bench.window));
    }

    void aRoomIsManagedByItsOwner_data()
    {
        const Rows<int, QString, QString> row{"ownRole", "button", "call"};
        row("owner makes a manager", 2, "changeManager", "setRoomManager(r1, u1, true)");
        row("owner removes", 2, "removeMember", "removeRoomMember(r1, u1)");
        row("manager removes", 1, "removeMember", "removeRoomMember(r1, u1)");
        row("manager makes no manager", 1, "changeManager", "");
        row("manager hands nothing over", 1, "handOver", "");
        row("member", 0, "removeMember", "");
    }
    void aRoomIsManagedByItsOwner()
    {
        QFETCH(int, ownRole);
        QFETCH(QString, button);
        QFETCH(QString, call);
        WindowBench bench;
        bench.core.ownRole = ownRole;
        bench.core.members = {{QStringLiteral("u0@corp.example"), QStringLiteral("Me"), ownRole},
                              {QStringLiteral("u1"), hostile(), 0}};
        bench.window.windows()->manageRoom(QStringLiteral("r1"));
        bench.window.windows()->manageRoom(QStringLiteral("r1"));
        QCOMPARE(bench.window.findChildren<RoomManagement *>().size(), 1);
        auto *list = bench.find<QListWidget>("roomMembers");
        QCOMPARE(list->count(), 2);
        QVERIFY(!list->item(1)->text().contains(QLatin1Char('\n')));
        list->setCurrentRow(1);
        bench.find<QPushButton>(button.toLatin1().constData())->click();
        QCOMPARE(bench.core.calls.join(QString()), call);
    }

    void aRoomIsHandedOverAfterAQuestion()
    {
        WindowBench bench;
        bench.core.ownRole = 2;
        bench.core.members = {{QStringLiteral("u0@corp.example"), QStringLiteral("Me"), 2},
                              {QStringLiteral("u1"), hostile(), 0}};
        bench.window.windows()->manageRoom(QStringLiteral("r1"));
        bench.find<QListWidget>("roomMembers")->setCurrentRow(1);
        bench.find<QPushButton>("handOver")->click();
        auto *box = bench.window.findChild<QMessageBox *>();
        QVERIFY(box && bench.core.calls.isEmpty());
        QCOMPARE(box->textFormat(), Qt::PlainText);
        box->accept();
        QCOMPARE(bench.core.calls, QStringList{QStringLiteral("handOverRoom(r1, u1)")});
        emit bench.core.roomLeft(QStringLiteral("r1"));
        QTRY_VERIFY(!bench.find<QDialog>("roomManagement"));
    }

    void aForbiddenRoomTakesNoText()
    {
        WindowBench bench;
        MucData room;
        room.roomJid = QStringLiteral("r1");
        room.forbidden = true;
        bench.core.groupChats = {room};
        ChatPage *page = bench.window.chats()->open(room.roomJid, MessageData::Room);
        auto *input = page->findChild<QPlainTextEdit *>(QStringLiteral("chatInput"));
        QVERIFY(!input->isEnabled());
        bench.core.groupChats.first().forbidden = false;
        emit bench.core.roomMuted(room.roomJid, false);
        QVERIFY(input->isEnabled());
        bench.core.groupChats.clear();
        emit bench.core.roomLeft(room.roomJid);
        QVERIFY(!input->isEnabled());
    }

    void whatIsOnTheScreenIsRead()
    {
        WindowBench bench;
        bench.core.history[u1()] = {message(u1(), u1(), QStringLiteral("hello"))};
        QSignalSpy read(bench.window.chats(), &ChatArea::conversationRead);
        bench.window.chats()->open(u1(), MessageData::Person);
        QCoreApplication::processEvents();
        QCOMPARE(read.size(), 0); // the window is not shown
        bench.window.show();
        QTRY_COMPARE(read.size(), 1);
        for (int i = 0; i < 5; ++i)
            emit bench.core.messageReceived(true, message(u1(), u1(), QStringLiteral("more")));
        emit bench.core.messageReceived(true, message(u2(), u2(), QStringLiteral("other")));
        QVERIFY(read.wait());
        QCOMPARE(read.size(), 2); // once for all of them
        QCOMPARE(read.last().first().value<MessageData>().sessionJid, u1());
    }

    void everyKindOfMessageIsToldInWords_data()
    {
        const Rows<QString, QString> row{"body", "shown"};
        row("text", "<b>1 < 2</b>", "<b>1 < 2</b>");
        row("file", "{'type':'file','name':'a.pdf','size':2048}", "[File] a.pdf 2.0 kB");
        row("voice", "{'type':'voice','seconds':67}", "[Voice] 1:07");
        row("place", "{'type':'location','name':'Gate','latitude':1.5,'longitude':2}",
            "[Location] Gate\n1.5000, 2.0000");
        row("link", "{'type':'link','title':'T','url':'https://a.example/x'}",
            "[Link] T\nhttps://a.example/x");
        row("bad link", "{'type':'link','title':'T','url':'file:///etc/passwd'}", "[Link] T");
        row("merged", "{'type':'merged','title':'M','parts':[{'sender':'A\nB','text':'x'}]}",
            "[Chat history] M\n  A B: x");
        row("work group", "{'type':'workgroup','name':'Desk','text':'hi'}", "[Desk]\nhi");
    }
    void everyKindOfMessageIsToldInWords()
    {
        QFETCH(QString, body);
        QFETCH(QString, shown);
        QCOMPARE(messageText(body.replace(QLatin1Char('\''), QLatin1Char('"'))), shown);
    }
};

FRIENDUI_TEST(TstHostChats)
#include "tst_hostchats.moc"

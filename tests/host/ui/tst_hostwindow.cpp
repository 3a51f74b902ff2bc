// The host's window with a recording core: chats, requests that open windows,
// switches, the page shown without a plug-in, loading a plug-in.
#include "common/clogthread.h"
#include "host/chat/chatarea.h"
#include "host/chat/chatpage.h"
#include "host/chat/chatview.h"
#include "host/chat/messagetext.h"
#include "host/eventlog.h"
#include "host/filetransfers.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/hostlanguage.h"
#include "host/mainwindow.h"
#include "host/panearea.h"
#include "host/pluginloader.h"
#include "host/requesttable.h"
#include "host/webservices.h"
#include "host/windows/contactrequests.h"
#include "host/windows/hostwindows.h"
#include "host/windows/peoplepicker.h"
#include "host/windows/roommanagement.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"
#include "tests/host/ui/fakecore.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>

namespace {

FriendData person(const QString &uid, const QString &name)
{
    FriendData data;
    data.jid = uid + QLatin1String("@corp.example");
    data.nickName = name;
    return data;
}

MessageData message(const QString &session, const QString &from, const QString &body)
{
    MessageData data;
    data.sessionJid = session;
    data.fromJid = from;
    data.body = body;
    data.time = QStringLiteral("2024-01-02 03:04:05");
    return data;
}

const QString hostile()
{
    return QString::fromUtf8("<img src=/etc/passwd><b>O'Brien</b> & \"Co\"\nforged");
}

struct Bench
{
    QTemporaryDir folder;
    FakeCore core;
    HostContext context{&core, folder.path()};
    EventLog log;
    HostBus bus{&log};
    HostLanguage language;
    MainWindow window{{&core, &context, &bus, &log, &language, nullptr}};

    Bench()
    {
        core.people = {person(QStringLiteral("u1"), QString::fromUtf8("李雷")),
                       person(QStringLiteral("u2"), hostile())};
        installRequestHandlers(bus, core, *window.windows());
    }
    ~Bench() { context.shutDown(); }

    QString status() const { return window.statusBar()->currentMessage(); }
    template <class T> T *find(const char *name) const
    {
        return window.findChild<T *>(QString::fromLatin1(name));
    }
};

const QString u1()
{
    return QStringLiteral("u1@corp.example");
}
const QString u2()
{
    return QStringLiteral("u2@corp.example");
}

} // namespace

class TstHostWindow : public QObject
{
    Q_OBJECT

private slots:
    void aChatShowsItsHistoryAndSends()
    {
        Bench bench;
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

    void thereIsOneChatPerJid()
    {
        Bench bench;
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
        Bench bench;
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

    void requestsBeyondTheHostOpenANote_data()
    {
        const Rows<int> row{"code"};
        row("mail", int(Outbound::WriteMail));
        row("picture", int(Outbound::ShowPicture));
        row("topic", int(Outbound::OpenTopicPage));
    }
    void requestsBeyondTheHostOpenANote()
    {
        QFETCH(int, code);
        Bench bench;
        HostWindows &windows = *bench.window.windows();
        if (code == Outbound::WriteMail)
            windows.writeMail({u1(), u2()});
        else if (code == Outbound::ShowPicture)
            windows.showPicture(u1(), QStringLiteral("/x.png"));
        else
            windows.openTopicPage(QString::fromLatin1(PluginId::Topics), u1());
        auto *note = bench.find<QDialog>("requestNote");
        QVERIFY(note && note->isVisible());
        QVERIFY(note->findChild<QPlainTextEdit *>()->toPlainText().contains(
            code == Outbound::ShowPicture ? QStringLiteral("/x.png") : QString::fromUtf8("李雷")));
        note->reject();
        QTRY_VERIFY(!bench.find<QDialog>("requestNote"));
    }

    void aFileTakesItsTimeAndBecomesAMessage()
    {
        Bench bench;
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
        Bench bench;
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
        Bench bench;
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
        Bench bench;
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
        Bench bench;
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

    void aGroupChatIsMadeOfTheChosenPeople()
    {
        Bench bench;
        bench.window.windows()->createGroupChat({u1()});
        auto *picker = bench.find<PeoplePicker>("peoplePicker");
        QVERIFY(picker);
        QCOMPARE(picker->chosenJids(), QStringList{u1()});
        picker->findChild<QLineEdit *>(QStringLiteral("pickerText"))
            ->setText(QStringLiteral("Plan"));
        picker->accept();
        QCOMPARE(bench.core.calls, QStringList{QStringLiteral("createRoom(%1, Plan)").arg(u1())});
    }

    void pickedTeamMembersGoBackToThePlugin()
    {
        Bench bench;
        QSignalSpy recorded(&bench.log, &EventLog::recorded);
        QObject plugin;
        bench.bus.setPlugin(&plugin, QStringLiteral("{p}"));
        bench.window.windows()->pickTeamMembers(QStringLiteral("t1"), 4, {QStringLiteral("u2")});
        auto *picker = bench.find<PeoplePicker>("peoplePicker");
        auto *model = picker->findChild<QAbstractItemModel *>();
        QVERIFY(model);
        QCOMPARE(model->rowCount(), 1); // u2 is in the team already
        model->setData(model->index(0, 0), Qt::Checked, Qt::CheckStateRole);
        picker->accept();
        QCOMPARE(recorded.count(), 1);
        const auto record = recorded.first().first().value<EventRecord>();
        QCOMPARE(record.code, qint32(Inbound::VirtualTeamMembersPicked));
        QDataStream in(record.payload);
        QString team;
        QStringList uids;
        qint32 group = 0;
        in >> team >> uids >> group;
        QCOMPARE(uids, QStringList{QStringLiteral("u1")});
        QCOMPARE(group, 4);
    }

    void switchesReachCoreContextAndPlugin()
    {
        Bench bench;
        QSignalSpy recorded(&bench.log, &EventLog::recorded);
        QObject plugin;
        bench.bus.setPlugin(&plugin, QStringLiteral("{p}"));
        bench.window.setSkin(QStringLiteral("dark"));
        QCOMPARE(bench.context.skin().skinName, QStringLiteral("dark"));
        QVERIFY(bench.window.palette().color(QPalette::Window).lightness() < 80);
        QCOMPARE(recorded.first().first().value<EventRecord>().code, qint32(Inbound::SkinChanged));

        auto *online = bench.find<QAction>("toggleOnline");
        QCOMPARE(online->text(), QStringLiteral("Go offline"));
        online->trigger();
        QVERIFY(!bench.core.connected);
        QCOMPARE(online->text(), QStringLiteral("Go online"));

        bench.find<QAction>("presence4")->trigger();
        QVERIFY(bench.core.calls.contains(QLatin1String("setOwnPresence(4)")));
        bench.window.setSkin(QStringLiteral("light"));
    }

    void aMissingModuleIsToldWithAWayOn()
    {
        Bench bench;
        const QString file = bench.folder.filePath(QStringLiteral("libNothing.so"));
        const LoadedPlugin none = loadPlugin(file, &bench.context, &bench.bus);
        QVERIFY(!none.plugin);
        QVERIFY(!none.problem.isEmpty());
        bench.window.paneArea()->setProblem(none.file, none.problem);
        QCOMPARE(bench.window.paneArea()->currentWidget()->objectName(),
                 QStringLiteral("paneErrorPage"));
        bench.window.show();
        const QSignalSpy retry(bench.window.paneArea(), &PaneArea::retryWanted);
        QTest::mouseClick(bench.find<QWidget>("paneRetry"), Qt::LeftButton);
        QCOMPARE(retry.count(), 1);

        const QString foreign = bench.folder.filePath(QStringLiteral("libForeign.so"));
        writeFile(foreign, "not a library");
        QVERIFY(!loadPlugin(foreign, &bench.context, &bench.bus).plugin);
    }

    void aModuleIsLoadedAndConnected()
    {
        Bench bench;
        const LoadedPlugin loaded =
            loadPlugin(QStringLiteral(FRIENDUI_FAKE_PLUGIN), &bench.context, &bench.bus);
        QVERIFY2(loaded.plugin, qPrintable(loaded.problem));
        // The request came before the plug-in was made known as a receiver.
        QCOMPARE(bench.core.calls, QStringList{QStringLiteral("requestGroups(true)")});
        bench.window.paneArea()->setPane(loaded.plugin->getMainWidget(nullptr));
        QCOMPARE(bench.window.paneArea()->currentWidget()->objectName(),
                 QStringLiteral("fakePane"));
        bench.bus.notify(Inbound::OwnStatusChanged);
        QCOMPARE(loaded.plugin->getEventReceiver()->property("lastCode").toInt(),
                 int(Inbound::OwnStatusChanged));
        QVERIFY(bench.bus.mayAddContact(u1()));
    }

    void conversationsStayPinned()
    {
        const QTemporaryDir folder;
        FakeCore core;
        {
            HostContext context(&core, folder.path());
            context.setSessionTop(QStringLiteral("o'brien@x"), true);
            context.setSessionTop(u1(), true);
            context.setSessionTop(u1(), false);
            QSqlQuery mute(context.userDatabase());
            QVERIFY(mute.exec(QStringLiteral(
                "INSERT INTO sessionsetting (sessionJid, isNotHint) VALUES ('r@x', 'T')")));
            context.shutDown();
        }
        HostContext again(&core, folder.path());
        QVERIFY(again.isSessionTop(QStringLiteral("o'brien@x")));
        QVERIFY(!again.isSessionTop(u1()));
        QCOMPARE(again.sessionNotify(QStringLiteral("r@x")), 1);
        QCOMPARE(again.sessionNotify(u1()), 0);
        again.shutDown();
    }

    void theLogIsWrittenToItsEnd()
    {
        const QTemporaryDir folder;
        FakeCore core;
        HostContext context(&core, folder.path());
        for (int i = 0; i < 250; ++i)
            context.logThread()->enqueue(3, QStringLiteral("t.cpp:1"), QString::number(i));
        context.shutDown();
        QVERIFY(context.logThread()->isFinished());
        const QByteArray text = contentOf(context.logFile());
        QVERIFY(text.contains("]: 249\n"));
        QVERIFY(text.trimmed().endsWith("the log ends with the host"));
        context.shutDown(); // a second time does nothing
    }

    void requestsAreListedOncePerPerson()
    {
        Bench bench;
        emit bench.core.contactRequested(u1(), QStringLiteral("hello"), QString());
        emit bench.core.contactRequested(u2(), hostile(), QString());
        emit bench.core.contactRequested(u1(), QStringLiteral("hello again"), QString());
        auto *list = bench.find<QListWidget>("requestList");
        QVERIFY(list->isVisible());
        QCOMPARE(list->count(), 2);
        QVERIFY(list->item(0)->text().endsWith(QStringLiteral(": hello again")));
        QVERIFY(!list->item(1)->text().contains(QLatin1Char('\n')));
        for (int i = 0; i < 2 * ContactRequests::MaximumRows; ++i)
            emit bench.core.contactRequested(QString::number(i), QString(), QString());
        QCOMPARE(list->count(), int(ContactRequests::MaximumRows));
    }

    void aRequestLeadsToThePlugin()
    {
        Bench bench;
        QObject plugin;
        bench.bus.setPlugin(&plugin, QString::fromLatin1(PluginId::FriendUi));
        QVector<EventRecord> sent;
        connect(&bench.log, &EventLog::recorded, &bench.window,
                [&sent](const EventRecord &record) { sent.append(record); });
        const auto answer = [&bench](const QString &jid) {
            emit bench.core.policyReceived(jid, QStringLiteral("3"), QStringLiteral("Name"));
        };
        emit bench.core.contactRequested(u1(), QString(), QString());
        emit bench.core.contactRequested(u2(), QString(), QString());
        bench.find<QPushButton>("addRequested")->click(); // the first that came
        QCOMPARE(bench.core.calls, QStringList{QStringLiteral("requestPolicy(%1)").arg(u1())});
        answer(u2()); // asked for by the plug-in itself
        QVERIFY(sent.isEmpty());
        answer(u1());
        answer(u1());
        QCOMPARE(sent.size(), 1);
        QCOMPARE(sent.first().code, qint32(Inbound::RequestPolicy));
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << u1() << QStringLiteral("3") << QString() << QStringLiteral("Name") << true;
        QCOMPARE(sent.first().payload, payload);

        auto *list = bench.find<QListWidget>("requestList");
        QCOMPARE(list->count(), 1);
        emit bench.core.contactAdded(u2());
        QVERIFY(list->count() == 0 && !list->isVisible());
    }

    void theWindowTellsOfTheWebServices()
    {
        const QTemporaryDir folder;
        FakeCore core;
        HostContext context(&core, folder.path());
        EventLog log;
        HostBus bus(&log);
        HostLanguage language;
        WebServices::Options options;
        options.process.program = QStringLiteral("/nonexistent/back-end");
        options.process.dataFolder = folder.path();
        WebServices services(&context, options);
        MainWindow window({&core, &context, &bus, &log, &language, nullptr, &services, nullptr});
        const auto *state = window.findChild<QLabel *>(QStringLiteral("serviceState"));
        auto *retry = window.findChild<QAction *>(QStringLiteral("serviceRetry"));
        QVERIFY(!retry->isEnabled());
        const QString off = state->text();
        services.start();
        QVERIFY(state->text() != off);
        QTRY_VERIFY(retry->isEnabled());
        QVERIFY(window.statusBar()->currentMessage().contains(options.process.program));
        QVERIFY(state->toolTip().contains(options.process.program));
        const QSignalSpy notes(&services, &WebServices::note);
        retry->trigger();
        QVERIFY(!retry->isEnabled());
        QTRY_COMPARE(notes.count(), 1);
        context.shutDown();
    }

    void onlyFetchedPicturesAreGivenOut()
    {
        const QTemporaryDir folder;
        FakeCore core;
        HostContext context(&core, folder.path());
        QVERIFY(context.headPath(QStringLiteral("u7.png")).isEmpty());
        const QString pictures = context.userFolder() + QLatin1String("/headImage");
        QVERIFY(QDir().mkpath(pictures));
        QFile picture(pictures + QLatin1String("/u7.png"));
        QVERIFY(picture.open(QIODevice::WriteOnly));
        QCOMPARE(context.headPath(QStringLiteral("u7.png")), picture.fileName());
        QCOMPARE(context.headPath(QStringLiteral("u7@corp.example")), picture.fileName());
        QVERIFY(context.headPath(QStringLiteral("../headImage/u7.png")).isEmpty());
        QVERIFY(context.headPath(QStringLiteral("../headImage/u7@corp.example")).isEmpty());
        QVERIFY(context.headPath(QStringLiteral("../../etc/passwd")).isEmpty());
        QVERIFY(context.headPath(QStringLiteral("/etc/passwd")).isEmpty());
        QVERIFY(context.headPath(QString()).isEmpty());
        context.shutDown();
    }
};

FRIENDUI_TEST(TstHostWindow)
#include "tst_hostwindow.moc"

// The host's window with a recording core: requests that open windows,
// switches, the page shown without a plug-in, loading a plug-in.
#include "common/clogthread.h"
#include "host/chat/chatarea.h"
#include "host/chat/chatpage.h"
#include "host/hostcontext.h"
#include "host/panearea.h"
#include "host/pluginloader.h"
#include "host/webservices.h"
#include "host/windows/hostwindows.h"
#include "host/windows/notices.h"
#include "host/windows/peoplepicker.h"
#include "host/windows/picturewindow.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"
#include "tests/host/ui/windowbench.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSqlQuery>
#include <QStatusBar>
#include <QTabWidget>

class TstHostWindow : public QObject
{
    Q_OBJECT

private slots:
    void requestsBeyondTheHostOpenANote_data()
    {
        const Rows<int> row{"code"};
        row("mail", int(Outbound::WriteMail));
        row("topic", int(Outbound::OpenTopicPage));
    }
    void requestsBeyondTheHostOpenANote()
    {
        QFETCH(int, code);
        WindowBench bench;
        HostWindows &windows = *bench.window.windows();
        if (code == Outbound::WriteMail)
            windows.writeMail({u1(), u2()});
        else
            windows.openTopicPage(QString::fromLatin1(PluginId::Topics), u1());
        auto *note = bench.find<QDialog>("requestNote");
        QVERIFY(note && note->isVisible());
        QVERIFY(
            note->findChild<QPlainTextEdit *>()->toPlainText().contains(QString::fromUtf8("李雷")));
        note->reject();
        QTRY_VERIFY(!bench.find<QDialog>("requestNote"));
    }

    void picturesAreShownAsFarAsTheyCanBeRead_data()
    {
        const Rows<QSize, bool> row{"size", "shown"};
        row("large", QSize(900, 300), true);
        row("too large", QSize(PictureWindow::LargestSide + 1, 1), false);
        row("missing", QSize(), false);
    }
    void picturesAreShownAsFarAsTheyCanBeRead()
    {
        QFETCH(QSize, size);
        QFETCH(bool, shown);
        WindowBench bench;
        const QString file = bench.folder.filePath(QStringLiteral("p.png"));
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        QCOMPARE(image.save(file), size.isValid());
        bench.window.windows()->showPicture(u2(), file);
        auto *window = bench.find<QDialog>("pictureWindow");
        QVERIFY(window && window->isVisible());
        const auto *label = window->findChild<QLabel *>(QStringLiteral("shownPicture"));
        const QPixmap picture = label->pixmap(Qt::ReturnByValue);
        QCOMPARE(!picture.isNull(), shown);
        QCOMPARE(label->textFormat(), Qt::PlainText);
        if (shown)
            QCOMPARE(picture.size(), QSize(360, 120));
        window->reject();
        QTRY_VERIFY(!bench.find<QDialog>("pictureWindow"));
    }

    void aGroupChatIsMadeOfTheChosenPeople()
    {
        WindowBench bench;
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
        WindowBench bench;
        QSignalSpy recorded(&bench.log, &EventLog::recorded);
        QObject plugin;
        bench.bus.setPlugin(&plugin, QStringLiteral("{p}"));
        bench.window.windows()->pickTeamMembers(QStringLiteral("t1"), 4, {QStringLiteral("u2")});
        auto *picker = bench.find<PeoplePicker>("peoplePicker");
        auto *model = picker->findChild<QAbstractItemModel *>();
        QVERIFY(model);
        QCOMPARE(model->rowCount(), 2);
        for (int row = 0; row < 2; ++row) {
            const QModelIndex index = model->index(row, 0);
            const bool isPresent = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
            QCOMPARE(index.flags().testFlag(Qt::ItemIsUserCheckable), !isPresent);
            QCOMPARE(
                model->setData(index, isPresent ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole),
                !isPresent);
        }
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
        WindowBench bench;
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
        WindowBench bench;
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
        WindowBench bench;
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
        const QByteArray text = textOf(context.logFile());
        QVERIFY(text.contains("]: 249\n"));
        QVERIFY(text.trimmed().endsWith("the log ends with the host"));
        context.shutDown(); // a second time does nothing
    }

    void requestsAreListedOncePerPerson()
    {
        WindowBench bench;
        emit bench.core.contactRequested(u1(), QStringLiteral("hello"), QString());
        emit bench.core.contactRequested(u2(), hostile(), QString());
        emit bench.core.contactRequested(u1(), QStringLiteral("hello again"), QString());
        auto *list = bench.find<QListWidget>("noticeList");
        QVERIFY(list->isVisible());
        QCOMPARE(list->count(), 2);
        QVERIFY(list->item(0)->text().endsWith(QStringLiteral(": hello again")));
        QVERIFY(!list->item(1)->text().contains(QLatin1Char('\n')));
        for (int i = 0; i < 2 * Notices::MaximumRows; ++i)
            emit bench.core.contactRequested(QString::number(i), QString(), QString());
        QCOMPARE(list->count(), int(Notices::MaximumRows));
    }

    void aRequestLeadsToThePlugin()
    {
        WindowBench bench;
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
        bench.find<QPushButton>("acceptNotice")->click(); // the first that came
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

        auto *list = bench.find<QListWidget>("noticeList");
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
        options.found.process.program = QStringLiteral("/nonexistent/back-end");
        options.found.process.dataFolder = folder.path();
        WebServices services(&context, options);
        MainWindow window({&core, &context, &bus, &log, &language, nullptr, &services, nullptr});
        const auto *state = window.findChild<QLabel *>(QStringLiteral("serviceState"));
        auto *retry = window.findChild<QAction *>(QStringLiteral("serviceRetry"));
        QVERIFY(!retry->isEnabled());
        const QString off = state->text();
        services.start();
        QVERIFY(state->text() != off);
        QTRY_VERIFY(retry->isEnabled());
        QVERIFY(window.statusBar()->currentMessage().contains(options.found.process.program));
        QVERIFY(state->toolTip().contains(options.found.process.program));
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

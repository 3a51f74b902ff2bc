// The built module, loaded as a host loads it.
#include "hostapi/applicationcontext.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"
#include "tests/e2e/moduleimage.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDataStream>
#include <QJsonObject>
#include <QPluginLoader>
#include <QPointer>
#include <QProcess>

#include <cstdio>
#include <vector>

namespace {

const QString Module = QStringLiteral(FRIENDUI_MODULE);
const QString PluginIdText = QStringLiteral("{77CCE3F9-79F5-C5E8-17E7-F6B7389AAA6E}");
constexpr char ChildVariable[] = "FRIENDUI_TEST_CHILD";

template <class... Args> QByteArray encode(const Args &...args)
{
    QByteArray payload;
    QDataStream out(&payload, QIODevice::WriteOnly);
    (void)(out << ... << args);
    return payload;
}

class Context : public ApplicationContext
{
public:
    QString userId() const override { return QStringLiteral("me"); }
    QString serverDomain() const override { return QStringLiteral("corp.example"); }
    QString userBaseFolder() const override { return qEnvironmentVariable("HOME"); }
};

class Receiver : public QObject
{
public:
    struct Request
    {
        qint32 code;
        QString sender;
        QString receiver;
        QByteArray payload;
    };
    QVector<Request> requests;

protected:
    void customEvent(QEvent *event) override
    {
        if (const BaseEvent *sent = asBaseEvent(event))
            requests.append({sent->code, sent->senderId, sent->receiverId, sent->payload});
    }
};

// Loads the module and hands over context and receiver. The module stays loaded.
struct Host
{
    Host()
    {
        QPluginLoader loader(Module);
        loader.setLoadHints(QLibrary::PreventUnloadHint | QLibrary::ResolveAllSymbolsHint);
        plugin = qobject_cast<PluginInterface *>(loader.instance());
        if (!plugin) {
            QTest::qFail(qPrintable(loader.errorString()), __FILE__, __LINE__);
            return;
        }
        // The module asks it as long as the process lives.
        static auto *const context = new Context;
        plugin->setApplicationContext(context);
        plugin->setHostReceiver(&receiver);
    }
    ~Host()
    {
        delete pane;
        if (plugin)
            plugin->setHostReceiver(nullptr);
    }
    void show()
    {
        pane = plugin->getMainWidget(nullptr);
        pane->resize(360, 640);
        pane->show();
        QCoreApplication::processEvents();
        pane->grab();
    }
    BaseEvent send(qint32 code, const QByteArray &payload) const
    {
        BaseEvent event(code, payload, QStringLiteral("{host}"), plugin->getPluginId());
        QCoreApplication::sendEvent(plugin->getEventReceiver(), &event);
        return event;
    }
    // The friend tree.
    QAbstractItemView *tree() const
    {
        return pane->findChild<QAbstractItemView *>(QStringLiteral("FriendTreeView"));
    }

    Receiver receiver;
    PluginInterface *plugin = nullptr;
    QPointer<QWidget> pane;
};

// What the child process does for endsQuietly(), which judges its exit code and
// its output.
void runChild()
{
    // A sanitizer's build keeps what the test program itself links and does not need.
    std::vector<const char *> absent;
    for (const char *library : {"libssl", "libcrypto"}) {
        if (!isLoaded(library))
            absent.push_back(library);
    }
    static auto *const host = new Host; // never destroyed, as by a host in a hurry
    host->show();
    for (const char *library : absent) {
        if (isLoaded(library))
            std::printf("loaded: %s\n", library);
    }
    host->send(Inbound::GroupList,
               encode(QList<GroupData>{{QStringLiteral("g1"), QStringLiteral("Alpha")}}, true));
    QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    std::printf("ended: %d\n", QApplication::exec());
}

// Only makes the plug-in, and lets go of its code long before the process ends.
void runUnloadingChild()
{
    QPluginLoader loader(Module);
    loader.setLoadHints(QLibrary::LoadHints());
    const bool isPlugin = qobject_cast<PluginInterface *>(loader.instance());
    std::printf("let go: %d\n", isPlugin && loader.unload());
    std::printf("ended: 0\n");
}

} // namespace

class TstModule : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!qEnvironmentVariableIsSet(ChildVariable))
            return;
        if (qgetenv(ChildVariable) == "unload")
            runUnloadingChild();
        else
            runChild();
        QSKIP("the child has done its part");
    }

    void metadata()
    {
        const QPluginLoader loader(Module);
        const QJsonObject data = loader.metaData();
        QVERIFY(!loader.isLoaded());
        QCOMPARE(data.value(QStringLiteral("className")).toString(),
                 QStringLiteral("FriendUIPlugin"));
        const QString iid = data.value(QStringLiteral("IID")).toString();
        QCOMPARE(iid, QString::fromLatin1(qobject_interface_iid<PluginInterface *>()));
        QVERIFY(iid.endsWith(QLatin1String("/1.0")));
        QCOMPARE(data.value(QStringLiteral("debug")).toBool(true), bool(FRIENDUI_DEBUG_MODULE));
        QVERIFY(data.value(QStringLiteral("MetaData")).toObject().isEmpty());
        QCOMPARE(data.value(QStringLiteral("version")).toInt() >> 8, QT_VERSION >> 8);
    }

    void exportsOnlyThePluginEntry()
    {
        const ModuleImage image(Module);
        QVERIFY(image.isValid);
        QCOMPARE(image.exported, QStringList({QStringLiteral("qt_plugin_instance"),
                                              QStringLiteral("qt_plugin_query_metadata")}));
    }

    void linksNoTls()
    {
        const QStringList needed = ModuleImage(Module).needed;
        QVERIFY(!needed.filter(QStringLiteral("Qt5Widgets")).isEmpty());
        for (const char *library : {"libssl", "libcrypto", "Qt5WebEngine"})
            QCOMPARE(needed.filter(QLatin1String(library)), QStringList());
    }

    void constantAnswers()
    {
        const Host host;
        QVERIFY(host.plugin);
        QCOMPARE(host.plugin->getPluginName(), QStringLiteral("FriendUIPlugin"));
        QCOMPARE(host.plugin->getPluginId(), PluginIdText);
        for (const quintptr word : {quintptr(0), quintptr(1), ~quintptr(0)}) {
            QVERIFY(host.plugin->acceptsRequest(word, word, word));
            QVERIFY(host.plugin->acceptsNotice(word, word, word));
            QVERIFY(host.plugin->exportedItems(word, word).isEmpty());
        }
        QVERIFY(host.plugin->getEventReceiver());
        QCOMPARE(host.plugin->getEventReceiver(), host.plugin->getEventReceiver());
    }

    void mainWidget()
    {
        Host host;
        QVERIFY(host.plugin);
        QWidget window;
        host.pane = host.plugin->getMainWidget(&window);
        QVERIFY(host.pane);
        QVERIFY(!host.pane->parent());
        QCOMPARE(host.pane->metaObject()->className(), "FriendWidget");
        QCOMPARE(host.plugin->getMainWidget(nullptr), host.pane.data());
        // Whoever embeds it owns it; a new one takes its place.
        host.pane->setParent(&window);
        QCOMPARE(host.plugin->getMainWidget(nullptr), host.pane.data());
        QCOMPARE(host.pane->parent(), &window);
        delete host.pane;
        host.pane = host.plugin->getMainWidget(nullptr);
        QVERIFY(host.pane);
    }

    void requestsComeFromThePlugin()
    {
        Host host;
        QVERIFY(host.plugin);
        host.show();
        host.send(Inbound::GroupListFailed, {});
        QCOMPARE(host.receiver.requests.size(), 1);
        const Receiver::Request request = host.receiver.requests.first();
        QCOMPARE(request.code, qint32(Outbound::RefreshGroups));
        QCOMPARE(request.sender, host.plugin->getPluginId());
        QCOMPARE(request.receiver, QString::fromLatin1(PluginId::Roster));
        QCOMPARE(request.payload, encode(true));
    }

    void eventsReachThePane()
    {
        Host host;
        QVERIFY(host.plugin);
        host.show();
        FriendData anna;
        anna.jid = QStringLiteral("anna@corp.example");
        anna.nickName = QStringLiteral("Anna");
        anna.groupId = QStringLiteral("g1");
        host.send(Inbound::GroupList,
                  encode(QList<GroupData>{{QStringLiteral("g1"), QStringLiteral("Alpha")}}, true));
        host.send(Inbound::ContactList, encode(QList<FriendData>{anna}));
        const QAbstractItemModel *model = host.tree()->model();
        const QModelIndex group = model->index(0, 0);
        QCOMPARE(group.data(Qt::UserRole + 1).toString(), QStringLiteral("Alpha"));
        QCOMPARE(model->rowCount(group), 1);
        const QModelIndex row = model->index(0, 0, group);
        QCOMPARE(row.data(Qt::UserRole + 1).toString(), QStringLiteral("Anna"));
        QCOMPARE(row.data(Qt::UserRole + 4).toInt(), 0);
        PresenceData away;
        away.pcShow = PresenceData::Away;
        host.send(Inbound::PresenceChanged, encode(QMap<QString, PresenceData>{{anna.jid, away}}));
        QCOMPARE(model->index(0, 0, group).data(Qt::UserRole + 4).toInt(), 2);

        // The user opens a chat.
        host.tree()->setCurrentIndex(model->index(0, 0, group));
        QTest::keyClick(host.tree(), Qt::Key_Return);
        QCOMPARE(host.receiver.requests.size(), 1);
        QCOMPARE(host.receiver.requests.first().code, qint32(Outbound::OpenChat));
        QCOMPARE(host.receiver.requests.first().payload, encode(anna.jid, qint32(0)));

        // An event for another plug-in is left alone.
        BaseEvent other(Inbound::ContactRemoved, encode(anna.jid, true), QString(),
                        QString::fromLatin1(PluginId::Chat));
        QCoreApplication::sendEvent(host.plugin->getEventReceiver(), &other);
        QVERIFY(!other.isAccepted());
        QCOMPARE(model->rowCount(group), 1);
    }

    void queryIsAnswered()
    {
        const Host host;
        QVERIFY(host.plugin);
        const BaseEvent stranger =
            host.send(Inbound::MayAddContact, encode(QStringLiteral("x@corp.example")));
        QCOMPARE(stranger.payload, encode(true));
        const BaseEvent own =
            host.send(Inbound::MayAddContact, encode(QStringLiteral("me@corp.example")));
        QCOMPARE(own.payload, encode(false));
    }

    void endsQuietly_data()
    {
        const Rows<QString, QString> row{"child", "says"};
        row("used to the end", "use", "ended: 0");
        row("unloaded again", "unload", "let go: 1");
    }

    void endsQuietly()
    {
        QFETCH(QString, child);
        QFETCH(QString, says);
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(ChildVariable), child);
        // What lives as long as the process is reached from the module's variables alone.
        const QString options = environment.value(QStringLiteral("ASAN_OPTIONS"));
        if (child == QLatin1String("unload"))
            environment.insert(QStringLiteral("ASAN_OPTIONS"),
                               options + QStringLiteral(":detect_leaks=0"));
        process.setProcessEnvironment(environment);
        process.start(QCoreApplication::applicationFilePath(), {QStringLiteral("TstModule")});
        QVERIFY(process.waitForFinished(60000));
        const QByteArray output = process.readAllStandardOutput();
        QVERIFY2(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0,
                 process.readAllStandardError().constData());
        QVERIFY2(output.contains(says.toUtf8()), output.constData());
        QVERIFY2(!output.contains("loaded:"), output.constData());
    }

    void refusesOtherLibraries_data()
    {
        const Rows<QString> row{"file"};
        row("no plug-in", QStringLiteral(FRIENDUI_UNRELATED));
        row("no library", QStringLiteral(__FILE__));
        row("nothing", QStringLiteral("/nonexistent/libFriendUI.so"));
    }

    void refusesOtherLibraries()
    {
        QFETCH(QString, file);
        QPluginLoader loader(file);
        QVERIFY(loader.metaData().value(QStringLiteral("IID")).isUndefined());
        QVERIFY(!loader.instance());
        QVERIFY(!loader.isLoaded());
        QVERIFY(!loader.errorString().isEmpty());
    }
};

FRIENDUI_TEST(TstModule)
#include "tst_module.moc"

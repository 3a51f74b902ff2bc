// The smallest host: loads the module, shows its pane with two contacts, answers
// "create a group", and writes the log.
//     example-host MODULE [SECONDS]
#include "common/clogthread.h"
#include "common/logfilewriter.h"
#include "hostapi/applicationcontext.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcatalogue.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"

#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QPluginLoader>
#include <QTimer>
#include <QTranslator>

#include <cstdio>

namespace {

GroupData group()
{
    GroupData friends;
    friends.id = QStringLiteral("1");
    friends.name = QStringLiteral("Colleagues");
    return friends;
}

FriendData contact(const QString &account, const QString &name)
{
    FriendData result;
    result.jid = account + QStringLiteral("@corp.example");
    result.nickName = name;
    result.groupId = group().id;
    result.groupName = group().name;
    return result;
}

class Context : public ApplicationContext
{
public:
    Context() : m_writer(QDir::temp().filePath(QStringLiteral("example-host.log")))
    {
        m_thread.setWriter(&m_writer);
        m_thread.start();
    }
    void shutDown()
    {
        while (!m_thread.isDrained())
            QThread::msleep(2);
        m_thread.stop();
        m_thread.enqueue(3, QStringLiteral("main.cpp:0"), QStringLiteral("the end"));
        m_thread.wait();
    }

    LogFileWriter *logWriter() const override { return &m_writer; }
    CLogThread *logThread() const override { return &m_thread; }
    QString userId() const override { return QStringLiteral("me"); }
    QString serverDomain() const override { return QStringLiteral("corp.example"); }
    QString userBaseFolder() const override
    {
        return QDir::temp().filePath(QStringLiteral("example-host"));
    }
    QList<GroupData> groups(bool inner) const override
    {
        return inner ? QList<GroupData>{group()} : QList<GroupData>();
    }
    QList<FriendData> friends() const override
    {
        return {contact(QStringLiteral("ada"), QStringLiteral("Ada Green")),
                contact(QStringLiteral("wang"), QString::fromUtf8("王小明"))};
    }

private:
    mutable LogFileWriter m_writer;
    mutable CLogThread m_thread;
};

class Bus : public QObject
{
public:
    explicit Bus(PluginInterface *plugin) : m_plugin(plugin) {}

    // Streams the arguments in order and delivers the event.
    template <class... Args> void send(qint32 code, const Args &...args)
    {
        QByteArray payload;
        QDataStream stream(&payload, QIODevice::WriteOnly);
        (void)(stream << ... << args);
        BaseEvent event(code, payload, QLatin1String(PluginId::Roster), m_plugin->getPluginId());
        QCoreApplication::sendEvent(m_plugin->getEventReceiver(), &event);
    }

protected:
    void customEvent(QEvent *event) override
    {
        const BaseEvent *request = asBaseEvent(event);
        if (!request)
            return;
        const EventInfo *info = EventCatalogue::find(EventInfo::FromPlugin, request->code);
        std::printf("the module sends %d %s\n", request->code, info ? info->name : "");
        if (request->code != Outbound::CreateGroup)
            return;
        QString name;
        bool inner = false;
        QDataStream stream(request->payload);
        stream >> name >> inner;
        // Later, since the module may still be inside a click.
        QTimer::singleShot(0, this, [this, name, inner] {
            send(Inbound::GroupCreated, QString::number(++m_groups), name, true, inner);
        });
    }

private:
    PluginInterface *m_plugin;
    int m_groups = 1;
};

} // namespace

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString module = application.arguments().value(1);
    QTranslator texts;
    if (texts.load(QStringLiteral("translations/friendui_en"), QFileInfo(module).absolutePath()))
        QCoreApplication::installTranslator(&texts);

    QPluginLoader loader(module);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    auto *plugin = qobject_cast<PluginInterface *>(loader.instance());
    if (!plugin) {
        std::fprintf(stderr, "%s\n", qPrintable(loader.errorString()));
        return 1;
    }
    Context context;
    Bus bus(plugin);
    plugin->setApplicationContext(&context);
    plugin->setHostReceiver(&bus);
    {
        QMainWindow window;
        window.setCentralWidget(plugin->getMainWidget(nullptr));
        window.resize(380, 640);
        window.show();

        bus.send(Inbound::LoginChanged, true);
        bus.send(Inbound::ConnectionChanged, true);
        bus.send(Inbound::GroupList, context.groups(true), true);
        bus.send(Inbound::ContactList, context.friends());
        PresenceData online;
        online.pcShow = PresenceData::Available;
        bus.send(Inbound::PresenceChanged,
                 QMap<QString, PresenceData>{{QStringLiteral("ada@corp.example"), online}});

        const int seconds = application.arguments().value(2).toInt();
        if (seconds > 0)
            QTimer::singleShot(seconds * 1000, &application, &QCoreApplication::quit);
        QApplication::exec();
    }
    plugin->setHostReceiver(nullptr);
    context.shutDown();
    return 0;
}

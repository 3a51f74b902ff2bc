// The smallest client: loads the module, shows its pane with two contacts, and answers
// one of its requests.
//     minimal-host MODULE [SECONDS]
#include "hostapi/applicationcontext.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"
#include "hostapi/plugininterface.h"

#include <QApplication>
#include <QDir>
#include <QMainWindow>
#include <QPluginLoader>
#include <QTimer>
#include <QTranslator>

// What the module may ask at any time. Everything has a default that means "unknown".
class Context : public ApplicationContext
{
public:
    QString userId() const override { return "me"; }
    QString serverDomain() const override { return "corp.example"; }
    QString userBaseFolder() const override { return QDir::tempPath() + "/minimal-host"; }
    QList<GroupData> groups(bool inner) const override
    {
        return inner ? QList<GroupData>{{"1", "Colleagues"}} : QList<GroupData>();
    }
    QList<FriendData> friends() const override { return {person("ada"), person("grace")}; }

    static FriendData person(const char *name)
    {
        FriendData contact;
        contact.jid = QString(name) + "@corp.example";
        contact.groupId = "1";
        return contact;
    }
};

// The way of events in both directions.
class Bus : public QObject
{
public:
    explicit Bus(PluginInterface *plugin) : m_plugin(plugin) {}

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
        if (!request || request->code != Outbound::CreateGroup)
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

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    const QString module = QFileInfo(application.arguments().value(1)).absoluteFilePath();
    QTranslator texts;
    if (texts.load("translations/friendui_en", QFileInfo(module).path()))
        QCoreApplication::installTranslator(&texts);
    QPluginLoader loader(module);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    auto *plugin = qobject_cast<PluginInterface *>(loader.instance());
    if (!plugin)
        qFatal("%s", qPrintable(loader.errorString()));
    Context context;
    Bus bus(plugin);
    plugin->setApplicationContext(&context);
    plugin->setHostReceiver(&bus);

    QMainWindow window;
    window.setCentralWidget(plugin->getMainWidget(nullptr));
    window.show();
    bus.send(Inbound::LoginChanged, true); // groups() and friends() are shown now
    bus.send(Inbound::ConnectionChanged, true);
    if (argc > 2)
        QTimer::singleShot(atoi(argv[2]) * 1000, &application, &QCoreApplication::quit);
    return QApplication::exec();
}

#include "host/pluginloader.h"

#include "common/platform.h"
#include "host/hostbus.h"
#include "hostapi/plugininterface.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>

namespace {

struct PluginLoader
{
    Q_DECLARE_TR_FUNCTIONS(PluginLoader)
};

QString moduleFileName()
{
    return Platform::libraryFileName(QStringLiteral("FriendUI"));
}

// Before the code is loaded: a foreign library is refused by its metadata.
QString problemOf(const QPluginLoader &loader, const QString &file)
{
    if (!QFileInfo(file).isFile())
        return PluginLoader::tr("The file does not exist.");
    const QString identifier = loader.metaData().value(QStringLiteral("IID")).toString();
    if (identifier.isEmpty())
        return PluginLoader::tr("The file is no Qt plug-in.");
    if (identifier != QLatin1String(FRIENDUI_PLUGIN_INTERFACE_ID)) {
        return PluginLoader::tr("The plug-in implements another interface: %1.").arg(identifier);
    }
    return QString();
}

} // namespace

QString defaultPluginFile()
{
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const char *place : {".", "plugins", "../lib", "../lib/friendui"}) {
        const QString file = QDir::cleanPath(
            folder.filePath(QLatin1String(place) + QLatin1Char('/') + moduleFileName()));
        if (QFileInfo::exists(file))
            return file;
    }
    return folder.filePath(moduleFileName());
}

LoadedPlugin loadPlugin(const QString &file, ApplicationContext *context, HostBus *bus)
{
    LoadedPlugin result;
    result.file = QFileInfo(file).absoluteFilePath();
    QPluginLoader loader(result.file);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    result.problem = problemOf(loader, result.file);
    if (!result.problem.isEmpty())
        return result;
    QObject *root = loader.instance();
    if (!root) {
        result.problem = loader.errorString();
        return result;
    }
    auto *plugin = qobject_cast<PluginInterface *>(root);
    if (!plugin) {
        result.problem = PluginLoader::tr("The plug-in's root object lacks the interface.");
        return result;
    }
    plugin->setApplicationContext(context);
    plugin->setHostReceiver(bus);
    bus->setPlugin(plugin->getEventReceiver(), plugin->getPluginId());
    result.plugin = plugin;
    return result;
}

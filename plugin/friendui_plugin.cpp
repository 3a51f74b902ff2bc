#include "plugin/friendui_plugin.h"

#include "common/context.h"
#include "common/usersettings.h"
#include "contacts/assembly.h"
#include "hostapi/eventcodes.h"
#include "plugin/frienduimessageprocess.h"
#include "plugin/frienduisignalsender.h"

FriendUIPlugin::FriendUIPlugin()
{
    assemblePane();
}

FriendUIPlugin::~FriendUIPlugin() = default;

QString FriendUIPlugin::getPluginName()
{
    return QStringLiteral("FriendUIPlugin");
}

QWidget *FriendUIPlugin::getMainWidget(QWidget *)
{
    return FriendUIMessageProcess::instance()->getFriendWidget();
}

QObject *FriendUIPlugin::getEventReceiver()
{
    return FriendUIMessageProcess::instance();
}

void FriendUIPlugin::setHostReceiver(QObject *receiver)
{
    FriendUIMessageProcess::instance()->setHostReceiver(receiver);
}

QString FriendUIPlugin::getPluginId()
{
    return QString::fromLatin1(PluginId::FriendUi);
}

bool FriendUIPlugin::acceptsRequest(quintptr, quintptr, quintptr)
{
    return true;
}

bool FriendUIPlugin::acceptsNotice(quintptr, quintptr, quintptr)
{
    return true;
}

QVariantList FriendUIPlugin::exportedItems(quintptr, quintptr)
{
    return {};
}

void FriendUIPlugin::setApplicationContext(ApplicationContext *context)
{
    setHostContext(context);
    reloadUserSettings();
    static const QMetaObject::Connection atLogin = [] {
        const FriendUISignalSender *hub = FriendUISignalSender::instance();
        return QObject::connect(hub, &FriendUISignalSender::signal_login, hub, &reloadUserSettings);
    }();
    Q_UNUSED(atLogin)
}

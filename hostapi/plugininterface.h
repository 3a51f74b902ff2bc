// What the host expects of a contacts-pane plug-in. The order of the virtual
// functions is part of the contract.
#pragma once

#include <QObject>
#include <QString>
#include <QVariantList>

class ApplicationContext;
class QWidget;

class PluginInterface
{
public:
    virtual ~PluginInterface() = default;

    virtual QString getPluginName() = 0;

    // The pane; made at the first call, the same widget until somebody destroys
    // it. The argument is ignored: whoever embeds the pane reparents it.
    virtual QWidget *getMainWidget(QWidget *parent) = 0;

    // The object to which the host sends its BaseEvents.
    virtual QObject *getEventReceiver() = 0;

    // The object that receives the plug-in's BaseEvents; not owned.
    virtual void setHostReceiver(QObject *receiver) = 0;

    // The plug-in's address on the event bus, braces included.
    virtual QString getPluginId() = 0;

    virtual bool acceptsRequest(quintptr, quintptr, quintptr) = 0;
    virtual bool acceptsNotice(quintptr, quintptr, quintptr) = 0;
    virtual QVariantList exportedItems(quintptr, quintptr) = 0;

    // Hands over the host's context once, before any other call; not owned, and
    // alive until the process ends.
    virtual void setApplicationContext(ApplicationContext *context) = 0;
};

#define FRIENDUI_PLUGIN_INTERFACE_ID "com.veltra.im.FriendUI/1.0"
Q_DECLARE_INTERFACE(PluginInterface, FRIENDUI_PLUGIN_INTERFACE_ID)

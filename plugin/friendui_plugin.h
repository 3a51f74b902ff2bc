// The plug-in object that the host loads. Every operation forwards to the
// message process or answers a constant.
#pragma once

#include "hostapi/plugininterface.h"

#include <QObject>

class FriendUIPlugin : public QObject, public PluginInterface
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID FRIENDUI_PLUGIN_INTERFACE_ID)
    Q_INTERFACES(PluginInterface)

public:
    FriendUIPlugin();
    ~FriendUIPlugin() override;

    QString getPluginName() override;
    QWidget *getMainWidget(QWidget *parent) override;
    QObject *getEventReceiver() override;
    void setHostReceiver(QObject *receiver) override;
    QString getPluginId() override;
    bool acceptsRequest(quintptr, quintptr, quintptr) override;
    bool acceptsNotice(quintptr, quintptr, quintptr) override;
    QVariantList exportedItems(quintptr, quintptr) override;
    void setApplicationContext(ApplicationContext *context) override;
};

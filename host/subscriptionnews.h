// Tells the plug-in which service numbers the user has come to have a subscription to, and
// which no longer, elsewhere than in this host's pane.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>

class HostBus;
class MessagingCore;
class ServiceCall;
class ServiceEvents;
struct ServiceReply;
class WebServices;

class SubscriptionNews : public QObject
{
    Q_OBJECT

public:
    struct Parts
    {
        const WebServices *services;
        ServiceEvents *events;
        const MessagingCore *core;
        HostBus *bus;
    };

    // None of the parts is owned; all outlive this object.
    explicit SubscriptionNews(const Parts &parts, QObject *parent = nullptr);

private:
    void load();
    void take(const ServiceReply &reply);

    Parts m_parts;
    QPointer<ServiceCall> m_request;
    QSet<QString> m_codes;  // subscribed to
    bool m_isKnown = false; // whether these were ever told
};

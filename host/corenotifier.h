// Turns what the messaging core reports into events for the plug-in.
#pragma once

#include <QObject>
#include <QTimer>

class HostBus;
class ApplicationContext;
class MessagingCore;

class CoreNotifier : public QObject
{
    Q_OBJECT

public:
    // None is owned; all outlive the notifier. The context has server settings,
    // with the connection flag that the plug-in reads while it handles an event.
    CoreNotifier(MessagingCore *core, HostBus *bus, ApplicationContext *context,
                 QObject *parent = nullptr);

    // Tells the plug-in that the user is logged in and delivers groups, contacts,
    // presence, rooms, channels and the messages that it has missed. Called once the
    // pane exists.
    void startSession();
    // The web services can be had from now on: what asked for them in vain asks again.
    void announceServices();

private:
    void forwardRoster();
    void forwardProfiles();
    void forwardRooms();
    void forwardChannels();
    void forwardMessages();
    void deliverBacklog();
    void announceConnection(bool connected);
    void announcePresence();

    MessagingCore *m_core;
    HostBus *m_bus;
    ApplicationContext *m_context;
    QTimer m_handled; // runs until the plug-in has stored what it was given
    bool m_started = false;
    bool m_contactsDue = false; // wanted, but the groups have not come yet
};

// Turns what the messaging core reports into events for the plug-in.
#pragma once

#include <QObject>

class CServerSettings;
class HostBus;
class MessagingCore;

class CoreNotifier : public QObject
{
    Q_OBJECT

public:
    // None is owned; all outlive the notifier. The settings carry the connection
    // flag that the plug-in reads while it handles an event.
    CoreNotifier(MessagingCore *core, HostBus *bus, CServerSettings *settings,
                 QObject *parent = nullptr);

    // Tells the plug-in that the user is logged in and delivers groups, contacts,
    // presence and rooms. Called once the pane exists.
    void startSession();

private:
    void forwardRoster();
    void forwardProfiles();
    void forwardRooms();
    void announceConnection(bool connected);
    void announcePresence();

    MessagingCore *m_core;
    HostBus *m_bus;
    CServerSettings *m_settings;
    bool m_contactsDue = false; // wanted, but the groups have not come yet
};

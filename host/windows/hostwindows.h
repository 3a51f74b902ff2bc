// Answers the plug-in's requests that concern the user interface: chats, pickers,
// history, and notes for what this host does not have. Lists the people who ask to
// become contacts among the notices.
#pragma once

#include "host/hostactions.h"
#include "hostapi/roomrecords.h"
#include "hostapi/rosterrecords.h"

#include <QObject>
#include <QSet>

#include <functional>

class ChatArea;
class FileTransfers;
class HostBus;
class HostContext;
class MessagingCore;
class Notices;
class QWidget;

class HostWindows : public QObject, public HostActions
{
    Q_OBJECT

public:
    // None is owned; all outlive this object. Windows get `parent` as theirs.
    HostWindows(MessagingCore *core, HostContext *context, HostBus *bus, ChatArea *chats,
                QWidget *parent);
    ~HostWindows() override;

    FileTransfers *transfers() const { return m_transfers; }
    Notices *notices() const { return m_notices; }

    void openChat(const QString &jid, qint32 kind) override;
    void sendFile(const QStringList &jids, qint32 kind) override;
    void openHistory(const QString &jid, qint32 kind) override;
    void createGroupChat(const QStringList &jids) override;
    void cancelTransfers(const QString &jid) override;
    void pinConversation(const QString &jid, bool top) override;
    void showPicture(const QString &jid, const QString &path) override;
    void openTopicPage(const QString &pluginId, const QString &jid) override;
    void pickTeamMembers(const QString &teamId, qint32 groupId,
                         const QStringList &presentIds) override;
    void manageRoom(const QString &roomJid) override;
    void writeMail(const QStringList &jids) override;

    // Of the own company, contact or not; `picked` gets the uid.
    void pickColleague(const QString &title, const std::function<void(QString)> &picked);

signals:
    // One line for the status bar.
    void note(const QString &text);

private:
    void connectRequests();
    QString nameOf(const QString &jid) const;
    QList<FriendData> colleagues() const;
    void startTransfers(const QStringList &jids, MessageData::Kind kind, const QStringList &files);
    QStringList peopleLines(const QStringList &jids) const;

    MessagingCore *m_core;
    HostContext *m_context;
    HostBus *m_bus;
    ChatArea *m_chats;
    QWidget *m_parent;
    Notices *m_notices;
    FileTransfers *m_transfers;
    QSet<QString> m_toAdd; // jids whose policy was asked for, to open the plug-in's window
};

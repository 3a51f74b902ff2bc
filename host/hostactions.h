// What the plug-in asks of the host beyond the messaging core: windows and
// pages. Whoever shows the user interface implements it.
#pragma once

#include <QString>
#include <QStringList>

class HostActions
{
public:
    virtual ~HostActions() = default;

    virtual void openChat(const QString &jid, qint32 kind) = 0;
    virtual void sendFile(const QStringList &jids, qint32 kind) = 0;
    virtual void openHistory(const QString &jid, qint32 kind) = 0;
    virtual void createGroupChat(const QStringList &jids) = 0;
    virtual void cancelTransfers(const QString &jid) = 0;
    virtual void pinConversation(const QString &jid, bool top) = 0;
    virtual void showPicture(const QString &jid, const QString &path) = 0;
    virtual void openTopicPage(const QString &pluginId, const QString &jid) = 0;
    virtual void pickTeamMembers(const QString &teamId, qint32 groupId,
                                 const QStringList &presentIds) = 0;
    virtual void manageRoom(const QString &roomJid) = 0;
    virtual void writeMail(const QStringList &jids) = 0;
};

// The user interface's part of the requests, recorded instead of shown.
#pragma once

#include "host/hostactions.h"

class FakeActions : public HostActions
{
    using Text = const QString &;

public:
    QStringList calls;

    void openChat(Text jid, qint32 kind) override { note("openChat", {jid, n(kind)}); }
    void sendFile(const QStringList &jids, qint32 kind) override
    {
        note("sendFile", jids + QStringList{n(kind)});
    }
    void openHistory(Text jid, qint32 kind) override { note("openHistory", {jid, n(kind)}); }
    void createGroupChat(const QStringList &jids) override { note("createGroupChat", jids); }
    void cancelTransfers(Text jid) override { note("cancelTransfers", {jid}); }
    void pinConversation(Text jid, bool top) override { note("pinConversation", {jid, n(top)}); }
    void showPicture(Text jid, Text path) override { note("showPicture", {jid, path}); }
    void openTopicPage(Text pluginId, Text jid) override { note("openTopicPage", {pluginId, jid}); }
    void pickTeamMembers(Text teamId, qint32 groupId, const QStringList &presentIds) override
    {
        note("pickTeamMembers", QStringList{teamId, n(groupId)} + presentIds);
    }
    void manageRoom(Text roomJid) override { note("manageRoom", {roomJid}); }
    void writeMail(const QStringList &jids) override { note("writeMail", jids); }

private:
    static QString n(int number) { return QString::number(number); }
    void note(const char *function, const QStringList &arguments)
    {
        calls.append(QStringLiteral("%1(%2)").arg(QLatin1String(function),
                                                  arguments.join(QLatin1String(", "))));
    }
};

// The user interface's part of the requests, recorded instead of shown.
#pragma once

#include "host/hostactions.h"

class FakeActions : public HostActions
{
public:
    QStringList calls;

    void openChat(const QString &jid, qint32 kind) override { note("openChat", {jid, n(kind)}); }
    void sendFile(const QStringList &jids, qint32 kind) override
    {
        note("sendFile", jids + QStringList{n(kind)});
    }
    void openHistory(const QString &jid, qint32 kind) override
    {
        note("openHistory", {jid, n(kind)});
    }
    void createGroupChat(const QStringList &jids) override { note("createGroupChat", jids); }
    void cancelTransfers(const QString &jid) override { note("cancelTransfers", {jid}); }
    void pinConversation(const QString &jid, bool top) override
    {
        note("pinConversation", {jid, n(top)});
    }
    void showPicture(const QString &jid, const QString &path) override
    {
        note("showPicture", {jid, path});
    }
    void openTopicPage(const QString &pluginId, const QString &jid) override
    {
        note("openTopicPage", {pluginId, jid});
    }
    void pickTeamMembers(const QString &teamId, qint32 groupId,
                         const QStringList &presentIds) override
    {
        note("pickTeamMembers", QStringList{teamId, n(groupId)} + presentIds);
    }
    void manageRoom(const QString &roomJid) override { note("manageRoom", {roomJid}); }
    void writeMail(const QStringList &jids) override { note("writeMail", jids); }
    void addExternalContact(const QString &jid, const QString &validation,
                            const QString &client) override
    {
        note("addExternalContact", {jid, validation, client});
    }
    void confirmExternalContact(const QString &jid, qint32 agree, const QString &client) override
    {
        note("confirmExternalContact", {jid, n(agree), client});
    }
    void blacklistExternalContact(const QString &jid) override
    {
        note("blacklistExternalContact", {jid});
    }

private:
    static QString n(int number) { return QString::number(number); }
    void note(const char *function, const QStringList &arguments)
    {
        calls.append(QStringLiteral("%1(%2)").arg(QLatin1String(function),
                                                  arguments.join(QLatin1String(", "))));
    }
};

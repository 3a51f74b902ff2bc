// A messaging core that records what is asked of it and answers nothing by itself.
#pragma once

#include "host/messagingcore.h"

#include <QHash>

class FakeCore : public MessagingCore
{
public:
    QStringList calls; // "createGroup(Team, true)"
    QList<FriendData> people;
    QHash<QString, QList<MessageData>> history;
    QMap<QString, PresenceData> reachable;
    bool connected = true;

    QString ownUid() const override { return QStringLiteral("u0"); }
    QString serverDomain() const override { return QStringLiteral("corp.example"); }
    QString companyCode() const override { return QStringLiteral("C1"); }
    bool isConnected() const override { return connected; }

    QList<GroupData> groups(bool) const override { return {}; }
    QList<FriendData> contacts() const override { return people; }
    bool contact(const QString &jid, FriendData *out) const override
    {
        for (const FriendData &person : people) {
            if (person.jid == jid) {
                *out = person;
                return true;
            }
        }
        return false;
    }
    PresenceData presence(const QString &jid) const override { return reachable.value(jid); }
    QMap<QString, PresenceData> allPresence() const override { return reachable; }
    bool cooperates(const QString &, bool *) const override { return false; }
    bool profile(const QString &, VcardInfo *) const override { return false; }
    QList<MucData> rooms() const override { return {}; }
    bool room(const QString &, MucData *) const override { return false; }
    QList<MucMemberData> roomMembers(const QString &) const override { return {}; }
    int roomRole(const QString &) const override { return 0; }
    QList<MessageData> messages(const QString &jid, int limit) const override
    {
        return history.value(jid).mid(qMax(0, history.value(jid).size() - limit));
    }

    void setConnected(bool on) override
    {
        connected = on;
        emit connectionChanged(on);
    }
    void setOwnPresence(const PresenceData &presence) override
    {
        note("setOwnPresence", QString::number(presence.pcShow));
    }
    void requestGroups(bool inner) override { note("requestGroups", inner); }
    void requestContacts() override { note("requestContacts"); }
    void createGroup(const QString &name, bool inner) override { note("createGroup", name, inner); }
    void renameGroup(const QString &groupId, const QString &name, bool inner) override
    {
        note("renameGroup", groupId, name, inner);
    }
    void deleteGroup(const QString &groupId, bool inner) override
    {
        note("deleteGroup", groupId, inner);
    }
    void moveContact(const QString &jid, const QString &from, const QString &to,
                     bool inner) override
    {
        note("moveContact", jid, from, to, inner);
    }
    void removeContact(const QString &jid, bool inner) override
    {
        note("removeContact", jid, inner);
    }
    void setRemark(const QString &jid, const QString &remark) override
    {
        note("setRemark", jid, remark);
    }
    void requestPolicy(const QString &jid) override { note("requestPolicy", jid); }
    void addContact(const QString &jid, const QString &validation, const QString &groupId,
                    const QString &remark) override
    {
        note("addContact", jid, validation, groupId, remark);
    }
    void addContacts(const QStringList &uids, const QString &groupId) override
    {
        note("addContacts", uids.join(QLatin1Char('+')), groupId);
    }
    void requestProfile(const QString &jid, bool full) override
    {
        note("requestProfile", jid, full);
    }
    void storeOwnProfile(const VcardInfo &profile) override
    {
        note("storeOwnProfile", profile.leaderName);
    }
    void createRoom(const QStringList &jids, const QString &subject) override
    {
        note("createRoom", jids.join(QLatin1Char('+')), subject);
    }
    void renameRoom(const QString &roomJid, const QString &subject) override
    {
        note("renameRoom", roomJid, subject);
    }
    void quitRoom(const QString &roomJid) override { note("quitRoom", roomJid); }
    void dismissRoom(const QString &roomJid) override { note("dismissRoom", roomJid); }
    void classifyRoom(const QString &roomJid, MucData::MucClassify classify) override
    {
        note("classifyRoom", roomJid, QString::number(classify));
    }
    void sendMessage(const QString &jid, MessageData::Kind kind, const QString &body) override
    {
        note("sendMessage", jid, QString::number(kind), body);
    }

private:
    static QString text(const QString &value) { return value; }
    static QString text(bool value) { return QString::fromLatin1(value ? "true" : "false"); }
    template <class... Args> void note(const char *function, const Args &...args)
    {
        calls.append(QStringLiteral("%1(%2)").arg(
            QLatin1String(function), QStringList{text(args)...}.join(QLatin1String(", "))));
    }
};

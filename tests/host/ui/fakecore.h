// A messaging core that records what is asked of it and answers nothing by itself.
#pragma once

#include "host/messagingcore.h"

#include <QHash>

class FakeCore : public MessagingCore
{
    using Text = const QString &;

public:
    QStringList calls; // "createGroup(Team)"
    QList<FriendData> people;
    QHash<QString, QList<MessageData>> history;
    QMap<QString, PresenceData> reachable;
    QHash<QString, CServiceNumData> numbers; // by jid
    Backlog missed;
    QList<MucData> groupChats;
    QList<MucMemberData> members; // of every room
    int ownRole = 0;
    bool connected = true;

    QString ownUid() const override { return QStringLiteral("u0"); }
    QString serverDomain() const override { return QStringLiteral("corp.example"); }
    QString companyCode() const override { return QStringLiteral("C1"); }
    bool isConnected() const override { return connected; }

    QList<GroupData> groups(bool) const override { return {}; }
    QList<FriendData> contacts() const override { return people; }
    bool contact(Text jid, FriendData *out) const override
    {
        for (const FriendData &person : people) {
            if (person.jid == jid) {
                *out = person;
                return true;
            }
        }
        return false;
    }
    PresenceData presence(Text jid) const override { return reachable.value(jid); }
    QMap<QString, PresenceData> allPresence() const override { return reachable; }
    bool cooperates(const QString &, bool *) const override { return false; }
    bool profile(const QString &, VcardInfo *) const override { return false; }
    QList<MucData> rooms() const override { return groupChats; }
    bool room(Text jid, MucData *out) const override
    {
        for (const MucData &room : groupChats) {
            if (room.roomJid == jid) {
                *out = room;
                return true;
            }
        }
        return false;
    }
    QList<MucMemberData> roomMembers(const QString &) const override { return members; }
    int roomRole(const QString &) const override { return ownRole; }
    QList<CSChannelData> channels() const override { return {}; }
    bool channel(const QString &, CSChannelData *) const override { return false; }
    bool serviceNumber(Text jid, CServiceNumData *out) const override
    {
        *out = numbers.value(jid);
        return numbers.contains(jid);
    }
    QString productTeamJid() const override { return QString(); }
    Backlog backlog() const override { return missed; }
    void clearBacklog() override { note("clearBacklog"); }
    QList<MessageData> messages(Text jid, int limit) const override
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
    void createGroup(Text name) override { note("createGroup", name); }
    void renameGroup(Text group, Text name) override { note("renameGroup", group, name); }
    void deleteGroup(Text group) override { note("deleteGroup", group); }
    void moveContact(Text jid, Text from, Text to) override { note("moveContact", jid, from, to); }
    void removeContact(Text jid) override { note("removeContact", jid); }
    void setRemark(Text jid, Text remark) override { note("setRemark", jid, remark); }
    void requestPolicy(Text jid) override { note("requestPolicy", jid); }
    void addContact(Text jid, Text validation, Text group, Text remark) override
    {
        note("addContact", jid, validation, group, remark);
    }
    void addContacts(const QStringList &uids, Text group) override
    {
        note("addContacts", uids.join(QLatin1Char('+')), group);
    }
    void requestProfile(Text jid, bool full) override { note("requestProfile", jid, full); }
    void storeOwnProfile(const VcardInfo &profile) override
    {
        note("storeOwnProfile", profile.leaderName);
    }
    bool keepExternal(const QList<GroupData> &, const QList<FriendData> &) override
    {
        return false;
    }
    bool keepPicture(Text jid, Text photoName, Text file) override
    {
        note("keepPicture", jid, photoName, file);
        return true;
    }
    void createRoom(const QStringList &jids, Text subject) override
    {
        note("createRoom", jids.join(QLatin1Char('+')), subject);
    }
    void renameRoom(Text room, Text subject) override { note("renameRoom", room, subject); }
    void quitRoom(Text room) override { note("quitRoom", room); }
    void dismissRoom(Text room) override { note("dismissRoom", room); }
    void classifyRoom(Text room, MucData::MucClassify classify) override
    {
        note("classifyRoom", room, QString::number(classify));
    }
    void addRoomMembers(Text room, const QStringList &jids) override
    {
        note("addRoomMembers", room, jids.join(QLatin1Char('+')));
    }
    void removeRoomMember(Text room, Text jid) override { note("removeRoomMember", room, jid); }
    void setRoomManager(Text room, Text jid, bool manager) override
    {
        note("setRoomManager", room, jid, manager);
    }
    void handOverRoom(Text room, Text jid) override { note("handOverRoom", room, jid); }
    void sendMessage(Text jid, MessageData::Kind kind, Text body) override
    {
        note("sendMessage", jid, QString::number(kind), body);
    }

private:
    static QString text(Text value) { return value; }
    static QString text(bool value) { return QString::fromLatin1(value ? "true" : "false"); }
    template <class... Args> void note(const char *function, const Args &...args)
    {
        calls.append(QStringLiteral("%1(%2)").arg(
            QLatin1String(function), QStringList{text(args)...}.join(QLatin1String(", "))));
    }
};

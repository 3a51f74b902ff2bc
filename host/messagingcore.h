// What the reference host needs of a messaging server: roster, groups, presence,
// profiles, rooms, channels, messages. The host's event bus talks only to this class, so
// that a client of a real server can take the embedded core's place.
//
// Reads answer from what is known locally. Requests return at once and are
// answered by a signal, never inside the call; a request that fails answers with
// its success flag false, with the failure signal named beside it, or else with
// requestFailed. Records and jids are those of hostapi. GUI thread only.
#pragma once

#include "hostapi/hostrecords.h"

#include <QMap>
#include <QObject>
#include <QStringList>

class MessagingCore : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // --- Identity -----------------------------------------------------------
    virtual QString ownUid() const = 0;
    virtual QString serverDomain() const = 0;
    virtual QString companyCode() const = 0;
    virtual bool isConnected() const = 0;
    QString ownJid() const { return ownUid() + QLatin1Char('@') + serverDomain(); }

    // --- Reads --------------------------------------------------------------
    virtual QList<GroupData> groups(bool inner) const = 0;
    virtual QList<FriendData> contacts() const = 0; // inner and external
    virtual bool contact(const QString &jid, FriendData *out) const = 0;
    virtual PresenceData presence(const QString &jid) const = 0;
    virtual QMap<QString, PresenceData> allPresence() const = 0; // only who is online
    virtual bool cooperates(const QString &jid, bool *value) const = 0;
    virtual bool profile(const QString &jid, VcardInfo *out) const = 0;
    virtual QList<MucData> rooms() const = 0;
    virtual bool room(const QString &jid, MucData *out) const = 0;
    virtual QList<MucMemberData> roomMembers(const QString &jid) const = 0;
    virtual int roomRole(const QString &jid) const = 0; // 0 member, 1 manager, 2 owner
    virtual QList<CSChannelData> channels() const = 0;
    virtual bool channel(const QString &id, CSChannelData *out) const = 0;
    virtual bool serviceNumber(const QString &jid, CServiceNumData *out) const = 0;
    virtual QString productTeamJid() const = 0; // also a channel; empty: there is none
    // The newest `limit` messages of a conversation, oldest first.
    virtual QList<MessageData> messages(const QString &jid, int limit) const = 0;

    // What a client has missed: messages that came while none took them, or before
    // its first log-in. A message can come again when the client ended in between.
    struct Backlog
    {
        QList<MessageData> messages; // oldest first
        QStringList readSessions;    // conversations whose messages were read elsewhere
    };
    virtual Backlog backlog() const = 0;
    // A client has taken in everything that there is up to now.
    virtual void clearBacklog() = 0;

    // --- Requests: session --------------------------------------------------
    virtual void setConnected(bool connected) = 0;                 // connectionChanged
    virtual void setOwnPresence(const PresenceData &presence) = 0; // ownPresenceChanged

    // --- Requests: roster ---------------------------------------------------
    virtual void requestGroups(bool inner) = 0; // groupsReceived or groupsFailed
    virtual void requestContacts() = 0;         // contactsReceived
    // Groups and contacts of the own company; those of others are the services'.
    virtual void createGroup(const QString &name) = 0;
    virtual void renameGroup(const QString &groupId, const QString &name) = 0;
    virtual void deleteGroup(const QString &groupId) = 0; // contacts are kept
    virtual void moveContact(const QString &jid, const QString &oldGroupId,
                             const QString &newGroupId) = 0;
    virtual void removeContact(const QString &jid) = 0;
    virtual void setRemark(const QString &jid, const QString &remark) = 0;
    virtual void requestPolicy(const QString &jid) = 0;
    virtual void addContact(const QString &jid, const QString &validation, const QString &groupId,
                            const QString &remark) = 0; // requestAnswered or additionFailed
    virtual void addContacts(const QStringList &uids, const QString &groupId) = 0;
    virtual void requestProfile(const QString &jid, bool full) = 0; // or profileFailed
    virtual void storeOwnProfile(const VcardInfo &profile) = 0;

    // --- What the web services say ------------------------------------------
    // The external groups and contacts as they are now, the default group with id "".
    // They are kept; what differs from before is told by the signals of the single
    // changes. A remark that is null stays as it is. False: nothing differs, or it could
    // not be stored.
    virtual bool keepExternal(const QList<GroupData> &groups,
                              const QList<FriendData> &contacts) = 0;
    // Of anybody with a profile: the name of the picture, and the local file with it,
    // empty for none. False when nothing is known of that person.
    virtual bool keepPicture(const QString &jid, const QString &photoName, const QString &file) = 0;

    // --- Requests: rooms and messages ---------------------------------------
    virtual void createRoom(const QStringList &jids, const QString &subject) = 0;
    virtual void renameRoom(const QString &roomJid, const QString &subject) = 0;
    virtual void quitRoom(const QString &roomJid) = 0;
    virtual void dismissRoom(const QString &roomJid) = 0;
    virtual void classifyRoom(const QString &roomJid, MucData::MucClassify classify) = 0;
    // Whoever belongs to a room adds people; the owner hands the room over, makes and
    // unmakes managers; owner and managers put out those of a lower role.
    virtual void addRoomMembers(const QString &roomJid, const QStringList &jids) = 0;
    virtual void removeRoomMember(const QString &roomJid, const QString &jid) = 0;
    virtual void setRoomManager(const QString &roomJid, const QString &jid, bool manager) = 0;
    virtual void handOverRoom(const QString &roomJid, const QString &jid) = 0;
    virtual void sendMessage(const QString &jid, MessageData::Kind kind, const QString &body) = 0;

signals:
    void connectionChanged(bool connected);
    void ownPresenceChanged();
    // A request without a failure answer of its own; `request` is its function's
    // name, `jid` what it was about, empty for none.
    void requestFailed(const QString &request, const QString &jid);

    void groupsReceived(const QList<GroupData> &groups, bool inner);
    void groupsFailed(bool inner);
    void contactsReceived(const QList<FriendData> &contacts);
    void groupCreated(const QString &groupId, const QString &name, bool success, bool inner);
    void groupRenamed(const QString &groupId, const QString &name, bool success, bool inner);
    void groupDeleted(const QString &groupId, bool success, bool inner);
    void contactMoved(bool success, const QString &jid, const QString &oldGroupId,
                      const QString &newGroupId, bool inner);
    void contactAdded(const QString &jid);
    void contactRemoved(const QString &jid, bool inner);
    void contactRemovalFailed(const QString &jid, bool inner);
    void remarkChanged(const QString &jid, const QString &remark);
    void presenceChanged(const QMap<QString, PresenceData> &presence);
    void policyReceived(const QString &jid, const QString &config, const QString &displayName);
    void contactRequested(const QString &jid, const QString &text, const QString &time);
    void requestAnswered(const QString &jid, bool added, const QString &time);
    // Besides requestAnswered, when the person gave a reason.
    void requestRefused(const QString &jid, const QString &reason);
    void additionFailed(const QString &jid);
    void batchAdditionFailed(const QStringList &uids);
    void profileReceived(const QString &jid, const VcardInfo &profile, bool full);
    void profileFailed(const QString &jid);
    void ownProfileStored();

    void roomAdded(const MucData &room);
    void roomRenamed(const QString &roomJid, const QString &subject, const QString &modifier);
    void roomLeft(const QString &roomJid);
    void roomDismissed(const QString &roomJid);
    void roomClassified(const QString &roomJid, int classify);
    // Who belongs to it, or their roles.
    void roomMembersChanged(const QString &roomJid);
    void roomMuted(const QString &roomJid, bool forbidden);
    void roomHeadChanged(const QString &roomJid, const QString &imagePath);
    // A room that was not listed has become a local one; `source` tells why, as
    // "auto_save" for a message that came in it.
    void localRoomAdded(const QString &roomJid, const QString &source);
    void channelAdded(const CSChannelData &channel);
    void channelRemoved(const QString &channelId);
    void channelHeadChanged(const QString &channelId);
    void messageReceived(bool received, const MessageData &message);
};

// The requests that the plug-in makes of the host, one function each.
#pragma once

#include "hostapi/eventcodes.h"
#include "hostapi/hostrecords.h"

#include <QDataStream>
#include <QObject>
#include <QString>
#include <QStringList>

#include <type_traits>

// Every request is sent at once, inside the call. No request waits for an answer:
// answers come as events of their own, possibly before the call returns, so a
// request is the last statement of whoever makes it. Without a host receiver a
// request is logged and dropped. GUI thread only.
//
// An inner flag tells the roster's contacts (true) from the external contacts.
class FriendUIEventProcess : public QObject
{
    Q_OBJECT

public:
    // Streams the arguments in order and sends them to the code's receiver.
    // False, with a line in the log, when the code is not one of Outbound.
    template <class... Args> static bool request(Outbound::Code code, const Args &...args)
    {
        static_assert((... && !std::is_pointer_v<std::decay_t<Args>>),
                      "a literal would be streamed as bytes: pass a QString");
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        (void)(out << ... << args);
        return send(code, payload);
    }

    // --- Groups and contacts --------------------------------------------------
    static void refreshGroups(bool inner);
    static void createGroup(const QString &name, bool inner);
    static void deleteGroup(const QString &groupId, bool inner);
    static void renameGroup(const QString &groupId, const QString &newName, bool inner);
    static void moveContact(const QString &jid, const QString &oldGroupId,
                            const QString &newGroupId, bool inner);
    static void deleteContact(const QString &jid, bool inner);
    static void setRemark(const QString &jid, const QString &remark); // empty takes it away
    // validation: the text shown to the other side; groupId: where to file the
    // person; mode: how the person takes requests, as told by the request policy.
    static void addContact(const QString &jid, const QString &validation, const QString &groupId,
                           const QString &remark, int mode);
    static void requestPolicy(const QString &jid);
    static void addContacts(const QStringList &uids, const QString &groupId);

    // --- Profiles -------------------------------------------------------------
    static void requestProfile(const QString &jid, bool full);
    static void storeOwnProfile(const VcardInfo &profile);

    // --- External contacts ----------------------------------------------------
    // By name, account or mobile number; signal_SearchFriendRecv() answers.
    static void searchExternalPeople(const QString &key);
    static void addExternalContact(const QString &jid, const QString &validation);
    static void confirmExternalContact(const QString &jid, bool agree);
    static void blacklistExternalContact(const QString &jid);

    // --- Conversations --------------------------------------------------------
    // kind: MessageData::Person, Room, ServiceNumber or Channel. Opening a chat also
    // tells the lists, by signal_paintDelegateMsgCount, that nothing is unread there.
    static void openChat(const QString &jid, MessageData::Kind kind);
    static void sendFile(const QStringList &jids, MessageData::Kind kind);
    static void openHistory(const QString &jid, MessageData::Kind kind);
    static void createGroupChat(const QStringList &jids); // empty: just the dialog
    static void cancelTransfers(const QString &jid);
    // Also tells the lists, by signal_latestSessionReceived, to ask for the pins again.
    static void pinConversation(const QString &jid, bool top);
    static void showPicture(const QString &jid, const QString &path); // path: a local file
    static void openTopicPage(const QString &jid);
    static void writeMail(const QStringList &jids);

    // --- Rooms ----------------------------------------------------------------
    static void renameRoom(const QString &roomJid, const QString &subject);
    static void quitRoom(const QString &roomJid);
    static void dismissRoom(const QString &roomJid);
    static void manageRoom(const QString &roomJid);
    static void classifyRoom(const QString &roomJid, MucData::MucClassify classify);

    // --- Organisation and teams -----------------------------------------------
    // A broadcast that comes back to this plug-in: never send it from the handler
    // of signal_position_orgstruct. id: a uid, or a department id with
    // isOrganisation.
    static void locateInOrganisation(const QString &id, bool isOrganisation);
    // Opens the host's member picker; groupId 0 = the team itself. The people
    // picked arrive as signal_addMembersToVirtualTeam.
    static void pickTeamMembers(const QString &teamId, int groupId, const QStringList &presentIds);

private:
    static bool send(qint32 code, const QByteArray &payload);
};

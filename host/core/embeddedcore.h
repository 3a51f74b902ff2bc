// A messaging core without a server: the sample company's people answer. What the
// user changes is kept in one SQLite file, so that a restart shows it. So are the
// external contacts, as the web services said last.
//
// Every request is answered by a signal after answerDelay(), in the order of the
// requests. For tests and demonstrations each operation can be told to fail or to
// stay silent; while disconnected every request fails.
//
// Rules for names and ids: a group name is trimmed, not empty and unique among the
// groups; "我的好友" (the default group, id "") and
// "常用联系人" can neither be renamed nor deleted; unknown ids fail. "0" names the
// default group as well.
#pragma once

#include "host/messagingcore.h"
#include "sample/sampleroster.h"

#include <QHash>
#include <QQueue>
#include <QScopedPointer>
#include <QSet>
#include <QVector>

#include <functional>

class ChannelBook;
class CoreStore;
struct ExternalChange;
class MessageBook;
class RoomBook;
class RosterBook;

class EmbeddedCore : public MessagingCore
{
    Q_OBJECT

public:
    enum Operation
    {
        RequestGroups,
        RequestContacts,
        CreateGroup,
        RenameGroup,
        DeleteGroup,
        MoveContact,
        RemoveContact,
        SetRemark,
        RequestPolicy,
        AddContact,
        AddContacts,
        RequestProfile,
        StoreOwnProfile,
        CreateRoom,
        RenameRoom,
        QuitRoom,
        DismissRoom,
        ClassifyRoom,
        AddRoomMembers,
        RemoveRoomMember,
        SetRoomManager,
        HandOverRoom,
        SendMessage
    };
    Q_ENUM(Operation)
    static constexpr int OperationCount = SendMessage + 1;

    struct Options
    {
        QString folder; // of the database file; created when missing
        int people = SampleCompany::DefaultPeople;
        quint64 seed = SampleCompany::DefaultSeed;
        QString user = SampleCompany::uid(0); // whose core it is: a uid that the sample knows
        // False: the friend tree is left to an import. Such a roster has a file of
        // its own, so that the sample company's one is not lost.
        bool sampleFriends = true;
    };

    explicit EmbeddedCore(const Options &options, QObject *parent = nullptr);
    ~EmbeddedCore() override;

    // Opens the file, or makes and seeds it. False with *problem set when that is
    // impossible (folder not writable, file made by a newer version). Nothing else
    // may be called before it has returned true.
    bool open(QString *problem);
    // What the user should know about opening, such as where a damaged file was
    // set aside; empty when there is nothing.
    QString notice() const;
    QString databaseFile() const;
    const SampleCompany &company() const { return m_company; }
    const SampleRoster &sample() const { return m_sample; }

    // --- Levers ---------------------------------------------------------------
    void setAnswerDelay(int milliseconds);       // 30 at first; 0: the next turn of the event loop
    void setConfirmationDelay(int milliseconds); // of people who ask first; 3,000 at first
    // What people who ask first answer: with a reason they refuse, as long as it is
    // set; empty: they accept.
    void setRefusal(const QString &reason) { m_refusal = reason; }
    void setFailing(Operation operation, bool failing);
    void setSilent(Operation operation, bool silent); // never answers, changes nothing
    void setAllFailing(bool failing);
    void setAllSilent(bool silent);
    bool isFailing(Operation operation) const { return m_failing.contains(operation); }
    bool isSilent(Operation operation) const { return m_silent.contains(operation); }

    // --- What others do -------------------------------------------------------
    // Emits presenceChanged once for the whole batch. Unknown jids are skipped.
    void applyPresence(const QMap<QString, PresenceData> &presence);
    // A message from a contact, from a member in a room, or from a channel or service
    // number, which is then its sender as well. In a room that is not listed: first
    // localRoomAdded.
    void receiveMessage(const QString &fromJid, const QString &sessionJid, const QString &body);
    struct Incoming
    {
        QString fromJid, sessionJid, body;
    };
    // Stored together, then reported one by one.
    void receiveMessages(const QList<Incoming> &messages);
    // Somebody asks to become a contact: contactRequested.
    void receiveContactRequest(const QString &jid, const QString &text);

    // In a room, by one who may; false when nobody may or the room is unknown.
    bool renameByOthers(const QString &roomJid, const QString &subject);
    bool addMemberByOthers(const QString &roomJid, const QString &jid);
    bool setRoomForbidden(const QString &roomJid, bool forbidden);
    bool setRoomHead(const QString &roomJid, const QString &imagePath);
    bool removeFromRoom(const QString &roomJid); // the own user is out
    // A room that is not listed until something is written there; empty: not made.
    QString makeRoomOfOthers(const QString &subject, const QStringList &jids);

    bool removeChannel(const QString &id);
    QString restoreChannel(); // one that was removed; its id, empty: there is none
    bool setChannelPicture(const QString &id, const QString &photoName);

    // For an importer: everything goes in or nothing does; then groupsReceived and
    // contactsReceived tell the new state. False when the file refuses.
    struct ImportedContact
    {
        FriendData contact; // groupId is ignored
        VcardInfo profile;
        QString group; // by name, created when missing; empty: the default group
    };
    struct ImportCounts
    {
        int added = 0;
        int updated = 0;
        int unchanged = 0;
    };
    bool importContacts(const QList<ImportedContact> &contacts, ImportCounts *counts);

    // --- MessagingCore --------------------------------------------------------
    QString ownUid() const override;
    QString serverDomain() const override;
    QString companyCode() const override;
    bool isConnected() const override { return m_connected; }

    QList<GroupData> groups(bool inner) const override;
    QList<FriendData> contacts() const override;
    bool contact(const QString &jid, FriendData *out) const override;
    PresenceData presence(const QString &jid) const override;
    QMap<QString, PresenceData> allPresence() const override;
    bool cooperates(const QString &jid, bool *value) const override;
    bool profile(const QString &jid, VcardInfo *out) const override;
    QList<MucData> rooms() const override;
    bool room(const QString &jid, MucData *out) const override;
    QList<MucMemberData> roomMembers(const QString &jid) const override;
    int roomRole(const QString &jid) const override;
    QList<CSChannelData> channels() const override;
    bool channel(const QString &id, CSChannelData *out) const override;
    bool serviceNumber(const QString &jid, CServiceNumData *out) const override;
    QString productTeamJid() const override;
    QList<MessageData> messages(const QString &jid, int limit) const override;
    Backlog backlog() const override;
    void clearBacklog() override;

    void setConnected(bool connected) override;
    void setOwnPresence(const PresenceData &presence) override;

    void requestGroups(bool inner) override;
    void requestContacts() override;
    void createGroup(const QString &name) override;
    void renameGroup(const QString &groupId, const QString &name) override;
    void deleteGroup(const QString &groupId) override;
    void moveContact(const QString &jid, const QString &oldGroupId,
                     const QString &newGroupId) override;
    void removeContact(const QString &jid) override;
    void setRemark(const QString &jid, const QString &remark) override;
    void requestPolicy(const QString &jid) override;
    void addContact(const QString &jid, const QString &validation, const QString &groupId,
                    const QString &remark) override;
    void addContacts(const QStringList &uids, const QString &groupId) override;
    void requestProfile(const QString &jid, bool full) override;
    void storeOwnProfile(const VcardInfo &profile) override;
    bool keepExternal(const QList<GroupData> &groups, const QList<FriendData> &contacts) override;
    bool keepPicture(const QString &jid, const QString &photoName, const QString &file) override;

    void createRoom(const QStringList &jids, const QString &subject) override;
    void renameRoom(const QString &roomJid, const QString &subject) override;
    void quitRoom(const QString &roomJid) override;
    void dismissRoom(const QString &roomJid) override;
    void classifyRoom(const QString &roomJid, MucData::MucClassify classify) override;
    void addRoomMembers(const QString &roomJid, const QStringList &jids) override;
    void removeRoomMember(const QString &roomJid, const QString &jid) override;
    void setRoomManager(const QString &roomJid, const QString &jid, bool manager) override;
    void handOverRoom(const QString &roomJid, const QString &jid) override;
    void sendMessage(const QString &jid, MessageData::Kind kind, const QString &body) override;

private:
    // Calls `answer` after the delay, behind every earlier request's answer, and
    // tells it whether the operation may succeed.
    void later(Operation operation, std::function<void(bool)> answer);
    void enqueue(std::function<void()> work);
    // At once, or when there is a connection again.
    void whenConnected(std::function<void()> work);
    void seedPresence();
    PresenceData presenceAtStart(const FriendData &contact) const;
    QString fullJid(const QString &uidOrJid) const;
    SampleCompany::Policy policyOf(const QString &jid, bool *known) const;
    QString displayName(const QString &jid) const;
    bool addNow(const QString &jid, const QString &groupId, const QString &remark);
    void answerRequest(const QString &jid, const QString &groupId, const QString &remark);
    void confirmLater(const QString &jid, const QString &groupId, const QString &remark);
    void confirm(const QString &jid);
    void requestAccepted(const QString &jid, const QString &groupId, const QString &remark);
    void tellExternalChange(const ExternalChange &change);
    bool importOne(const ImportedContact &imported, ImportCounts *counts);
    QList<MucMemberData> membersOf(const QStringList &jids) const;
    void changeMembers(Operation operation, const QString &request, const QString &roomJid,
                       std::function<bool()> change);
    bool seedMessages();
    // With its kind, its receiver and the conversation's name.
    MessageData messageOf(const QString &session, const QString &from, const QString &body,
                          const QDateTime &time) const;
    void announce(const MessageData &message);

    Options m_options;
    SampleCompany m_company;
    SampleRoster m_sample;
    QScopedPointer<CoreStore> m_store;
    QScopedPointer<RosterBook> m_roster;
    QScopedPointer<RoomBook> m_rooms;
    QScopedPointer<MessageBook> m_messages;
    QScopedPointer<ChannelBook> m_channels;
    QMap<QString, PresenceData> m_presence; // only who is online
    bool m_connected = true;
    int m_answerDelay = 30;
    int m_confirmationDelay = 3000;
    struct Filing
    {
        QString groupId, remark;
    };
    QHash<QString, Filing> m_asked; // jids of people who have not answered yet
    QString m_refusal;
    QSet<int> m_failing, m_silent;
    QQueue<std::function<void()>> m_queue;          // answers to come
    QVector<std::function<void()>> m_whenConnected; // what others did in the meantime
};

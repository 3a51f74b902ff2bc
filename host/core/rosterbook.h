// The roster of the embedded core: groups, contacts and stored profiles, held in
// memory and written through to the CoreStore. A change that the file refuses is
// not made in memory either, and the function answers false.
#pragma once

#include "hostapi/rosterrecords.h"
#include "sample/sampleroster.h"

#include <QHash>
#include <QList>
#include <QStringList>

class CoreStore;

// What differs between two lists of external contacts.
struct ExternalChange
{
    struct Move
    {
        QString jid, from, to; // ids of groups
    };
    QList<GroupData> createdGroups, renamedGroups;
    QStringList deletedGroups;
    QStringList added, removed; // jids
    QList<FriendData> altered;  // otherwise than by a move or a remark
    QList<FriendData> remarked;
    QList<Move> moved;

    bool isEmpty() const;
};

class RosterBook
{
public:
    // Both must outlive the book.
    RosterBook(CoreStore *store, const SampleRoster *sample);

    // Reads everything; a new file is first filled with the own user and, when
    // asked for, the people whom the sample knows.
    bool load(bool sampleFriends);

    // The default group, id "", leads; the others in the order of their making.
    const QList<GroupData> &groups(bool inner) const { return table(inner).list; }
    const QList<FriendData> &contacts() const { return m_contacts; }
    const FriendData *find(const QString &jid) const; // null: not a contact
    bool hasGroup(const QString &id, bool inner) const { return table(inner).names.contains(id); }

    // Inner groups and contacts.
    bool createGroup(const QString &name, QString *id); // name: trimmed here
    // The inner group of that name, made when missing, whatever the name. The empty
    // name is the default group.
    bool ensureGroup(const QString &name, QString *id);
    bool renameGroup(const QString &id, const QString &name);
    bool deleteGroup(const QString &id); // its contacts go to the default group
    bool move(const QString &jid, const QString &oldGroup, const QString &newGroup);
    bool remove(const QString &jid, bool inner);
    bool setRemark(const QString &jid, const QString &remark);
    // All external groups and contacts, in the place of those before. The default group
    // is there in any case; inner contacts are left as they are.
    bool replaceExternal(const QList<GroupData> &groups, const QList<FriendData> &contacts,
                         ExternalChange *change);
    // Adds the contact, or replaces the one of that jid. Its group must exist.
    bool put(FriendData contact);

    // Stored, else from the sample company, else made of the contact's record.
    bool profile(const QString &jid, VcardInfo *out) const;
    bool putProfile(const VcardInfo &profile); // by its jid

    // A sample person's records, as they are before anybody changes them.
    FriendData contactOf(const SamplePerson &person) const;
    VcardInfo profileOf(const SamplePerson &person) const;

    // What an import last gave as the contact's category; null: never imported.
    QString importedCategory(const QString &jid) const;
    bool setImportedCategory(const QString &jid, const QString &category);

    static QString defaultGroupName();
    static QString frequentGroupName();
    static QString normalGroupId(const QString &id); // "0" is the default group

private:
    struct GroupTable
    {
        QList<GroupData> list;
        QHash<QString, QString> names; // id -> name
        QHash<QString, QString> ids;   // name -> id
        void append(const GroupData &group);
        void remove(const QString &id);
        void rename(const QString &id, const QString &name);
    };
    const GroupTable &table(bool inner) const { return inner ? m_inner : m_outer; }
    GroupTable &table(bool inner) { return inner ? m_inner : m_outer; }

    bool seed(bool sampleFriends);
    bool appendGroup(const QString &name, QString *id);
    bool insertGroup(const QString &id, const QString &name, bool inner);
    bool nameIsFree(const QString &name) const;
    bool isFixed(const QString &id) const;
    bool removeAbsent(const QList<FriendData> &contacts, ExternalChange *change);
    bool replaceGroups(const QList<GroupData> &groups, ExternalChange *change);
    void fillIn(FriendData *contact, const FriendData *known) const;
    bool replaceContact(FriendData contact, ExternalChange *change);
    QString groupName(const QString &id, bool inner) const { return table(inner).names.value(id); }
    bool write(const FriendData &contact);

    CoreStore *m_store;
    const SampleRoster *m_sample;
    GroupTable m_inner, m_outer;
    QList<FriendData> m_contacts;
    QHash<QString, int> m_rows; // jid -> index in m_contacts
    QHash<QString, VcardInfo> m_profiles;
};

// The group chats of the embedded core, held in memory and written through.
#pragma once

#include "hostapi/roomrecords.h"
#include "sample/sampleroster.h"

#include <QHash>
#include <QList>
#include <QMap>

class CoreStore;

class RoomBook
{
public:
    // Both must outlive the book.
    RoomBook(CoreStore *store, const SampleRoster *sample);

    // A new file is first filled with a few rooms of sample people, if asked for.
    bool load(bool sampleRooms);

    QList<MucData> rooms() const; // without those that are not listed
    bool room(const QString &jid, MucData *out) const;
    QList<MucMemberData> members(const QString &roomJid) const { return m_members.value(roomJid); }
    bool isMember(const QString &roomJid, const QString &jid) const;
    int role(const QString &roomJid, const QString &jid) const; // 0 for strangers too

    // The first member owns the room. False: fewer than two members, or not stored.
    bool create(const QString &subject, const QList<MucMemberData> &members, MucData *out);
    // These test what `jid` may do: an owner or manager renames, the owner dismisses,
    // everybody else quits.
    bool rename(const QString &roomJid, const QString &jid, const QString &subject);
    bool quit(const QString &roomJid, const QString &jid);
    bool dismiss(const QString &roomJid, const QString &jid);
    bool classify(const QString &roomJid, MucData::MucClassify classify);
    // So do these for `by`. Members that are there already are left out; false when
    // nothing changes.
    bool addMembers(const QString &roomJid, const QString &by, const QList<MucMemberData> &members);
    bool removeMember(const QString &roomJid, const QString &by, const QString &jid);
    bool setManager(const QString &roomJid, const QString &by, const QString &jid, bool manager);
    bool handOver(const QString &roomJid, const QString &by, const QString &jid);

    // What the server decides.
    bool setForbidden(const QString &roomJid, bool forbidden);
    bool setHead(const QString &roomJid, const QString &imagePath);
    bool setListed(const QString &roomJid, bool listed);
    bool forget(const QString &roomJid); // the user is out of it, or it is no more

    static QString roomDomain();

private:
    bool seed();
    bool write(const MucData &room, const QList<MucMemberData> &members);
    // Changes a copy and stores it; false when `change` is, or nothing was stored.
    template <class Change> bool edit(const QString &roomJid, Change change);

    CoreStore *m_store;
    const SampleRoster *m_sample;
    QMap<QString, MucData> m_rooms;
    QHash<QString, QList<MucMemberData>> m_members;
};

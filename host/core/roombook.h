// The group chats of the embedded core and every conversation's messages. Rooms
// are held in memory and written through; messages are read from the file.
#pragma once

#include "hostapi/roomrecords.h"
#include "sample/samplecompany.h"

#include <QHash>
#include <QList>
#include <QMap>

class CoreStore;

class RoomBook
{
public:
    // Both must outlive the book.
    RoomBook(CoreStore *store, const SampleCompany *company);

    // A new file is first filled with a few rooms of sample people, if asked for.
    bool load(bool sampleRooms);

    QList<MucData> rooms() const { return m_rooms.values(); }
    bool room(const QString &jid, MucData *out) const;
    QList<MucMemberData> members(const QString &roomJid) const { return m_members.value(roomJid); }
    int role(const QString &roomJid, const QString &jid) const; // 0 for strangers too

    // The first member owns the room. False: fewer than two members, or not stored.
    bool create(const QString &subject, const QList<MucMemberData> &members, MucData *out);
    // These test what `jid` may do: an owner or manager renames, the owner dismisses,
    // everybody else quits.
    bool rename(const QString &roomJid, const QString &jid, const QString &subject);
    bool quit(const QString &roomJid, const QString &jid);
    bool dismiss(const QString &roomJid, const QString &jid);
    bool classify(const QString &roomJid, MucData::MucClassify classify);

    bool addMessage(const MessageData &message);
    QList<MessageData> messages(const QString &sessionJid, int limit) const; // oldest first

    static QString roomDomain();

private:
    bool seed();
    bool write(const MucData &room, const QList<MucMemberData> &members);
    bool forget(const QString &roomJid);

    CoreStore *m_store;
    const SampleCompany *m_company;
    QMap<QString, MucData> m_rooms;
    QHash<QString, QList<MucMemberData>> m_members;
};

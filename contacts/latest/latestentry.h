// One conversation of the list of latest contacts: its stored row and what the host
// tells of the other side.
#pragma once

#include "hostapi/hostrecords.h"
#include "plugin/sharedrecords.h"

#include <QDateTime>

struct LatestEntry
{
    // A room has no signature: there the row keeps the name of who wrote last. The
    // application key also tells service numbers and channels from people.
    DBFriendData row;
    MessageData::Kind kind = MessageData::Person;
    qint64 order = 0; // timeOrder() of the row's time
    PresenceData presence;
    bool knowsPresence = false; // of contacts
    bool cooperates = false;
    bool outside = false;   // see isExternal()
    bool forbidden = false; // the user may not write in the room
    bool muted = false;
};

// The entry of a row as it was stored, completed by what the context knows today: the
// name, the picture, presence, the pin.
LatestEntry makeLatestEntry(const DBFriendData &row, const QDateTime &now);

// Takes over a time as stored.
void setLatestTime(LatestEntry *entry, const QString &stored, const QDateTime &now);

// The row of a message's conversation; without a jid the message belongs to none.
// `received`: by the user; else the user wrote it. Never more than the table takes.
DBFriendData latestRowOf(bool received, const MessageData &message, const QDateTime &now);

// Whether the user wrote it, if on another device.
bool isOwnMessage(const MessageData &message);

// A message body as the table takes it: of a longer one what its summary needs.
QString storableContent(const QString &body);

// A person's name for the list; `profile` may be newer than what the context knows.
// `otherwise` when neither a remark nor a profile has one.
QString latestPersonName(const QString &jid, const QString &otherwise,
                         const VcardInfo *profile = nullptr);

// The other side's picture file as the host knows it; empty when it knows none.
QString latestIcon(const QString &jid, MessageData::Kind kind);

// One line that tells the last message; in rooms after the name of who wrote it.
QString latestContentText(const LatestEntry &entry);

// Where opening the conversation leads; a channel is known by its own id.
MessageData::Kind latestKind(const DBFriendData &row);

// Item data of the list of latest contacts.
#pragma once

#include <Qt>

namespace LatestRole {
enum Role
{
    Name = Qt::UserRole + 1,     // a display text
    Id = Qt::UserRole + 2,       // jid
    Icon = Qt::UserRole + 3,     // local picture file, or empty
    Presence = Qt::UserRole + 4, // PresenceData::ePcShowType
    Content = Qt::UserRole + 5,  // one line that tells the last message
    Time = Qt::UserRole + 6,     // as stored
    TimeText = Qt::UserRole + 7, // as shown, computed when it is read
    Kind = Qt::UserRole + 24,    // MessageData::Kind
    Muted = Qt::UserRole + 50,   // bool: the user may not write there
    MobilePresence = Qt::UserRole + 74,
    Unread = Qt::UserRole + 80,        // number of messages
    Pinned = Qt::UserRole + 84,        // bool
    Cooperate = Qt::UserRole + 85,     // bool: a cooperating contact
    ShowsPresence = Qt::UserRole + 86, // bool: a person whose presence is known
    Outside = Qt::UserRole + 87        // bool: somebody outside the company
};
} // namespace LatestRole

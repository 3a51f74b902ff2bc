// Item data of the friend tree, shared by model, view and delegate.
#pragma once

#include <Qt>

namespace FriendTreeRole {
enum Role
{
    Name = Qt::UserRole + 1,            // a display text
    Id = Qt::UserRole + 2,              // a contact's jid, a group's id
    HeadPath = Qt::UserRole + 3,        // local picture file, or empty
    Presence = Qt::UserRole + 4,        // PresenceData::ePcShowType
    SortKey = Qt::UserRole + 6,         // text
    Cooperate = Qt::UserRole + 7,       // bool
    Kind = Qt::UserRole + 24,           // RowKind
    Sign = Qt::UserRole + 70,           // text as it came
    OnJob = Qt::UserRole + 71,          // bool
    OnlineCount = Qt::UserRole + 72,    // groups: contacts that are online
    TotalCount = Qt::UserRole + 73,     // groups: contacts, hidden ones included
    MobilePresence = Qt::UserRole + 74, // PresenceData::MobileDevice
    Company = Qt::UserRole + 75         // external contacts: the company's name, or empty
};
} // namespace FriendTreeRole

// What a row of a contact list is.
enum RowKind
{
    ContactRow = 8,
    ExternalContactRow = 9,
    GroupRow = 10
};

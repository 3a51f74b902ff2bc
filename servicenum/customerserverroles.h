// Item data of the list of customer-service channels.
#pragma once

#include <Qt>

namespace ChannelRole {
enum Role
{
    Name = Qt::UserRole + 1,    // a display text
    Id = Qt::UserRole + 2,      // the channel's
    Picture = Qt::UserRole + 3, // local file, or empty
    State = Qt::UserRole + 4,   // bool: open
    SortKey = Qt::UserRole + 6, // a number by which the rows stand in order
    Second = Qt::UserRole + 70, // the line under the name
    Unread = Qt::UserRole + 71, // messages that were not looked at
    Pinned = Qt::UserRole + 84  // bool
};
} // namespace ChannelRole

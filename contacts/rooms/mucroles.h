// Item data of the list of group chats.
#pragma once

#include <Qt>

namespace MucRole {
enum Role
{
    Name = Qt::UserRole + 1,         // the room's subject as it came
    HeadPath = Qt::UserRole + 2,     // local picture file, or empty
    SortKey = Qt::UserRole + 6,      // text
    Id = Qt::UserRole + 8,           // the room's jid
    ShakeOffset = Qt::UserRole + 11, // QPoint, pixels; (0,0) at rest
    MemberCount = Qt::UserRole + 35, // decimal text
    Forbidden = Qt::UserRole + 50,   // bool: the user may not write there
    Classify = Qt::UserRole + 76     // int, a MucData::MucClassify
};
} // namespace MucRole

// Item data of the lists of service numbers.
#pragma once

#include <Qt>

namespace ServiceRole {
enum Role
{
    Name = Qt::UserRole + 1,       // a display text
    Id = Qt::UserRole + 2,         // the number's code
    Picture = Qt::UserRole + 3,    // local file of the icon; asking for it has it fetched
    State = Qt::UserRole + 4,      // bool: subscribed to
    SortKey = Qt::UserRole + 6,    // a number by which the rows stand in order
    Second = Qt::UserRole + 70,    // the line under the name
    Busy = Qt::UserRole + 72,      // bool: a subscription or its end is under way
    MarkedName = Qt::UserRole + 73 // a MarkedText: what was searched for stands out
};
} // namespace ServiceRole

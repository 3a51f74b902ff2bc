// What the services of one back end work on. Each group of services adds its
// handlers to the list; see routes/.
#pragma once

#include "backend/database.h"
#include "backend/datafolder.h"
#include "backend/eventbell.h"
#include "backend/friends/friend.h"
#include "backend/numbers/servicenumberlist.h"
#include "backend/people.h"
#include "backend/session.h"

struct BackEndContext
{
    BackEndContext(int peopleCount, quint64 seed, int departmentSize,
                   int friendLimit = FriendLimit::Contacts)
        : people(peopleCount, seed, departmentSize), sessions(database), friendLimits(friendLimit)
    {
    }

    DataFolder folder;
    Database database;
    People people;
    Sessions sessions;
    FriendLimits friendLimits;
    ServiceNumberList numbers;
    EventBell bell; // rings when somebody may have been told something
    QString password;
    QString address; // base address, without a slash at its end
};

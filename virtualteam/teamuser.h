// What was begun for a user ends with him: dialogs, questions and requests.
#pragma once

#include "common/context.h"
#include "plugin/frienduisignalsender.h"

#include <QObject>

#include <utility>

// Calls `end` whenever the user logs out, or somebody else logs in in his place, as long
// as `context` lives.
template <class End> void whenUserLeaves(QObject *context, End end)
{
    using Hub = FriendUISignalSender;
    QObject::connect(Hub::instance(), &Hub::signal_logout, context, end);
    QObject::connect(Hub::instance(), &Hub::signal_login, context,
                     [end, user = ctx().userId()]() mutable {
                         if (std::exchange(user, ctx().userId()) != user)
                             end();
                     });
}

// Roster records in few words.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QString>

inline FriendData makeContact(const QString &user, const QString &name,
                              const QString &groupId = QStringLiteral("g1"))
{
    FriendData contact;
    contact.jid = user + QStringLiteral("@corp.example");
    contact.nickName = name;
    contact.groupId = groupId;
    return contact;
}

inline PresenceData makePresence(int pcShow, int mobile = PresenceData::NoMobile)
{
    PresenceData presence;
    presence.pcShow = PresenceData::ePcShowType(pcShow);
    presence.mobile = mobile;
    return presence;
}

inline QString jidOf(const QString &user)
{
    return user + QStringLiteral("@corp.example");
}

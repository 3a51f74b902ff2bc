// Group chats for tests.
#pragma once

#include "hostapi/roomrecords.h"

// "r1" is r1@conf.corp.example.
inline QString roomJid(const char *user)
{
    return QLatin1String(user) + QStringLiteral("@conf.corp.example");
}

inline MucData makeRoom(const char *user, const QString &name,
                        MucData::MucClassify classify = MucData::AddressBookRoom)
{
    MucData room;
    room.roomJid = roomJid(user);
    room.roomName = name;
    room.classify = classify;
    return room;
}

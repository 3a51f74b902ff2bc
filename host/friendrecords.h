// What the friend services answer, as the host's records.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QHash>
#include <QList>

#include <json/value.h>

struct FriendList
{
    QList<GroupData> groups;
    QList<FriendData> contacts;
    QHash<QString, QString> photoNames; // by jid
};

namespace FriendRecords {

// The services' id of a group, whose default one is "0".
QString serviceGroupId(const QString &groupId);

// Entries without an id are left out, further ones than a list can hold as well.
FriendList list(const Json::Value &data, const QString &domain);
// Of people; the array of a search.
QList<SearchFriendResultData> people(const Json::Value &found, const QString &domain);

} // namespace FriendRecords

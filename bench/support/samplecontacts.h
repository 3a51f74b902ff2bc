// Contacts and groups to fill a tree with: people of the sample company, so that
// names are as alike as they are in life.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QList>

// Ids "g0", "g1"...
QList<GroupData> sampleGroups(int count);

// The same contacts for the same numbers, dealt to the groups at random.
QList<FriendData> sampleContacts(int count, int groups);

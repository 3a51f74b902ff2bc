// The rows of the friend tree as the model keeps them: a compact record per
// contact, and per group its contacts in order. No widgets, no signals.
#pragma once

#include "contacts/friendtreesort.h"
#include "hostapi/rosterrecords.h"

#include <vector>

struct FriendTreeGroup;

// Where a contact stands in its group. Kept apart from the record, because while
// the order is frozen a row keeps the place of an older name and presence.
struct FriendTreePlace
{
    FriendTreeSort::Prefix prefix;
    QString name;
};

struct FriendTreeContact
{
    FriendData record;
    FriendTreePlace place;
    FriendTreeGroup *group = nullptr;
    qint8 pcShow = 0;
    qint8 mobile = 0;
    bool hidden = false;     // in group->hidden instead of group->rows
    bool outOfPlace = false; // waits for the thaw
    bool cooperates = false;

    PresenceData presence() const
    {
        PresenceData data;
        data.pcShow = PresenceData::ePcShowType(pcShow);
        data.mobile = mobile;
        return data;
    }
};

using FriendTreeRows = std::vector<FriendTreeContact *>;

struct FriendTreeGroup
{
    QString id;
    QString name;
    int row = 0;
    int online = 0;          // of all its contacts
    FriendTreeRows rows;     // shown, in order
    FriendTreeRows hidden;   // not shown, in order
    FriendTreeRows arrivals; // collected by a batch, in any order

    int total() const { return int(rows.size() + hidden.size()); }
    FriendTreeRows &list(bool hiddenOnes) { return hiddenOnes ? hidden : rows; }
};

namespace FriendTreeOrder {

// A strict order without ties: place, then jid.
bool before(const FriendTreeContact *a, const FriendTreeContact *b);
void sort(FriendTreeRows &rows);

// Where a contact with this place and jid belongs.
int placeFor(const FriendTreeRows &rows, const FriendTreePlace &place, const QString &jid);

// Of `sorted`, the contacts from `first` that fall into the same gap, before row
// `at`, as the first of them: returns where they end.
size_t runEnd(const FriendTreeRows &rows, int at, const FriendTreeRows &sorted, size_t first);

// Into how many gaps of `rows` the contacts of `sorted` fall; counts up to `limit`.
int runCount(const FriendTreeRows &rows, const FriendTreeRows &sorted, int limit);

// The row of a contact that is in `rows`.
int rowOf(const FriendTreeRows &rows, const FriendTreeContact *contact);

} // namespace FriendTreeOrder

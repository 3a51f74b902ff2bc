// The rows of the friend tree as the model keeps them: a compact record per
// contact, and per group its contacts in order. No widgets, no signals.
#pragma once

#include "contacts/friendtreesort.h"
#include "hostapi/rosterrecords.h"

#include <vector>

struct FriendTreeGroup;
struct FriendTreeContact;

// A row of a group. The prefix stands beside the pointer, so that a search seldom
// has to touch the contacts themselves.
struct FriendTreeRow
{
    FriendTreeSort::Prefix prefix;
    FriendTreeContact *contact;
};

using FriendTreeRows = std::vector<FriendTreeRow>;

// Where a contact stands in its group. Kept apart from the record, because while
// the order is frozen a row keeps the place of an older name and presence.
struct FriendTreePlace
{
    QString name;
    FriendTreeSort::Block block = FriendTreeSort::Block::Offline;
};

struct FriendTreeContact
{
    FriendData record;
    FriendTreePlace place;
    bool hidden = false;     // in group->hidden instead of group->rows
    bool outOfPlace = false; // waits for the thaw
    bool arriving = false;   // collected by a batch, in none of the group's rows yet
    bool cooperates = false;
    qint8 pcShow = 0;
    qint8 mobile = 0;
    FriendTreeGroup *group = nullptr;

    PresenceData presence() const
    {
        PresenceData data;
        data.pcShow = PresenceData::ePcShowType(pcShow);
        data.mobile = mobile;
        return data;
    }
    // An unknown value stays other than zero, which means offline.
    void setPresence(const PresenceData &data)
    {
        pcShow = qint8(qBound(-128, int(data.pcShow), 127));
        mobile = qint8(qBound(-128, int(data.mobile), 127));
    }
};

struct FriendTreeGroup
{
    QString id;
    QString name;
    int row = 0;
    bool changed = false;  // its header is to be announced
    int online = 0;        // of all its contacts
    FriendTreeRows rows;   // shown, in order
    FriendTreeRows hidden; // not shown, in order
    // Collected by a batch, in any order, and part of neither list yet.
    FriendTreeRows arrivals;
    FriendTreeRows hiddenArrivals;

    int total() const { return int(rows.size() + hidden.size()); }
    FriendTreeRows &list(bool hiddenOnes) { return hiddenOnes ? hidden : rows; }
};

namespace FriendTreeOrder {

// A strict order without ties: place, then jid.
bool before(const FriendTreeRow &a, const FriendTreeRow &b);
void sort(FriendTreeRows &rows);

// The row that a contact's place stands for.
FriendTreeRow rowFor(FriendTreeContact *contact);

// Where a contact with this place, and the prefix made of it, belongs.
int placeFor(const FriendTreeRows &rows, const FriendTreeSort::Prefix &prefix,
             const FriendTreePlace &place, const QString &jid);

// Of `sorted`, the contacts from `first` that fall into the same gap, before row
// `at`, as the first of them: returns where they end.
size_t runEnd(const FriendTreeRows &rows, int at, const FriendTreeRows &sorted, size_t first);

// Into how many gaps of `rows` the contacts of `sorted` fall; counts up to `limit`.
int runCount(const FriendTreeRows &rows, const FriendTreeRows &sorted, int limit);

// The row of a contact that is in `rows`; `prefix` is made of its place.
int rowOf(const FriendTreeRows &rows, const FriendTreeContact *contact,
          const FriendTreeSort::Prefix &prefix);
int rowOf(const FriendTreeRows &rows, const FriendTreeContact *contact);

} // namespace FriendTreeOrder

#include "contacts/friendtreerows.h"

#include <algorithm>

namespace {

// Negative, 0 or positive.
int comparePlaces(const FriendTreePlace &a, const FriendTreePlace &b)
{
    if (a.prefix < b.prefix)
        return -1;
    if (b.prefix < a.prefix)
        return 1;
    return a.prefix.isComplete() ? 0 : FriendTreeSort::compareNames(a.name, b.name);
}

bool placedBefore(const FriendTreePlace &a, const QString &jidA, const FriendTreePlace &b,
                  const QString &jidB)
{
    const int order = comparePlaces(a, b);
    return order != 0 ? order < 0 : jidA < jidB;
}

} // namespace

bool FriendTreeOrder::before(const FriendTreeContact *a, const FriendTreeContact *b)
{
    return placedBefore(a->place, a->record.jid, b->place, b->record.jid);
}

void FriendTreeOrder::sort(FriendTreeRows &rows)
{
    std::sort(rows.begin(), rows.end(), before);
}

int FriendTreeOrder::placeFor(const FriendTreeRows &rows, const FriendTreePlace &place,
                              const QString &jid)
{
    const auto at =
        std::lower_bound(rows.begin(), rows.end(), place,
                         [&jid](const FriendTreeContact *contact, const FriendTreePlace &wanted) {
                             return placedBefore(contact->place, contact->record.jid, wanted, jid);
                         });
    return int(at - rows.begin());
}

size_t FriendTreeOrder::runEnd(const FriendTreeRows &rows, int at, const FriendTreeRows &sorted,
                               size_t first)
{
    if (at == int(rows.size()))
        return sorted.size();
    size_t end = first + 1;
    while (end < sorted.size() && before(sorted[end], rows[size_t(at)]))
        ++end;
    return end;
}

int FriendTreeOrder::runCount(const FriendTreeRows &rows, const FriendTreeRows &sorted, int limit)
{
    int count = 0;
    for (size_t first = 0; first < sorted.size() && count < limit; ++count) {
        const int at = placeFor(rows, sorted[first]->place, sorted[first]->record.jid);
        first = runEnd(rows, at, sorted, first);
    }
    return count;
}

int FriendTreeOrder::rowOf(const FriendTreeRows &rows, const FriendTreeContact *contact)
{
    const int row = placeFor(rows, contact->place, contact->record.jid);
    Q_ASSERT(row < int(rows.size()) && rows[size_t(row)] == contact);
    return row;
}

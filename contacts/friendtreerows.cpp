#include "contacts/friendtreerows.h"

#include <algorithm>

using FriendTreeSort::Prefix;

namespace {

// Whether a stands before b, for equal prefixes.
bool nameBefore(const Prefix &prefix, const QString &nameA, const QString &jidA,
                const QString &nameB, const QString &jidB)
{
    const int order = prefix.isComplete() ? 0 : FriendTreeSort::compareNames(nameA, nameB);
    return order != 0 ? order < 0 : jidA < jidB;
}

} // namespace

bool FriendTreeOrder::before(const FriendTreeRow &a, const FriendTreeRow &b)
{
    if (!(a.prefix == b.prefix))
        return a.prefix < b.prefix;
    return nameBefore(a.prefix, a.contact->place.name, a.contact->record.jid, b.contact->place.name,
                      b.contact->record.jid);
}

void FriendTreeOrder::sort(FriendTreeRows &rows)
{
    std::sort(rows.begin(), rows.end(), before);
}

FriendTreeRow FriendTreeOrder::rowFor(FriendTreeContact *contact)
{
    return {FriendTreeSort::prefix(contact->place.block, contact->place.name), contact};
}

int FriendTreeOrder::placeFor(const FriendTreeRows &rows, const Prefix &prefix,
                              const FriendTreePlace &place, const QString &jid)
{
    const auto at = std::lower_bound(
        rows.begin(), rows.end(), prefix, [&](const FriendTreeRow &row, const Prefix &wanted) {
            if (!(row.prefix == wanted))
                return row.prefix < wanted;
            return nameBefore(wanted, row.contact->place.name, row.contact->record.jid, place.name,
                              jid);
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
        const FriendTreeRow &head = sorted[first];
        const int at = placeFor(rows, head.prefix, head.contact->place, head.contact->record.jid);
        first = runEnd(rows, at, sorted, first);
    }
    return count;
}

int FriendTreeOrder::rowOf(const FriendTreeRows &rows, const FriendTreeContact *contact,
                           const Prefix &prefix)
{
    const int row = placeFor(rows, prefix, contact->place, contact->record.jid);
    Q_ASSERT(row < int(rows.size()) && rows[size_t(row)].contact == contact);
    return row;
}

int FriendTreeOrder::rowOf(const FriendTreeRows &rows, const FriendTreeContact *contact)
{
    return rowOf(rows, contact, FriendTreeSort::prefix(contact->place.block, contact->place.name));
}

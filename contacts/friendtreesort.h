// The order of the friend tree, as pure functions.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QString>

#include <array>

namespace FriendTreeSort {

// The blocks of a group, in their order.
enum class Block : quint8
{
    Own,     // the user's own row
    Online,  // reachable on any device
    Offline, // reachable on none
    Left     // left the company, whatever the presence
};

Block block(const FriendData &contact, const PresenceData &presence, bool own);

// "0|1", "0|2", "1|" or "2|" and the pinyin of the name.
QString contactKey(Block block, const QString &name);

// "1|" and the name for the frequent contacts, "2|" and the name for any other.
QString groupKey(const QString &name);

// A contact's place in its group, cheap to compare: the block and the pinyin's
// first letters, case ignored. Where two prefixes are equal and not complete,
// compareNames() decides.
struct Prefix
{
    std::array<quint64, 2> letters{};

    // Whether the whole pinyin fitted in.
    bool isComplete() const { return (letters[1] & 0xff) == 0; }

    // That of the same name in another block.
    Prefix inBlock(Block block) const
    {
        Prefix moved = *this;
        moved.letters[0] = (moved.letters[0] & ~(quint64(0xff) << 56)) | (quint64(block) << 56);
        return moved;
    }

    friend bool operator<(const Prefix &a, const Prefix &b) { return a.letters < b.letters; }
    friend bool operator==(const Prefix &a, const Prefix &b) { return a.letters == b.letters; }
};

Prefix prefix(Block block, const QString &name);

// Negative, 0 or positive: the whole pinyin of two names, case ignored.
int compareNames(const QString &a, const QString &b);

} // namespace FriendTreeSort

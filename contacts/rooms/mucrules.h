// What decides where a group chat stands, who may do what in it and how its row
// shakes, as pure functions.
#pragma once

#include "hostapi/roomrecords.h"

#include <QPoint>
#include <QString>

namespace MucRules {

// Known on all of the user's devices, as opposed to a local one.
bool isAddressBookRoom(MucData::MucClassify classify);

// Whether a room may change to it: any value can arrive.
bool isKnown(MucData::MucClassify classify);

// "1|" for a preferred room, "2|" for any other, and the lower-case pinyin of the name.
QString sortKey(const QString &name, MucData::MucClassify classify);

// Where a sort key stands, cheap to compare: its first characters packed, and the
// rest of it only when there is more.
struct Place
{
    quint64 first = 0;
    quint64 second = 0;
    QString more;

    friend bool operator<(const Place &a, const Place &b)
    {
        if (a.first != b.first)
            return a.first < b.first;
        return a.second != b.second ? a.second < b.second : a.more < b.more;
    }
    friend bool operator==(const Place &a, const Place &b)
    {
        return a.first == b.first && a.second == b.second && a.more == b.more;
    }
};
Place placeOf(const QString &name, MucData::MucClassify classify);

struct Rights
{
    bool rename = false;
    bool quit = false;
    bool dismiss = false;
    bool manage = false;
};
// role: as the host's context tells it; an unknown one is a member's.
Rights rightsOf(int role);

// The phases of a shake are 0 to LastPhase, at which the row rests.
inline constexpr int LastPhase = 3;
QPoint shakeOffset(int phase); // pixels
int phaseAfter(int phase);

} // namespace MucRules

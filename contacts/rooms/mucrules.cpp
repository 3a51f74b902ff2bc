#include "contacts/rooms/mucrules.h"

#include "common/cchcharactertopp.h"

#include <QtGlobal>

namespace MucRules {

namespace {
// Stands in some hosts' records for a local room, too.
constexpr qint32 OtherLocalRoom = 3;
constexpr int Manager = 1;
constexpr int Owner = 2;
} // namespace

bool isAddressBookRoom(MucData::MucClassify classify)
{
    return classify == MucData::AddressBookRoom || classify == MucData::PreferredRoom;
}

bool isKnown(MucData::MucClassify classify)
{
    return classify >= MucData::LocalRoom && qint32(classify) <= OtherLocalRoom;
}

QString sortKey(const QString &name, MucData::MucClassify classify)
{
    const QLatin1String block(classify == MucData::PreferredRoom ? "1|" : "2|");
    return block + CChCharacterToPP().toPinyin(name, false).toLower();
}

Rights rightsOf(int role)
{
    Rights rights;
    rights.rename = role == Manager || role == Owner;
    // An owner hands the room over or ends it.
    rights.quit = role != Owner;
    rights.dismiss = role == Owner;
    rights.manage = role == Owner;
    return rights;
}

QPoint shakeOffset(int phase)
{
    static const QPoint offsets[] = {{1, -1}, {2, 0}, {1, -1}, {0, 0}};
    return offsets[qBound(0, phase, LastPhase)];
}

int phaseAfter(int phase)
{
    return qMin(phase + 1, LastPhase);
}

} // namespace MucRules

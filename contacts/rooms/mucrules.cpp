#include "contacts/rooms/mucrules.h"

#include "common/cchcharactertopp.h"

#include <QtGlobal>

namespace MucRules {

namespace {
// Stands in some hosts' records for a local room, too.
constexpr qint32 OtherLocalRoom = 3;
constexpr int Manager = 1;
constexpr int Owner = 2;

QChar blockOf(MucData::MucClassify classify)
{
    return QLatin1Char(classify == MucData::PreferredRoom ? '1' : '2');
}

QString lettersOf(const QString &name)
{
    QString letters = CChCharacterToPP().toPinyin(name, false);
    // Pinyin is ASCII, and so cheaper to make small than any text.
    for (QChar &letter : letters) {
        if (letter >= QLatin1Char('A') && letter <= QLatin1Char('Z'))
            letter.unicode() += u'a' - u'A';
    }
    return letters;
}
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
    return QString(blockOf(classify)) + QLatin1Char('|') + lettersOf(name);
}

Place placeOf(const QString &name, MucData::MucClassify classify)
{
    constexpr int Packed = 15; // characters behind the block's; none is beyond ASCII
    const QString letters = lettersOf(name);
    const auto packed = [&letters](int from, int count) {
        quint64 word = 0;
        for (int i = from; i < from + count; ++i)
            word = word << 8 | (i < letters.size() ? letters.at(i).unicode() & 0xff : 0);
        return word;
    };
    Place place;
    place.first = quint64(blockOf(classify).unicode()) << 56 | packed(0, 7);
    place.second = packed(7, 8);
    if (letters.size() > Packed)
        place.more = letters;
    return place;
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

#include "contacts/search/searchindexbits.h"

#include "common/cchcharactertopp.h"

#include <array>

namespace SearchBits {
namespace {
constexpr int HashedCount = 63 - PlaceCount; // the last bit says that there are phones

constexpr quint64 hashedBit(uint value)
{
    return quint64(1) << (PlaceCount + (value * 2654435769u >> 16) * HashedCount / 65536);
}
constexpr SearchChain hashedInChain(uint value)
{
    SearchChain chain;
    for (const uint bit : {(value * 2246822519u) >> 25, (value * 3266489917u) >> 25})
        chain.bits[bit >> 6] |= quint64(1) << (bit & 63);
    return chain;
}

// Apart from the characters, which are hashed as well.
constexpr uint FirstPair = 0x10000;

template <class Bit, class Hash> constexpr auto makePairs(Hash hash)
{
    std::array<Bit, PlaceCount * PlaceCount> pairs{};
    for (uint i = 0; i < pairs.size(); ++i)
        pairs[i] = hash(FirstPair + i);
    return pairs;
}
constexpr auto pairs = makePairs<quint64>(hashedBit);
constexpr auto chainPairs = makePairs<SearchChain>(hashedInChain);

constexpr int U = 'u' - 'a';
constexpr int V = 'v' - 'a';

// ü may be typed as u and as v.
constexpr bool isU(int place)
{
    return place == U || place == V;
}
constexpr int otherU(int place)
{
    return place == U ? V : U;
}
} // namespace

quint64 ofUnit(ushort unit)
{
    const int place = placeOf(unit);
    return place < 0 ? hashedBit(unit) : quint64(1) << place;
}

quint64 ofPair(int place, int next)
{
    return pairs[size_t(place * PlaceCount + next)];
}

const SearchChain &inChain(int place, int next)
{
    return chainPairs[size_t(place * PlaceCount + next)];
}

SearchChain inChain(ushort unit)
{
    return hashedInChain(unit);
}

quint64 letterOfKey(ushort unit)
{
    if (unit >= 'a' && unit <= 'z')
        return quint64(4 + unit - 'a');
    if (unit < '0')
        return 1;
    if (unit <= '9')
        return 2;
    return unit < 'a' ? 3 : unit < 0x80 ? 30 : 31;
}

Syllable::Syllable(QStringView capitals)
    : size(capitals.size()), initial(capitals.at(0).unicode() - 'A')
{
    bits = quint64(1) << initial;
    for (const QChar c : capitals)
        letters = letters << BitsOfLetter | letterOfKey(c.unicode() | 0x20);
    addChain(capitals);
    if (size > 1)
        addSecond(capitals.at(1).unicode() - 'A');
}

void Syllable::addSecond(int second)
{
    bits |= ofPair(initial, second);
    if (isU(second))
        bits |= ofPair(initial, otherU(second));
}

void Syllable::addChain(QStringView capitals)
{
    for (int i = 1; i < size; ++i) {
        const int before = capitals.at(i - 1).unicode() - 'A';
        const int place = capitals.at(i).unicode() - 'A';
        chain.add(inChain(before, place));
        if (i == 1 && isU(place))
            chain.add(inChain(before, otherU(place)));
        if (i == 2 && isU(before))
            chain.add(inChain(otherU(before), place));
    }
    addEnd(initial, false);
    if (size > 2 && capitals.at(1) == QLatin1Char('H'))
        addEnd('h' - 'a', false);
    if (size > 1)
        addEnd(capitals.back().unicode() - 'A', size == 2);
}

void Syllable::addEnd(int place, bool mayBeU)
{
    ends[endCount++] = place;
    if (mayBeU && isU(place))
        ends[endCount++] = otherU(place);
}

const std::vector<Syllable> &syllables()
{
    static const std::vector<Syllable> all = [] {
        std::vector<Syllable> made;
        for (int i = 0; i < CChCharacterToPP::syllableCount(); ++i)
            made.emplace_back(CChCharacterToPP::syllableAt(i));
        return made;
    }();
    return all;
}

} // namespace SearchBits

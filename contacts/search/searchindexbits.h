// The bits of a signature, and what a syllable adds to them.
#pragma once

#include <QStringView>

#include <vector>

// Which letters may follow one another, and which Chinese characters there are: hashed,
// so that what is there is always told, and what is not there mostly.
struct SearchChain
{
    quint64 bits[2] = {};

    bool has(const SearchChain &other) const
    {
        return (bits[0] & other.bits[0]) == other.bits[0] &&
               (bits[1] & other.bits[1]) == other.bits[1];
    }
    void add(const SearchChain &other)
    {
        bits[0] |= other.bits[0];
        bits[1] |= other.bits[1];
    }
};

namespace SearchBits {

constexpr int PlaceCount = 36; // letters and digits

// The place of a letter or digit, -1 for everything else.
constexpr int placeOf(uint unit)
{
    if (unit >= 'a' && unit <= 'z')
        return int(unit - 'a');
    if (unit >= '0' && unit <= '9')
        return int(unit - '0') + 26;
    return -1;
}

// In the beginnings: a unit, and a first letter with the second. All but letters and
// digits are hashed.
quint64 ofUnit(ushort unit);
quint64 ofPair(int place, int next);

// In the chain, two bits each: letters or digits that follow one another; a Chinese
// character, or what is no letter at the beginning of a field.
const SearchChain &inChain(int place, int next);
SearchChain inChain(ushort unit);

constexpr int BitsOfLetter = 5;

// A letter of a name's key. Never falls where the unit rises, so that keys have the
// order of the texts.
quint64 letterOfKey(ushort unit);

struct Syllable
{
    explicit Syllable(QStringView capitals);

    quint64 bits = 0;    // its first letter, and its first two
    quint64 letters = 0; // as they stand in a key
    SearchChain chain;
    int size = 0;
    int initial = 0; // the place of its first letter
    // The places of the letters behind which the next syllable may be typed: the
    // initial, the h of zh, ch and sh, the last one.
    int ends[4];
    int endCount = 0;

private:
    void addSecond(int second);
    void addChain(QStringView capitals);
    void addEnd(int place, bool mayBeU);
};

// By CChCharacterToPP::syllableNumbers().
const std::vector<Syllable> &syllables();

} // namespace SearchBits

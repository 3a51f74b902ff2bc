// What an entry can be found by, in a few words of bits, and what its place among
// equals follows from. Most entries are passed over by a look at these alone; what
// passes has to be matched.
#pragma once

#include "contacts/search/searchindexbits.h"
#include "contacts/search/searchindexrecords.h"

#include <QStringView>

struct SearchSignature
{
    // Which first letters, and which first two, a typed word may have, hashed as well.
    quint64 start = 0;  // at the beginning of a field
    quint64 inside = 0; // at the beginning of a later word or syllable
    SearchChain chain;

    // In `start`: there are phone numbers.
    static constexpr quint64 HasPhones = quint64(1) << 63;
};

// What the signature has of every entry that a typed word finds, phones aside. The
// word is folded and not empty.
struct SearchMask
{
    SearchMask() = default;
    explicit SearchMask(QStringView word);

    quint64 beginning = 0; // in start or inside
    SearchChain chain;
};

struct SearchTraits
{
    SearchSignature signature;
    // The beginning of the name by pinyin, as a number: a smaller one comes first, and
    // equal ones may still differ.
    quint64 nameKey = 0;
    // How many units some field may be typed in full by, blanks and apostrophes not
    // counted: a bit for each number, in three parts, for fields without digits, with
    // digits, and for Chinese typed as it stands.
    quint32 wholeLengths = 0;

    // The one of what was typed; 0: any may be it, for Chinese is mixed with letters.
    static quint32 lengthBitOf(const QString &typed);
};

SearchTraits searchTraits(const SearchEntry &entry);

// The order of names as a text: syllables in small letters, all else folded.
QString searchNameOrder(const QString &name);

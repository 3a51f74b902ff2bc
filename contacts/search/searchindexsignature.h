// What an entry can be found by, in two words of bits: which first letters, and which
// first two, a typed word may have. Most entries are passed over by a look at these
// bits alone; what passes has to be matched.
#pragma once

#include <QStringView>

struct SearchEntry;

struct SearchSignature
{
    quint64 start = 0;  // at the beginning of a field
    quint64 inside = 0; // at the beginning of a later word or syllable

    // In `start`: there are phone numbers.
    static constexpr quint64 HasPhones = quint64(1) << 63;
};

SearchSignature searchSignature(const SearchEntry &entry);

// The bits that all entries have that a typed word finds, HasPhones aside. The word
// is folded and not empty.
quint64 searchSignatureMask(QStringView word);

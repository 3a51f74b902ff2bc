// What an entry can be found by, in a few words of bits, and what its place among
// equals follows from. Most entries are passed over by a look at these alone; what
// passes has to be matched.
#pragma once

#include "contacts/search/searchindexrecords.h"

#include <QStringView>

// Which first letters, and which first two, a typed word may have.
struct SearchSignature
{
    quint64 start = 0;  // at the beginning of a field
    quint64 inside = 0; // at the beginning of a later word or syllable

    // In `start`: there are phone numbers.
    static constexpr quint64 HasPhones = quint64(1) << 63;

    // The bits that all entries have that a typed word finds, HasPhones aside. The
    // word is folded and not empty.
    static quint64 maskOf(QStringView word);
};

struct SearchTraits
{
    SearchSignature signature;
    // The beginning of the name by pinyin, as a number: a smaller one comes first, and
    // equal ones may still differ.
    quint64 nameKey = 0;
    // Bit n: some field may be typed in full by n units, none of them Chinese, and
    // blanks and apostrophes not counted. The last bit stands for everything longer,
    // too; fields with digits stand apart in the upper half.
    quint32 wholeLengths = 0;

    static quint32 lengthBit(int units, bool withDigits)
    {
        return quint32(1) << (qMin(units, 15) + (withDigits ? 16 : 0));
    }
    static quint32 lengthMaskOf(const QString &typed);
};

// Makes the traits of many entries, one after another.
class SearchTraitsMaker
{
public:
    SearchTraits of(const SearchEntry &entry);

private:
    void addName(const QString &name);
    void addText(QStringView text);
    bool addAscii(QStringView text);
    void addMail(const SearchEntry &entry);

    SearchTraits m_traits;
    // People of one company have it in common.
    QString m_domain;
    quint64 m_domainBits = 0;
};

// The order of names as a text: syllables in small letters, all else folded.
QString searchNameOrder(const QString &name);

#include "contacts/search/searchindextraits.h"

#include "common/cchcharactertopp.h"
#include "common/foldedtext.h"
#include "common/pinyinreadings.h"
#include "common/textmatch.h"

#include <array>
#include <utility>
#include <vector>

namespace {
constexpr int PlaceCount = 36; // letters and digits
constexpr int FirstHashed = PlaceCount;
constexpr int HashedCount = 63 - FirstHashed;
constexpr int BitsOfLetter = 5;
constexpr int BitsOfKey = 60;

constexpr quint64 hashedBit(uint value)
{
    return quint64(1) << (FirstHashed + (value * 2654435769u >> 16) * HashedCount / 65536);
}

// The place of a letter or digit, -1 for everything else.
constexpr int placeOf(uint unit)
{
    if (unit >= 'a' && unit <= 'z')
        return int(unit - 'a');
    if (unit >= '0' && unit <= '9')
        return int(unit - '0') + 26;
    return -1;
}

constexpr auto makePairs()
{
    std::array<quint64, PlaceCount * PlaceCount> pairs{};
    for (uint i = 0; i < pairs.size(); ++i)
        pairs[i] = hashedBit(i + 0x10000);
    return pairs;
}
constexpr auto pairs = makePairs();

inline quint64 pairBit(int place, int next)
{
    return pairs[size_t(place * PlaceCount + next)];
}

inline quint64 unitBit(ushort unit)
{
    const int place = placeOf(unit);
    return place < 0 ? hashedBit(unit) : quint64(1) << place;
}

// Never falls where the unit rises, so that keys have the order of the texts.
quint64 letterOf(ushort unit)
{
    if (unit >= 'a' && unit <= 'z')
        return quint64(4 + unit - 'a');
    if (unit < '0')
        return 1;
    if (unit <= '9')
        return 2;
    return unit < 'a' ? 3 : unit < 0x80 ? 30 : 31;
}

struct Syllable
{
    quint64 bits = 0;    // its first letter, and its first two
    quint64 letters = 0; // as they stand in a key
    int size = 0;
    int initial = 0; // the place of its first letter
};

Syllable makeSyllable(QStringView text)
{
    Syllable syllable;
    syllable.size = text.size();
    syllable.initial = text.at(0).unicode() - 'A';
    syllable.bits = quint64(1) << syllable.initial;
    for (const QChar c : text)
        syllable.letters = syllable.letters << BitsOfLetter | letterOf(c.unicode() | 0x20);
    if (text.size() < 2)
        return syllable;
    const int second = text.at(1).unicode() - 'A';
    syllable.bits |= pairBit(syllable.initial, second);
    // ü may be typed as u and as v.
    const int u = 'u' - 'a';
    const int v = 'v' - 'a';
    if (second == u || second == v)
        syllable.bits |= pairBit(syllable.initial, second == u ? v : u);
    return syllable;
}

const std::vector<Syllable> &syllables()
{
    static const std::vector<Syllable> all = [] {
        std::vector<Syllable> made;
        for (int i = 0; i < CChCharacterToPP::syllableCount(); ++i)
            made.push_back(makeSyllable(QStringView(CChCharacterToPP::syllableAt(i))));
        return made;
    }();
    return all;
}

struct Ascii
{
    qint8 place;
    quint8 kind;
};
constexpr auto makeAscii()
{
    std::array<Ascii, 128> ascii{};
    for (uint i = 0; i < ascii.size(); ++i) {
        const int place = placeOf(i >= 'A' && i <= 'Z' ? i - 'A' + 'a' : i);
        ascii[i].place = qint8(place);
        ascii[i].kind = place < 0    ? FoldedText::Separator
                        : place < 26 ? FoldedText::Letter
                                     : FoldedText::Digit;
    }
    return ascii;
}
constexpr auto ascii = makeAscii();

// Which letters may be typed behind a unit: the first ones of what follows.
struct Following
{
    int places[PinyinReadings::Most];
    int count = 0;

    quint64 pairsWith(int place) const
    {
        quint64 bits = 0;
        for (int i = 0; i < count; ++i)
            bits |= pairBit(place, places[i]);
        return bits;
    }
    void setOnly(int place)
    {
        places[0] = place;
        count = 1;
    }
};

// Walks from the end of a text to its beginning: each unit has to know what follows.
class Walk
{
public:
    explicit Walk(const FoldedText &text) : m_text(text), m_syllables(syllables())
    {
        CChCharacterToPP::syllableNumbers(text.text(), m_numbers);
    }

    void addTo(SearchTraits *traits)
    {
        quint32 lengths = 1;
        for (int i = m_text.size() - 1; i >= 0; --i) {
            const bool isStart = i <= m_text.first() || m_text.isStart(i);
            const quint64 bits = unit(i, &lengths);
            if (isStart)
                (i <= m_text.first() ? traits->signature.start : traits->signature.inside) |= bits;
        }
        traits->wholeLengths |= lengths << (m_hasDigits ? 16 : 0);
    }

    quint64 key() const
    {
        quint64 key = 0;
        int room = BitsOfKey;
        for (int i = 0; i < m_text.size() && room > 0; ++i) {
            const bool isSpelled = m_numbers[i] >= 0;
            const Syllable *syllable = isSpelled ? &m_syllables[size_t(m_numbers[i])] : nullptr;
            const quint64 letters = isSpelled ? syllable->letters : letterOf(m_text.at(i));
            room -= BitsOfLetter * (isSpelled ? syllable->size : 1);
            key |= room >= 0 ? letters << room : letters >> -room;
        }
        return key;
    }

private:
    // The bits of a word or syllable that begins here; and how long what is whole from
    // here on may be.
    quint64 unit(int i, quint32 *lengths)
    {
        const ushort unit = m_text.at(i);
        if (m_text.kind(i) == FoldedText::Chinese)
            return chinese(i, lengths);
        const bool isSeparator = m_text.kind(i) == FoldedText::Separator;
        *lengths = lengthened(*lengths, 1) | (isSeparator ? *lengths : 0);
        m_hasDigits = m_hasDigits || m_text.kind(i) == FoldedText::Digit;
        const int place = placeOf(unit);
        if (place < 0) {
            if (!isSeparator)
                m_following.count = 0;
            return hashedBit(unit);
        }
        const quint64 bits = quint64(1) << place | m_following.pairsWith(place);
        m_following.setOnly(place);
        return bits;
    }

    quint64 chinese(int i, quint32 *lengths)
    {
        const quint64 bits = hashedBit(m_text.at(i));
        if (PinyinReadings::hasMore(QChar(m_text.at(i))))
            return bits | readMoreWays(i, lengths);
        if (m_numbers[i] < 0) {
            *lengths = 0;
            m_following.count = 0;
            return bits;
        }
        const Syllable &syllable = m_syllables[size_t(m_numbers[i])];
        *lengths = lengthened(*lengths, syllable.size);
        const quint64 all = bits | syllable.bits | m_following.pairsWith(syllable.initial);
        m_following.setOnly(syllable.initial);
        return all;
    }

    quint64 readMoreWays(int i, quint32 *lengths)
    {
        quint64 bits = 0;
        const quint32 before = std::exchange(*lengths, 0);
        Following following;
        for (const QStringView reading : PinyinReadings(m_text.text(), i, m_text.first())) {
            const Syllable syllable = makeSyllable(reading);
            *lengths |= lengthened(before, syllable.size);
            bits |= syllable.bits | m_following.pairsWith(syllable.initial);
            following.places[following.count++] = syllable.initial;
        }
        m_following = following;
        return bits;
    }

    static quint32 lengthened(quint32 lengths, int by)
    {
        const quint32 longer = lengths << by;
        return (longer & 0xffff) | (longer >> 16 ? 0x8000 : 0) | (lengths & 0x8000);
    }

    const FoldedText &m_text;
    const std::vector<Syllable> &m_syllables;
    qint16 m_numbers[FoldedText::MaximumLength];
    Following m_following;
    bool m_hasDigits = false;
};
} // namespace

quint64 SearchSignature::maskOf(QStringView word)
{
    const ushort first = word.at(0).unicode();
    const int place = placeOf(first);
    const int next = word.size() > 1 ? placeOf(word.at(1).unicode()) : -1;
    return unitBit(first) | (place >= 0 && next >= 0 ? pairBit(place, next) : 0);
}

quint32 SearchTraits::lengthMaskOf(const QString &typed)
{
    int length = 0;
    bool hasDigits = false;
    for (const QChar c : typed) {
        if (c.script() == QChar::Script_Han)
            return ~quint32(0);
        hasDigits = hasDigits || c.isNumber();
        length += !TextPattern::isBetweenSyllables(c);
    }
    return lengthBit(length, hasDigits);
}

SearchTraits SearchTraitsMaker::of(const SearchEntry &entry)
{
    m_traits = SearchTraits();
    addName(entry.name);
    addText(entry.remark);
    addText(entry.account);
    addText(entry.employeeCode);
    addMail(entry);
    if (!entry.phones.isEmpty())
        m_traits.signature.start |= SearchSignature::HasPhones;
    return m_traits;
}

void SearchTraitsMaker::addName(const QString &name)
{
    const FoldedText text(name);
    Walk walk(text);
    walk.addTo(&m_traits);
    m_traits.nameKey = walk.key();
}

void SearchTraitsMaker::addText(QStringView text)
{
    if (!text.isEmpty() && !addAscii(text)) {
        const FoldedText folded(text);
        Walk(folded).addTo(&m_traits);
    }
}

// The same as by the walk, for most of what is not a name. False: it has to be walked.
bool SearchTraitsMaker::addAscii(QStringView text)
{
    const int size = qMin(text.size(), qsizetype(FoldedText::MaximumLength));
    const char16_t *units = text.utf16();
    SearchSignature signature;
    quint64 *target = &signature.start;
    int kind = FoldedText::Separator;
    int separators = 0;
    bool hasDigits = false;
    for (int i = 0; i < size; ++i) {
        if (units[i] >= 0x80)
            return false;
        const Ascii unit = ascii[units[i]];
        separators += unit.kind == FoldedText::Separator;
        hasDigits |= unit.kind == FoldedText::Digit;
        if (unit.kind != kind && unit.kind != FoldedText::Separator) {
            *target |= quint64(1) << unit.place;
            int next = i + 1;
            while (next < size && units[next] < 0x80 && ascii[units[next]].place < 0)
                ++next;
            if (next < size && units[next] < 0x80)
                *target |= pairBit(unit.place, ascii[units[next]].place);
            target = &signature.inside;
        }
        kind = unit.kind;
    }
    if (ascii[units[0]].kind == FoldedText::Separator)
        signature.start |= hashedBit(units[0]);
    m_traits.signature.start |= signature.start;
    m_traits.signature.inside |= signature.inside;
    for (int length = size - separators; length <= size; ++length)
        m_traits.wholeLengths |= SearchTraits::lengthBit(length, hasDigits);
    return true;
}

void SearchTraitsMaker::addMail(const SearchEntry &entry)
{
    addText(entry.mail);
}

QString searchNameOrder(const QString &name)
{
    const FoldedText folded(name);
    QString text;
    text.reserve(folded.size() * 4);
    for (int i = 0; i < folded.size(); ++i) {
        const QStringView syllable = CChCharacterToPP::syllable(QChar(folded.at(i)));
        if (syllable.isEmpty())
            text += QChar(folded.at(i));
        else
            text += syllable.toString().toLower();
    }
    return text;
}

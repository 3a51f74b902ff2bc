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

constexpr quint8 chainBit(uint value)
{
    return quint8((value * 2246822519u) >> 25);
}
constexpr auto makeChainBits()
{
    std::array<quint8, PlaceCount * PlaceCount> bits{};
    for (uint i = 0; i < bits.size(); ++i)
        bits[i] = chainBit(i + 0x10000);
    return bits;
}
constexpr auto chainBits = makeChainBits();

inline quint8 chainBit(int place, int next)
{
    return chainBits[size_t(place * PlaceCount + next)];
}

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
    SearchChain chain;
    // The places of the letters behind which the next syllable may be typed: the
    // initial, the h of zh, ch and sh, the last one.
    int ends[4];
    int endCount = 0;
};

constexpr int U = 'u' - 'a';
constexpr int V = 'v' - 'a';

// ü may be typed as u and as v.
void addEnd(int place, bool mayBeU, Syllable *syllable)
{
    syllable->ends[syllable->endCount++] = place;
    if (mayBeU && (place == U || place == V))
        syllable->ends[syllable->endCount++] = place == U ? V : U;
}

void addChain(QStringView text, Syllable *syllable)
{
    for (int i = 1; i < text.size(); ++i) {
        const int before = text.at(i - 1).unicode() - 'A';
        const int place = text.at(i).unicode() - 'A';
        syllable->chain.add(chainBit(before, place));
        if (i == 1 && (place == U || place == V))
            syllable->chain.add(chainBit(before, place == U ? V : U));
        if (i == 2 && (before == U || before == V))
            syllable->chain.add(chainBit(before == U ? V : U, place));
    }
    addEnd(syllable->initial, false, syllable);
    if (text.size() > 2 && text.at(1) == QLatin1Char('H'))
        addEnd('h' - 'a', false, syllable);
    if (text.size() > 1)
        addEnd(text.back().unicode() - 'A', text.size() == 2, syllable);
}

Syllable makeSyllable(QStringView text)
{
    Syllable syllable;
    syllable.size = text.size();
    syllable.initial = text.at(0).unicode() - 'A';
    syllable.bits = quint64(1) << syllable.initial;
    for (const QChar c : text)
        syllable.letters = syllable.letters << BitsOfLetter | letterOf(c.unicode() | 0x20);
    addChain(text, &syllable);
    if (text.size() < 2)
        return syllable;
    const int second = text.at(1).unicode() - 'A';
    syllable.bits |= pairBit(syllable.initial, second);
    if (second == U || second == V)
        syllable.bits |= pairBit(syllable.initial, second == U ? V : U);
    return syllable;
}

const std::vector<Syllable> &syllables()
{
    static const std::vector<Syllable> all = [] {
        std::vector<Syllable> made;
        for (int i = 0; i < CChCharacterToPP::syllableCount(); ++i)
            made.push_back(makeSyllable(CChCharacterToPP::syllableAt(i)));
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
    void chainTo(int place, SearchChain *chain) const
    {
        for (int i = 0; i < count; ++i)
            chain->add(chainBit(place, places[i]));
    }
    void chainTo(const Syllable &syllable, SearchChain *chain) const
    {
        chain->add(syllable.chain);
        for (int i = 0; i < syllable.endCount; ++i)
            chainTo(syllable.ends[i], chain);
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
    // `text` has to outlive this.
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
        traits->signature.chain.add(m_chain);
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
        m_following.chainTo(place, &m_chain);
        m_following.setOnly(place);
        return bits;
    }

    quint64 chinese(int i, quint32 *lengths)
    {
        const quint64 bits = hashedBit(m_text.at(i));
        m_chain.add(chainBit(m_text.at(i)));
        if (PinyinReadings::hasMore(QChar(m_text.at(i))))
            return bits | readMoreWays(i, lengths);
        if (m_numbers[i] < 0) {
            *lengths = 0;
            m_following.count = 0;
            return bits;
        }
        const Syllable &syllable = m_syllables[size_t(m_numbers[i])];
        *lengths = lengthened(*lengths, syllable.size);
        m_following.chainTo(syllable, &m_chain);
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
            m_following.chainTo(syllable, &m_chain);
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
    SearchChain m_chain;
    bool m_hasDigits = false;
};

// The same as by the walk, for what is not Chinese: forwards, so that a text can be
// continued.
class AsciiWalk
{
public:
    // False: this is not ASCII, and has to be walked as a whole.
    bool add(QStringView text)
    {
        for (const QChar c : text) {
            if (c.unicode() >= 0x80)
                return false;
            if (m_size == FoldedText::MaximumLength)
                break;
            add(ascii[c.unicode()], c.unicode());
        }
        return true;
    }

    void addTo(SearchTraits *traits) const
    {
        traits->signature.start |= m_start;
        traits->signature.inside |= m_inside;
        traits->signature.chain.add(m_chain);
        if (m_size == 0)
            return;
        const int longest = qMin(m_size, 15);
        const int shortest = qMin(m_size - m_separators, 15);
        const quint32 lengths = (quint32(2) << longest) - (quint32(1) << shortest);
        traits->wholeLengths |= lengths << (m_hasDigits ? 16 : 0);
    }

private:
    void add(Ascii unit, ushort c)
    {
        if (unit.kind == FoldedText::Separator) {
            if (m_size == 0)
                m_start |= hashedBit(c);
            ++m_separators;
        } else {
            m_hasDigits |= unit.kind == FoldedText::Digit;
            // Of the word that has just begun.
            if (m_first >= 0)
                *m_bits |= pairBit(m_first, unit.place);
            m_first = -1;
            if (m_before >= 0)
                m_chain.add(chainBit(m_before, unit.place));
            m_before = unit.place;
            if (unit.kind != m_kind)
                beginWord(unit.place);
        }
        m_kind = unit.kind;
        ++m_size;
    }
    void beginWord(int place)
    {
        m_bits = m_size == m_separators ? &m_start : &m_inside;
        *m_bits |= quint64(1) << place;
        m_first = place;
    }

    quint64 m_start = 0;
    quint64 m_inside = 0;
    quint64 *m_bits = &m_start; // where the word that began last belongs
    SearchChain m_chain;
    int m_before = -1; // the letter or digit that was last
    int m_first = -1;  // its first letter, as long as nothing follows
    int m_kind = FoldedText::Separator;
    int m_size = 0;
    int m_separators = 0;
    bool m_hasDigits = false;
};

void addText(const QString &text, SearchTraits *traits)
{
    if (text.isNull())
        return;
    AsciiWalk walk;
    if (walk.add(text))
        walk.addTo(traits);
    else
        Walk(FoldedText(text)).addTo(traits);
}

// A mail address mostly begins with the account.
void addAccountAndMail(const SearchEntry &entry, SearchTraits *traits)
{
    const QString &account = entry.account;
    AsciiWalk walk;
    if (entry.mail.startsWith(account) && walk.add(account)) {
        walk.addTo(traits);
        if (walk.add(QStringView(entry.mail).mid(account.size()))) {
            walk.addTo(traits);
            return;
        }
    } else {
        addText(account, traits);
    }
    addText(entry.mail, traits);
}
} // namespace

SearchMask::SearchMask(QStringView word) : beginning(unitBit(word.at(0).unicode()))
{
    int before = -1;
    for (int i = 0; i < word.size(); ++i) {
        const ushort unit = word.at(i).unicode();
        const int place = placeOf(unit);
        if (before >= 0 && place >= 0)
            chain.add(chainBit(before, place));
        if (before >= 0 && place >= 0 && i == 1)
            beginning |= pairBit(before, place);
        if (word.at(i).script() == QChar::Script_Han)
            chain.add(chainBit(unit));
        before = place;
    }
}

quint32 SearchTraits::lengthBitOf(const QString &typed)
{
    int length = 0;
    bool hasDigits = false;
    for (const QChar c : typed) {
        if (c.script() == QChar::Script_Han)
            return 0;
        hasDigits = hasDigits || c.isNumber();
        length += !TextPattern::isBetweenSyllables(c);
    }
    return lengthBit(length, hasDigits);
}

SearchTraits searchTraits(const SearchEntry &entry)
{
    SearchTraits traits;
    const FoldedText name(entry.name);
    Walk walk(name);
    walk.addTo(&traits);
    traits.nameKey = walk.key();
    addText(entry.remark, &traits);
    addText(entry.employeeCode, &traits);
    addAccountAndMail(entry, &traits);
    // An empty text would have to be looked at.
    if (!entry.phones.isNull())
        traits.signature.start |= SearchSignature::HasPhones;
    return traits;
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

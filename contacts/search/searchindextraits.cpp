#include "contacts/search/searchindextraits.h"

#include "common/cchcharactertopp.h"
#include "common/foldedtext.h"
#include "common/pinyinreadings.h"
#include "common/textmatch.h"

#include <array>
#include <utility>
#include <vector>

namespace {
using namespace SearchBits;

constexpr int BitsOfKey = 60;

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
            bits |= ofPair(place, places[i]);
        return bits;
    }
    void chainTo(int place, SearchChain *chain) const
    {
        for (int i = 0; i < count; ++i)
            chain->add(inChain(place, places[i]));
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

// The lengths of SearchTraits: a bit for each in its part, the last for all from then on.
constexpr int BitsOfLengths = 10;
constexpr int Longest = BitsOfLengths - 1;
enum LengthsPart
{
    OfLetters = 0,
    WithDigits = BitsOfLengths,
    OfChinese = 2 * BitsOfLengths
};

quint32 lengthBit(int length)
{
    return quint32(1) << qMin(length, Longest);
}

// Of so many units, each separator typed or left out.
quint32 lengthsUpTo(int size, int separators)
{
    return 2 * lengthBit(size) - lengthBit(size - separators);
}

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
        traits->wholeLengths |= lengths << (m_hasDigits ? WithDigits : OfLetters);
        if (m_hasChinese)
            traits->wholeLengths |= lengthsUpTo(m_text.size(), m_separators) << OfChinese;
        traits->signature.chain.add(m_chain);
    }

    quint64 key() const
    {
        quint64 key = 0;
        int room = BitsOfKey;
        for (int i = 0; i < m_text.size() && room > 0; ++i) {
            const bool isSpelled = m_numbers[i] >= 0;
            const Syllable *syllable = isSpelled ? &m_syllables[size_t(m_numbers[i])] : nullptr;
            const quint64 letters = isSpelled ? syllable->letters : letterOfKey(m_text.at(i));
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
        m_separators += isSeparator;
        m_hasDigits = m_hasDigits || m_text.kind(i) == FoldedText::Digit;
        const int place = placeOf(unit);
        if (place < 0) {
            if (!isSeparator)
                m_following.count = 0;
            else if (i == 0)
                m_chain.add(inChain(unit));
            return ofUnit(unit);
        }
        const quint64 bits = quint64(1) << place | m_following.pairsWith(place);
        m_following.chainTo(place, &m_chain);
        m_following.setOnly(place);
        return bits;
    }

    quint64 chinese(int i, quint32 *lengths)
    {
        const quint64 bits = ofUnit(m_text.at(i));
        m_hasChinese = true;
        m_chain.add(inChain(m_text.at(i)));
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
            const Syllable syllable(reading);
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
        const quint32 longest = lengthBit(Longest);
        const bool isLongest = longer >= longest || (lengths & longest) != 0;
        return (longer & (longest - 1)) | (isLongest ? longest : 0);
    }

    const FoldedText &m_text;
    const std::vector<Syllable> &m_syllables;
    qint16 m_numbers[FoldedText::MaximumLength];
    Following m_following;
    SearchChain m_chain;
    int m_separators = 0;
    bool m_hasDigits = false;
    bool m_hasChinese = false;
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
        const quint32 lengths = lengthsUpTo(m_size, m_separators);
        traits->wholeLengths |= lengths << (m_hasDigits ? WithDigits : OfLetters);
    }

private:
    void add(Ascii unit, ushort c)
    {
        if (unit.kind == FoldedText::Separator) {
            if (m_size == 0) {
                m_start |= ofUnit(c);
                m_chain.add(inChain(c));
            }
            ++m_separators;
        } else {
            m_hasDigits |= unit.kind == FoldedText::Digit;
            // Of the word that has just begun.
            if (m_first >= 0)
                *m_bits |= ofPair(m_first, unit.place);
            m_first = -1;
            if (m_before >= 0)
                m_chain.add(inChain(m_before, unit.place));
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

SearchMask::SearchMask(QStringView word) : beginning(ofUnit(word.at(0).unicode()))
{
    int before = -1;
    for (int i = 0; i < word.size(); ++i) {
        const ushort unit = word.at(i).unicode();
        const int place = placeOf(unit);
        if (before >= 0 && place >= 0)
            chain.add(inChain(before, place));
        if (before >= 0 && place >= 0 && i == 1)
            beginning |= ofPair(before, place);
        if (word.at(i).script() == QChar::Script_Han ||
            (i == 0 && FoldedText(word).kind(0) == FoldedText::Separator))
            chain.add(inChain(unit));
        before = place;
    }
}

quint32 SearchTraits::lengthBitOf(const QString &typed)
{
    int length = 0;
    int chinese = 0;
    bool hasDigits = false;
    for (const QChar c : typed) {
        chinese += c.script() == QChar::Script_Han;
        hasDigits = hasDigits || c.isNumber();
        length += !TextPattern::isBetweenSyllables(c);
    }
    if (chinese > 0 && chinese < length)
        return 0;
    return lengthBit(length) << (chinese > 0 ? OfChinese : hasDigits ? WithDigits : OfLetters);
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

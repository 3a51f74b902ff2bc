#include "common/textmatch.h"

#include "common/pinyinreadings.h"

#include <QtAlgorithms>

namespace {
// Places in the typed text: bit i says that its first i units are accounted for.
using Places = quint64;

// ü is V in the syllables. Who types knows it as v, as ü (u by now), and in üe,
// where the syllable has U, as v again.
bool sameLetter(QStringView syllable, int at, QChar typed)
{
    const QChar letter = syllable.at(at).toLower();
    if (letter == typed)
        return true;
    if (letter == QLatin1Char('v'))
        return typed == QLatin1Char('u');
    return typed == QLatin1Char('v') && letter == QLatin1Char('u') && at == 1 &&
           (syllable == u"LUE" || syllable == u"NUE");
}

// One way through the text, from one beginning on.
class Walk
{
public:
    Walk(const QString &typed, const FoldedText &text) : m_typed(typed), m_text(text) {}

    // The match that begins with this unit; its kind is Prefix, Initials, Exact or None.
    TextMatch from(int start)
    {
        m_spelled.places = m_abbreviated.places = 1;
        for (int i = start; i < m_text.size() && (m_spelled.places | m_abbreviated.places); ++i) {
            if (i > start)
                skipTypedBlanks(i);
            step(i);
        }
        const Way &way = m_spelled.end > 0 ? m_spelled : m_abbreviated;
        if (way.end == 0)
            return {};
        TextMatch match;
        match.kind = &way == &m_abbreviated ? TextMatch::Initials
                     : isAll(way)           ? TextMatch::Exact
                                            : TextMatch::Prefix;
        match.start = m_text.sourceStart(start);
        match.length = m_text.sourceEnd(way.end - 1) - match.start;
        return match;
    }

private:
    // What was reached letter by letter, or with some syllable by its initial alone.
    struct Way
    {
        Places places = 0;
        Places next = 0;
        int end = 0;            // of the text, where all that was typed is accounted for
        bool endsWhole = false; // not within a syllable
    };

    bool isAll(const Way &way) const
    {
        int end = way.end;
        while (end < m_text.size() && m_text.kind(end) == FoldedText::Separator)
            ++end;
        return way.endsWhole && end == m_text.size();
    }

    void skipTypedBlanks(int i)
    {
        if (m_text.kind(i) != FoldedText::Separator && !m_text.isStart(i))
            return;
        for (int at = 1; at < m_typed.size(); ++at) {
            if (!TextPattern::isBetweenSyllables(m_typed.at(at)))
                continue;
            for (Way *way : {&m_spelled, &m_abbreviated})
                way->places |= (way->places >> at & 1) << 1 << at;
        }
    }

    void step(int i)
    {
        m_spelled.next = m_abbreviated.next = 0;
        const QChar unit = m_text.at(i);
        for (Way *way : {&m_spelled, &m_abbreviated}) {
            for (Places left = way->places; left != 0; left &= left - 1) {
                const int place = int(qCountTrailingZeroBits(left));
                if (m_typed.at(place) == unit)
                    reach(way, place + 1, i, true);
                if (m_text.kind(i) == FoldedText::Separator && place > 0)
                    way->next |= Places(1) << place;
                else if (m_text.kind(i) == FoldedText::Chinese)
                    spell(way, place, i);
            }
        }
        m_spelled.places = m_spelled.next;
        m_abbreviated.places = m_abbreviated.next;
    }

    void reach(Way *way, int place, int i, bool isWhole)
    {
        if (place < m_typed.size()) {
            way->next |= Places(1) << place;
            return;
        }
        if (way->end == 0 || isWhole) {
            way->end = i + 1;
            way->endsWhole = isWhole;
        }
    }

    // A syllable may stop after its initial, which is two letters in zh, ch and
    // sh, and anywhere where the typed text ends.
    void spell(Way *way, int place, int i)
    {
        for (const QStringView syllable : PinyinReadings(m_text.text(), i, m_text.first())) {
            int letters = 0;
            while (letters < syllable.size() && place + letters < m_typed.size() &&
                   sameLetter(syllable, letters, m_typed.at(place + letters))) {
                ++letters;
                const bool isWhole = letters == syllable.size();
                const bool isInitial =
                    letters == 1 || (letters == 2 && syllable.at(1) == QLatin1Char('H'));
                if (isWhole || place + letters == m_typed.size())
                    reach(way, place + letters, i, isWhole);
                else if (isInitial)
                    reach(&m_abbreviated, place + letters, i, false);
            }
        }
    }

    const QString &m_typed;
    const FoldedText &m_text;
    Way m_spelled, m_abbreviated;
};

// The same for a plain pattern and a text without Chinese, in which a letter matches or
// does not.
TextMatch plainMatch(const QString &typed, const FoldedText &text, int start)
{
    int place = 0;
    int i = start;
    for (; i < text.size() && place < typed.size(); ++i) {
        if (text.at(i) == typed.at(place).unicode())
            ++place;
        else if (place == 0 || text.kind(i) != FoldedText::Separator)
            return {};
    }
    if (place < typed.size())
        return {};
    TextMatch match;
    match.start = text.sourceStart(start);
    match.length = text.sourceEnd(i - 1) - match.start;
    while (i < text.size() && text.kind(i) == FoldedText::Separator)
        ++i;
    match.kind = i == text.size() ? TextMatch::Exact : TextMatch::Prefix;
    return match;
}
} // namespace

bool TextPattern::isBetweenSyllables(QChar typed)
{
    return typed.isSpace() || typed == QLatin1Char('\'') || typed == QChar(0x2019);
}

TextPattern::TextPattern(const QString &typed)
{
    QStringView text = QStringView(typed).trimmed();
    const FoldedText folded(text);
    text = folded.text().trimmed();
    // Who has typed "xi'" is about to go on.
    int size = text.size();
    while (size > 1 && isBetweenSyllables(text.at(size - 1)))
        --size;
    m_text = text.left(size).toString();
    const FoldedText kinds(m_text);
    for (int i = 0; i < kinds.size(); ++i) {
        const bool isOuter = i == 0 || i == kinds.size() - 1;
        if (isBetweenSyllables(m_text.at(i)) || (isOuter && kinds.kind(i) == FoldedText::Separator))
            m_isPlain = false;
    }
}

TextMatch TextPattern::match(QStringView text) const
{
    return match(FoldedText(text));
}

TextMatch TextPattern::match(const FoldedText &text) const
{
    TextMatch best;
    if (m_text.isEmpty())
        return best;
    const bool isPlain = m_isPlain && !text.hasChinese();
    for (int i = 0; i < text.size(); ++i) {
        if (i > 0 && !text.isStart(i))
            continue;
        TextMatch match = isPlain ? plainMatch(m_text, text, i) : Walk(m_text, text).from(i);
        if (match.kind == TextMatch::None)
            continue;
        if (i <= text.first())
            return match;
        match.kind = text.isWordStart(i) ? TextMatch::Word : TextMatch::Inside;
        if (match.kind > best.kind)
            best = match;
        if (best.kind == TextMatch::Word)
            break;
    }
    return best;
}

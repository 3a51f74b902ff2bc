#include "common/namematch.h"

#include "common/cchcharactertopp.h"

#include <algorithm>

namespace {
constexpr int MaximumLength = 64;

bool isPlain(QChar c)
{
    return c.unicode() < 0x80 || !CChCharacterToPP::syllable(c).isEmpty();
}

// Without case, width, diacritics and invisible controls, at most MaximumLength units.
QString folded(const QString &text)
{
    const QString start = text.left(MaximumLength);
    if (std::all_of(start.begin(), start.end(), isPlain))
        return start.toLower();
    QString result;
    const QString decomposed = start.normalized(QString::NormalizationForm_KD);
    for (const QChar c : decomposed) {
        if (!c.isMark() && c.category() != QChar::Other_Format)
            result += c;
    }
    return result.toCaseFolded().left(MaximumLength);
}

enum class Kind
{
    Separator,
    Letter,
    Chinese
};

Kind kindOf(QChar c)
{
    if (c.script() == QChar::Script_Han)
        return Kind::Chinese;
    return c.isLetterOrNumber() || c.isSurrogate() ? Kind::Letter : Kind::Separator;
}

bool isBetweenSyllables(QChar typed)
{
    return typed.isSpace() || typed == QLatin1Char('\'') || typed == QChar(0x2019);
}

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

// The typed text and the places in it that can be reached: bit i of a set says
// that its first i units are accounted for.
class Typed
{
public:
    using Places = quint64;

    explicit Typed(const QString &text) : m_text(text) {}

    bool isFound() const { return m_found; }

    // Blanks may be typed after any syllable.
    Places withoutBlanks(Places from)
    {
        for (int i = 1; i < m_text.size(); ++i) {
            if (has(from, i) && isBetweenSyllables(m_text.at(i)))
                reach(&from, i + 1);
        }
        return from;
    }

    // The places after one more character of the name.
    Places after(QChar character, Kind kind, Places from)
    {
        const QStringView syllable = CChCharacterToPP::syllable(character);
        Places to = 0;
        for (int i = 0; i < m_text.size(); ++i) {
            if (!has(from, i))
                continue;
            if (m_text.at(i) == character)
                reach(&to, i + 1);
            if (kind == Kind::Separator && i > 0)
                reach(&to, i);
            else if (kind == Kind::Chinese)
                addSpelled(syllable, i, &to);
        }
        return to;
    }

private:
    static bool has(Places places, int i) { return places >> i & 1; }

    void reach(Places *places, int i)
    {
        if (i >= m_text.size())
            m_found = true;
        else
            *places |= Places(1) << i;
    }

    // A syllable may stop after its initial, which is two letters in zh, ch and
    // sh, and anywhere where the typed text ends.
    void addSpelled(QStringView syllable, int from, Places *places)
    {
        int letters = 0;
        while (letters < syllable.size() && from + letters < m_text.size() &&
               sameLetter(syllable, letters, m_text.at(from + letters))) {
            ++letters;
            const bool isInitial =
                letters == 1 || (letters == 2 && syllable.at(1) == QLatin1Char('H'));
            if (isInitial || letters == syllable.size() || from + letters == m_text.size())
                reach(places, from + letters);
        }
    }

    const QString m_text;
    bool m_found = false;
};
} // namespace

bool nameMatches(const QString &name, const QString &typed)
{
    const QString text = folded(typed).trimmed();
    if (text.isEmpty())
        return true;
    Typed search(text);
    Typed::Places places = 0;
    Kind before = Kind::Separator;
    const QString letters = folded(name);
    for (int i = 0; i < letters.size() && !search.isFound(); ++i) {
        const Kind kind = kindOf(letters.at(i));
        // A word begins after a separator, and where the script changes.
        if (i == 0 || kind != before)
            places |= 1;
        places = search.after(letters.at(i), kind, search.withoutBlanks(places));
        before = kind;
    }
    return search.isFound();
}

#include "common/cchcharactertopp.h"

#include <QTextCodec>

namespace {
// Eight bytes with the length in the last, so that a syllable is copied by one
// move of fixed size.
struct SyllableText
{
    template <size_t Size> constexpr SyllableText(const char (&syllable)[Size]) : text{}
    {
        static_assert(Size - 1 < sizeof(text), "the length has no place");
        for (size_t i = 0; i + 1 < Size; ++i)
            text[i] = syllable[i];
        text[sizeof(text) - 1] = Size - 1;
    }
    constexpr int length() const { return text[sizeof(text) - 1]; }

    char text[8];
};

#include "common/pinyintable.inc"

static_assert(sizeof(syllables) + sizeof(blockOf) + sizeof(units) <= 64 * 1024);

// What stands in the table for a unit that is no GB2312 character; a greater
// number is that of the syllable, counted from FirstSyllable.
enum UnitKind : quint16
{
    Nothing,
    QuestionMark,
    SingleByte, // a byte above 127 by itself: it takes the next byte with it
    Surrogate,
    FirstSyllable
};

inline quint16 kindOf(ushort unit)
{
    return units[blockOf[unit / BlockSize] * BlockSize + unit % BlockSize];
}

// Whether an encoder leaves the character out instead of replacing it.
bool isIgnorable(uint character)
{
    return (character >= 0x1BCA0 && character <= 0x1BCA3) ||
           (character >= 0x1D173 && character <= 0x1D17A) ||
           (character >= 0xE0000 && character <= 0xE0FFF);
}

// A run of units short enough for a buffer on the stack.
constexpr int RunLength = 64;
constexpr int LongestSyllable = int(sizeof(SyllableText::text));

class Converter
{
public:
    explicit Converter(const QString &text) : m_at(text.utf16()), m_end(m_at + text.size()) {}

    bool atEnd() const { return m_at == m_end; }
    // Whether a unit was met whose byte shifts all that follow.
    bool isShifted() const { return m_shifted; }

    // Converts at most RunLength units; returns the length of the result.
    int convertRun(ushort *out)
    {
        ushort *const begin = out;
        const ushort *const stop = m_end - m_at > RunLength ? m_at + RunLength : m_end;
        while (m_at < stop) {
            const ushort unit = *m_at++;
            if (unit < 0x80) {
                *out++ = unit;
                continue;
            }
            const quint16 kind = kindOf(unit);
            if (Q_LIKELY(kind >= FirstSyllable)) {
                const SyllableText &syllable = syllables[kind - FirstSyllable];
                for (int i = 0; i < LongestSyllable; ++i)
                    out[i] = ushort(syllable.text[i]);
                out += syllable.length();
            } else if (kind == QuestionMark || (kind == Surrogate && isReplaced(unit))) {
                *out++ = '?';
            } else if (kind == SingleByte) {
                m_shifted = true;
                break;
            }
        }
        return int(out - begin);
    }

private:
    // The encoder waits for the second half of a pair: a first half that the text
    // ends with is forgotten.
    bool isReplaced(ushort unit)
    {
        if (!QChar::isHighSurrogate(unit))
            return true;
        if (m_at == m_end)
            return false;
        if (!QChar::isLowSurrogate(*m_at))
            return true;
        return !isIgnorable(QChar::surrogateToUcs4(unit, *m_at++));
    }

    const ushort *m_at;
    const ushort *const m_end;
    bool m_shifted = false;
};

// The walk itself, for the rare text whose bytes do not pair up as its
// characters do.
void appendByteWalk(const QString &text, QString *out)
{
    const QTextCodec *gbk = QTextCodec::codecForName("GBK");
    const QByteArray bytes = gbk ? gbk->fromUnicode(text) : QByteArray();
    for (int i = 0; i < bytes.size(); ++i) {
        const auto high = uchar(bytes.at(i));
        if (high < 0x80) {
            *out += QLatin1Char(char(high));
            continue;
        }
        if (++i == bytes.size())
            return;
        if (high < 0xA1 || uchar(bytes.at(i)) < 0xA1)
            continue;
        const QString character = gbk->toUnicode(bytes.constData() + i - 1, 2);
        const QLatin1String syllable =
            CChCharacterToPP::syllable(character.isEmpty() ? QChar() : character.at(0));
        *out += syllable.isEmpty() ? QLatin1String("?") : syllable;
    }
}
} // namespace

CChCharacterToPP::~CChCharacterToPP() = default;

QString CChCharacterToPP::toPinyin(const QString &text, bool firstCharacterOnly) const
{
    QString result;
    if (firstCharacterOnly && text.size() > 1)
        appendPinyin(text.left(text.at(0).isHighSurrogate() ? 2 : 1), &result);
    else
        appendPinyin(text, &result);
    return result;
}

void CChCharacterToPP::appendPinyin(const QString &text, QString *out)
{
    const int before = out->size();
    Converter converter(text);
    ushort buffer[RunLength * LongestSyllable];
    while (!converter.atEnd()) {
        const int length = converter.convertRun(buffer);
        if (converter.isShifted()) {
            out->truncate(before);
            appendByteWalk(text, out);
            return;
        }
        const auto *characters = reinterpret_cast<const QChar *>(buffer);
        // A new string gets exactly the memory that it needs.
        if (out->isEmpty())
            *out = QString(characters, length);
        else
            out->append(characters, length);
    }
}

QString CChCharacterToPP::initials(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar c : text) {
        const QLatin1String letters = syllable(c);
        if (!letters.isEmpty())
            result += letters.at(0);
        else if (c.unicode() < 0x80 && c.isLetterOrNumber())
            result += c;
    }
    return result;
}

QLatin1String CChCharacterToPP::syllable(QChar character)
{
    const quint16 kind = kindOf(character.unicode());
    if (kind < FirstSyllable)
        return QLatin1String();
    const SyllableText &found = syllables[kind - FirstSyllable];
    return QLatin1String(found.text, found.length());
}

int CChCharacterToPP::tableSize()
{
    return int(sizeof(syllables) + sizeof(blockOf) + sizeof(units));
}

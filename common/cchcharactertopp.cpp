#include "common/cchcharactertopp.h"

#include "common/codepage936.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace {
#include "common/pinyintable.inc"

// Eight units, so that a text is copied by one move of fixed size.
struct Row
{
    ushort text[8];
};
constexpr int RowLength = int(std::size(Row{}.text));

constexpr auto makeRows()
{
    std::array<Row, FirstSyllable + std::size(syllables)> rows{};
    for (size_t i = 0; i < FirstSyllable; ++i)
        rows[i].text[0] = ushort(i);
    for (size_t i = 0; i < std::size(syllables); ++i) {
        for (size_t at = 0; syllables[i][at] != 0; ++at)
            rows[FirstSyllable + i].text[at] = ushort(syllables[i][at]);
    }
    return rows;
}
constexpr auto rows = makeRows();

constexpr size_t TableSize = sizeof(rows) + sizeof(blockOf) + sizeof(units);
static_assert(TableSize <= 64 * 1024);

inline quint16 entryOf(ushort unit)
{
    return units[blockOf[unit / BlockSize] * BlockSize + unit % BlockSize];
}
inline int rowOf(quint16 entry)
{
    return entry & ((1 << LengthShift) - 1);
}
inline int lengthOf(quint16 entry)
{
    return (entry & ~ByCodec) >> LengthShift;
}

// The most units that are converted at once.
constexpr int RunLength = 64;

// Converts at most RunLength units. Null when only the codec can tell.
//
// Each row is written whole, and the next one over its rest. What the last row
// writes behind the text must be there, and is not part of the string: QString's
// own constructor and resize() would take as long again as all the rest.
inline QString convertedRun(const ushort *from, int count)
{
    quint16 entries[RunLength];
    int length = 0;
    int last = 0;
    int seen = 0;
    for (int i = 0; i < count; ++i) {
        entries[i] = entryOf(from[i]);
        last = lengthOf(entries[i]);
        length += last;
        seen |= entries[i];
    }
    if (Q_UNLIKELY(seen & ByCodec))
        return QString();

    QStringData *data = QStringData::allocate(size_t(length - last + RowLength));
    Q_CHECK_PTR(data);
    data->size = length;
    ushort *out = data->data();
    for (int i = 0; i < count; ++i) {
        std::memcpy(out, rows[size_t(rowOf(entries[i]))].text, sizeof(Row));
        out += lengthOf(entries[i]);
    }
    *out = 0;
    return QString(QStringDataPtr{data});
}

// The walk over the bytes, for a text with surrogates or with a character whose
// single byte takes the next one with it.
QString walkedBytes(const QString &text)
{
    QString result;
    const QByteArray bytes = toCodePage936(text);
    for (int i = 0; i < bytes.size(); ++i) {
        const auto high = uchar(bytes.at(i));
        if (high < 0x80) {
            result += QLatin1Char(char(high));
            continue;
        }
        if (++i == bytes.size())
            break;
        if (high < 0xA1 || uchar(bytes.at(i)) < 0xA1)
            continue;
        const QStringView syllable =
            CChCharacterToPP::syllable(fromCodePage936(bytes.constData() + i - 1));
        if (syllable.isEmpty())
            result += QLatin1Char('?');
        else
            result += syllable;
    }
    return result;
}

QString convertedRuns(const QString &text)
{
    QString result;
    for (int at = 0; at < text.size(); at += RunLength) {
        const QString run = convertedRun(text.utf16() + at, qMin(RunLength, text.size() - at));
        if (run.isNull())
            return walkedBytes(text);
        result += run;
    }
    return result;
}
} // namespace

CChCharacterToPP::~CChCharacterToPP() = default;

QString CChCharacterToPP::toPinyin(const QString &text, bool firstCharacterOnly) const
{
    int count = text.size();
    if (firstCharacterOnly && count > 1)
        count = text.at(0).isHighSurrogate() ? 2 : 1;
    if (Q_UNLIKELY(count > RunLength))
        return convertedRuns(text);
    QString result = convertedRun(text.utf16(), count);
    if (Q_UNLIKELY(result.isNull()))
        result = walkedBytes(text.left(count));
    return result;
}

QStringView CChCharacterToPP::syllable(QChar character)
{
    const quint16 entry = entryOf(character.unicode());
    if (rowOf(entry) < FirstSyllable)
        return {};
    return QStringView(rows[size_t(rowOf(entry))].text, lengthOf(entry));
}

void CChCharacterToPP::syllableNumbers(QStringView text, qint16 *numbers)
{
    for (const QChar c : text)
        *numbers++ = qint16(qMax(rowOf(entryOf(c.unicode())) - int(FirstSyllable), -1));
}

int CChCharacterToPP::syllableCount()
{
    return int(std::size(syllables));
}

QStringView CChCharacterToPP::syllableAt(int number)
{
    const ushort *text = rows[size_t(FirstSyllable + number)].text;
    return QStringView(text); // up to its NUL
}

int CChCharacterToPP::tableSize()
{
    return int(TableSize);
}

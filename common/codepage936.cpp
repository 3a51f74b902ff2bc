#include "common/codepage936.h"

#include <QTextCodec>

#include <algorithm>
#include <iterator>

namespace {
struct Range
{
    uint first, last;
};

constexpr Range Invisible[] = {
    {0x00AD, 0x00AD},   {0x034F, 0x034F},   {0x061C, 0x061C}, {0x115F, 0x1160}, {0x17B4, 0x17B5},
    {0x180B, 0x180F},   {0x200B, 0x200F},   {0x202A, 0x202E}, {0x2060, 0x206F}, {0x3164, 0x3164},
    {0xFE00, 0xFE0F},   {0xFEFF, 0xFEFF},   {0xFFA0, 0xFFA0}, {0xFFF0, 0xFFF8}, {0x1BCA0, 0x1BCA3},
    {0x1D173, 0x1D17A}, {0xE0000, 0xE0FFF},
};

bool isInvisible(uint c)
{
    return std::any_of(std::begin(Invisible), std::end(Invisible),
                       [c](const Range &range) { return c >= range.first && c <= range.last; });
}

// Characters whose places have others in the later standard; 0 for all others.
int placeOf(uint c)
{
    if (c == 0xE76C)
        return 0xA2E3;
    if (c == 0xE7C8)
        return 0xA8BF;
    if (c >= 0xE7E7 && c <= 0xE7F3)
        return int(c - 0xE7E7) + 0xA989;
    if (c >= 0xE815 && c <= 0xE864) // without 0xFE7F
        return int(c - 0xE815) + 0xFE50 + (c > 0xE843 ? 1 : 0);
    return 0;
}

bool isPlaceOfOthers(int place)
{
    return place == 0xA2E3 || place == 0xA8BF || (place >= 0xA989 && place <= 0xA995) ||
           (place >= 0xFE50 && place <= 0xFEA0);
}

const QTextCodec *gbk()
{
    return QTextCodec::codecForName("GBK");
}

void append(QByteArray *bytes, int place)
{
    *bytes += char(place >> 8);
    *bytes += char(place & 0xFF);
}

void append(QByteArray *bytes, const QTextCodec *codec, uint c)
{
    if (c < 0x80) {
        *bytes += char(c);
    } else if (c == 0x20AC) {
        *bytes += '\x80';
    } else if (c == 0xF8F5) {
        *bytes += '\xff';
    } else if (const int place = placeOf(c)) {
        append(bytes, place);
    } else {
        const QByteArray two =
            c < 0x10000 && codec ? codec->fromUnicode(QString(QChar(ushort(c)))) : QByteArray();
        const int known = two.size() == 2 ? uchar(two.at(0)) << 8 | uchar(two.at(1)) : 0;
        if (known != 0 && !isPlaceOfOthers(known))
            append(bytes, known);
        else if (!isInvisible(c))
            *bytes += '?';
    }
}
} // namespace

QByteArray toCodePage936(const QString &text)
{
    const QTextCodec *codec = gbk();
    QByteArray bytes;
    bytes.reserve(2 * text.size());
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (!c.isSurrogate())
            append(&bytes, codec, c.unicode());
        else if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate())
            append(&bytes, codec, QChar::surrogateToUcs4(c, text.at(++i)));
        else
            bytes += '?';
    }
    return bytes;
}

QChar fromCodePage936(const char *bytes)
{
    const QTextCodec *codec = gbk();
    const QString character = codec ? codec->toUnicode(bytes, 2) : QString();
    return character.isEmpty() ? QChar() : character.at(0);
}

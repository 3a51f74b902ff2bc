#include "host/vcard/vcardtext.h"

#include <QTextCodec>

namespace {
bool decodeExactly(QTextCodec *codec, const QByteArray &bytes, QString *text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    *text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    c = char(c | 0x20);
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}
} // namespace

// The 3,755 commonest Chinese characters are pairs of high bytes, the first from
// B0 to D7. In Western text a high byte usually stands alone between letters, and
// the small letters with marks, which may stand in pairs, begin at E0.
VCardText::Family VCardText::familyOf(const QByteArray &bytes)
{
    int common = 0, alone = 0;
    for (int i = 0; i < bytes.size();) {
        int end = i;
        while (end < bytes.size() && uchar(bytes.at(end)) >= 0xa0)
            ++end;
        if (end == i) {
            ++i;
            continue;
        }
        alone += (end - i) % 2;
        for (int pair = i; pair + 1 < end; pair += 2) {
            const uchar lead = uchar(bytes.at(pair));
            common += lead >= 0xb0 && lead <= 0xd7 ? 1 : 0;
        }
        i = end;
    }
    QString text;
    if (!decodeExactly(QTextCodec::codecForName("GB18030"), bytes, &text) || alone > common)
        return Western;
    return common > alone ? Chinese : Unknown;
}

QString VCardText::decode(const QByteArray &bytes)
{
    QString text;
    if (decodeExactly(QTextCodec::codecForName("UTF-8"), bytes, &text))
        return text;
    Family family = familyOf(bytes);
    if (family == Unknown)
        family = m_family == Unknown ? Chinese : m_family;
    else
        m_family = family;
    const char *codec = family == Chinese ? "GB18030" : "windows-1252";
    return QTextCodec::codecForName(codec)->toUnicode(bytes);
}

QString VCardText::decode(const QByteArray &bytes, const QByteArray &charset, bool *known)
{
    QTextCodec *codec = charset.isEmpty() ? nullptr : QTextCodec::codecForName(charset);
    *known = codec || charset.isEmpty();
    QString text;
    // Wrong names are common: "CHARSET=UTF-8" on text that is none.
    if (codec && decodeExactly(codec, bytes, &text))
        return text;
    return decode(bytes);
}

QByteArray VCardText::fromQuotedPrintable(const QByteArray &text)
{
    QByteArray bytes;
    bytes.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        const int high = text.at(i) == '=' && i + 2 < text.size() ? hexDigit(text.at(i + 1)) : -1;
        const int low = high >= 0 ? hexDigit(text.at(i + 2)) : -1;
        if (low < 0) {
            bytes.append(text.at(i));
            continue;
        }
        const char c = char(high * 16 + low);
        if (c == ';' || c == ',' || c == '\\')
            bytes.append('\\');
        bytes.append(c);
        i += 2;
    }
    return bytes;
}

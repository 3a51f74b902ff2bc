#include "host/vcard/vcardtext.h"

#include <QHash>
#include <QTextCodec>

namespace {
bool decodeExactly(QTextCodec *codec, const QByteArray &bytes, QString *text)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    *text = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0;
}

// Only these: for any other name the codec library would look for a file.
QTextCodec *codecOf(const QByteArray &charset)
{
    static const QHash<QByteArray, QByteArray> names = {{"utf-8", "UTF-8"},
                                                        {"utf8", "UTF-8"},
                                                        {"us-ascii", "UTF-8"},
                                                        {"ascii", "UTF-8"},
                                                        {"gb2312", "GB18030"},
                                                        {"gbk", "GB18030"},
                                                        {"gb18030", "GB18030"},
                                                        {"cp936", "GB18030"},
                                                        {"windows-936", "GB18030"},
                                                        {"x-gbk", "GB18030"},
                                                        {"big5", "Big5"},
                                                        {"big5-hkscs", "Big5-HKSCS"},
                                                        {"iso-8859-1", "windows-1252"},
                                                        {"latin1", "windows-1252"},
                                                        {"windows-1252", "windows-1252"},
                                                        {"iso-8859-15", "ISO-8859-15"},
                                                        {"iso-8859-2", "ISO-8859-2"},
                                                        {"windows-1250", "windows-1250"},
                                                        {"windows-1251", "windows-1251"},
                                                        {"koi8-r", "KOI8-R"},
                                                        {"windows-1256", "windows-1256"},
                                                        {"windows-1255", "windows-1255"},
                                                        {"shift_jis", "Shift_JIS"},
                                                        {"iso-2022-jp", "ISO-2022-JP"},
                                                        {"euc-jp", "EUC-JP"},
                                                        {"euc-kr", "EUC-KR"},
                                                        {"utf-16", "UTF-16"}};
    const auto known = names.constFind(charset.trimmed().toLower());
    return known == names.constEnd() ? nullptr : QTextCodec::codecForName(*known);
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
    QTextCodec *codec = codecOf(charset);
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

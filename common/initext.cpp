#include "common/initext.h"

#include <cctype>
#include <cstring>

namespace {
const char *const objectMarks[] = {"@Variant(", "@DateTime("};

// Whether the list of characters has this one; never for a null character.
bool isOneOf(const char *characters, char c)
{
    return c != '\0' && std::strchr(characters, c) != nullptr;
}

int digitOf(char c, int base)
{
    int digit = -1;
    if (c >= '0' && c <= '9')
        digit = c - '0';
    else if (c >= 'a' && c <= 'f')
        digit = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        digit = c - 'A' + 10;
    return digit < base ? digit : -1;
}

// Reads the digits of an escape, as many as there are. A result that is no ASCII
// character does not matter here and comes out as 127.
char numberedCharacter(const QByteArray &ini, int *at, int base)
{
    uint code = 0;
    for (int digit; *at < ini.size() && (digit = digitOf(ini.at(*at), base)) >= 0; ++*at)
        code = (code * uint(base) + uint(digit)) & 0xffff; // as wide as a QChar
    return code < 127 ? char(code) : char(127);
}

// What the escape means whose letter is at *at; a null character when it means
// nothing that matters here.
char escapedCharacter(const QByteArray &ini, int *at)
{
    const char letter = ini.at((*at)++);
    if (letter == 'x' && *at < ini.size() && digitOf(ini.at(*at), 16) >= 0)
        return numberedCharacter(ini, at, 16);
    if (digitOf(letter, 8) >= 0)
        return numberedCharacter(ini, &--*at, 8);
    return isOneOf("\"?'\\", letter) ? letter : '\0';
}

// The visible ASCII characters that the values consist of once the escapes are
// resolved. Quotes, blanks, continued lines, unknown escapes and other characters
// are left out: they may stand within a mark without a trace in what is read.
QByteArray resolved(const QByteArray &ini)
{
    QByteArray text;
    text.reserve(ini.size());
    int i = 0;
    while (i < ini.size()) {
        char c = ini.at(i++);
        if (c == '"')
            continue;
        if (c == '\\' && i < ini.size())
            c = escapedCharacter(ini, &i);
        if (c > ' ' && uchar(c) < 127)
            text += c;
    }
    return text;
}

// Where the line that begins at this place ends: at a line break outside quotes, or
// at the end of the text. Negative when a quote is left open.
int endOfLine(const QByteArray &ini, int at)
{
    bool inQuotes = false;
    const bool isComment = at < ini.size() && ini.at(at) == ';';
    for (; at < ini.size(); ++at) {
        const char c = ini.at(at);
        if ((c == '\n' || c == '\r') && !inQuotes)
            return at;
        if (isComment)
            continue;
        if (c == '"')
            inQuotes = !inQuotes;
        else if (c == '\\' && ini.mid(at + 1, 2) == "\r\n")
            at += 2;
        else if (c == '\\')
            ++at;
    }
    return inQuotes ? -1 : int(ini.size());
}

} // namespace

bool IniText::holdsObjects(const QByteArray &ini)
{
    if (!ini.contains('@') && !ini.contains('\\'))
        return false;
    const QByteArray text = resolved(ini);
    for (const char *mark : objectMarks) {
        for (int at = text.indexOf(mark); at >= 0; at = text.indexOf(mark, at + 1)) {
            // At the beginning of a value, or of an element of a list.
            if (at == 0 || isOneOf("=,", text.at(at - 1)))
                return true;
        }
    }
    return false;
}

bool IniText::hasByteOrderMark(const QByteArray &ini)
{
    return ini.startsWith("\xef\xbb\xbf");
}

bool IniText::isWellFormed(const QByteArray &ini)
{
    int at = hasByteOrderMark(ini) ? 3 : 0;
    while (at < ini.size()) {
        const int end = endOfLine(ini, at);
        if (end < 0)
            return false;
        while (at < end && uchar(ini.at(at)) <= ' ')
            ++at;
        const char first = at < end ? ini.at(at) : ';';
        const char *const line = ini.constData() + at;
        if (first != ';' && !std::memchr(line, first == '[' ? ']' : '=', size_t(end - at)))
            return false;
        at = end + 1;
    }
    return true;
}

bool IniText::isWritable(const QString &value)
{
    // What resolving may leave out or insert is none of these characters.
    QByteArray text;
    for (const QChar c : value) {
        const char latin = c.toLatin1();
        if ((uchar(latin) < 127 && std::isalpha(uchar(latin))) || isOneOf("@(", latin))
            text += latin;
    }
    for (const char *mark : objectMarks) {
        if (text.contains(mark))
            return false;
    }
    return true;
}

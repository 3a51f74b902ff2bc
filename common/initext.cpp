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

// The ASCII characters that the values consist of once the escapes are resolved.
// Quotes, continued lines, unknown escapes and other characters are left out:
// they may stand within a mark without a trace in what is read.
QByteArray resolved(const QByteArray &ini)
{
    QByteArray text;
    text.reserve(ini.size());
    int i = 0;
    while (i < ini.size()) {
        const char c = ini.at(i++);
        if (c == '\\' && i < ini.size()) {
            const char escaped = ini.at(i++);
            if (escaped == 'x' && i < ini.size() && digitOf(ini.at(i), 16) >= 0)
                text += numberedCharacter(ini, &i, 16);
            else if (digitOf(escaped, 8) >= 0)
                text += numberedCharacter(ini, &--i, 8);
            else if (isOneOf("abfnrtv", escaped))
                text += ' ';
            else if (isOneOf("\"?'\\", escaped))
                text += escaped;
        } else if (c != '"' && uchar(c) < 127) {
            text += c;
        }
    }
    return text;
}

// Whether a value, or an element of a list, begins at this place: behind "=" or
// ",", blanks apart.
bool beginsValue(const QByteArray &text, int at)
{
    while (at > 0 && uchar(text.at(at - 1)) <= ' ')
        --at;
    return at == 0 || text.at(at - 1) == '=' || text.at(at - 1) == ',';
}
} // namespace

bool IniText::holdsObjects(const QByteArray &ini)
{
    if (!ini.contains('@') && !ini.contains('\\'))
        return false;
    const QByteArray text = resolved(ini);
    for (const char *mark : objectMarks) {
        for (int at = text.indexOf(mark); at >= 0; at = text.indexOf(mark, at + 1)) {
            if (beginsValue(text, at))
                return true;
        }
    }
    return false;
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

#include "common/displaytext.h"

#include "common/context.h"

#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>

namespace {
constexpr int MaximumMarks = 4;
// A letter of two code units with its marks of as many.
constexpr int MaximumUnits = MaximumGraphemes * 2 * (1 + MaximumMarks);
// What is dropped counts, so that a flood of it costs no time.
constexpr int ExaminedPerUnit = 16;

// Whether a character neither changes nor combines with its neighbours. Knows the
// letters of the usual names, not all of them.
bool isPlain(ushort c)
{
    return (c >= 0x20 && c < 0x7f) || (c >= 0x4e00 && c <= 0x9fff) || // ASCII, Chinese
           (c >= 0xa0 && c < 0x300 && c != 0xad) ||                   // Latin
           (c >= 0x370 && c <= 0x482) || (c >= 0x3001 && c <= 0x3029) ||
           (c >= 0x3041 && c <= 0x3096) || (c >= 0x30a0 && c <= 0x30ff) || // kana
           (c >= 0xac00 && c <= 0xd7a3) || (c >= 0xff01 && c <= 0xff5e);
}

bool isPlainText(const QString &text)
{
    if (text.size() > MaximumGraphemes)
        return false;
    const ushort *at = text.utf16();
    return std::all_of(at, at + text.size(), isPlain);
}

bool isDirectionControl(uint c)
{
    return (c >= 0x202a && c <= 0x202e) || (c >= 0x2066 && c <= 0x2069);
}

bool isLineEndOrControl(uint c)
{
    return QChar::category(c) == QChar::Other_Control || c == QChar::LineSeparator ||
           c == QChar::ParagraphSeparator;
}

bool isMark(uint c)
{
    return QChar::isMark(c) || QChar::category(c) == QChar::Other_Format;
}

bool isRightToLeft(uint c)
{
    const QChar::Direction direction = QChar::direction(c);
    return direction == QChar::DirR || direction == QChar::DirAL;
}

// The code point at *at, which moves behind it.
uint nextCodePoint(const QString &text, int *at)
{
    const QChar first = text.at((*at)++);
    if (!first.isSurrogate())
        return first.unicode();
    if (first.isHighSurrogate() && *at < text.size() && text.at(*at).isLowSurrogate())
        return QChar::surrogateToUcs4(first, text.at((*at)++));
    return QChar::ReplacementCharacter;
}

void append(QString *text, uint c)
{
    if (QChar::requiresSurrogates(c)) {
        *text += QChar(QChar::highSurrogate(c));
        *text += QChar(QChar::lowSurrogate(c));
    } else {
        *text += QChar(c);
    }
}

struct CleanText
{
    QString text;
    bool rightToLeft = false;
    bool cut = false;
};

CleanText cleaned(const QString &source, int maximumUnits = MaximumUnits)
{
    CleanText result;
    result.text.reserve(std::min(source.size(), maximumUnits));
    bool blankDue = false;
    int marks = 0;
    int at = 0;
    while (at < source.size()) {
        if (at / ExaminedPerUnit >= maximumUnits || result.text.size() >= maximumUnits) {
            result.cut = true;
            break;
        }
        const uint c = nextCodePoint(source, &at);
        if (c == 0 || isDirectionControl(c))
            continue;
        if (isLineEndOrControl(c)) {
            blankDue = !result.text.isEmpty();
            continue;
        }
        marks = isMark(c) ? marks + 1 : 0;
        if (marks > MaximumMarks)
            continue;
        if (blankDue)
            result.text += QLatin1Char(' ');
        blankDue = false;
        append(&result.text, c);
        result.rightToLeft = result.rightToLeft || isRightToLeft(c);
    }
    return result;
}

// One line end for each that the text has, whichever way it writes them.
QStringList linesOf(const QString &text)
{
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    for (const QChar end :
         {QChar(QLatin1Char('\r')), QChar(QChar::LineSeparator), QChar(QChar::ParagraphSeparator)})
        lines.replace(end, QLatin1Char('\n'));
    return lines.split(QLatin1Char('\n'));
}

void cutToGraphemes(CleanText *clean)
{
    if (!clean->cut && clean->text.size() <= MaximumGraphemes)
        return;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, clean->text);
    int room = 0; // where the ellipsis goes
    for (int count = 1; count <= MaximumGraphemes; ++count) {
        const int end = finder.toNextBoundary();
        if (end < 0 || (end == clean->text.size() && !clean->cut))
            return;
        if (count < MaximumGraphemes)
            room = end;
    }
    clean->text.truncate(room);
    clean->text += QChar(0x2026);
}

QString firstToShow(std::initializer_list<const QString *> texts)
{
    for (const QString *text : texts) {
        const QString shown = displayText(*text);
        const auto isBlank = [](QChar c) { return c.isSpace(); };
        if (!std::all_of(shown.begin(), shown.end(), isBlank))
            return shown;
    }
    return QString();
}
} // namespace

QString displayText(const QString &text)
{
    if (isPlainText(text))
        return text;
    CleanText clean = cleaned(text);
    cutToGraphemes(&clean);
    if (clean.rightToLeft)
        clean.text = QChar(0x2068) + clean.text + QChar(0x2069);
    return clean.text;
}

QString paragraphText(const QString &text)
{
    QString shown;
    const QStringList lines = linesOf(text.left(MaximumParagraph * 2));
    bool blankDue = false;
    bool cut = text.size() > MaximumParagraph * 2;
    for (const QString &line : lines) {
        const int room = MaximumParagraph - shown.size();
        if (room <= 2) {
            cut = true;
            break;
        }
        const CleanText clean = cleaned(line, room - 2);
        if (clean.text.trimmed().isEmpty()) {
            blankDue = !shown.isEmpty();
            continue;
        }
        if (!shown.isEmpty())
            shown += blankDue ? QStringLiteral("\n\n") : QStringLiteral("\n");
        blankDue = false;
        shown += clean.text;
        cut = cut || clean.cut;
        if (clean.cut)
            break;
    }
    if (!cut)
        return shown;
    shown.truncate(MaximumParagraph - 1);
    if (!shown.isEmpty() && shown.at(shown.size() - 1).isHighSurrogate())
        shown.chop(1);
    return shown + QChar(0x2026);
}

QString toolTipText(const QString &text)
{
    constexpr int MaximumLength = 2000;
    QString shown = text;
    if (shown.size() > MaximumLength) {
        shown.truncate(MaximumLength - (shown.at(MaximumLength - 1).isHighSurrogate() ? 1 : 0));
        shown += QChar(0x2026);
    }
    if (!shown.contains(QLatin1Char('<')) && !shown.contains(QLatin1Char('&')))
        return shown;
    QString lines = shown.toHtmlEscaped();
    lines.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<qt>") + lines + QLatin1String("</qt>");
}

QString menuText(const QString &text)
{
    QString shown = displayText(text);
    if (shown.contains(QLatin1Char('&')))
        shown.replace(QLatin1Char('&'), QLatin1String("&&"));
    return shown;
}

QString jidUser(const QString &jid)
{
    const int at = jid.indexOf(QLatin1Char('@'));
    return at < 0 ? jid : jid.left(at);
}

QString makeJid(const QString &uid)
{
    if (uid.isEmpty() || uid.contains(QLatin1Char('@')))
        return uid;
    return uid + QLatin1Char('@') + ctx().serverDomain();
}

QString contactDisplayName(const FriendData &contact)
{
    // The usual contact has a name: the jid is then not looked at.
    const QString name = firstToShow({&contact.remark, &contact.nickName});
    return name.isEmpty() ? displayText(jidUser(contact.jid)) : name;
}

QString contactDisplayName(const FriendData &contact, const VcardInfo &profile)
{
    const QString user = jidUser(contact.jid);
    return firstToShow(
        {&contact.remark, &profile.nickName, &contact.nickName, &profile.userName, &user});
}

QString displayNameOf(const QString &jid)
{
    FriendData contact;
    VcardInfo profile;
    ctx().friendData(jid, &contact);
    ctx().vcard(jid, &profile);
    contact.jid = jid;
    return contactDisplayName(contact, profile);
}

bool isReservedFileName(const QString &name)
{
    const QString base = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    if (base.size() == 4 &&
        (base.startsWith(QLatin1String("COM")) || base.startsWith(QLatin1String("LPT"))))
        return base.at(3).isNumber(); // superscript digits, too
    return QStringList{QStringLiteral("CON"), QStringLiteral("PRN"), QStringLiteral("AUX"),
                       QStringLiteral("NUL")}
        .contains(base);
}

QString safeFileName(const QString &text)
{
    // As long as a suffix finds room in the 255 bytes that file systems allow.
    constexpr int MaximumLength = 80;
    QString name = text.left(MaximumLength);
    for (QChar &c : name) {
        const bool allowed = c.isLetterOrNumber() || c == QLatin1Char('@') ||
                             c == QLatin1Char('.') || c == QLatin1Char('_') ||
                             c == QLatin1Char('-');
        if (!allowed)
            c = QLatin1Char('_');
    }
    for (int i = 0; i < name.size() && name.at(i) == QLatin1Char('.'); ++i)
        name[i] = QLatin1Char('_');
    for (int i = name.size() - 1; i >= 0 && name.at(i) == QLatin1Char('.'); --i)
        name[i] = QLatin1Char('_');
    if (name.isEmpty() || isReservedFileName(name))
        name.prepend(QLatin1Char('_'));
    return name;
}

#include "common/foldedtext.h"

#include <QHash>
#include <QString>

#include <array>

namespace {
struct Plain
{
    ushort unit = 0;
    FoldedText::Kind kind = FoldedText::Separator;
};

constexpr auto makeAscii()
{
    std::array<Plain, 128> ascii{};
    for (size_t i = 0; i < ascii.size(); ++i) {
        const bool isUpper = i >= 'A' && i <= 'Z';
        const bool isLower = i >= 'a' && i <= 'z';
        const bool isDigit = i >= '0' && i <= '9';
        ascii[i].unit = ushort(isUpper ? i - 'A' + 'a' : i);
        ascii[i].kind = isDigit              ? FoldedText::Digit
                        : isUpper || isLower ? FoldedText::Letter
                                             : FoldedText::Separator;
    }
    return ascii;
}
constexpr auto ascii = makeAscii();

// Of the two blocks of the basic plane that names are made of, and decompose to nothing.
inline bool isCommonHan(ushort unit)
{
    return (unit >= 0x4E00 && unit <= 0x9FFF) || (unit >= 0x3400 && unit <= 0x4DBF);
}

FoldedText::Kind kindOf(QChar c)
{
    if (c.unicode() < 0x80)
        return ascii[c.unicode()].kind;
    if (c.script() == QChar::Script_Han)
        return FoldedText::Chinese;
    // Units of supplementary planes are compared one by one: emoji, rare characters.
    if (c.isLetter() || c.isSurrogate())
        return FoldedText::Letter;
    return c.isNumber() ? FoldedText::Digit : FoldedText::Separator;
}

// What people type for letters that do not decompose.
QString withoutStroke(QChar letter)
{
    static const QHash<QChar, QString> letters{
        {QChar(u'ł'), QStringLiteral("l")},  {QChar(u'ø'), QStringLiteral("o")},
        {QChar(u'đ'), QStringLiteral("d")},  {QChar(u'ð'), QStringLiteral("d")},
        {QChar(u'ħ'), QStringLiteral("h")},  {QChar(u'ŧ'), QStringLiteral("t")},
        {QChar(u'ı'), QStringLiteral("i")},  {QChar(u'æ'), QStringLiteral("ae")},
        {QChar(u'œ'), QStringLiteral("oe")}, {QChar(u'þ'), QStringLiteral("th")}};
    return letters.value(letter, letter);
}

QString foldedCharacter(const QChar *units, int count)
{
    QString kept;
    for (const QChar c : QString(units, count).normalized(QString::NormalizationForm_KD)) {
        if (!c.isMark() && c.category() != QChar::Other_Format)
            kept += c;
    }
    QString result;
    for (const QChar c : kept.toCaseFolded())
        result += withoutStroke(c);
    return result;
}

// The letters with diacritics that are one letter without. Unit 0: it is not so simple.
constexpr ushort LatinEnd = 0x180;
const std::array<Plain, LatinEnd> &latin()
{
    static const auto table = [] {
        std::array<Plain, LatinEnd> made;
        for (ushort unit = 0x80; unit < LatinEnd; ++unit) {
            const QChar c(unit);
            const QString folded = foldedCharacter(&c, 1);
            if (folded.size() == 1)
                made[unit] = {folded.at(0).unicode(), kindOf(folded.at(0))};
        }
        return made;
    }();
    return table;
}
} // namespace

FoldedText::FoldedText(QStringView text)
{
    const QStringView counted = text.left(MaximumLength);
    if (!addPlain(counted)) {
        m_size = 0;
        m_isPlain = false;
        addDecomposed(counted);
    }
    while (m_first < m_size && m_kinds[m_first] == Separator)
        ++m_first;
    if (m_first == m_size)
        m_first = 0;
}

bool FoldedText::addPlain(QStringView text)
{
    for (const QChar c : text) {
        const ushort unit = c.unicode();
        if (unit < 0x80) {
            m_units[m_size] = ascii[unit].unit;
            m_kinds[m_size++] = ascii[unit].kind;
        } else if (isCommonHan(unit)) {
            m_units[m_size] = unit;
            m_kinds[m_size++] = Chinese;
            m_hasChinese = true;
        } else if (unit < LatinEnd && latin()[unit].unit != 0) {
            m_units[m_size] = latin()[unit].unit;
            m_kinds[m_size++] = latin()[unit].kind;
        } else {
            return false;
        }
    }
    return true;
}

void FoldedText::addDecomposed(QStringView text)
{
    for (int from = 0, to = 0; from < text.size(); from = to) {
        const bool isPair = text.at(from).isHighSurrogate() && from + 1 < text.size() &&
                            text.at(from + 1).isLowSurrogate();
        to = from + (isPair ? 2 : 1);
        add(foldedCharacter(text.data() + from, to - from), from, to);
    }
}

void FoldedText::add(QStringView units, int sourceStart, int sourceEnd)
{
    for (const QChar c : units.left(MaximumLength - m_size)) {
        m_units[m_size] = c.unicode();
        m_kinds[m_size] = kindOf(c);
        m_hasChinese = m_hasChinese || m_kinds[m_size] == Chinese;
        m_starts[m_size] = quint8(sourceStart);
        m_ends[m_size++] = quint8(sourceEnd);
    }
}

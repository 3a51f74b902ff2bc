#include "contacts/search/searchindexsignature.h"

#include "common/foldedtext.h"
#include "common/pinyinreadings.h"
#include "contacts/search/searchindexrecords.h"

namespace {
constexpr int FirstHashed = 36; // behind the letters and digits
constexpr int HashedCount = 27;

quint64 hashedBit(uint value)
{
    return quint64(1) << (FirstHashed + (value * 2654435769u >> 16) * HashedCount / 65536);
}

// The place of a letter or digit, -1 for everything else.
int placeOf(ushort unit)
{
    if (unit >= 'a' && unit <= 'z')
        return unit - 'a';
    if (unit >= '0' && unit <= '9')
        return unit - '0' + 26;
    return -1;
}

quint64 unitBit(ushort unit)
{
    const int place = placeOf(unit);
    return place < 0 ? hashedBit(unit) : quint64(1) << place;
}

quint64 pairBit(ushort unit, ushort next)
{
    return hashedBit(uint(placeOf(unit) * 36 + placeOf(next) + 0x10000));
}

ushort lower(QChar capital)
{
    return ushort(capital.unicode() | 0x20);
}

// The bits of the word or syllable that begins at one unit of a text.
class Beginning
{
public:
    explicit Beginning(const FoldedText &text) : m_text(text) {}

    quint64 at(int i) const
    {
        const ushort unit = m_text.at(i);
        quint64 bits = unitBit(unit);
        if (placeOf(unit) >= 0)
            return bits | followedBy(unit, i + 1);
        if (m_text.kind(i) != FoldedText::Chinese)
            return bits;
        for (const QStringView syllable : PinyinReadings(m_text.text(), i, m_text.first())) {
            const ushort initial = lower(syllable.at(0));
            bits |= unitBit(initial) | followedBy(initial, i + 1);
            if (syllable.size() > 1)
                bits |= spelled(syllable, initial);
        }
        return bits;
    }

private:
    // ü may be typed as u and as v.
    static quint64 spelled(QStringView syllable, ushort initial)
    {
        const ushort second = lower(syllable.at(1));
        quint64 bits = pairBit(initial, second);
        if (second == 'v' || second == 'u')
            bits |= pairBit(initial, second == 'v' ? 'u' : 'v');
        return bits;
    }

    // The pairs of a first letter and what may be typed next: separators are left out.
    quint64 followedBy(ushort unit, int i) const
    {
        while (i < m_text.size() && m_text.kind(i) == FoldedText::Separator)
            ++i;
        if (i >= m_text.size())
            return 0;
        if (placeOf(m_text.at(i)) >= 0)
            return pairBit(unit, m_text.at(i));
        quint64 bits = 0;
        if (m_text.kind(i) == FoldedText::Chinese) {
            for (const QStringView syllable : PinyinReadings(m_text.text(), i, m_text.first()))
                bits |= pairBit(unit, lower(syllable.at(0)));
        }
        return bits;
    }

    const FoldedText &m_text;
};

void addField(const QString &field, SearchSignature *signature)
{
    if (field.isEmpty())
        return;
    const FoldedText text(field);
    const Beginning beginning(text);
    for (int i = 0; i < text.size(); ++i) {
        if (i <= text.first())
            signature->start |= beginning.at(i);
        else if (text.isStart(i))
            signature->inside |= beginning.at(i);
    }
}
} // namespace

SearchSignature searchSignature(const SearchEntry &entry)
{
    SearchSignature signature;
    addField(entry.name, &signature);
    addField(entry.remark, &signature);
    addField(entry.account, &signature);
    addField(entry.employeeCode, &signature);
    addField(entry.mail, &signature);
    if (!entry.phones.isEmpty())
        signature.start |= SearchSignature::HasPhones;
    return signature;
}

quint64 searchSignatureMask(QStringView word)
{
    const ushort first = word.at(0).unicode();
    quint64 mask = unitBit(first);
    if (word.size() > 1 && placeOf(first) >= 0 && placeOf(word.at(1).unicode()) >= 0)
        mask |= pairBit(first, word.at(1).unicode());
    return mask;
}

#include "contacts/friendtreesort.h"

#include "common/builtingroups.h"
#include "common/cchcharactertopp.h"

namespace FriendTreeSort {

Block block(const FriendData &contact, const PresenceData &presence, bool own)
{
    if (contact.onJob == 0)
        return Block::Left;
    if (own)
        return Block::Own;
    return presence.isOnline() ? Block::Online : Block::Offline;
}

QString contactKey(Block block, const QString &name)
{
    static const QString prefixes[] = {QStringLiteral("0|1"), QStringLiteral("0|2"),
                                       QStringLiteral("1|"), QStringLiteral("2|")};
    return prefixes[int(block)] + CChCharacterToPP().toPinyin(name, false);
}

QString groupKey(const QString &name)
{
    return (name == frequentGroupName() ? QStringLiteral("1|") : QStringLiteral("2|")) + name;
}

namespace {

// The pinyin's first letters, as many as fit behind the block's byte.
class LetterBuffer
{
public:
    static constexpr int Size = 15;

    bool isFull() const { return m_count == Size; }
    void add(char16_t letter)
    {
        // Small, as the comparison of whole texts folds them: "_" is before letters.
        if (letter >= u'A' && letter <= u'Z')
            letter += u'a' - u'A';
        m_letters[m_count++] = quint8(letter & 0x7f);
    }
    Prefix prefix(Block block) const
    {
        Prefix result;
        result.letters[0] = quint64(block) << 56;
        for (int i = 0; i < m_count; ++i) {
            const int place = i + 1;
            result.letters[size_t(place / 8)] |= quint64(m_letters[i]) << (8 * (7 - place % 8));
        }
        return result;
    }

private:
    quint8 m_letters[Size];
    int m_count = 0;
};

// False when a character is neither ASCII nor has a syllable: only the converter
// knows what becomes of it.
bool addSimpleName(const QString &name, LetterBuffer *letters)
{
    for (const QChar character : name) {
        if (letters->isFull())
            return true;
        if (character.unicode() < 0x80) {
            letters->add(character.unicode());
            continue;
        }
        const QStringView syllable = CChCharacterToPP::syllable(character);
        if (syllable.isEmpty())
            return false;
        for (int i = 0; i < syllable.size() && !letters->isFull(); ++i)
            letters->add(syllable.at(i).unicode());
    }
    return true;
}

} // namespace

Prefix prefix(Block block, const QString &name)
{
    LetterBuffer letters;
    if (!addSimpleName(name, &letters)) {
        letters = LetterBuffer();
        const QString pinyin = CChCharacterToPP().toPinyin(name, false);
        for (int i = 0; i < pinyin.size() && !letters.isFull(); ++i)
            letters.add(pinyin.at(i).unicode());
    }
    return letters.prefix(block);
}

int compareNames(const QString &a, const QString &b)
{
    const CChCharacterToPP converter;
    return converter.toPinyin(a, false).compare(converter.toPinyin(b, false), Qt::CaseInsensitive);
}

} // namespace FriendTreeSort

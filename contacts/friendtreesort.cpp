#include "contacts/friendtreesort.h"

#include "common/cchcharactertopp.h"

namespace FriendTreeSort {

Block block(const FriendData &contact, const PresenceData &presence, const QString &ownJid)
{
    if (contact.onJob == 0)
        return Block::Left;
    if (contact.jid == ownJid)
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

QString frequentGroupName()
{
    return QString::fromUtf8("常用联系人");
}
QString defaultGroupName()
{
    return QString::fromUtf8("我的好友");
}

Prefix prefix(Block block, const QString &name)
{
    Prefix result;
    constexpr int LettersPerWord = 8;
    constexpr int Letters = 2 * LettersPerWord - 1;
    QString pinyin = CChCharacterToPP().toPinyin(name.left(Letters + 1), false);
    // Some characters have no pinyin: the beginning may not fill the prefix.
    if (pinyin.size() < Letters && name.size() > Letters + 1)
        pinyin = CChCharacterToPP().toPinyin(name, false);
    // The block takes the place of the first letter.
    for (int i = 0; i <= Letters; ++i) {
        quint64 letter = 0;
        if (i == 0)
            letter = quint64(block);
        else if (i <= pinyin.size())
            letter = pinyin.at(i - 1).toLower().unicode() & 0x7f;
        result.letters[size_t(i / LettersPerWord)] |=
            letter << (8 * (LettersPerWord - 1 - i % LettersPerWord));
    }
    return result;
}

int compareNames(const QString &a, const QString &b)
{
    const CChCharacterToPP converter;
    return converter.toPinyin(a, false).compare(converter.toPinyin(b, false), Qt::CaseInsensitive);
}

} // namespace FriendTreeSort

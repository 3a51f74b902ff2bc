#include "contacts/search/searchrank.h"

#include "common/cchcharactertopp.h"

#include <algorithm>

namespace {
constexpr int BitsOfLetter = 5;
constexpr int LettersOfKey = 64 / BitsOfLetter;

// The order of a name as a text: syllables in small letters, all else folded.
QString orderText(const QString &name)
{
    QString text;
    text.reserve(name.size() * 4);
    for (const QChar c : name) {
        const QStringView syllable = CChCharacterToPP::syllable(c);
        if (syllable.isEmpty())
            text += c.toCaseFolded();
        else
            text += syllable.toString().toLower();
    }
    return text;
}

// Never falls where the unit rises.
quint64 letterOf(ushort unit)
{
    if (unit >= 'a' && unit <= 'z')
        return quint64(4 + unit - 'a');
    if (unit < '0')
        return 1;
    if (unit <= '9')
        return 2;
    return unit < 'a' ? 3 : unit < 0x80 ? 30 : 31;
}

int compared(const SearchEntry &x, const SearchEntry &y)
{
    if (const int byPinyin = orderText(x.name).compare(orderText(y.name)))
        return byPinyin;
    if (const int byName = x.name.compare(y.name))
        return byName;
    if (const int byId = x.id.compare(y.id))
        return byId;
    return int(x.kind) - int(y.kind);
}
} // namespace

quint64 searchNameKey(const QString &name)
{
    quint64 key = 0;
    int letters = 0;
    const auto add = [&](ushort unit) {
        key = key << BitsOfLetter | letterOf(unit);
        ++letters;
    };
    for (int i = 0; i < name.size() && letters < LettersOfKey; ++i) {
        const QStringView syllable = CChCharacterToPP::syllable(name.at(i));
        if (syllable.isEmpty())
            add(name.at(i).toCaseFolded().unicode());
        for (int at = 0; at < syllable.size() && letters < LettersOfKey; ++at)
            add(ushort(syllable.at(at).unicode() | 0x20));
    }
    return key << BitsOfLetter * (LettersOfKey - letters);
}

bool SearchTop::Before::operator()(const Found &x, const Found &y) const
{
    if (x.standing != y.standing)
        return x.standing < y.standing;
    if (x.nameKey != y.nameKey)
        return x.nameKey < y.nameKey;
    return compared(store->at(x.hit.entry), store->at(y.hit.entry)) < 0;
}

void SearchTop::add(const SearchOrder &order, const SearchHit &hit)
{
    const Before before{&m_store};
    const Found found{order.standing(hit.rank), order.nameKey, hit};
    if (m_found.size() == m_limit) {
        if (!before(found, m_found.front()))
            return;
        std::pop_heap(m_found.begin(), m_found.end(), before);
        m_found.pop_back();
    }
    m_found.push_back(found);
    std::push_heap(m_found.begin(), m_found.end(), before);
}

QVector<SearchHit> SearchTop::takeSorted()
{
    std::sort_heap(m_found.begin(), m_found.end(), Before{&m_store});
    QVector<SearchHit> hits;
    hits.reserve(int(m_found.size()));
    for (const Found &found : m_found)
        hits.append(found.hit);
    m_found.clear();
    return hits;
}

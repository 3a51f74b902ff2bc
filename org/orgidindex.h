// Finds a numbered thing by its id, at five to eleven bytes for each: a table of
// numbers that hash to their place, each with eight bits of its hash, so that hardly
// ever a wrong id is looked at. The ids stay with the things; nothing is taken out
// again.
#pragma once

#include <QHashFunctions>
#include <QString>

#include <algorithm>
#include <utility>
#include <vector>

class OrgIdIndex
{
public:
    static constexpr quint32 None = 0xffffffff;
    static constexpr quint32 MaximumNumber = 0xfffffe;

    // `idOf(number)` returns the id of a number that was added.
    template <class IdOf> quint32 find(const QString &id, const IdOf &idOf) const
    {
        if (m_places.empty())
            return None;
        const uint hash = qHash(id, m_seed);
        size_t place = hash & (m_places.size() - 1);
        for (; m_places[place] != None; place = next(place)) {
            const quint32 number = m_places[place] & NumberBits;
            if ((m_places[place] ^ tag(hash)) <= NumberBits && idOf(number) == id)
                return number;
        }
        return None;
    }

    // The id must not be in the table yet; at most MaximumNumber.
    template <class IdOf> void add(quint32 number, const IdOf &idOf)
    {
        if (4 * (m_count + 1) > 3 * m_places.size())
            grow(idOf);
        put(number, idOf(number));
        ++m_count;
    }

    void clear()
    {
        m_places = {};
        m_count = 0;
    }

private:
    static constexpr quint32 NumberBits = 0xffffff;

    static quint32 tag(uint hash) { return hash & ~NumberBits; }
    size_t next(size_t place) const { return (place + 1) & (m_places.size() - 1); }

    void put(quint32 number, const QString &id)
    {
        const uint hash = qHash(id, m_seed);
        size_t place = hash & (m_places.size() - 1);
        while (m_places[place] != None)
            place = next(place);
        m_places[place] = tag(hash) | number;
    }

    template <class IdOf> void grow(const IdOf &idOf)
    {
        const std::vector<quint32> old = std::exchange(
            m_places, std::vector<quint32>(std::max<size_t>(16, 2 * m_places.size()), None));
        for (const quint32 known : old) {
            if (known != None)
                put(known & NumberBits, idOf(known & NumberBits));
        }
    }

    std::vector<quint32> m_places; // a power of two
    size_t m_count = 0;
    const uint m_seed = uint(qGlobalQHashSeed());
};

// Finds a numbered thing by its id, at five to eleven bytes for each: a table of
// numbers that hash to their place. The ids stay with the things; nothing is taken
// out again.
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

    // `idOf(number)` returns the id of a number that was added.
    template <class IdOf> quint32 find(const QString &id, const IdOf &idOf) const
    {
        if (m_places.empty())
            return None;
        size_t place = first(id);
        for (; m_places[place] != None; place = next(place)) {
            if (idOf(m_places[place]) == id)
                return m_places[place];
        }
        return None;
    }

    // The id must not be in the table yet.
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
    size_t first(const QString &id) const { return qHash(id, m_seed) & (m_places.size() - 1); }
    size_t next(size_t place) const { return (place + 1) & (m_places.size() - 1); }

    void put(quint32 number, const QString &id)
    {
        size_t place = first(id);
        while (m_places[place] != None)
            place = next(place);
        m_places[place] = number;
    }

    template <class IdOf> void grow(const IdOf &idOf)
    {
        const std::vector<quint32> old = std::exchange(
            m_places, std::vector<quint32>(std::max<size_t>(16, 2 * m_places.size()), None));
        for (const quint32 number : old) {
            if (number != None)
                put(number, idOf(number));
        }
    }

    std::vector<quint32> m_places; // a power of two
    size_t m_count = 0;
    const uint m_seed = uint(qGlobalQHashSeed());
};

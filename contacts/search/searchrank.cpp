#include "contacts/search/searchrank.h"

#include "contacts/search/searchindextraits.h"

#include <algorithm>

namespace {
int compared(const SearchEntry &x, const SearchEntry &y)
{
    if (const int byPinyin = searchNameOrder(x.name).compare(searchNameOrder(y.name)))
        return byPinyin;
    if (const int byName = x.name.compare(y.name))
        return byName;
    if (const int byId = x.id.compare(y.id))
        return byId;
    return int(x.kind) - int(y.kind);
}
} // namespace

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

// The order of hits: who is with the company before who has left; then how well they
// match; among equals the latest conversations, then contacts, then the names by
// pinyin. Most comparisons need no look at the names.
#pragma once

#include "contacts/search/searchindexstore.h"

#include <vector>

// What the order of an entry follows from, whatever was typed.
struct SearchOrder
{
    static constexpr quint32 NotRecent = 0x3fffffff;

    quint64 nameKey = 0;
    quint32 wholeLengths = 0; // both of SearchTraits
    quint32 recent : 30;      // 0: the latest conversation
    quint32 isContact : 1;
    quint32 hasLeft : 1;

    SearchOrder() : recent(NotRecent), isContact(false), hasLeft(false) {}

    // The smaller, the better; before nameKey.
    quint64 standing(SearchHit::Rank rank) const
    {
        return quint64(hasLeft) << 33 | quint64(rank) << 31 | quint64(recent) << 1 |
               quint64(!isContact);
    }
};

// The best hits of those that are added.
class SearchTop
{
public:
    // `store` has to outlive this.
    SearchTop(const SearchIndexStore &store, int limit) : m_store(store), m_limit(size_t(limit)) {}

    // Whether a hit of that rank could be among the best.
    bool wants(const SearchOrder &order, SearchHit::Rank rank) const
    {
        if (m_found.size() < m_limit)
            return true;
        const quint64 standing = order.standing(rank);
        const Found &worst = m_found.front();
        return standing != worst.standing ? standing < worst.standing
                                          : order.nameKey <= worst.nameKey;
    }
    // Whether any hit of somebody who has not left, of that rank, could be.
    bool wants(SearchHit::Rank rank) const
    {
        SearchOrder best;
        best.recent = 0;
        best.isContact = true;
        return wants(best, rank);
    }
    void add(const SearchOrder &order, const SearchHit &hit);

    QVector<SearchHit> takeSorted();

private:
    struct Found
    {
        quint64 standing;
        quint64 nameKey;
        SearchHit hit;
    };
    struct Before
    {
        const SearchIndexStore *store;
        bool operator()(const Found &x, const Found &y) const;
    };

    const SearchIndexStore &m_store;
    const size_t m_limit;
    std::vector<Found> m_found; // a heap, the worst at its top
};

#include "contacts/search/searchindex.h"

#include "contacts/search/searchindexquery.h"
#include "contacts/search/searchindexstore.h"
#include "contacts/search/searchindextraits.h"
#include "contacts/search/searchrank.h"

// By slot: the signatures stand apart, so that a search reads nothing but them of
// those that it passes over.
struct SearchIndex::Private
{
    void place(int slot, const SearchEntry &entry);
    void markRecents();
    void markRecent(const QString &id, quint32 place);
    // Adds who answers; from the start of a field, or in a later place alone.
    void scan(const SearchQuery &query, bool fromStart, SearchTop *top) const;

    SearchIndexStore store;
    std::vector<SearchSignature> signatures;
    std::vector<SearchOrder> orders;
    QStringList recents;
    bool areRecentsMarked = true;
};

void SearchIndex::Private::place(int slot, const SearchEntry &entry)
{
    if (size_t(slot) >= signatures.size()) {
        signatures.resize(size_t(store.slotCount()));
        orders.resize(signatures.size());
    }
    const SearchTraits traits = searchTraits(entry);
    signatures[size_t(slot)] = traits.signature;
    SearchOrder &order = orders[size_t(slot)];
    order.nameKey = traits.nameKey;
    order.wholeLengths = traits.wholeLengths;
    order.recent = SearchOrder::NotRecent;
    order.isContact = entry.isContact;
    order.hasLeft = entry.hasLeft;
}

void SearchIndex::Private::markRecent(const QString &id, quint32 place)
{
    for (int kind = SearchEntry::Person; kind <= SearchEntry::Channel; ++kind) {
        const int slot = store.find(SearchEntry::Kind(kind), id);
        if (slot >= 0)
            orders[size_t(slot)].recent = place;
    }
}

// From the oldest on, so that of an id that is there twice the newer place counts.
void SearchIndex::Private::markRecents()
{
    for (int i = recents.size() - 1; i >= 0; --i)
        markRecent(recents.at(i), quint32(i));
    areRecentsMarked = true;
}

// Some candidates at a time: their texts lie all over the memory, which brings those of
// one while others are looked at.
void SearchIndex::Private::scan(const SearchQuery &query, bool fromStart, SearchTop *top) const
{
    const auto best = [&](const SearchOrder &order) {
        if (!fromStart)
            return SearchHit::Inside;
        return query.mayBeWhole(order.wholeLengths) ? SearchHit::Exact : SearchHit::Prefix;
    };
    size_t candidates[SearchIndexStore::Ahead];
    int count = 0;
    const auto match = [&] {
        for (int i = 0; i < count; ++i) {
            const size_t slot = candidates[i];
            const SearchHit::Rank rank = best(orders[slot]);
            SearchHit hit;
            hit.entry = int(slot);
            if (top->wants(orders[slot], rank) &&
                query.answers({store.at(hit.entry), signatures[slot], rank}, &hit))
                top->add(orders[slot], hit);
        }
        count = 0;
    };
    for (size_t slot = 0; slot < signatures.size(); ++slot) {
        const SearchSignature &signature = signatures[slot];
        if (!query.mayAnswer(signature) || query.mayAnswerFromStart(signature) != fromStart ||
            !top->wants(orders[slot], best(orders[slot])))
            continue;
        store.fetchTexts(int(slot), query.isPhone());
        candidates[count++] = slot;
        if (count == SearchIndexStore::Ahead)
            match();
    }
    match();
}

SearchIndex::SearchIndex() : d(new Private) {}

SearchIndex::~SearchIndex() = default;

void SearchIndex::put(const SearchEntry &entry)
{
    putAll({entry});
}

void SearchIndex::putAll(const QVector<SearchEntry> &entries)
{
    // Exactly, for a first large list; else as vectors grow, lest many small ones copy all
    // that there is each time.
    if (size_t(entries.size()) > d->signatures.size()) {
        d->signatures.reserve(d->signatures.size() + size_t(entries.size()));
        d->orders.reserve(d->orders.size() + size_t(entries.size()));
    }
    d->store.put(entries, [this](int slot, const SearchEntry &entry) { d->place(slot, entry); });
    d->areRecentsMarked = d->recents.isEmpty();
}

bool SearchIndex::remove(SearchEntry::Kind kind, const QString &id)
{
    const int slot = d->store.remove(kind, id);
    if (slot < 0)
        return false;
    d->signatures[size_t(slot)] = SearchSignature();
    d->orders[size_t(slot)] = SearchOrder();
    return true;
}

void SearchIndex::clear()
{
    d->store.clear();
    d->signatures = {};
    d->orders = {};
}

int SearchIndex::size() const
{
    return d->store.size();
}

const SearchEntry *SearchIndex::find(SearchEntry::Kind kind, const QString &id) const
{
    const int slot = d->store.find(kind, id);
    return slot < 0 ? nullptr : &d->store.at(slot);
}

const SearchEntry &SearchIndex::at(int entry) const
{
    return d->store.at(entry);
}

QStringList SearchIndex::contacts() const
{
    QStringList jids;
    for (size_t slot = 0; slot < d->orders.size(); ++slot) {
        if (d->orders[slot].isContact)
            jids.append(d->store.at(int(slot)).id);
    }
    return jids;
}

void SearchIndex::setRecent(const QStringList &ids)
{
    for (const QString &id : qAsConst(d->recents))
        d->markRecent(id, SearchOrder::NotRecent);
    d->recents = ids;
    d->areRecentsMarked = false;
}

QVector<SearchHit> SearchIndex::search(const QString &typed, int limit) const
{
    const SearchQuery query(typed);
    if (query.isEmpty() || limit <= 0)
        return {};
    if (!d->areRecentsMarked)
        d->markRecents();
    SearchTop top(d->store, limit);
    d->scan(query, true, &top);
    if (top.wants(SearchHit::Inside))
        d->scan(query, false, &top);
    return top.takeSorted();
}

QVector<TextMatch> searchHighlights(const QString &typed, const QString &text,
                                    SearchHit::Field field)
{
    return SearchQuery(typed).highlights(text, field);
}

// Keeps the entries of the index, each under a slot number that stays the same until
// the entry is removed. A large list is kept as it came, shared with whoever gave it,
// until half of it is gone; everything else lies in one list with its holes reused.
#pragma once

#include "contacts/search/searchindexids.h"
#include "contacts/search/searchindexrecords.h"

#include <QVector>

#include <vector>

class SearchIndexStore
{
public:
    SearchIndexStore();

    // Tells the slot of each entry by placed(slot, entry).
    template <class Placed> void put(const QVector<SearchEntry> &entries, Placed &&placed)
    {
        m_ids.reserve(entries.size());
        const int batch = beginBatch(entries);
        uint hashes[Ahead] = {};
        for (int i = -2 * Ahead; i < entries.size(); ++i) {
            const uint hash = i < 0 ? 0 : hashes[i % Ahead];
            if (i + 2 * Ahead < entries.size())
                fetchTexts(entries.at(i + 2 * Ahead));
            if (i >= -Ahead && i + Ahead < entries.size())
                hashes[(i + Ahead) % Ahead] = fetchCell(entries.at(i + Ahead));
            if (i < 0)
                continue;
            const SearchEntry &entry = entries.at(i);
            placed(batch == Own ? putOwn(entry, hash) : putAt(entry, hash, {batch, i}), entry);
        }
        m_thinned.push_back(batch);
        dissolveThin();
    }
    // The slot that is free now, -1: it was not there.
    int remove(SearchEntry::Kind kind, const QString &id);
    void clear();

    int find(SearchEntry::Kind kind, const QString &id) const; // -1: not there
    const SearchEntry &at(int slot) const { return entryAt(m_places[size_t(slot)]); }
    int size() const { return m_size; }
    int slotCount() const { return int(m_places.size()); } // with the free ones

    // Memory is fetched so many entries before its turn, texts twice as many: it lies all
    // over the place, and waiting for each piece would take most of the time.
    static constexpr int Ahead = 8;
    void fetchTexts(int slot, bool withPhones) const;

private:
    struct Place
    {
        int batch;
        int index;
    };
    struct Batch
    {
        QVector<SearchEntry> entries;
        int inUse = 0;
    };
    static constexpr int Nowhere = -1; // the index in a free slot
    static constexpr int Own = 0;      // the batch of everything that came alone

    static void fetchTexts(const SearchEntry &entry);
    uint fetchCell(const SearchEntry &entry) const; // the hash

    const SearchEntry &entryAt(Place place) const
    {
        return m_batches[size_t(place.batch)].entries.constData()[place.index];
    }
    int findHashed(uint hash, SearchEntry::Kind kind, const QString &id) const;
    int beginBatch(const QVector<SearchEntry> &entries);
    int putAt(const SearchEntry &entry, uint hash, Place place);
    int putOwn(const SearchEntry &entry, uint hash);
    int takeSlot(uint hash, Place place);
    Place addOwn(const SearchEntry &entry);
    void release(Place place);
    bool isThin(int batch) const;
    void dissolveThin();
    void dissolve(int batch);

    std::vector<Place> m_places; // by slot
    std::vector<int> m_freeSlots;
    std::vector<Batch> m_batches;
    std::vector<int> m_freeBatches;
    std::vector<int> m_thinned; // batches that may have become thin
    std::vector<int> m_freeOwn;
    SearchIndexIds m_ids;
    int m_size = 0;
};

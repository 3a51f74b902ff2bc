#include "contacts/search/searchindexstore.h"

#include <QHash>

#include <utility>

namespace {
constexpr int SmallestBatch = 64;

uint hashOf(SearchEntry::Kind kind, const QString &id)
{
    return qHash(id, uint(kind));
}

// What a text points at, without looking there.
void fetchText(const QString &text)
{
    const char *data = reinterpret_cast<const char *>(const_cast<QString &>(text).data_ptr());
    SearchIndexIds::fetch(data);
    SearchIndexIds::fetch(data + 64);
}
} // namespace

SearchIndexStore::SearchIndexStore() : m_batches(1) {}

void SearchIndexStore::clear()
{
    *this = SearchIndexStore();
}

void SearchIndexStore::fetchTexts(const SearchEntry &entry)
{
    fetchText(entry.id);
    fetchText(entry.name);
    fetchText(entry.account);
    fetchText(entry.employeeCode);
    fetchText(entry.mail);
}

void SearchIndexStore::fetchTexts(int slot, bool withPhones) const
{
    fetchTexts(at(slot));
    if (withPhones)
        fetchText(at(slot).phones);
}

uint SearchIndexStore::fetchCell(const SearchEntry &entry) const
{
    const uint hash = hashOf(entry.kind, entry.id);
    m_ids.fetch(hash);
    return hash;
}

int SearchIndexStore::find(SearchEntry::Kind kind, const QString &id) const
{
    return findHashed(hashOf(kind, id), kind, id);
}

int SearchIndexStore::findHashed(uint hash, SearchEntry::Kind kind, const QString &id) const
{
    return m_ids.find(hash, [&](int slot) {
        const SearchEntry &entry = at(slot);
        return entry.kind == kind && entry.id == id;
    });
}

int SearchIndexStore::beginBatch(const QVector<SearchEntry> &entries)
{
    if (entries.size() > slotCount())
        m_places.reserve(m_places.size() + size_t(entries.size()));
    if (entries.size() < SmallestBatch)
        return Own;
    int batch = int(m_batches.size());
    if (m_freeBatches.empty()) {
        m_batches.emplace_back();
    } else {
        batch = m_freeBatches.back();
        m_freeBatches.pop_back();
    }
    m_batches[size_t(batch)].entries = entries;
    return batch;
}

int SearchIndexStore::putAt(const SearchEntry &entry, uint hash, Place place)
{
    ++m_batches[size_t(place.batch)].inUse;
    const int slot = findHashed(hash, entry.kind, entry.id);
    if (slot < 0)
        return takeSlot(hash, place);
    release(std::exchange(m_places[size_t(slot)], place));
    return slot;
}

int SearchIndexStore::putOwn(const SearchEntry &entry, uint hash)
{
    const int slot = findHashed(hash, entry.kind, entry.id);
    if (slot < 0)
        return takeSlot(hash, addOwn(entry));
    Place &place = m_places[size_t(slot)];
    if (place.batch == Own)
        m_batches[Own].entries[place.index] = entry;
    else
        release(std::exchange(place, addOwn(entry)));
    return slot;
}

int SearchIndexStore::takeSlot(uint hash, Place place)
{
    int slot = slotCount();
    if (m_freeSlots.empty()) {
        m_places.push_back(place);
    } else {
        slot = m_freeSlots.back();
        m_freeSlots.pop_back();
        m_places[size_t(slot)] = place;
    }
    m_ids.insert(hash, slot);
    ++m_size;
    return slot;
}

int SearchIndexStore::remove(SearchEntry::Kind kind, const QString &id)
{
    const uint hash = hashOf(kind, id);
    const int slot = findHashed(hash, kind, id);
    if (slot < 0)
        return -1;
    m_ids.erase(hash, slot);
    m_freeSlots.push_back(slot);
    --m_size;
    release(std::exchange(m_places[size_t(slot)], Place{Own, Nowhere}));
    dissolveThin();
    return slot;
}

SearchIndexStore::Place SearchIndexStore::addOwn(const SearchEntry &entry)
{
    QVector<SearchEntry> &own = m_batches[Own].entries;
    if (m_freeOwn.empty()) {
        own.append(entry);
        return {Own, own.size() - 1};
    }
    const Place place{Own, m_freeOwn.back()};
    m_freeOwn.pop_back();
    own[place.index] = entry;
    return place;
}

void SearchIndexStore::release(Place place)
{
    Batch &batch = m_batches[size_t(place.batch)];
    if (place.batch == Own) {
        batch.entries[place.index] = SearchEntry();
        m_freeOwn.push_back(place.index);
        return;
    }
    const bool wasThin = isThin(place.batch);
    --batch.inUse;
    if (!wasThin && isThin(place.batch))
        m_thinned.push_back(place.batch);
}

bool SearchIndexStore::isThin(int batch) const
{
    const Batch &one = m_batches[size_t(batch)];
    return batch != Own && one.inUse * 2 < one.entries.size();
}

// Only when all changes are made: a batch that is just being put is thin at first.
void SearchIndexStore::dissolveThin()
{
    for (const int batch : m_thinned) {
        if (isThin(batch))
            dissolve(batch);
    }
    m_thinned.clear();
}

void SearchIndexStore::dissolve(int batch)
{
    // What has not moved yet is still looked up in its old place.
    const QVector<SearchEntry> entries = m_batches[size_t(batch)].entries;
    for (int i = 0; i < entries.size(); ++i) {
        const int slot = find(entries.at(i).kind, entries.at(i).id);
        if (slot < 0)
            continue;
        Place &place = m_places[size_t(slot)];
        if (place.batch == batch && place.index == i)
            place = addOwn(entries.at(i));
    }
    m_batches[size_t(batch)] = Batch();
    m_freeBatches.push_back(batch);
}

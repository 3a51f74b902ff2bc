// A flat list of records that each have a key and stand where their place says.
// A change moves one row, a batch arrives as few row changes as it takes, and no
// row needs to be searched for.
//
// While the order is frozen, because somebody is pointing at a row, records
// change at once but no row moves and none comes in between; what waited happens
// when the freeze ends. Removing a record takes its row away in any case.
//
// Place is a value with operator< and operator==, cheap to compare; places that are
// equal are told apart by the key. A record keeps its key for life, and nobody changes
// the model from within its signals. A subclass may add Q_OBJECT when it names the
// instance in a `using` first.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QVector>

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

template <class Record, class Place> class KeyedListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : int(m_rows.size());
    }

    // Records, also those without a row; the pointer is good until the next change.
    int recordCount() const { return int(m_items.size()); }
    const Record *find(const QString &key) const
    {
        const auto found = m_items.find(key);
        return found == m_items.end() ? nullptr : &found->second.record;
    }
    // `row` is one of the model's.
    const Record &at(int row) const { return m_rows[size_t(row)]->second.record; }
    // Invalid for a record that has no row.
    QModelIndex indexOf(const QString &key) const
    {
        const auto found = m_items.find(key);
        return found == m_items.end() || !found->second.hasRow ? QModelIndex()
                                                               : index(rowOf(*found));
    }
    template <class Function> void forEach(const Function &function) const
    {
        for (const Item &item : m_items)
            function(item.second.record);
    }

    // Adds a record, or takes it in the place of the one with its key.
    void put(const Record &record)
    {
        Item &item = take(record);
        follow(item, {});
    }

    // The same for many: new rows that follow one another are inserted at once. The
    // last one of a key counts.
    void putAll(const QVector<Record> &records)
    {
        m_items.reserve(m_items.size() + size_t(records.size()));
        for (const Record &record : records) {
            Item &item = take(record);
            if (item.second.hasRow)
                follow(item, {});
            else
                wait(item);
        }
        if (!m_frozen)
            settleWaiting();
    }

    // Lets `function` change a record in place, then its row follows; false without
    // one. `roles` are those that changed, none: all.
    template <class Function>
    bool change(const QString &key, const Function &function, const QVector<int> &roles = {})
    {
        const auto found = m_items.find(key);
        if (found == m_items.end())
            return false;
        function(found->second.record);
        follow(*found, roles);
        return true;
    }

    bool remove(const QString &key)
    {
        const auto found = m_items.find(key);
        if (found == m_items.end())
            return false;
        takeRow(*found);
        if (found->second.waits)
            m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), &*found));
        m_items.erase(found);
        return true;
    }

    void clear()
    {
        beginResetModel();
        m_rows.clear();
        m_waiting.clear();
        m_items.clear();
        endResetModel();
    }

    // Asks anew which records are shown and where: another list comes to be seen.
    void rebuild()
    {
        beginResetModel();
        m_rows.clear();
        for (Item &item : m_items) {
            item.second.hasRow = isShown(item.second.record);
            item.second.place = placeOf(item.second.record);
            if (item.second.hasRow)
                m_rows.push_back(&item);
        }
        std::sort(m_rows.begin(), m_rows.end(), stands);
        endResetModel();
    }

    bool isOrderFrozen() const { return m_frozen; }
    void setOrderFrozen(bool frozen)
    {
        m_frozen = frozen;
        if (!frozen)
            settleWaiting();
    }

protected:
    virtual QString keyOf(const Record &record) const = 0;
    virtual Place placeOf(const Record &record) const = 0;
    // Whether the record has a row. After a change of what this depends on: rebuild().
    virtual bool isShown(const Record &) const { return true; }

private:
    struct Entry
    {
        Record record;
        Place place{}; // at which the row stands, which may be behind the record
        bool hasRow = false;
        bool waits = false; // is among m_waiting
    };
    struct KeyHash
    {
        size_t operator()(const QString &key) const
        {
            // Keys come from other people, who must not choose their buckets.
            return qHash(key, uint(qGlobalQHashSeed()));
        }
    };
    using Items = std::unordered_map<QString, Entry, KeyHash>;
    using Item = typename Items::value_type; // key and entry; has one address for life

    static bool standsAt(const Item *item, const Place &place, const QString &key)
    {
        return item->second.place < place || (item->second.place == place && item->first < key);
    }
    static bool stands(const Item *a, const Item *b)
    {
        return standsAt(a, b->second.place, b->first);
    }
    // The row of what stands there, or would.
    int rowAt(const Place &place, const QString &key) const
    {
        const auto before = [&key](const Item *item, const Place &at) {
            return standsAt(item, at, key);
        };
        return int(std::lower_bound(m_rows.begin(), m_rows.end(), place, before) - m_rows.begin());
    }
    int rowOf(const Item &item) const { return rowAt(item.second.place, item.first); }

    Item &take(const Record &record)
    {
        Item &item = *m_items.try_emplace(keyOf(record)).first;
        item.second.record = record;
        return item;
    }

    void wait(Item &item)
    {
        if (!std::exchange(item.second.waits, true))
            m_waiting.push_back(&item);
    }

    // Brings an item's row to where its record belongs, and tells of the change.
    void follow(Item &item, const QVector<int> &roles)
    {
        const bool hadRow = item.second.hasRow;
        const int row = settle(item);
        if (hadRow && row >= 0)
            emit dataChanged(index(row), index(row), roles);
    }

    // The row, -1 for none.
    int settle(Item &item)
    {
        Entry &entry = item.second;
        if (!isShown(entry.record)) {
            takeRow(item);
            return -1;
        }
        const Place place = placeOf(entry.record);
        if (entry.hasRow && entry.place == place)
            return rowOf(item);
        if (m_frozen) {
            wait(item);
            return entry.hasRow ? rowOf(item) : -1;
        }
        return entry.hasRow ? moveRow(item, place) : insertRow(item, place);
    }

    void settleWaiting()
    {
        std::vector<Item *> added;
        for (Item *item : std::exchange(m_waiting, {})) {
            Entry &entry = item->second;
            entry.waits = false;
            if (entry.hasRow) {
                settle(*item);
            } else if (isShown(entry.record)) {
                entry.place = placeOf(entry.record);
                added.push_back(item);
            }
        }
        insertAll(&added);
    }

    void takeRow(Item &item)
    {
        if (!item.second.hasRow)
            return;
        const int row = rowOf(item);
        beginRemoveRows(QModelIndex(), row, row);
        m_rows.erase(m_rows.begin() + row);
        item.second.hasRow = false;
        endRemoveRows();
    }

    int insertRow(Item &item, const Place &place)
    {
        item.second.place = place;
        const int row = rowOf(item);
        beginInsertRows(QModelIndex(), row, row);
        m_rows.insert(m_rows.begin() + row, &item);
        item.second.hasRow = true;
        endInsertRows();
        return row;
    }

    int moveRow(Item &item, const Place &place)
    {
        const int from = rowOf(item);
        // Counted with the row still at its old place.
        const int to = rowAt(place, item.first);
        if (to == from || to == from + 1) {
            item.second.place = place;
            return from;
        }
        beginMoveRows(QModelIndex(), from, from, QModelIndex(), to);
        item.second.place = place;
        const auto rows = m_rows.begin();
        if (to < from)
            std::rotate(rows + to, rows + from, rows + from + 1);
        else
            std::rotate(rows + from, rows + from + 1, rows + to);
        endMoveRows();
        return to < from ? to : to - 1;
    }

    // Items whose places are set: runs that fall between the same two rows go in
    // together.
    void insertAll(std::vector<Item *> *added)
    {
        std::sort(added->begin(), added->end(), stands);
        for (auto first = added->begin(); first != added->end();) {
            const int row = rowOf(**first);
            const auto next = m_rows.begin() + row;
            const auto last = next == m_rows.end()
                                  ? added->end()
                                  : std::lower_bound(first, added->end(), *next, stands);
            beginInsertRows(QModelIndex(), row, row + int(last - first) - 1);
            m_rows.insert(next, first, last);
            for (; first != last; ++first)
                (*first)->second.hasRow = true;
            endInsertRows();
        }
    }

    Items m_items;
    std::vector<Item *> m_rows;    // in the order of their places
    std::vector<Item *> m_waiting; // for the end of the freeze, or of a batch
    bool m_frozen = false;
};

// A flat list of records that each have a key and stand where their place says.
// A change moves one row, a batch arrives as few row changes as it takes, and no
// row needs to be searched for.
//
// While the order is frozen, because somebody is pointing at a row, records
// change at once but no row moves and none comes in between; what waited happens
// when the freeze ends. Removing a record takes its row away in any case.
//
// Place is a value with operator< and operator==, cheap to compare; places that are
// equal are told apart by the key. A subclass may add Q_OBJECT when it names the
// instance in a `using` first.
#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QVector>

#include <algorithm>
#include <memory>
#include <unordered_map>

template <class Record, class Place> class KeyedListModel : public QAbstractListModel
{
public:
    using QAbstractListModel::QAbstractListModel;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override
    {
        return parent.isValid() ? 0 : m_rows.size();
    }

    // Records, also those without a row; the pointer is good until the next change.
    int recordCount() const { return int(m_entries.size()); }
    const Record *find(const QString &key) const
    {
        const auto entry = m_entries.find(key);
        return entry == m_entries.end() ? nullptr : &entry->second->record;
    }
    // `row` is one of the model's.
    const Record &at(int row) const { return m_rows.at(row)->record; }
    // Invalid for a record that has no row.
    QModelIndex indexOf(const QString &key) const
    {
        const auto entry = m_entries.find(key);
        return entry == m_entries.end() || !entry->second->hasRow ? QModelIndex()
                                                                  : index(rowOf(*entry->second));
    }
    template <class Function> void forEach(const Function &function) const
    {
        for (const auto &entry : m_entries)
            function(entry.second->record);
    }

    // Adds a record, or takes it in the place of the one with its key.
    void put(const Record &record)
    {
        Entry &entry = entryOf(record);
        entry.record = record;
        settle(entry);
        if (entry.hasRow)
            emitChanged(entry, {});
    }

    // The same for many: rows that follow one another are inserted at once.
    void putAll(const QVector<Record> &records)
    {
        QVector<Entry *> added;
        for (const Record &record : records) {
            if (find(keyOf(record))) {
                put(record);
                continue;
            }
            Entry &entry = entryOf(record);
            entry.record = record;
            if (isShown(record) && !m_frozen) {
                entry.place = placeOf(record);
                added.append(&entry);
            } else {
                settle(entry);
            }
        }
        insertAll(&added);
    }

    // Lets `function` change a record in place, then its row follows; false without
    // one. `roles` are those that changed, none: all.
    template <class Function>
    bool change(const QString &key, const Function &function, const QVector<int> &roles = {})
    {
        const auto found = m_entries.find(key);
        if (found == m_entries.end())
            return false;
        Entry &entry = *found->second;
        function(entry.record);
        settle(entry);
        if (entry.hasRow)
            emitChanged(entry, roles);
        return true;
    }

    bool remove(const QString &key)
    {
        const auto found = m_entries.find(key);
        if (found == m_entries.end())
            return false;
        takeRow(*found->second);
        m_entries.erase(found);
        return true;
    }

    void clear()
    {
        beginResetModel();
        m_rows.clear();
        m_entries.clear();
        endResetModel();
    }

    // Asks anew which records are shown and where: another list comes to be seen.
    void rebuild()
    {
        beginResetModel();
        m_rows.clear();
        for (auto &[key, entry] : m_entries) {
            entry->hasRow = isShown(entry->record);
            entry->place = placeOf(entry->record);
            if (entry->hasRow)
                m_rows.append(entry.get());
        }
        std::sort(m_rows.begin(), m_rows.end(), stands);
        endResetModel();
    }

    bool isOrderFrozen() const { return m_frozen; }
    void setOrderFrozen(bool frozen)
    {
        if (m_frozen == frozen)
            return;
        m_frozen = frozen;
        if (frozen)
            return;
        const QVector<QString> waiting = std::exchange(m_waiting, {});
        QVector<Entry *> added;
        for (const QString &key : waiting) {
            const auto found = m_entries.find(key);
            if (found == m_entries.end())
                continue;
            Entry &entry = *found->second;
            entry.waits = false;
            if (entry.hasRow || !isShown(entry.record)) {
                settle(entry);
            } else {
                entry.place = placeOf(entry.record);
                added.append(&entry);
            }
        }
        insertAll(&added);
    }

protected:
    virtual QString keyOf(const Record &record) const = 0;
    virtual Place placeOf(const Record &record) const = 0;
    // Whether the record has a row. After a change of what this depends on: rebuild().
    virtual bool isShown(const Record &) const { return true; }

private:
    struct Entry
    {
        QString key;
        Record record;
        Place place; // at which the row stands, which may be behind the record
        bool hasRow = false;
        bool waits = false; // for the end of the freeze
    };

    static bool stands(const Entry *a, const Entry *b)
    {
        return a->place < b->place || (a->place == b->place && a->key < b->key);
    }

    Entry &entryOf(const Record &record)
    {
        const QString key = keyOf(record);
        std::unique_ptr<Entry> &entry = m_entries[key];
        if (!entry) {
            entry = std::make_unique<Entry>();
            entry->key = key;
        }
        return *entry;
    }

    int rowOf(const Entry &entry) const
    {
        return int(std::lower_bound(m_rows.begin(), m_rows.end(), &entry, stands) - m_rows.begin());
    }

    void emitChanged(const Entry &entry, const QVector<int> &roles)
    {
        const QModelIndex changed = index(rowOf(entry));
        emit dataChanged(changed, changed, roles);
    }

    void takeRow(Entry &entry)
    {
        if (!entry.hasRow)
            return;
        const int row = rowOf(entry);
        beginRemoveRows(QModelIndex(), row, row);
        m_rows.remove(row);
        entry.hasRow = false;
        endRemoveRows();
    }

    // Brings an entry's row to where its record belongs.
    void settle(Entry &entry)
    {
        if (!isShown(entry.record)) {
            takeRow(entry);
            return;
        }
        const Place place = placeOf(entry.record);
        if (entry.hasRow && entry.place == place)
            return;
        if (m_frozen) {
            if (!entry.waits)
                m_waiting.append(entry.key);
            entry.waits = true;
            return;
        }
        if (entry.hasRow)
            moveRow(entry, place);
        else
            insertRow(entry, place);
    }

    void insertRow(Entry &entry, const Place &place)
    {
        entry.place = place;
        const int row = rowOf(entry);
        beginInsertRows(QModelIndex(), row, row);
        m_rows.insert(row, &entry);
        entry.hasRow = true;
        endInsertRows();
    }

    void moveRow(Entry &entry, const Place &place)
    {
        const int from = rowOf(entry);
        Entry target;
        target.key = entry.key;
        target.place = place;
        // Counted with the row still at its old place.
        const int to = rowOf(target);
        if (to == from || to == from + 1) {
            entry.place = place;
            return;
        }
        beginMoveRows(QModelIndex(), from, from, QModelIndex(), to);
        entry.place = place;
        if (to < from)
            std::rotate(m_rows.begin() + to, m_rows.begin() + from, m_rows.begin() + from + 1);
        else
            std::rotate(m_rows.begin() + from, m_rows.begin() + from + 1, m_rows.begin() + to);
        endMoveRows();
    }

    // New entries whose places are set: runs that fall between the same two rows go
    // in together.
    void insertAll(QVector<Entry *> *added)
    {
        std::sort(added->begin(), added->end(), stands);
        for (auto first = added->begin(); first != added->end();) {
            const int row = rowOf(**first);
            auto last = first + 1;
            while (last != added->end() && (row == m_rows.size() || stands(*last, m_rows.at(row))))
                ++last;
            const int count = int(last - first);
            beginInsertRows(QModelIndex(), row, row + count - 1);
            m_rows.insert(row, count, nullptr);
            for (int i = 0; i < count; ++i, ++first) {
                m_rows[row + i] = *first;
                (*first)->hasRow = true;
            }
            endInsertRows();
        }
    }

    struct KeyHash
    {
        size_t operator()(const QString &key) const { return qHash(key); }
    };

    std::unordered_map<QString, std::unique_ptr<Entry>, KeyHash> m_entries;
    QVector<Entry *> m_rows; // in the order of their places
    QVector<QString> m_waiting;
    bool m_frozen = false;
};

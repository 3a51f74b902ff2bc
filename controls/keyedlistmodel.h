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
    int recordCount() const { return int(m_nodes.size()); }
    const Record *find(const QString &key) const
    {
        const auto found = m_nodes.find(key);
        return found == m_nodes.end() ? nullptr : &found->second.record;
    }
    // `row` is one of the model's.
    const Record &at(int row) const { return m_rows[size_t(row)]->second.record; }
    // Invalid for a record that has no row.
    QModelIndex indexOf(const QString &key) const
    {
        const auto found = m_nodes.find(key);
        return found == m_nodes.end() || !found->second.hasRow ? QModelIndex()
                                                               : index(rowOf(*found));
    }
    template <class Function> void forEach(const Function &function) const
    {
        for (const Node &node : m_nodes)
            function(node.second.record);
    }

    // Adds a record, or takes it in the place of the one with its key.
    void put(Record record) { follow(take(std::move(record)), {}); }

    // Adds a record unless there is one with its key: then false.
    bool putNew(Record record)
    {
        const auto [node, isNew] = m_nodes.try_emplace(keyOf(record));
        if (!isNew)
            return false;
        node->second.record = std::move(record);
        follow(*node, {});
        return true;
    }

    // Many at once: new rows that follow one another are inserted at once. The
    // last one of a key counts.
    void putAll(const QVector<Record> &records)
    {
        m_nodes.reserve(m_nodes.size() + size_t(records.size()));
        for (const Record &record : records) {
            Node &node = take(record);
            if (node.second.hasRow)
                follow(node, {});
            else
                wait(node);
        }
        if (m_frozen)
            appendWaiting();
        else
            settleWaiting();
    }

    // Lets `function` change a record in place, then its row follows; false without
    // one. `roles` are those that changed, none: all.
    template <class Function>
    bool change(const QString &key, const Function &function, const QVector<int> &roles = {})
    {
        const auto found = m_nodes.find(key);
        if (found == m_nodes.end())
            return false;
        function(found->second.record);
        follow(*found, roles);
        return true;
    }

    bool remove(const QString &key)
    {
        const auto found = m_nodes.find(key);
        if (found == m_nodes.end())
            return false;
        takeRow(*found);
        if (found->second.waits)
            m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), &*found));
        m_nodes.erase(found);
        return true;
    }

    void clear()
    {
        beginResetModel();
        m_rows.clear();
        m_waiting.clear();
        m_nodes.clear();
        endResetModel();
    }

    // Asks anew which records are shown and where: another list comes to be seen.
    void rebuild()
    {
        beginResetModel();
        m_rows.clear();
        for (Node &node : m_nodes) {
            node.second.hasRow = isShown(node.second.record);
            node.second.place = placeOf(node.second.record);
            if (node.second.hasRow)
                m_rows.push_back(&node);
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
    using Nodes = std::unordered_map<QString, Entry, KeyHash>;
    using Node = typename Nodes::value_type; // key and entry; has one address for life

    static bool standsAt(const Node *node, const Place &place, const QString &key)
    {
        return node->second.place < place || (node->second.place == place && node->first < key);
    }
    static bool stands(const Node *a, const Node *b)
    {
        return standsAt(a, b->second.place, b->first);
    }
    // The row of what stands there, or would.
    int rowAt(const Place &place, const QString &key) const
    {
        const auto before = [&key](const Node *node, const Place &at) {
            return standsAt(node, at, key);
        };
        return int(std::lower_bound(m_rows.begin(), m_rows.end(), place, before) - m_rows.begin());
    }
    int rowOf(const Node &node) const { return rowAt(node.second.place, node.first); }

    Node &take(Record record)
    {
        Node &node = *m_nodes.try_emplace(keyOf(record)).first;
        node.second.record = std::move(record);
        return node;
    }

    void wait(Node &node)
    {
        if (!std::exchange(node.second.waits, true))
            m_waiting.push_back(&node);
    }

    // Brings a node's row to where its record belongs, and tells of the change.
    void follow(Node &node, const QVector<int> &roles)
    {
        const bool hadRow = node.second.hasRow;
        const int row = settle(node);
        if (hadRow && row >= 0)
            emit dataChanged(index(row), index(row), roles);
    }

    // The row, -1 for none.
    int settle(Node &node)
    {
        Entry &entry = node.second;
        if (!isShown(entry.record)) {
            takeRow(node);
            return -1;
        }
        const Place place = placeOf(entry.record);
        if (entry.hasRow && entry.place == place)
            return rowOf(node);
        if (m_frozen) {
            wait(node);
            return entry.hasRow ? rowOf(node) : -1;
        }
        return entry.hasRow ? moveRow(node, place) : insertRow(node, place);
    }

    void settleWaiting()
    {
        std::vector<Node *> added;
        for (Node *node : std::exchange(m_waiting, {})) {
            Entry &entry = node->second;
            entry.waits = false;
            if (entry.hasRow) {
                settle(*node);
            } else if (isShown(entry.record)) {
                entry.place = placeOf(entry.record);
                added.push_back(node);
            }
        }
        insertAll(&added);
    }

    // What stands behind all rows comes in between none: a further page is seen at
    // once, also by who points at the list.
    void appendWaiting()
    {
        const auto isInside = [this](Node *node) {
            Entry &entry = node->second;
            if (entry.hasRow || !isShown(entry.record))
                return true;
            entry.place = placeOf(entry.record);
            return !m_rows.empty() && stands(node, m_rows.back());
        };
        const auto behind = std::partition(m_waiting.begin(), m_waiting.end(), isInside);
        std::vector<Node *> added(behind, m_waiting.end());
        m_waiting.erase(behind, m_waiting.end());
        for (Node *node : added)
            node->second.waits = false;
        insertAll(&added);
    }

    void takeRow(Node &node)
    {
        if (!node.second.hasRow)
            return;
        const int row = rowOf(node);
        beginRemoveRows(QModelIndex(), row, row);
        m_rows.erase(m_rows.begin() + row);
        node.second.hasRow = false;
        endRemoveRows();
    }

    int insertRow(Node &node, const Place &place)
    {
        node.second.place = place;
        const int row = rowOf(node);
        beginInsertRows(QModelIndex(), row, row);
        m_rows.insert(m_rows.begin() + row, &node);
        node.second.hasRow = true;
        endInsertRows();
        return row;
    }

    int moveRow(Node &node, const Place &place)
    {
        const int from = rowOf(node);
        // Counted with the row still at its old place.
        const int to = rowAt(place, node.first);
        if (to == from || to == from + 1) {
            node.second.place = place;
            return from;
        }
        beginMoveRows(QModelIndex(), from, from, QModelIndex(), to);
        node.second.place = place;
        const auto rows = m_rows.begin();
        if (to < from)
            std::rotate(rows + to, rows + from, rows + from + 1);
        else
            std::rotate(rows + from, rows + from + 1, rows + to);
        endMoveRows();
        return to < from ? to : to - 1;
    }

    // Nodes whose places are set: runs that fall between the same two rows go in
    // together.
    void insertAll(std::vector<Node *> *added)
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

    Nodes m_nodes;
    std::vector<Node *> m_rows;    // in the order of their places
    std::vector<Node *> m_waiting; // for the end of the freeze, or of a batch
    bool m_frozen = false;
};

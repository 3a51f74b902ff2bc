// Contact trees as one would first write them, to compare with: the toolkit's
// items with a role vector each, and thin items that read a record.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QHash>
#include <QStandardItemModel>
#include <QTreeView>

#include <vector>

// Stock items: eight roles each, ordered by QStandardItemModel::sort().
struct StockTree
{
    explicit StockTree(int groups);

    void fill(const QList<FriendData> &contacts);
    void sort();
    void setPresence(const QString &jid, const PresenceData &presence); // leaves the order

    QStandardItemModel model; // outlives the view
    QTreeView view;
    QHash<QString, QStandardItem *> items;
};

// Items that point to a record, put in their place by binary search.
struct ThinItemTree
{
    explicit ThinItemTree(int groups);

    void fill(const QList<FriendData> &contacts);
    void setPresence(const QString &jid, const PresenceData &presence); // and its order

    struct Record
    {
        FriendData contact;
        QString key;
        bool online = false;
    };

    std::vector<Record> records;
    QStandardItemModel model;
    QTreeView view;
    QHash<QString, QStandardItem *> items;
};

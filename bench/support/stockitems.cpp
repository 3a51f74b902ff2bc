#include "bench/support/stockitems.h"

#include "common/cchcharactertopp.h"
#include "contacts/friendtreeroles.h"

#include <QApplication>

#include <algorithm>

namespace {

int groupNumber(const FriendData &contact)
{
    return contact.groupId.mid(1).toInt();
}

QString sortKey(const QString &name, bool online)
{
    return (online ? QStringLiteral("0|2") : QStringLiteral("1|")) +
           CChCharacterToPP().toPinyin(name, false);
}

void addGroups(QStandardItemModel *model, int count)
{
    for (int i = 0; i < count; ++i) {
        auto *group = new QStandardItem(QStringLiteral("Group %1").arg(i, 4, 10, QLatin1Char('0')));
        group->setData(group->text(), FriendTreeRole::SortKey);
        model->appendRow(group);
    }
}

void show(QTreeView *view, QStandardItemModel *model)
{
    view->setModel(model);
    view->setUniformRowHeights(true);
    view->setHeaderHidden(true);
    view->resize(360, 640);
    view->expandAll();
    view->show();
    QApplication::processEvents();
}

class ThinItem : public QStandardItem
{
public:
    explicit ThinItem(ThinItemTree::Record *behind) : record(behind) {}

    QVariant data(int role) const override
    {
        switch (role) {
        case Qt::DisplayRole:
            return record->contact.nickName;
        case FriendTreeRole::Id:
            return record->contact.jid;
        case FriendTreeRole::SortKey:
            return record->key;
        case FriendTreeRole::Presence:
            return record->online;
        default:
            return QVariant();
        }
    }
    bool operator<(const QStandardItem &other) const override
    {
        return record->key < static_cast<const ThinItem &>(other).record->key;
    }

    ThinItemTree::Record *record;
};

int placeFor(const QStandardItem *group, const QString &key)
{
    int low = 0;
    int high = group->rowCount();
    while (low < high) {
        const int middle = (low + high) / 2;
        if (static_cast<const ThinItem *>(group->child(middle))->record->key < key)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

} // namespace

StockTree::StockTree(int groups)
{
    addGroups(&model, groups);
    model.setSortRole(FriendTreeRole::SortKey);
    show(&view, &model);
}

void StockTree::fill(const QList<FriendData> &contacts)
{
    for (const FriendData &contact : contacts) {
        auto *item = new QStandardItem;
        item->setData(contact.nickName, FriendTreeRole::Name);
        item->setData(contact.jid, FriendTreeRole::Id);
        item->setData(contact.headPath, FriendTreeRole::HeadPath);
        item->setData(0, FriendTreeRole::Presence);
        item->setData(sortKey(contact.nickName, false), FriendTreeRole::SortKey);
        item->setData(false, FriendTreeRole::Cooperate);
        item->setData(int(ContactRow), FriendTreeRole::Kind);
        item->setData(0, FriendTreeRole::MobilePresence);
        items.insert(contact.jid, item);
        model.item(groupNumber(contact))->appendRow(item);
    }
}

void StockTree::sort()
{
    model.sort(0);
}

void StockTree::setPresence(const QString &jid, const PresenceData &presence)
{
    QStandardItem *item = items.value(jid);
    item->setData(int(presence.pcShow), FriendTreeRole::Presence);
    item->setData(sortKey(item->data(FriendTreeRole::Name).toString(), presence.isOnline()),
                  FriendTreeRole::SortKey);
}

ThinItemTree::ThinItemTree(int groups)
{
    addGroups(&model, groups);
    show(&view, &model);
}

void ThinItemTree::fill(const QList<FriendData> &contacts)
{
    records.resize(size_t(contacts.size()));
    QHash<int, QList<QStandardItem *>> rows;
    for (int i = 0; i < contacts.size(); ++i) {
        Record &record = records[size_t(i)];
        record.contact = contacts.at(i);
        record.key = sortKey(record.contact.nickName, false);
        auto *item = new ThinItem(&record);
        items.insert(record.contact.jid, item);
        rows[groupNumber(record.contact)].append(item);
    }
    for (auto at = rows.begin(); at != rows.end(); ++at) {
        std::sort(at->begin(), at->end(),
                  [](const QStandardItem *a, const QStandardItem *b) { return *a < *b; });
        model.item(at.key())->appendRows(at.value());
    }
    QApplication::processEvents();
}

void ThinItemTree::setPresence(const QString &jid, const PresenceData &presence)
{
    auto *item = static_cast<ThinItem *>(items.value(jid));
    if (item->record->online == presence.isOnline())
        return;
    QStandardItem *group = item->parent();
    QStandardItem *taken = group->takeRow(item->row()).first();
    item->record->online = presence.isOnline();
    item->record->key = sortKey(item->record->contact.nickName, item->record->online);
    group->insertRow(placeFor(group, item->record->key), taken);
}

// The group side of the friend tree's model.
#include "contacts/friendtreemodel.h"

#include "common/builtingroups.h"

#include <algorithm>

FriendTreeGroup *FriendTreeModel::group(const QString &id) const
{
    return m_groupById.value(id);
}

bool FriendTreeModel::hasGroup(const QString &id) const
{
    return m_groupById.contains(id);
}

QString FriendTreeModel::groupName(const QString &id) const
{
    const Group *known = group(id);
    return known ? known->name : QString();
}

QString FriendTreeModel::groupIdByName(const QString &name) const
{
    for (const auto &group : m_groups) {
        if (group->name == name)
            return group->id;
    }
    return QString();
}

QList<GroupData> FriendTreeModel::groups() const
{
    QList<GroupData> list;
    for (const auto &group : m_groups)
        list.append({group->id, group->name});
    return list;
}

int FriendTreeModel::groupRowFor(const QString &id, const QString &name) const
{
    const auto key = std::make_pair(FriendTreeSort::groupKey(name), id);
    const auto at = std::lower_bound(
        m_groups.begin(), m_groups.end(), key,
        [](const std::unique_ptr<Group> &group, const std::pair<QString, QString> &wanted) {
            return std::make_pair(FriendTreeSort::groupKey(group->name), group->id) < wanted;
        });
    return int(at - m_groups.begin());
}

void FriendTreeModel::renumberGroups(int first)
{
    for (size_t row = size_t(first); row < m_groups.size(); ++row)
        m_groups[row]->row = int(row);
}

// Looked up instead of taken over: a host may send two groups of one name.
void FriendTreeModel::noteBuiltInGroups(const QString &oldName, const QString &newName)
{
    const auto concerns = [&](const QString &name) { return oldName == name || newName == name; };
    if (concerns(frequentGroupName()))
        m_frequentGroupId = groupIdByName(frequentGroupName());
    if (concerns(defaultGroupName())) {
        m_hostDefaultId.clear();
        for (const auto &group : m_groups) {
            if (!group->id.isEmpty() && group->name == defaultGroupName())
                m_hostDefaultId = group->id;
        }
    }
}

FriendTreeGroup *FriendTreeModel::addGroup(const QString &id, const QString &name)
{
    auto made = std::make_unique<Group>();
    Group *group = made.get();
    group->id = id;
    group->name = name;
    const int row = groupRowFor(id, name);
    beginInsertRows(QModelIndex(), row, row);
    m_groups.insert(m_groups.begin() + row, std::move(made));
    m_groupById.insert(id, group);
    renumberGroups(row);
    endInsertRows();
    noteBuiltInGroups(QString(), name);
    return group;
}

FriendTreeGroup *FriendTreeModel::defaultGroup()
{
    // The host's own group of that name comes before one that was made here.
    Group *unnamed = group(QString());
    if (unnamed && !m_defaultMadeHere)
        return unnamed;
    if (!m_hostDefaultId.isEmpty())
        return group(m_hostDefaultId);
    if (unnamed)
        return unnamed;
    m_defaultMadeHere = true;
    return addGroup(QStringLiteral(""), defaultGroupName());
}

FriendTreeGroup *FriendTreeModel::groupFor(const FriendData &record)
{
    Group *known = record.groupId.isEmpty() ? nullptr : group(record.groupId);
    return known ? known : defaultGroup();
}

void FriendTreeModel::adoptStrays()
{
    Contacts strays;
    for (const auto &group : m_groups) {
        const bool isHome = group->id.isEmpty() || group->name == defaultGroupName();
        if (!isHome)
            continue;
        for (const Rows *rows : {&group->rows, &group->hidden}) {
            for (const FriendTreeRow &row : *rows) {
                if (groupFor(row.contact->record) != group.get())
                    strays.push_back(row.contact);
            }
        }
    }
    for (Contact *stray : strays)
        transfer(stray, groupFor(stray->record));
    const Group *unnamed = group(QString());
    if (m_defaultMadeHere && unnamed && unnamed->total() == 0)
        removeGroup(QString());
}

void FriendTreeModel::mergeGroups(const QList<GroupData> &groups)
{
    for (const GroupData &data : groups) {
        if (data.id.isEmpty())
            m_defaultMadeHere = false;
        if (hasGroup(data.id))
            renameGroup(data.id, data.name);
        else if (!data.name.isEmpty())
            addGroup(data.id, data.name);
    }
    adoptStrays();
}

bool FriendTreeModel::renameGroup(const QString &id, const QString &name)
{
    Group *renamed = group(id);
    if (!renamed)
        return false;
    if (renamed->name == name || name.isEmpty())
        return true;
    const QString oldName = renamed->name;
    const int from = renamed->row;
    // Found before the name changes: the list is still in order then.
    const int to = groupRowFor(id, name);
    renamed->name = name;
    if (to != from && to != from + 1) {
        beginMoveRows(QModelIndex(), from, from, QModelIndex(), to);
        const auto begin = m_groups.begin();
        if (to > from)
            std::rotate(begin + from, begin + from + 1, begin + to);
        else
            std::rotate(begin + to, begin + from, begin + from + 1);
        renumberGroups(qMin(from, to));
        endMoveRows();
    }
    noteBuiltInGroups(oldName, name);
    groupChanged(renamed);
    return true;
}

bool FriendTreeModel::removeGroup(const QString &id)
{
    Group *removed = group(id);
    if (!removed)
        return false;
    Rows orphans = removed->rows;
    orphans.insert(orphans.end(), removed->hidden.begin(), removed->hidden.end());

    const int row = removed->row;
    beginRemoveRows(QModelIndex(), row, row);
    m_groupById.remove(id);
    m_changedGroups.erase(std::remove(m_changedGroups.begin(), m_changedGroups.end(), removed),
                          m_changedGroups.end());
    const std::unique_ptr<Group> kept = std::move(m_groups[size_t(row)]);
    m_groups.erase(m_groups.begin() + row);
    renumberGroups(row);
    endRemoveRows();
    noteBuiltInGroups(kept->name, QString());

    if (!orphans.empty()) {
        Group *home = defaultGroup();
        for (const FriendTreeRow &orphan : orphans) {
            orphan.contact->record.groupId = home->id;
            arrive(orphan.contact, home);
        }
        attachArrivals(home);
    }
    return true;
}

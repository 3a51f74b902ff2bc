#include "virtualteam/dialogs/teamchoices.h"

#include "virtualteam/teammessages.h"
#include "virtualteam/teamtreemodel.h"

namespace {
TeamRowKind kindOf(const QModelIndex &index)
{
    return TeamRowKind(index.data(TeamRowRole::Kind).toInt());
}
} // namespace

TeamChoices::TeamChoices(TeamTreeModel *teams, Kind kind, QObject *parent)
    : QSortFilterProxyModel(parent), m_teams(teams), m_kind(kind)
{
    setSourceModel(teams);
}

void TeamChoices::setRefusedGroup(const QString &groupId)
{
    if (m_refusedGroup == groupId)
        return;
    m_refusedGroup = groupId;
    // Which rows show it is not worth searching for.
    if (rowCount() > 0)
        emit dataChanged(index(0, 0), index(rowCount() - 1, 0), {Choosable, Note});
}

QString TeamChoices::groupId(const QModelIndex &index)
{
    switch (kindOf(index)) {
    case TeamRowKind::Team:
        return rootGroupId();
    case TeamRowKind::Group:
        return index.data(TeamRowRole::Id).toString();
    case TeamRowKind::Member:
    case TeamRowKind::Loading:
    case TeamRowKind::Failed:
    case TeamRowKind::Empty:
        break;
    }
    return QString();
}

bool TeamChoices::hasChildren(const QModelIndex &parent) const
{
    const QString group = groupId(parent);
    if (group.isEmpty())
        return QSortFilterProxyModel::hasChildren(parent);
    const CVirtualTeamSimpleInfo team = m_teams->team(mapToSource(parent));
    return m_teams->childrenState(team.vtId, group) == TeamChildren::NotAsked ||
           QSortFilterProxyModel::hasChildren(parent);
}

QVariant TeamChoices::data(const QModelIndex &index, int role) const
{
    switch (role) {
    case Choosable: {
        const QString group = groupId(index);
        return m_kind == Groups ? !group.isEmpty() && group != m_refusedGroup
                                : kindOf(index) == TeamRowKind::Member;
    }
    case Note:
        return m_kind == Groups && !m_refusedGroup.isEmpty() && groupId(index) == m_refusedGroup
                   ? QObject::tr("teamMembersHere")
                   : QString();
    case Qt::DisplayRole:
    case Qt::AccessibleTextRole:
        if (kindOf(index) == TeamRowKind::Failed)
            return QString::fromUtf8(TeamMessages::MembersFailed);
        if (kindOf(index) == TeamRowKind::Empty)
            return QString::fromUtf8(TeamMessages::NoMembers);
        break;
    default:
        break;
    }
    return QSortFilterProxyModel::data(index, role);
}

bool TeamChoices::filterAcceptsRow(int row, const QModelIndex &parent) const
{
    if (m_kind == Members)
        return true;
    switch (kindOf(m_teams->index(row, 0, parent))) {
    case TeamRowKind::Team:
    case TeamRowKind::Group:
    case TeamRowKind::Loading:
    case TeamRowKind::Failed:
        return true;
    case TeamRowKind::Member:
    case TeamRowKind::Empty:
        break;
    }
    return false;
}

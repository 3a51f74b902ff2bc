#include "virtualteam/teamtreemodel.h"

#include "common/logging.h"
#include "virtualteam/teamtreeparts.h"
#include "virtualteam/teamtreetexts.h"

namespace {

TeamTreeNode *nodeOf(const QModelIndex &index)
{
    return TeamTreeId::node(index.internalId());
}

// The team or sub-group of a row: itself, or the one that it is in.
TeamTreeBranch *branchOf(const QModelIndex &index)
{
    TeamTreeNode *node = nodeOf(index);
    return node->isBranch() ? static_cast<TeamTreeBranch *>(node) : node->above;
}

} // namespace

TeamTreeModel::TeamTreeModel(QObject *parent)
    : TeamTreeSteps(parent), d(std::make_unique<TeamTreeParts>(this))
{
}

TeamTreeModel::~TeamTreeModel() = default;

// --- Loading -----------------------------------------------------------------------------

void TeamTreeModel::setTeams(const QList<CVirtualTeamSimpleInfo> &teams)
{
    d->changes.setTeams(teams);
}

bool TeamTreeModel::setLevel(const QString &vtId, const QString &pgId,
                             const QList<CVirtualTeamSimpleInfo> &groups,
                             const QList<CVirtualTeamMemberInfo> &members)
{
    TeamTreeBranch *branch = d->rows.findGroup(vtId, pgId);
    if (!branch) {
        LOG_ERROR("item is null");
        return false;
    }
    d->changes.setLevel(branch, groups, members);
    return true;
}

void TeamTreeModel::setChildrenState(const QString &vtId, const QString &pgId, TeamChildren state)
{
    if (TeamTreeBranch *branch = d->rows.findGroup(vtId, pgId))
        d->changes.setState(branch, state);
}

TeamChildren TeamTreeModel::childrenState(const QString &vtId, const QString &pgId) const
{
    const TeamTreeBranch *branch = d->rows.findGroup(vtId, pgId);
    return branch ? branch->state : TeamChildren::NotAsked;
}

void TeamTreeModel::expire(const QString &vtId)
{
    TeamTreeBranch *team = d->rows.findTeam(vtId);
    if (!team)
        return;
    team->isStale = true;
    for (TeamTreeBranch *group : qAsConst(team->branches))
        group->isStale = true;
}

void TeamTreeModel::expireLevel(const QString &vtId, const QString &pgId)
{
    if (TeamTreeBranch *branch = d->rows.findGroup(vtId, pgId))
        branch->isStale = true;
}

bool TeamTreeModel::isStale(const QString &vtId, const QString &pgId) const
{
    const TeamTreeBranch *branch = d->rows.findGroup(vtId, pgId);
    return branch && branch->isStale;
}

void TeamTreeModel::clear()
{
    beginResetModel();
    d->changes.forgetWaiting();
    d->rows.clear();
    endResetModel();
}

// --- Reading ---------------------------------------------------------------------------------

QStringList TeamTreeModel::teamIds() const
{
    QStringList ids;
    for (const TeamTreeNode *node : d->rows.root()->rows)
        ids.append(static_cast<const TeamTreeBranch *>(node)->info.vtId);
    return ids;
}

QModelIndex TeamTreeModel::teamIndex(const QString &vtId) const
{
    return d->changes.index(d->rows.findTeam(vtId));
}

QModelIndex TeamTreeModel::groupIndex(const QString &vtId, const QString &groupId) const
{
    return d->changes.index(d->rows.findGroup(vtId, groupId));
}

QModelIndex TeamTreeModel::memberIndex(const QString &vtId, const QString &userId) const
{
    return d->changes.index(d->rows.findMember(d->rows.findTeam(vtId), userId));
}

TeamRowKind TeamTreeModel::kind(const QModelIndex &index) const
{
    if (!index.isValid())
        return TeamRowKind::Empty;
    return TeamTreeId::isMember(index.internalId()) ? TeamRowKind::Member : nodeOf(index)->kind;
}

CVirtualTeamSimpleInfo TeamTreeModel::team(const QModelIndex &index) const
{
    return index.isValid() ? branchOf(index)->team->info : CVirtualTeamSimpleInfo();
}

CVirtualTeamSimpleInfo TeamTreeModel::group(const QModelIndex &index) const
{
    return kind(index) == TeamRowKind::Group ? branchOf(index)->info : CVirtualTeamSimpleInfo();
}

CVirtualTeamMemberInfo TeamTreeModel::member(const QModelIndex &index) const
{
    return kind(index) == TeamRowKind::Member
               ? static_cast<const TeamTreeMember *>(nodeOf(index))->record
               : CVirtualTeamMemberInfo();
}

QString TeamTreeModel::groupId(const QModelIndex &index) const
{
    if (!index.isValid())
        return QString();
    const TeamTreeBranch *branch = branchOf(index);
    return branch == branch->team ? rootGroupId() : branch->info.vtId;
}

int TeamTreeModel::level(const QModelIndex &index) const
{
    return index.isValid() ? branchOf(index)->level() : 0;
}

QStringList TeamTreeModel::loadedMembers(const QString &vtId) const
{
    QStringList userIds;
    const TeamTreeBranch *team = d->rows.findTeam(vtId);
    if (!team)
        return userIds;
    for (const TeamTreeNode *node : TeamTreeRows::below(team)) {
        if (node->isMember())
            userIds.append(static_cast<const TeamTreeMember *>(node)->record.userId);
    }
    return userIds;
}

QStringList TeamTreeModel::askedGroups(const QString &vtId) const
{
    QStringList ids;
    const TeamTreeBranch *team = d->rows.findTeam(vtId);
    if (team && team->state != TeamChildren::NotAsked)
        ids.append(rootGroupId());
    const auto nodes = team ? TeamTreeRows::below(team) : std::vector<TeamTreeNode *>();
    for (const TeamTreeNode *node : nodes) {
        const auto *branch = node->isBranch() ? static_cast<const TeamTreeBranch *>(node) : nullptr;
        if (branch && branch->state != TeamChildren::NotAsked)
            ids.append(branch->info.vtId);
    }
    return ids;
}

// --- What views read -------------------------------------------------------------------------

QModelIndex TeamTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return QModelIndex();
    const TeamTreeBranch *branch = parent.isValid() ? branchOf(parent) : d->rows.root();
    const TeamTreeNode *node = branch->rows[size_t(row)];
    return createIndex(row, 0, TeamTreeId::of(node, branch->areMembers[size_t(row)]));
}

QModelIndex TeamTreeModel::parent(const QModelIndex &child) const
{
    TeamTreeBranch *above = child.isValid() ? nodeOf(child)->above : nullptr;
    return !above || above->isRoot() ? QModelIndex() : d->changes.index(above);
}

int TeamTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(d->rows.root()->rows.size());
    const bool mayHave = parent.column() == 0 && !TeamTreeId::isMember(parent.internalId()) &&
                         nodeOf(parent)->isBranch();
    return mayHave ? int(branchOf(parent)->rows.size()) : 0;
}

int TeamTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

// There may be rows below until the service has told.
bool TeamTreeModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0 ||
           (parent.isValid() && kind(parent) != TeamRowKind::Member && nodeOf(parent)->isBranch() &&
            branchOf(parent)->state == TeamChildren::NotAsked);
}

Qt::ItemFlags TeamTreeModel::flags(const QModelIndex &index) const
{
    switch (kind(index)) {
    case TeamRowKind::Team:
    case TeamRowKind::Group:
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    case TeamRowKind::Member:
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDragEnabled |
               Qt::ItemIsDropEnabled | Qt::ItemNeverHasChildren;
    case TeamRowKind::Failed:
        return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    case TeamRowKind::Loading:
    case TeamRowKind::Empty:
        break;
    }
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

QVariant TeamTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const TeamTreeNode *node = nodeOf(index);
    if (role == TeamRowRole::Kind)
        return int(node->kind);
    if (node->isMember())
        return TeamTreeTexts::member(*static_cast<const TeamTreeMember *>(node), role);
    if (node->isBranch())
        return TeamTreeTexts::branch(*static_cast<const TeamTreeBranch *>(node), role);
    return TeamTreeTexts::placeholder(node->kind, role);
}

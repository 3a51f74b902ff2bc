#include "virtualteam/teamtreemodel.h"

#include "common/displaytext.h"
#include "common/logging.h"
#include "virtualteam/teamtreechanges.h"
#include "virtualteam/teamtreetexts.h"

#include <algorithm>
#include <utility>

struct TeamTreeModel::Private
{
    explicit Private(TeamTreeModel *model) : changes(model, &rows) {}

    TeamTreeRows rows;
    TeamTreeChanges changes;

    // Lets `function` change the record of a member, who then finds the new place.
    template <class Function>
    void changeMember(const QString &vtId, const QString &userId, const Function &function)
    {
        TeamTreeMember *member = rows.findMember(rows.findTeam(vtId), userId);
        if (!member)
            return;
        CVirtualTeamMemberInfo record = member->record;
        function(&record);
        TeamTreeRows::setRecord(member, std::move(record));
        changes.update({member});
    }
    template <class Function>
    void changeGroup(const QString &vtId, const QString &groupId, const Function &function)
    {
        if (TeamTreeBranch *branch = rows.findGroup(vtId, groupId)) {
            function(&branch->info);
            changes.changed(branch);
        }
    }
};

namespace {

TeamTreeNode *nodeOf(const QModelIndex &index)
{
    return static_cast<TeamTreeNode *>(index.internalPointer());
}

// The team or sub-group of a row: itself, or the one that it is in.
TeamTreeBranch *branchOf(const QModelIndex &index)
{
    TeamTreeNode *node = nodeOf(index);
    return node->isBranch() ? static_cast<TeamTreeBranch *>(node) : node->above;
}

} // namespace

TeamTreeModel::TeamTreeModel(QObject *parent)
    : TeamTreeSteps(parent), d(std::make_unique<Private>(this))
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

// --- Single changes ------------------------------------------------------------------------

bool TeamTreeModel::removeTeam(const QString &vtId)
{
    TeamTreeBranch *team = d->rows.findTeam(vtId);
    if (team)
        d->changes.remove(team);
    return team;
}

bool TeamTreeModel::removeGroup(const QString &vtId, const QString &groupId)
{
    TeamTreeBranch *group = d->rows.findGroup(vtId, groupId);
    if (!group || group == group->team)
        return false;
    d->changes.remove(group);
    return true;
}

bool TeamTreeModel::removeMember(const QString &vtId, const QString &userId)
{
    TeamTreeMember *member = d->rows.findMember(d->rows.findTeam(vtId), userId);
    if (member)
        d->changes.remove(member);
    return member;
}

void TeamTreeModel::addGroup(const QString &vtId, const QString &pgId, const QString &groupId,
                             const QString &name)
{
    TeamTreeBranch *branch = d->rows.findGroup(vtId, pgId);
    if (!branch || branch->state != TeamChildren::Loaded)
        return;
    CVirtualTeamSimpleInfo info;
    info.vtId = groupId;
    info.vtName = name;
    d->changes.addGroup(branch, info);
}

void TeamTreeModel::moveMembers(const QString &vtId, const QString &groupId,
                                const QStringList &userIds)
{
    TeamTreeBranch *target = d->rows.findGroup(vtId, groupId);
    if (!target)
        return;
    std::vector<TeamTreeMember *> members;
    for (const QString &userId : userIds) {
        TeamTreeMember *member = d->rows.findMember(target->team, userId);
        if (!member || std::find(members.begin(), members.end(), member) != members.end())
            continue;
        if (target->state == TeamChildren::Loaded)
            members.push_back(member);
        else
            d->changes.remove(member);
    }
    d->changes.moveMembers(target, members);
}

void TeamTreeModel::setTeamName(const QString &vtId, const QString &name)
{
    setGroupName(vtId, rootGroupId(), name);
}

void TeamTreeModel::setTeamRole(const QString &vtId, int role)
{
    d->changeGroup(vtId, rootGroupId(), [role](auto *info) { info->role = role; });
}

void TeamTreeModel::setGroupName(const QString &vtId, const QString &groupId, const QString &name)
{
    d->changeGroup(vtId, groupId, [&name](auto *info) { info->vtName = name; });
}

void TeamTreeModel::setNickName(const QString &vtId, const QString &userId, const QString &nickName)
{
    d->changeMember(vtId, userId, [&nickName](auto *record) { record->nickName = nickName; });
}

void TeamTreeModel::setDuty(const QString &vtId, const QString &userId, const QString &duty)
{
    d->changeMember(vtId, userId, [&duty](auto *record) { record->duty = duty; });
}

void TeamTreeModel::setRole(const QString &vtId, const QString &userId, int role)
{
    d->changeMember(vtId, userId, [role](auto *record) { record->role = role; });
}

void TeamTreeModel::setPresence(const QMap<QString, PresenceData> &presence)
{
    std::vector<TeamTreeMember *> changed;
    for (auto at = presence.constBegin(); at != presence.constEnd(); ++at) {
        TeamTreeMember *member = d->rows.findPerson(jidUser(at.key()));
        for (; member; member = member->inNextTeam) {
            if (member->record.presence == at.value())
                continue;
            member->record.presence = at.value();
            changed.push_back(member);
        }
    }
    d->changes.update(changed);
}

void TeamTreeModel::setPhoto(const QString &userId, const QString &photoName)
{
    std::vector<TeamTreeMember *> changed;
    TeamTreeMember *member = d->rows.findPerson(userId);
    for (; member; member = member->inNextTeam) {
        member->record.photoName = photoName;
        changed.push_back(member);
    }
    d->changes.update(changed);
}

void TeamTreeModel::setOrderFrozen(bool frozen)
{
    d->changes.setFrozen(frozen);
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
    return index.isValid() ? nodeOf(index)->kind : TeamRowKind::Empty;
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

bool TeamTreeModel::isAtOrBelow(const QString &vtId, const QString &groupId,
                                const QString &ancestor) const
{
    const TeamTreeBranch *upper = d->rows.findGroup(vtId, ancestor);
    const TeamTreeBranch *lower = d->rows.findGroup(vtId, groupId);
    while (lower && lower != upper)
        lower = lower == lower->team ? nullptr : lower->above;
    return lower;
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

QStringList TeamTreeModel::loadedGroups(const QString &vtId) const
{
    QStringList ids;
    const TeamTreeBranch *team = d->rows.findTeam(vtId);
    if (team && team->state == TeamChildren::Loaded)
        ids.append(rootGroupId());
    const auto nodes = team ? TeamTreeRows::below(team) : std::vector<TeamTreeNode *>();
    for (const TeamTreeNode *node : nodes) {
        const auto *branch = node->isBranch() ? static_cast<const TeamTreeBranch *>(node) : nullptr;
        if (branch && branch->state == TeamChildren::Loaded)
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
    return createIndex(row, 0, branch->rows[size_t(row)]);
}

QModelIndex TeamTreeModel::parent(const QModelIndex &child) const
{
    TeamTreeBranch *above = child.isValid() ? nodeOf(child)->above : nullptr;
    return !above || above->isRoot() ? QModelIndex() : createIndex(above->row, 0, above);
}

int TeamTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(d->rows.root()->rows.size());
    const bool mayHave = parent.column() == 0 && nodeOf(parent)->isBranch();
    return mayHave ? int(branchOf(parent)->rows.size()) : 0;
}

int TeamTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

// There may be rows below until the service has told.
bool TeamTreeModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0 || (parent.isValid() && nodeOf(parent)->isBranch() &&
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

// Single changes of the tree of teams.
#include "common/displaytext.h"
#include "virtualteam/teamtreemodel.h"
#include "virtualteam/teamtreeparts.h"

#include <algorithm>

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

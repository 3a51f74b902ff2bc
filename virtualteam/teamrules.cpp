#include "virtualteam/teamrules.h"

#include <algorithm>

namespace {
bool isOwner(const CVirtualTeamSimpleInfo &team)
{
    return team.role == TeamRole::Owner;
}
} // namespace

TeamActions TeamRules::forGroup(const TeamSelection &group)
{
    TeamActions actions;
    if (!TeamRole::isAdministrator(group.team.role))
        return actions;
    actions |= TeamAction::AddMember | TeamAction::AddGroup;
    if (group.groupId != rootGroupId())
        actions |= TeamAction::RenameGroup | TeamAction::DeleteGroup;
    return actions;
}

TeamActions TeamRules::forMembers(const TeamSelection &members, const QString &ownId)
{
    const auto isOther = [&ownId](const CVirtualTeamMemberInfo &member) {
        return member.userId != ownId;
    };
    const bool hasOthers = std::any_of(members.members.begin(), members.members.end(), isOther);
    const bool leads = TeamRole::isAdministrator(members.team.role);
    TeamActions actions;
    actions.setFlag(TeamAction::GroupChat, hasOthers);
    if (members.members.isEmpty())
        return actions;
    actions.setFlag(TeamAction::MoveMembers, leads);
    if (members.members.size() > 1) {
        actions.setFlag(TeamAction::DeleteMembers, leads);
        return actions;
    }
    const CVirtualTeamMemberInfo &member = members.members.first();
    actions |= TeamAction::ViewProfile;
    actions.setFlag(TeamAction::Chat, hasOthers);
    actions.setFlag(TeamAction::EditNickName, leads || !hasOthers);
    actions.setFlag(TeamAction::EditPost, leads);
    // Nobody deletes himself: that is leaving.
    actions.setFlag(TeamAction::DeleteMember, leads && hasOthers);
    actions.setFlag(TeamAction::SetAdministrator,
                    isOwner(members.team) && hasOthers && member.role != TeamRole::Owner);
    return actions;
}

TeamActions TeamRules::forSettings(const CVirtualTeamSimpleInfo &team)
{
    TeamActions actions;
    if (TeamRole::isAdministrator(team.role))
        actions |= TeamAction::InviteCompany;
    if (isOwner(team))
        actions |= TeamAction::Rename | TeamAction::ChooseAdministrators |
                   TeamAction::TransferAuthority | TeamAction::Dissolve;
    else
        actions |= TeamAction::Leave;
    return actions;
}

bool TeamRules::mayMove(const CVirtualTeamSimpleInfo &team)
{
    return TeamRole::isAdministrator(team.role);
}

bool TeamRules::mayDelete(const TeamSelection &members, const QString &ownId)
{
    return std::all_of(members.members.begin(), members.members.end(),
                       [&ownId](const CVirtualTeamMemberInfo &member) {
                           return member.userId != ownId && !TeamRole::isAdministrator(member.role);
                       });
}

bool TeamRules::mayAddGroup(int level)
{
    return level < TeamLimits::GroupLevels;
}

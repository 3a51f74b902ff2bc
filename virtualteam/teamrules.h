// Which entries of the menus a user sees, by the own role and by what is selected.
#pragma once

#include "virtualteam/teamselection.h"

#include <QFlags>

enum class TeamAction
{
    AddMember = 1 << 0,
    AddGroup = 1 << 1,
    RenameGroup = 1 << 2,
    DeleteGroup = 1 << 3,
    SetAdministrator = 1 << 4, // and back
    EditNickName = 1 << 5,
    EditPost = 1 << 6,
    DeleteMember = 1 << 7,
    MoveMembers = 1 << 8,
    DeleteMembers = 1 << 9,
    Chat = 1 << 10,
    GroupChat = 1 << 11,
    InviteCompany = 1 << 12,
    Rename = 1 << 13,
    Leave = 1 << 14,
    Dissolve = 1 << 15,
    TransferAuthority = 1 << 16,
    ChooseAdministrators = 1 << 17,
    ViewProfile = 1 << 18
};
Q_DECLARE_FLAGS(TeamActions, TeamAction)
Q_DECLARE_OPERATORS_FOR_FLAGS(TeamActions)

namespace TeamRules {

TeamActions forGroup(const TeamSelection &group);                           // team or sub-group row
TeamActions forMembers(const TeamSelection &members, const QString &ownId); // one or several
TeamActions forSettings(const CVirtualTeamSimpleInfo &team);
// Whether the user may move members of the team between its groups.
bool mayMove(const CVirtualTeamSimpleInfo &team);
// Whether all of them can be deleted: neither who leads the team nor oneself can.
bool mayDelete(const TeamSelection &members, const QString &ownId);
bool mayAddGroup(int level); // below a group of this level

} // namespace TeamRules

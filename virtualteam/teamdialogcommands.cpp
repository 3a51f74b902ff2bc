// The commands of TeamCommands that are dialogs of their own, which send their requests
// themselves.
#include "virtualteam/dialogs/csetadministrator.h"
#include "virtualteam/dialogs/cvirtualteamwidgetcreat.h"
#include "virtualteam/dialogs/virtualteamtransauth.h"
#include "virtualteam/teamcommands.h"

void TeamCommands::inviteCompany(const CVirtualTeamSimpleInfo &team)
{
    open(team.vtId, QStringLiteral("invite|") + team.vtId,
         [this, team] { return new CVirtualTeamWidgetCreat(team, m_view); });
}

void TeamCommands::setAdministrators(const CVirtualTeamSimpleInfo &team)
{
    open(team.vtId, QStringLiteral("administrators|") + team.vtId, [this, team] {
        auto *dialog = new CSetAdministrator(team, m_view);
        connect(dialog, &CSetAdministrator::administratorsSet, this,
                &TeamCommands::administratorsChanged);
        return dialog;
    });
}

void TeamCommands::transferAuthority(const CVirtualTeamSimpleInfo &team)
{
    open(team.vtId, QStringLiteral("authority|") + team.vtId, [this, team] {
        auto *dialog = new VirtualTeamTransAuth(team, m_view);
        connect(dialog, &VirtualTeamTransAuth::authorityGranted, this,
                &TeamCommands::authorityGranted);
        return dialog;
    });
}

void TeamCommands::moveMembers(const TeamSelection &members)
{
    QStringList ids;
    for (const CVirtualTeamMemberInfo &member : members.members)
        ids.append(member.userId);
    const QString about = QStringLiteral("move|%1|%2").arg(members.team.vtId, ids.join(u','));
    open(members.team.vtId, about, [this, ids, team = members.team, group = members.groupId] {
        auto *dialog = new VirtualTeamTransAuth(team, ids, m_view, group);
        connect(dialog, &VirtualTeamTransAuth::membersMoved, this, &TeamCommands::membersMoved);
        return dialog;
    });
}

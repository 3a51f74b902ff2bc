#include "virtualteam/dialogs/cvirtualapply.h"

#include "virtualteam/httpvirtualteamoperation.h"

CVirtualApply::CVirtualApply(const QString &vtId, const QString &member)
    : TeamDecisionWindow(vtId, "teamCreator",
                         &CHttpVirtualTeamOperation::signal_GetVirtualTeamCreatDetailFinish,
                         &CHttpVirtualTeamOperation::signal_AuditingVirtualTeamFinish),
      m_member(member)
{
    setObjectName(QStringLiteral("CVirtualApply"));
    setTitleKey("teamApproval");
    load();
}

void CVirtualApply::requestDetail(CHttpVirtualTeamOperation *operation)
{
    operation->getVirtualTeamCreatDetail(vtId(), m_member);
}

void CVirtualApply::sendDecision(CHttpVirtualTeamOperation *operation, bool agree)
{
    operation->auditingVirtualTeam(vtId(), m_member, agree);
}

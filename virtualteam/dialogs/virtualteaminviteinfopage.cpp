#include "virtualteam/dialogs/virtualteaminviteinfopage.h"

#include "common/context.h"
#include "virtualteam/httpvirtualteamoperation.h"

#include <algorithm>

VirtualTeamInviteInfoPage::VirtualTeamInviteInfoPage(const QString &vtId)
    : TeamDecisionWindow(vtId, "teamInviter",
                         &CHttpVirtualTeamOperation::signal_GetVirtualTeamJoinDetailFinish,
                         &CHttpVirtualTeamOperation::signal_ResponseJoinVirtualTeamRequestFinish)
{
    setObjectName(QStringLiteral("VirtualTeamInviteInfoPage"));
    setTitleKey("inviteYouJoin");
    load();
}

void VirtualTeamInviteInfoPage::requestDetail(CHttpVirtualTeamOperation *operation)
{
    operation->getVirtualTeamJoinDetail(vtId());
}

void VirtualTeamInviteInfoPage::sendDecision(CHttpVirtualTeamOperation *operation, bool agree)
{
    operation->responseJoinVirtualTeamRequest(vtId(), agree);
}

void VirtualTeamInviteInfoPage::detailShown(const CVirtualTeamInfo &info)
{
    const QString user = ctx().userId();
    const auto isUser = [&user](const CVirtualTeamMemberInfo &member) {
        return member.userId == user;
    };
    const bool isInvited = std::any_of(info.members.begin(), info.members.end(), isUser);
    setTitleKey(isInvited ? "inviteYouJoin" : "inviteYourCompanyJoin");
}

// An invitation to join a team: for who is invited, and for the approver of the
// company.
#pragma once

#include "virtualteam/dialogs/teamdecisionwindow.h"

class VirtualTeamInviteInfoPage : public TeamDecisionWindow
{
    Q_OBJECT

public:
    explicit VirtualTeamInviteInfoPage(const QString &vtId); // loads at once

protected:
    void requestDetail(CHttpVirtualTeamOperation *operation) override;
    void sendDecision(CHttpVirtualTeamOperation *operation, bool agree) override;
    void detailShown(const CVirtualTeamInfo &info) override;
};

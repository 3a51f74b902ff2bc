// What is asked of the approver of a new team.
#pragma once

#include "virtualteam/dialogs/teamdecisionwindow.h"

class CVirtualApply : public TeamDecisionWindow
{
    Q_OBJECT

public:
    // `member`: who asked for the team. Loads at once.
    CVirtualApply(const QString &vtId, const QString &member);

protected:
    void requestDetail(CHttpVirtualTeamOperation *operation) override;
    void sendDecision(CHttpVirtualTeamOperation *operation, bool agree) override;

private:
    const QString m_member;
};

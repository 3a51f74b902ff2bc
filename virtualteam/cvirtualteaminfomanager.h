// The windows of invitations to join a team, one per team and inviter.
#pragma once

#include "controls/windowregistry.h"

#include <QObject>

class VirtualTeamInviteInfoPage;

class CVirtualTeamInfoManager : public QObject
{
    Q_OBJECT

public:
    static CVirtualTeamInfoManager *instance();

    // `member`: who invites. Raises the window that is there, also offline.
    void showVirtualTeamInfo(const QString &vtId, const QString &member);

private:
    CVirtualTeamInfoManager();
    WindowRegistry<VirtualTeamInviteInfoPage> m_windows;
};

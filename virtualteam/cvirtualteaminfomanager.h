// The windows of invitations to join a team, one per team and inviter.
#pragma once

#include "virtualteam/teamwindows.h"

#include <QObject>

class VirtualTeamInviteInfoPage;

class CVirtualTeamInfoManager : public QObject
{
    Q_OBJECT

public:
    static CVirtualTeamInfoManager *instance();

    // `member`: who invites. Raises the window that is there, also offline.
    void showVirtualTeamInfo(const QString &vtId, const QString &member);

    // Null: not open.
    VirtualTeamInviteInfoPage *window(const QString &vtId, const QString &member) const;

public slots:
    void onVirtualTeamInfoClosed(const QString &vtId, const QString &member);

private:
    CVirtualTeamInfoManager();
    TeamWindows<VirtualTeamInviteInfoPage> m_windows;
};

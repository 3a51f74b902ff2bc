// An invitation to join a team.
#pragma once

#include "controls/basedialog.h"

class VirtualTeamInviteInfoPage : public BaseDialog
{
    Q_OBJECT

public:
    explicit VirtualTeamInviteInfoPage(const QString &vtId);
};

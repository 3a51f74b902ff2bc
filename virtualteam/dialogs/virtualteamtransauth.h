// Chooses, in the tree of a team, the member who is to own it, or the sub-group that
// members are moved to; sends the request and closes after it.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

#include <QStringList>

class VirtualTeamTransAuth : public BaseDialog
{
    Q_OBJECT

public:
    VirtualTeamTransAuth(const CVirtualTeamSimpleInfo &team, QWidget *parent); // "transAuth"
    VirtualTeamTransAuth(const CVirtualTeamSimpleInfo &team, const QStringList &members,
                         QWidget *parent); // "moveTeamMembers"

signals:
    void authorityGranted(const QString &vtId, const QString &userId);
    void membersMoved(const QString &vtId, const QString &groupId, const QStringList &userIds);
};

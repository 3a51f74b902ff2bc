// Chooses a team's sub-administrators among its members.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

#include <QStringList>

class CSetAdministrator : public BaseDialog
{
    Q_OBJECT

public:
    CSetAdministrator(const CVirtualTeamSimpleInfo &team, QWidget *parent);

signals:
    // Who became a sub-administrator and who is none any more.
    void administratorsSet(const QString &vtId, const QStringList &added,
                           const QStringList &removed);
};

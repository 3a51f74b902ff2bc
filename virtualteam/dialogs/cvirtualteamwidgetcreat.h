// The dialog that creates a team, or invites people of other companies to one.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

class CVirtualTeamWidgetCreat : public BaseDialog
{
    Q_OBJECT

public:
    explicit CVirtualTeamWidgetCreat(QWidget *parent);                            // creates
    CVirtualTeamWidgetCreat(const CVirtualTeamSimpleInfo &team, QWidget *parent); // invites

signals:
    // The team is there, or waits for its approval.
    void teamCreated(const QString &vtId, bool pending);
};

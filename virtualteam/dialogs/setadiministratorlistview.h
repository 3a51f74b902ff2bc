// A team's members with boxes to tick. A click anywhere on a row or Space ticks it;
// Enter is left to the dialog.
#pragma once

#include "controls/rowview.h"
#include "virtualteam/teamrecords.h"

#include <QStringList>

class MemberChoiceModel;

class SetAdiministratorListView : public RowView
{
    Q_OBJECT

public:
    explicit SetAdiministratorListView(QWidget *parent);

    MemberChoiceModel *members() const { return m_members; }

    // Without the owner. The sub-administrators are ticked; who was there already, in
    // the same role, keeps the tick that the user gave or took.
    void setMembers(const QList<CVirtualTeamMemberInfo> &members);
    void setFilter(const QString &text);

signals:
    void checkedChanged();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void toggle(const QModelIndex &index);

    MemberChoiceModel *m_members;
};

// The people of a team that is to be, as a flat list. Enter or a double click opens
// the card of a person.
#pragma once

#include "controls/rowview.h"
#include "virtualteam/dialogs/memberlistdelegate.h"
#include "virtualteam/teamrecords.h"

class MemberListModel;

class CVirtualTeamMemberListView : public RowView
{
    Q_OBJECT

public:
    explicit CVirtualTeamMemberListView(QWidget *parent = nullptr);

    MemberListModel *members() const { return m_model; }

    // What stands in a list without rows.
    void setTextWhenEmpty(const QString &text);

protected:
    CVirtualTeamMemberListView(MemberListDelegate::Kind kind, QWidget *parent);
    void paintEvent(QPaintEvent *event) override;
    QString cardJid(const QModelIndex &index) const override;

private:
    CVirtualTeamMemberListView(MemberListModel *model, MemberListDelegate::Kind kind,
                               QWidget *parent);

    MemberListModel *m_model;
    QString m_textWhenEmpty;
};

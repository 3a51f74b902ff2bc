// A flat list of people of teams, in the order in which they were added.
#pragma once

#include "controls/keyedlistmodel.h"
#include "virtualteam/teamrecords.h"

struct MemberListRow
{
    CVirtualTeamMemberInfo member;
    int arrival = 0;
};

// A person is in it once. Roles: TeamRowRole.
class MemberListModel : public KeyedListModel<MemberListRow, int>
{
public:
    using KeyedListModel::KeyedListModel;

    // Others go; who stays keeps row and place.
    void setMembers(const QList<CVirtualTeamMemberInfo> &members);
    void add(const CVirtualTeamMemberInfo &member);
    bool contains(const QString &userId) const { return find(userId) != nullptr; }
    QStringList userIds() const; // in the order of the rows

    QVariant data(const QModelIndex &index, int role) const override;

protected:
    QString keyOf(const MemberListRow &row) const override { return row.member.userId; }
    int placeOf(const MemberListRow &row) const override { return row.arrival; }

private:
    int m_arrivals = 0;
};

// Members of a team as a flat list to choose from: ticked or not, and only those that
// a typed text finds.
#pragma once

#include "common/textmatch.h"
#include "controls/keyedlistmodel.h"
#include "virtualteam/teamrecords.h"

#include <QStringList>

struct MemberPlace
{
    int block = 0;
    QString letters; // pinyin

    bool operator<(const MemberPlace &other) const
    {
        return block != other.block ? block < other.block : letters < other.letters;
    }
    bool operator==(const MemberPlace &other) const
    {
        return block == other.block && letters == other.letters;
    }
};

struct MemberChoice
{
    CVirtualTeamMemberInfo member;
    MemberPlace place;
    bool checked = false;
};

class MemberChoiceModel : public KeyedListModel<MemberChoice, MemberPlace>
{
public:
    enum Order
    {
        AsGiven,
        ByRoleAndName // sub-administrators first
    };

    using KeyedListModel::KeyedListModel;

    // Takes the place of what was there; who stays keeps row and tick. A member without
    // an id is left out, and of two with the same one the first.
    void setMembers(const QList<CVirtualTeamMemberInfo> &members, Order order);

    void setChecked(const QString &userId, bool checked);
    bool isChecked(const QString &userId) const;
    int checkedCount() const { return m_checkedCount; }
    QStringList checkedIds() const; // also of members that the filter hides; sorted

    // Shows only who is found by name, nick name, account, employee code or mobile
    // number; empty: all. The rows are reset.
    void setFilter(const QString &text);

    QVariant data(const QModelIndex &index, int role) const override;

protected:
    QString keyOf(const MemberChoice &choice) const override { return choice.member.userId; }
    MemberPlace placeOf(const MemberChoice &choice) const override { return choice.place; }
    bool isShown(const MemberChoice &choice) const override;

private:
    TextPattern m_filter{QString()};
    int m_checkedCount = 0;
};

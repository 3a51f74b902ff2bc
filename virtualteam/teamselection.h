// What a menu or a key is about: a team or sub-group, or members of one team.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QList>
#include <QPair>

struct TeamSelection
{
    CVirtualTeamSimpleInfo team; // with the user's role
    // The sub-group that the rows are or are in; "0" and empty for the team itself.
    QString groupId = rootGroupId();
    QString groupName;
    int level = 0;                         // of that group
    QList<CVirtualTeamMemberInfo> members; // empty: it is about the group
};

// The same by ids alone, which outlive the rows: what a menu remembers while it is open.
struct TeamSubject
{
    using Member = QPair<QString, QString>; // team, person

    QString vtId; // of the row that the menu was opened at
    QString groupId = rootGroupId();
    QList<Member> members; // possibly of several teams; empty: it is about the group
};

// What the rows of the team tree tell, by role.
#pragma once

#include "virtualteam/teamtreerows.h"

#include <QVariant>

namespace TeamTreeTexts {

// What a person's row tells in every list; invalid for the roles that differ.
QVariant person(const CVirtualTeamMemberInfo &record, int role);
QVariant member(const TeamTreeMember &member, int role);
QVariant branch(const TeamTreeBranch &branch, int role);
QVariant placeholder(TeamRowKind kind, int role);

// In words; empty for an ordinary member.
QString roleText(int role);
// Empty for an unknown number.
QString countText(int members);
// That the person is an external contact of the user's; empty for others. A colleague
// of a partner company is none before the user has asked.
QString outside(const CVirtualTeamMemberInfo &member);
// The company of people of another one than the user's, once its name is known.
QString foreignCompany(const CVirtualTeamMemberInfo &member);

} // namespace TeamTreeTexts

// What the rows of the team tree tell, by role.
#pragma once

#include "virtualteam/teamtreerows.h"

#include <QVariant>

namespace TeamTreeTexts {

QVariant member(const TeamTreeMember &member, int role);
QVariant branch(const TeamTreeBranch &branch, int role);
QVariant placeholder(TeamRowKind kind, int role);

// In words; empty for an ordinary member.
QString roleText(int role);
// Empty for an unknown number.
QString countText(int members);

} // namespace TeamTreeTexts

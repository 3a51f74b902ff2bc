// What a virtual team consists of, as the back end keeps it.
#pragma once

#include "backend/refusal.h"
#include "backend/textcheck.h"

#include <QString>
#include <QStringList>

#include <vector>

// The numbers are kept in the database and sent.
namespace TeamRole {
constexpr int None = -1; // not a member
constexpr int Member = 0;
constexpr int SubAdmin = 1;
constexpr int Owner = 2;
} // namespace TeamRole

// Of an application, be it for a team or for a company to join one. Kept in the
// database.
enum class Decision
{
    Open = 0,
    Agreed = 1,
    Refused = 2
};

namespace TeamLimit {
constexpr int Reason = 500; // characters
constexpr int Ids = 10000;  // in one list
constexpr int Level = 10;   // of the lowest group; those of the root have 1
constexpr int LeastMembers = 2;
} // namespace TeamLimit

struct Team
{
    qint64 id = 0;
    QString name, reason, creator;
    QString company; // of the creator
    Decision creation = Decision::Open;

    bool isActive() const { return creation == Decision::Agreed; }
};

struct TeamMember
{
    QString uid;
    int role = TeamRole::Member;
    qint64 group = 0; // 0: the root
    QString nickName; // empty: the person's name
    QString duty;
};

struct TeamGroup
{
    qint64 id = 0, parent = 0; // parent 0: the root
    QString name;
    int level = 0;
};

struct TeamInvitation
{
    qint64 team = 0;
    QString company, inviter, reason;
    Decision decision = Decision::Open;
};

struct OwnTeam
{
    qint64 id;
    QString name;
    int role;
    qint64 count; // of members
};

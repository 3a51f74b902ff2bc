// The tables of the virtual teams. It knows no rule: who may do what is the business
// of Teams. Lives within a transaction; every function throws DatabaseError.
#pragma once

#include "backend/database.h"
#include "backend/teams/team.h"

#include <optional>

class TeamStore
{
public:
    explicit TeamStore(Transaction &transaction) : m_transaction(transaction) {}

    qint64 addTeam(const Team &team); // `id` is not looked at
    std::optional<Team> team(qint64 id);
    void setCreation(qint64 team, Decision decision);
    void renameTeam(qint64 team, const QString &name);
    void removeTeam(qint64 team); // with all that belongs to it
    // Whether it is the user's own, or will be when it is approved.
    bool ownsTeamNamed(const QString &uid, const QString &name);
    std::vector<OwnTeam> teamsOf(const QString &uid); // in the order of their creation

    // Who is a member already stays as he is.
    void addMembers(qint64 team, const QStringList &uids, qint64 group, int role);
    std::optional<TeamMember> member(qint64 team, const QString &uid);
    // In the order in which they joined.
    std::vector<TeamMember> members(qint64 team);
    std::vector<TeamMember> membersOf(qint64 team, qint64 group);
    void removeMember(qint64 team, const QString &uid);
    void setRole(qint64 team, const QString &uid, int role);
    void clearSubAdmins(qint64 team);
    void setGroup(qint64 team, const QString &uid, qint64 group);
    void setNickName(qint64 team, const QString &uid, const QString &nickName);
    void setDuty(qint64 team, const QString &uid, const QString &duty);

    qint64 addGroup(qint64 team, const TeamGroup &group);
    std::optional<TeamGroup> group(qint64 team, qint64 id);
    std::vector<TeamGroup> groups(qint64 team, qint64 parent); // in the order of their creation
    bool hasGroupNamed(qint64 team, qint64 parent, const QString &name, qint64 besides);
    void renameGroup(qint64 team, qint64 id, const QString &name);
    // The members of the group and of all groups below it.
    std::vector<TeamMember> membersBelow(qint64 team, qint64 group);
    void removeGroup(qint64 team, qint64 id); // with groups below, and their memberships

    // People of a company who are to become members when the application is agreed to.
    void addInvited(qint64 team, const QString &company, const QStringList &uids);
    // Empty company: of all.
    QStringList invited(qint64 team, const QString &company);
    // Takes the place of the company's earlier one, with those invited by it.
    void putInvitation(const TeamInvitation &invitation, const QStringList &uids);
    std::optional<TeamInvitation> invitation(qint64 team, const QString &company);
    std::vector<TeamInvitation> openInvitations(qint64 team);
    void decideInvitation(qint64 team, const QString &company, Decision decision);

    // Invitations into active teams.
    std::vector<TeamInvitation> openInvitationsTo(const QString &uid);
    std::vector<TeamInvitation> openInvitationsOf(const QString &company);
    std::vector<Team> openCreationsOf(const QString &company);

private:
    Transaction &m_transaction;
};

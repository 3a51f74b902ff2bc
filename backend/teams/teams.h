// The rules of the virtual teams: what one user may do to them and what comes of it.
// Everybody concerned is told by an event. Lives within a transaction, so that what
// is done is done as a whole; throws Refusal when a rule says no, and the
// transaction is then to be given up.
#pragma once

#include "backend/eventlog.h"
#include "backend/people.h"
#include "backend/teams/companies.h"
#include "backend/teams/teamstore.h"
#include "backend/textcheck.h"

#include <QVector>

// What the one who decides about an application is shown.
struct TeamApplication
{
    Team team;
    User applicant;
    QString reason;
    bool isDecided = false;
    QVector<User> members; // those who will be
};

class Teams
{
public:
    // `uid`: who acts.
    Teams(Transaction &transaction, const People &people, const QString &uid);

    const User &caller() const { return m_caller; }
    const People &people() const { return m_people; }
    TeamStore &store() { return m_store; }
    // An unknown person has nothing but the uid.
    User person(const QString &uid) const;

    // Refuses everything about a team that is not, or not yet, or no more.
    void requireMember(qint64 team);
    void requireRole(qint64 team, int least);
    TeamMember requireTarget(qint64 team, const QString &uid);
    int requireGroup(qint64 team, qint64 group); // its level; the root's is 0

    // Founding and joining. People of other companies are invited as soon as there is a
    // team.
    Team create(const QStringList &uids, const QString &name, const QString &reason);
    TeamApplication creation(qint64 team, const QString &creator);
    void decideCreation(qint64 team, const QString &creator, bool agrees);
    void invite(qint64 team, const QStringList &uids, const QString &reason);
    TeamApplication invitation(qint64 team); // of the caller's company
    void answerInvitation(qint64 team, bool agrees);

    // Returns how many could not be added.
    int addMembers(qint64 team, qint64 group, const QStringList &uids);
    void removeMembers(qint64 team, const QStringList &uids);
    void moveMembers(qint64 team, qint64 group, const QStringList &uids);
    void quit(qint64 team);
    void dissolve(qint64 team);
    void rename(qint64 team, const QString &name);
    void setNickName(qint64 team, const QString &uid, const QString &nickName);
    void setDuty(qint64 team, const QString &uid, const QString &duty);

    void grant(qint64 team, const QString &uid);
    enum AdminChange
    {
        ReplaceAdmins,
        AddAdmins,
        RemoveAdmins
    };
    void changeAdmins(qint64 team, const QStringList &uids, AdminChange change);

    qint64 addGroup(qint64 team, qint64 parent, const QString &name);
    void renameGroup(qint64 team, qint64 group, const QString &name);
    void removeGroup(qint64 team, qint64 group);

    std::optional<Company> company(const QString &code) { return m_companies.find(code); }
    // Refuses an approver who is not one of its people. A new approver is told what
    // waits for him, and the earlier one that it does not any more.
    void changeCompany(const Company &company);
    // What waits for the caller's decision, as if it had just happened.
    std::vector<Event> waiting();

private:
    Team active(qint64 id);
    int role(qint64 team);
    QStringList known(const QStringList &uids) const;
    QString approverOf(const QString &company);
    void admit(const Team &team);
    QStringList asked(qint64 team, const QString &company);
    void tellInvited(const TeamInvitation &invitation);
    void tellDecision(const QString &applicant, qint64 id, bool agrees);
    void tellRemoved(qint64 team, const QStringList &uids);
    void tellMembers(qint64 team) { m_events.tellMembers(team, m_caller.uid); }

    const People &m_people;
    TeamStore m_store;
    EventLog m_events;
    Companies m_companies;
    User m_caller;
};

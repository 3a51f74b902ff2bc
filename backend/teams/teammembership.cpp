// Who is in a team, where in it, and as what.
#include "backend/reply.h"
#include "backend/teams/teams.h"

int Teams::addMembers(qint64 team, qint64 group, const QStringList &uids)
{
    requireRole(team, TeamRole::SubAdmin);
    requireGroup(team, group);
    QStringList added;
    for (const QString &uid : uids) {
        // People of other companies come by invitation.
        if (person(uid).companyCode == m_caller.companyCode && !m_store.member(team, uid))
            added.append(uid);
    }
    m_store.addMembers(team, added, group, TeamRole::Member);
    if (!added.isEmpty())
        tellMembers(team);
    return uids.size() - added.size();
}

void Teams::removeMembers(qint64 team, const QStringList &uids)
{
    requireRole(team, TeamRole::SubAdmin);
    bool hasAdmin = false;
    for (const QString &uid : uids)
        hasAdmin |= requireTarget(team, uid).role >= TeamRole::SubAdmin;
    if (hasAdmin)
        throw Refusal(ReplyCode::Blocked);
    for (const QString &uid : uids)
        m_store.removeMember(team, uid);
    tellRemoved(team, uids);
}

void Teams::moveMembers(qint64 team, qint64 group, const QStringList &uids)
{
    requireRole(team, TeamRole::SubAdmin);
    requireGroup(team, group);
    for (const QString &uid : uids) {
        requireTarget(team, uid);
        m_store.setGroup(team, uid, group);
    }
    tellMembers(team);
}

void Teams::quit(qint64 team)
{
    requireMember(team);
    if (role(team) == TeamRole::Owner)
        throw Refusal(ReplyCode::NoRight);
    m_store.removeMember(team, m_caller.uid);
    tellRemoved(team, {m_caller.uid});
}

void Teams::dissolve(qint64 team)
{
    requireMember(team);
    if (role(team) != TeamRole::Owner)
        throw Refusal(ReplyCode::NoRight);
    tellMembers(team);
    for (const TeamInvitation &open : m_store.openInvitations(team))
        m_events.tell(asked(team, open.company), EventType::Update, team, m_caller.uid);
    m_store.removeTeam(team);
}

void Teams::rename(qint64 team, const QString &name)
{
    requireRole(team, TeamRole::SubAdmin);
    m_store.renameTeam(team, checkedText(name, 1));
    tellMembers(team);
}

void Teams::setNickName(qint64 team, const QString &uid, const QString &nickName)
{
    requireRole(team, uid == m_caller.uid ? TeamRole::None : TeamRole::SubAdmin);
    requireTarget(team, uid);
    m_store.setNickName(team, uid, checkedText(nickName, 0));
    tellMembers(team);
}

void Teams::setDuty(qint64 team, const QString &uid, const QString &duty)
{
    requireRole(team, TeamRole::SubAdmin);
    requireTarget(team, uid);
    m_store.setDuty(team, uid, checkedText(duty, 0));
    tellMembers(team);
}

void Teams::grant(qint64 team, const QString &uid)
{
    requireRole(team, TeamRole::Owner);
    requireTarget(team, uid);
    if (uid == m_caller.uid)
        throw Refusal(ReplyCode::Illegal);
    if (person(uid).companyCode != m_caller.companyCode)
        throw Refusal(ReplyCode::Blocked);
    m_store.setRole(team, m_caller.uid, TeamRole::Member);
    m_store.setRole(team, uid, TeamRole::Owner);
    tellMembers(team);
}

void Teams::changeAdmins(qint64 team, const QStringList &uids, AdminChange change)
{
    requireRole(team, TeamRole::Owner);
    for (const QString &uid : uids) {
        if (requireTarget(team, uid).role == TeamRole::Owner)
            throw Refusal(ReplyCode::Illegal);
    }
    if (change == ReplaceAdmins)
        m_store.clearSubAdmins(team);
    for (const QString &uid : uids)
        m_store.setRole(team, uid, change == RemoveAdmins ? TeamRole::Member : TeamRole::SubAdmin);
    tellMembers(team);
}

#include "backend/teams/teams.h"

#include "backend/reply.h"

#include <algorithm>

Teams::Teams(Transaction &transaction, const People &people, const QString &uid)
    : m_people(people),
      m_store(transaction),
      m_events(transaction),
      m_companies(transaction, people),
      m_caller(person(uid))
{
    if (m_caller.account.isEmpty()) // the people have become fewer since the log-in
        throw Refusal(ReplyCode::Illegal);
}

User Teams::person(const QString &uid) const
{
    const std::optional<User> found = m_people.find(uid);
    if (found)
        return *found;
    User unknown;
    unknown.uid = uid;
    return unknown;
}

QStringList Teams::known(const QStringList &uids) const
{
    QStringList result;
    std::copy_if(uids.begin(), uids.end(), std::back_inserter(result),
                 [this](const QString &uid) { return m_people.find(uid).has_value(); });
    return result;
}

Team Teams::active(qint64 id)
{
    const std::optional<Team> team = m_store.team(id);
    if (!team || !team->isActive())
        throw Refusal(ReplyCode::Illegal);
    return *team;
}

int Teams::role(qint64 team)
{
    const std::optional<TeamMember> own = m_store.member(team, m_caller.uid);
    return own ? own->role : TeamRole::None;
}

void Teams::requireMember(qint64 team)
{
    active(team);
    if (role(team) == TeamRole::None)
        throw Refusal(ReplyCode::Illegal);
}

void Teams::requireRole(qint64 team, int least)
{
    active(team);
    if (role(team) < least)
        throw Refusal(ReplyCode::NoRight);
}

TeamMember Teams::requireTarget(qint64 team, const QString &uid)
{
    const std::optional<TeamMember> member = m_store.member(team, uid);
    if (!member)
        throw Refusal(ReplyCode::Illegal);
    return *member;
}

int Teams::requireGroup(qint64 team, qint64 group)
{
    if (group == 0)
        return 0;
    const std::optional<TeamGroup> found = m_store.group(team, group);
    if (!found)
        throw Refusal(ReplyCode::Illegal);
    return found->level;
}

void Teams::tellRemoved(qint64 team, const QStringList &uids)
{
    m_events.tell(uids, EventType::Update, team, m_caller.uid);
    tellMembers(team);
}

qint64 Teams::addGroup(qint64 team, qint64 parent, const QString &name)
{
    requireRole(team, TeamRole::SubAdmin);
    const int level = requireGroup(team, parent);
    if (level >= TeamLimit::Level)
        throw Refusal(ReplyCode::Blocked);
    const QString checked = checkedText(name, 1);
    if (m_store.hasGroupNamed(team, parent, checked, 0))
        throw Refusal(ReplyCode::Illegal);
    const qint64 id = m_store.addGroup(team, {0, parent, checked, level + 1});
    tellMembers(team);
    return id;
}

void Teams::renameGroup(qint64 team, qint64 group, const QString &name)
{
    requireRole(team, TeamRole::SubAdmin);
    const std::optional<TeamGroup> found = m_store.group(team, group);
    const QString checked = checkedText(name, 1);
    if (!found || m_store.hasGroupNamed(team, found->parent, checked, group))
        throw Refusal(ReplyCode::Illegal);
    m_store.renameGroup(team, group, checked);
    tellMembers(team);
}

void Teams::removeGroup(qint64 team, qint64 group)
{
    requireRole(team, TeamRole::SubAdmin);
    if (!m_store.group(team, group))
        throw Refusal(ReplyCode::Illegal);
    QStringList removed;
    for (const TeamMember &member : m_store.membersBelow(team, group)) {
        if (member.role >= TeamRole::SubAdmin)
            throw Refusal(ReplyCode::Blocked);
        removed.append(member.uid);
    }
    m_store.removeGroup(team, group);
    tellRemoved(team, removed);
}

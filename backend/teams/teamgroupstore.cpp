// The groups of a team.
#include "backend/teams/teamstore.h"

namespace {
// Completes a statement about the group and all groups below it, which takes the team
// twice and the group as its first three values.
std::string below(const char *statement)
{
    return std::string("WITH RECURSIVE below (id) AS ("
                       " SELECT groupId FROM teamGroup WHERE vtId = ? AND groupId = ?"
                       " UNION SELECT groupId FROM teamGroup JOIN below ON parent = below.id"
                       " WHERE vtId = ?) ") +
           statement;
}

TeamGroup groupFrom(const Statement &row)
{
    return {row.number(0), row.number(1), row.text(2), int(row.number(3))};
}
} // namespace

qint64 TeamStore::addGroup(qint64 team, const TeamGroup &group)
{
    m_transaction.prepare("INSERT INTO teamGroup (vtId, parent, name, level) VALUES (?, ?, ?, ?)")
        .bind(team)
        .bind(group.parent)
        .bind(group.name)
        .bind(group.level)
        .run();
    return m_transaction.lastId();
}

std::optional<TeamGroup> TeamStore::group(qint64 team, qint64 id)
{
    Statement row = m_transaction.prepare(
        "SELECT groupId, parent, name, level FROM teamGroup WHERE vtId = ? AND groupId = ?");
    row.bind(team).bind(id);
    if (!row.next())
        return std::nullopt;
    return groupFrom(row);
}

std::vector<TeamGroup> TeamStore::groups(qint64 team, qint64 parent)
{
    Statement rows = m_transaction.prepare("SELECT groupId, parent, name, level FROM teamGroup"
                                           " WHERE vtId = ? AND parent = ? ORDER BY groupId");
    rows.bind(team).bind(parent);
    std::vector<TeamGroup> groups;
    while (rows.next())
        groups.push_back(groupFrom(rows));
    return groups;
}

bool TeamStore::hasGroupNamed(qint64 team, qint64 parent, const QString &name, qint64 besides)
{
    Statement row =
        m_transaction.prepare("SELECT 1 FROM teamGroup"
                              " WHERE vtId = ? AND parent = ? AND name = ? AND groupId <> ?");
    row.bind(team).bind(parent).bind(name).bind(besides);
    return row.next();
}

void TeamStore::renameGroup(qint64 team, qint64 id, const QString &name)
{
    m_transaction.prepare("UPDATE teamGroup SET name = ? WHERE vtId = ? AND groupId = ?")
        .bind(name)
        .bind(team)
        .bind(id)
        .run();
}

std::vector<TeamMember> TeamStore::membersBelow(qint64 team, qint64 group)
{
    static const std::string sql =
        below("SELECT uid, role, groupId FROM teamMember JOIN below ON groupId = below.id"
              " WHERE vtId = ? ORDER BY number");
    Statement rows = m_transaction.prepare(sql.c_str());
    rows.bind(team).bind(group).bind(team).bind(team);
    std::vector<TeamMember> members;
    while (rows.next())
        members.push_back({rows.text(0), int(rows.number(1)), rows.number(2), {}, {}});
    return members;
}

void TeamStore::removeGroup(qint64 team, qint64 id)
{
    static const std::string members =
        below("DELETE FROM teamMember WHERE vtId = ? AND groupId IN (SELECT id FROM below)");
    static const std::string groups =
        below("DELETE FROM teamGroup WHERE vtId = ? AND groupId IN (SELECT id FROM below)");
    for (const std::string *sql : {&members, &groups})
        m_transaction.prepare(sql->c_str()).bind(team).bind(id).bind(team).bind(team).run();
}

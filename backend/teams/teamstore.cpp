// Teams and their members.
#include "backend/teams/teamstore.h"

namespace {
constexpr char MemberColumns[] = "SELECT uid, role, groupId, nickName, duty FROM teamMember";

TeamMember memberFrom(const Statement &row)
{
    return {row.text(0), int(row.number(1)), row.number(2), row.text(3), row.text(4)};
}

std::vector<TeamMember> allMembers(Statement *rows)
{
    std::vector<TeamMember> members;
    while (rows->next())
        members.push_back(memberFrom(*rows));
    return members;
}

template <class Value>
void set(Transaction &transaction, const char *column, const Value &value, qint64 team,
         const QString &uid)
{
    const std::string sql =
        std::string("UPDATE teamMember SET ") + column + " = ? WHERE vtId = ? AND uid = ?";
    transaction.prepare(sql.c_str()).bind(value).bind(team).bind(uid).run();
}
} // namespace

qint64 TeamStore::addTeam(const Team &team)
{
    m_transaction
        .prepare("INSERT INTO team (name, reason, creator, company, creation)"
                 " VALUES (?, ?, ?, ?, ?)")
        .bind(team.name)
        .bind(team.reason)
        .bind(team.creator)
        .bind(team.company)
        .bind(qint64(team.creation))
        .run();
    return m_transaction.lastId();
}

std::optional<Team> TeamStore::team(qint64 id)
{
    Statement row = m_transaction.prepare(
        "SELECT vtId, name, reason, creator, company, creation FROM team WHERE vtId = ?");
    row.bind(id);
    if (!row.next())
        return std::nullopt;
    return Team{row.number(0), row.text(1), row.text(2),
                row.text(3),   row.text(4), Decision(row.number(5))};
}

void TeamStore::setCreation(qint64 team, Decision decision)
{
    m_transaction.prepare("UPDATE team SET creation = ? WHERE vtId = ?")
        .bind(qint64(decision))
        .bind(team)
        .run();
}

void TeamStore::renameTeam(qint64 team, const QString &name)
{
    m_transaction.prepare("UPDATE team SET name = ? WHERE vtId = ?").bind(name).bind(team).run();
}

void TeamStore::removeTeam(qint64 team)
{
    m_transaction.prepare("DELETE FROM team WHERE vtId = ?").bind(team).run();
}

bool TeamStore::ownsTeamNamed(const QString &uid, const QString &name)
{
    Statement row =
        m_transaction.prepare("SELECT 1 FROM team WHERE creator = ? AND name = ? AND creation = ?"
                              " UNION SELECT 1 FROM teamMember JOIN team USING (vtId)"
                              " WHERE uid = ? AND role = ? AND name = ?");
    row.bind(uid).bind(name).bind(qint64(Decision::Open));
    row.bind(uid).bind(TeamRole::Owner).bind(name);
    return row.next();
}

std::vector<OwnTeam> TeamStore::teamsOf(const QString &uid)
{
    Statement rows = m_transaction.prepare(
        "SELECT team.vtId, name, role,"
        " (SELECT COUNT(*) FROM teamMember AS each WHERE each.vtId = team.vtId)"
        " FROM teamMember JOIN team USING (vtId) WHERE uid = ? ORDER BY team.vtId");
    rows.bind(uid);
    std::vector<OwnTeam> teams;
    while (rows.next())
        teams.push_back({rows.number(0), rows.text(1), int(rows.number(2)), rows.number(3)});
    return teams;
}

void TeamStore::addMembers(qint64 team, const QStringList &uids, qint64 group, int role)
{
    Statement insert = m_transaction.prepare(
        "INSERT OR IGNORE INTO teamMember (vtId, uid, groupId, role) VALUES (?, ?, ?, ?)");
    for (const QString &uid : uids)
        insert.bind(team).bind(uid).bind(group).bind(role).run();
}

std::optional<TeamMember> TeamStore::member(qint64 team, const QString &uid)
{
    static const std::string sql = std::string(MemberColumns) + " WHERE vtId = ? AND uid = ?";
    Statement row = m_transaction.prepare(sql.c_str());
    row.bind(team).bind(uid);
    if (!row.next())
        return std::nullopt;
    return memberFrom(row);
}

std::vector<TeamMember> TeamStore::members(qint64 team)
{
    static const std::string sql = std::string(MemberColumns) + " WHERE vtId = ? ORDER BY number";
    Statement rows = m_transaction.prepare(sql.c_str());
    rows.bind(team);
    return allMembers(&rows);
}

std::vector<TeamMember> TeamStore::membersOf(qint64 team, qint64 group)
{
    static const std::string sql =
        std::string(MemberColumns) + " WHERE vtId = ? AND groupId = ? ORDER BY number";
    Statement rows = m_transaction.prepare(sql.c_str());
    rows.bind(team).bind(group);
    return allMembers(&rows);
}

void TeamStore::removeMember(qint64 team, const QString &uid)
{
    m_transaction.prepare("DELETE FROM teamMember WHERE vtId = ? AND uid = ?")
        .bind(team)
        .bind(uid)
        .run();
}

void TeamStore::setRole(qint64 team, const QString &uid, int role)
{
    set(m_transaction, "role", qint64(role), team, uid);
}

void TeamStore::clearSubAdmins(qint64 team)
{
    m_transaction.prepare("UPDATE teamMember SET role = ? WHERE vtId = ? AND role = ?")
        .bind(TeamRole::Member)
        .bind(team)
        .bind(TeamRole::SubAdmin)
        .run();
}

void TeamStore::setGroup(qint64 team, const QString &uid, qint64 group)
{
    set(m_transaction, "groupId", group, team, uid);
}

void TeamStore::setNickName(qint64 team, const QString &uid, const QString &nickName)
{
    set(m_transaction, "nickName", nickName, team, uid);
}

void TeamStore::setDuty(qint64 team, const QString &uid, const QString &duty)
{
    set(m_transaction, "duty", duty, team, uid);
}

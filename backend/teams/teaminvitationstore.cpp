// Invitations of companies, and what waits for a decision.
#include "backend/teams/teamstore.h"

namespace {
constexpr char Columns[] = "SELECT vtId, teamInvitation.company, inviter, teamInvitation.reason,"
                           " decision FROM teamInvitation";

std::vector<TeamInvitation> all(Statement *rows)
{
    std::vector<TeamInvitation> invitations;
    while (rows->next())
        invitations.push_back({rows->number(0), rows->text(1), rows->text(2), rows->text(3),
                               Decision(rows->number(4))});
    return invitations;
}

// Into active teams. `condition` has one value.
std::vector<TeamInvitation> openOf(Transaction &transaction, const char *condition,
                                   const QString &value)
{
    const std::string sql = std::string(Columns) + " JOIN team USING (vtId)" + condition +
                            " AND decision = ? AND creation = ? ORDER BY vtId";
    Statement rows = transaction.prepare(sql.c_str());
    rows.bind(value).bind(qint64(Decision::Open)).bind(qint64(Decision::Agreed));
    return all(&rows);
}
} // namespace

void TeamStore::addInvited(qint64 team, const QString &company, const QStringList &uids)
{
    Statement insert = m_transaction.prepare(
        "INSERT OR IGNORE INTO teamInvited (vtId, company, uid) VALUES (?, ?, ?)");
    for (const QString &uid : uids)
        insert.bind(team).bind(company).bind(uid).run();
}

QStringList TeamStore::invited(qint64 team, const QString &company)
{
    Statement rows = m_transaction.prepare("SELECT uid FROM teamInvited"
                                           " WHERE vtId = ? AND ? IN (company, '') ORDER BY rowid");
    rows.bind(team).bind(company);
    QStringList uids;
    while (rows.next())
        uids.append(rows.text(0));
    return uids;
}

void TeamStore::putInvitation(const TeamInvitation &invitation, const QStringList &uids)
{
    m_transaction.prepare("DELETE FROM teamInvited WHERE vtId = ? AND company = ?")
        .bind(invitation.team)
        .bind(invitation.company)
        .run();
    m_transaction
        .prepare("INSERT OR REPLACE INTO teamInvitation (vtId, company, inviter, reason, decision)"
                 " VALUES (?, ?, ?, ?, ?)")
        .bind(invitation.team)
        .bind(invitation.company)
        .bind(invitation.inviter)
        .bind(invitation.reason)
        .bind(qint64(invitation.decision))
        .run();
    addInvited(invitation.team, invitation.company, uids);
}

std::optional<TeamInvitation> TeamStore::invitation(qint64 team, const QString &company)
{
    static const std::string sql = std::string(Columns) + " WHERE vtId = ? AND company = ?";
    Statement row = m_transaction.prepare(sql.c_str());
    row.bind(team).bind(company);
    const std::vector<TeamInvitation> found = all(&row);
    return found.empty() ? std::nullopt : std::make_optional(found.front());
}

std::vector<TeamInvitation> TeamStore::openInvitations(qint64 team)
{
    static const std::string sql =
        std::string(Columns) + " WHERE vtId = ? AND decision = ? ORDER BY company";
    Statement rows = m_transaction.prepare(sql.c_str());
    rows.bind(team).bind(qint64(Decision::Open));
    return all(&rows);
}

void TeamStore::decideInvitation(qint64 team, const QString &company, Decision decision)
{
    m_transaction.prepare("UPDATE teamInvitation SET decision = ? WHERE vtId = ? AND company = ?")
        .bind(qint64(decision))
        .bind(team)
        .bind(company)
        .run();
}

std::vector<TeamInvitation> TeamStore::openInvitationsTo(const QString &uid)
{
    return openOf(m_transaction,
                  " JOIN teamInvited USING (vtId)"
                  " WHERE teamInvited.company = teamInvitation.company AND uid = ?",
                  uid);
}

std::vector<TeamInvitation> TeamStore::openInvitationsOf(const QString &company)
{
    return openOf(m_transaction, " WHERE teamInvitation.company = ?", company);
}

std::vector<Team> TeamStore::openCreationsOf(const QString &company)
{
    Statement rows = m_transaction.prepare(
        "SELECT vtId, name, reason, creator FROM team WHERE company = ? AND creation = ?"
        " ORDER BY vtId");
    rows.bind(company).bind(qint64(Decision::Open));
    std::vector<Team> teams;
    while (rows.next())
        teams.push_back(
            {rows.number(0), rows.text(1), rows.text(2), rows.text(3), company, Decision::Open});
    return teams;
}

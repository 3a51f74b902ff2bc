// How a team and a company's membership in it come about.
#include "backend/reply.h"
#include "backend/teams/teams.h"

#include <QMap>

QString Teams::approverOf(const QString &company)
{
    const std::optional<Company> found = m_companies.find(company);
    return found ? found->approver : QString();
}

// Who may answer the invitation of a company.
QStringList Teams::asked(qint64 team, const QString &company)
{
    QStringList uids = m_store.invited(team, company);
    const QString approver = approverOf(company);
    if (!uids.contains(approver))
        uids.append(approver);
    return uids;
}

void Teams::tellInvited(const TeamInvitation &invitation)
{
    m_events.tell(asked(invitation.team, invitation.company), EventType::Join, invitation.team,
                  invitation.inviter);
}

// The team begins.
void Teams::admit(const Team &team)
{
    m_store.addMembers(team.id, {team.creator}, 0, TeamRole::Owner);
    m_store.addMembers(team.id, known(m_store.invited(team.id, team.company)), 0, TeamRole::Member);
    tellMembers(team.id);
    for (const TeamInvitation &invitation : m_store.openInvitations(team.id))
        tellInvited(invitation);
}

Team Teams::create(const QStringList &uids, const QString &name, const QString &reason)
{
    Team team;
    team.name = checkedText(name, 1);
    team.reason = checkedText(reason, 0, TeamLimit::Reason);
    team.creator = m_caller.uid;
    team.company = m_caller.companyCode;
    const std::optional<Company> company = m_companies.find(team.company);
    QMap<QString, QStringList> byCompany;
    int count = 0;
    for (const QString &uid : uids) {
        if (uid == m_caller.uid)
            continue;
        const User user = person(uid);
        if (user.companyCode.isEmpty())
            throw Refusal(ReplyCode::Illegal);
        byCompany[user.companyCode].append(uid);
        ++count;
    }
    if (!company || count < TeamLimit::LeastMembers)
        throw Refusal(ReplyCode::Illegal);
    if (m_store.ownsTeamNamed(m_caller.uid, team.name))
        throw Refusal(ReplyCode::NoRight);

    team.creation = company->needsApproval ? Decision::Open : Decision::Agreed;
    team.id = m_store.addTeam(team);
    m_store.addInvited(team.id, team.company, byCompany.take(team.company));
    for (auto other = byCompany.cbegin(); other != byCompany.cend(); ++other) {
        m_store.putInvitation({team.id, other.key(), team.creator, team.reason, Decision::Open},
                              other.value());
    }
    if (team.isActive())
        admit(team);
    else
        m_events.tell({company->approver}, EventType::Audit, team.id, team.creator);
    return team;
}

TeamApplication Teams::creation(qint64 id, const QString &creator)
{
    const std::optional<Team> team = m_store.team(id);
    if (!team)
        throw Refusal(ReplyCode::Illegal);
    if (approverOf(team->company) != m_caller.uid)
        throw Refusal(ReplyCode::NoRight);
    if (creator != team->creator)
        throw Refusal(ReplyCode::Illegal);
    TeamApplication application{
        *team, person(creator), team->reason, team->creation != Decision::Open, {}};
    for (const QString &uid : m_store.invited(id, {}))
        application.members.append(person(uid));
    return application;
}

void Teams::decideCreation(qint64 id, const QString &creator, bool agrees)
{
    const TeamApplication application = creation(id, creator);
    if (application.isDecided)
        throw Refusal(ReplyCode::Blocked);
    m_store.setCreation(id, agrees ? Decision::Agreed : Decision::Refused);
    QStringList concerned{m_caller.uid}; // wherever else he is logged in
    if (agrees)
        admit(application.team);
    else
        concerned.append(creator);
    m_events.tell(concerned, EventType::Update, id, m_caller.uid);
    tellDecision(creator, id, agrees);
}

void Teams::invite(qint64 id, const QStringList &uids, const QString &reason)
{
    requireRole(id, TeamRole::SubAdmin);
    const Team team = active(id);
    const QString checked = checkedText(reason, 0, TeamLimit::Reason);
    QMap<QString, QStringList> byCompany;
    for (const QString &uid : uids) {
        const User user = person(uid);
        if (user.companyCode.isEmpty() || user.companyCode == m_caller.companyCode)
            throw Refusal(ReplyCode::Illegal);
        byCompany[user.companyCode].append(uid);
    }
    for (auto asked = byCompany.cbegin(); asked != byCompany.cend(); ++asked) {
        const std::optional<TeamInvitation> earlier = m_store.invitation(id, asked.key());
        const bool hasJoined = earlier && earlier->decision == Decision::Agreed;
        if (hasJoined || asked.key() == team.company)
            throw Refusal(ReplyCode::NoRight);
        const TeamInvitation invitation{id, asked.key(), m_caller.uid, checked, Decision::Open};
        m_store.putInvitation(invitation, asked.value());
        tellInvited(invitation);
    }
}

TeamApplication Teams::invitation(qint64 id)
{
    const Team team = active(id);
    const std::optional<TeamInvitation> found = m_store.invitation(id, m_caller.companyCode);
    if (!found)
        throw Refusal(ReplyCode::Illegal);
    TeamApplication application{
        team, person(found->inviter), found->reason, found->decision != Decision::Open, {}};
    for (const QString &uid : m_store.invited(id, found->company))
        application.members.append(person(uid));
    return application;
}

void Teams::answerInvitation(qint64 id, bool agrees)
{
    const TeamApplication application = invitation(id);
    const QString company = m_caller.companyCode;
    const QStringList invited = m_store.invited(id, company);
    if (!invited.contains(m_caller.uid) && approverOf(company) != m_caller.uid)
        throw Refusal(ReplyCode::NoRight);
    if (application.isDecided)
        throw Refusal(ReplyCode::Blocked);
    m_store.decideInvitation(id, company, agrees ? Decision::Agreed : Decision::Refused);
    // The others who were asked have nothing to decide any more.
    QStringList concerned = asked(id, company);
    if (agrees) {
        m_store.addMembers(id, known(invited), 0, TeamRole::Member);
        tellMembers(id);
    } else {
        concerned.append(application.applicant.uid);
    }
    m_events.tell(concerned, EventType::Update, id, m_caller.uid);
    tellDecision(application.applicant.uid, id, agrees);
}

// To who decides about his own he has said it himself.
void Teams::tellDecision(const QString &applicant, qint64 id, bool agrees)
{
    if (applicant != m_caller.uid)
        m_events.tell({applicant}, agrees ? EventType::Agreed : EventType::Refused, id,
                      m_caller.uid);
}

void Teams::changeCompany(const Company &company)
{
    const QString earlier = approverOf(company.code);
    if (person(company.approver).companyCode != company.code)
        throw Refusal(ReplyCode::Illegal);
    m_companies.change(company);
    if (company.approver == earlier)
        return;
    for (const Team &team : m_store.openCreationsOf(company.code)) {
        m_events.tell({company.approver}, EventType::Audit, team.id, team.creator);
        m_events.tell({earlier}, EventType::Update, team.id, m_caller.uid);
    }
    for (const TeamInvitation &open : m_store.openInvitationsOf(company.code)) {
        m_events.tell({company.approver}, EventType::Join, open.team, open.inviter);
        m_events.tell({earlier}, EventType::Update, open.team, m_caller.uid);
    }
}

std::vector<Event> Teams::waiting()
{
    const bool isApprover = approverOf(m_caller.companyCode) == m_caller.uid;
    std::vector<Event> events;
    if (isApprover) {
        for (const Team &team : m_store.openCreationsOf(m_caller.companyCode))
            events.push_back({0, QString::fromLatin1(EventType::Audit), QString::number(team.id),
                              team.creator, team.name});
    }
    for (const TeamInvitation &open : isApprover ? m_store.openInvitationsOf(m_caller.companyCode)
                                                 : m_store.openInvitationsTo(m_caller.uid))
        events.push_back({0, QString::fromLatin1(EventType::Join), QString::number(open.team),
                          open.inviter, m_store.team(open.team).value_or(Team()).name});
    return events;
}

// How a team and a company's membership in it come about: applications and decisions.
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

namespace {

Reply create(const Call &call, Teams &teams)
{
    const QStringList uids = TeamField::people(call);
    const Team team = teams.create(uids, call.form.required("vtName"), call.form.text("reason"));
    TeamReply reply;
    reply.json().member("vtId", QString::number(team.id)).flag("audit", !team.isActive());
    return reply.end();
}

Reply invite(const Call &call, Teams &teams)
{
    const QStringList uids = TeamField::people(call);
    teams.invite(TeamField::team(call), uids, call.form.text("reason"));
    return done();
}

Reply creationDetail(const Call &call, Teams &teams)
{
    const qint64 team = TeamField::team(call);
    TeamReply reply;
    reply.writeApplication(teams.creation(team, call.form.required("member")));
    return reply.end();
}

// "1" or "0" and nothing else.
bool decision(const Call &call, const char *name)
{
    return call.form.number(name, 0, 1) == 1;
}

Reply decideCreation(const Call &call, Teams &teams)
{
    const QString creator = call.form.required("member");
    teams.decideCreation(TeamField::team(call), creator, decision(call, "flag"));
    return done();
}

Reply joinDetail(const Call &call, Teams &teams)
{
    const TeamApplication application = teams.invitation(TeamField::team(call));
    TeamReply reply;
    reply.writeApplication(application);
    reply.json().member("orgName", application.applicant.orgName);
    return reply.end();
}

Reply answerInvitation(const Call &call, Teams &teams)
{
    teams.answerInvitation(TeamField::team(call), decision(call, "agree"));
    return done();
}

} // namespace

void addTeamFoundingServices(Services *services, BackEndContext &context)
{
    addTeamChange(services, context, "createVirtualTeam", create);
    addTeamChange(services, context, "inviteVirtualTeam", invite);
    addTeamReading(services, context, "auditVirtualTeamDetail", creationDetail);
    addTeamChange(services, context, "auditVirtualTeam", decideCreation);
    addTeamReading(services, context, "joinVirtualTeamStatus", joinDetail);
    addTeamChange(services, context, "confirmJoinVirtualTeam", answerInvitation);
}

// The team services: what a team consists of, and every change to it.
#include "backend/context.h"
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

namespace {

Reply teamList(const Call &, Teams &teams)
{
    TeamReply reply;
    reply.json().open("vt", '[');
    for (const OwnTeam &team : teams.store().teamsOf(teams.caller().uid)) {
        reply.json().open('{').member("vtId", QString::number(team.id));
        reply.json().member("vtName", team.name).member("role", qint64(team.role));
        reply.json().member("count", team.count).close('}');
    }
    reply.json().close(']');
    return reply.end();
}

// One level: the children of a group.
Reply structure(const Call &call, Teams &teams)
{
    const qint64 team = TeamField::team(call);
    const qint64 group = TeamField::group(call, "pgId");
    teams.requireMember(team);
    teams.requireGroup(team, group);
    TeamReply reply;
    reply.json().open("group", '[');
    for (const TeamGroup &child : teams.store().groups(team, group)) {
        reply.json().open('{').member("groupId", QString::number(child.id));
        reply.json().member("groupName", child.name).close('}');
    }
    reply.json().close(']').open("members", '[');
    for (const TeamMember &member : teams.store().membersOf(team, group)) {
        reply.json().open('{');
        const User user = teams.person(member.uid);
        reply.writeMember(member, user);
        // Everybody knows what the own company is called.
        if (user.companyCode != teams.person(call.caller.uid).companyCode)
            reply.json().member("companyName", user.companyName);
        reply.json().close('}');
    }
    reply.json().close(']');
    return reply.end();
}

Reply addMembers(const Call &call, Teams &teams)
{
    const qint64 group = TeamField::group(call, "groupId");
    const int failed = teams.addMembers(TeamField::team(call), group, TeamField::people(call));
    TeamReply reply;
    reply.json().member("failNumber", qint64(failed));
    return reply.end();
}

Reply changeMemberInfo(const Call &call, Teams &teams)
{
    const qint64 team = TeamField::team(call);
    const QString uid = call.form.required("member");
    if (call.form.has("nickName") == call.form.has("duty"))
        throw IllegalField("nickName");
    if (call.form.has("nickName"))
        teams.setNickName(team, uid, call.form.text("nickName"));
    else
        teams.setDuty(team, uid, call.form.text("duty"));
    return done();
}

Reply addGroup(const Call &call, Teams &teams)
{
    const qint64 parent = TeamField::group(call, "pgId");
    const qint64 id =
        teams.addGroup(TeamField::team(call), parent, call.form.required("groupName"));
    TeamReply reply;
    reply.json().member("groupId", QString::number(id));
    return reply.end();
}

void addMembership(Services *services, BackEndContext &context)
{
    addTeamChange(services, context, "batchAddVirtualTeamMember", addMembers);
    addTeamChange(services, context, "deleteVirtualTeamMember", [](const Call &call, Teams &teams) {
        teams.removeMembers(TeamField::team(call), TeamField::people(call));
        return done();
    });
    addTeamChange(services, context, "transferVirtualTeamMember",
                  [](const Call &call, Teams &teams) {
                      const qint64 group = TeamField::group(call, "groupId");
                      teams.moveMembers(TeamField::team(call), group, TeamField::people(call));
                      return done();
                  });
    addTeamChange(services, context, "quitVirtualTeam", [](const Call &call, Teams &teams) {
        teams.quit(TeamField::team(call));
        return done();
    });
    addTeamChange(services, context, "modifyVirtualTeamMemberInfo", changeMemberInfo);
    addTeamChange(services, context, "grantVirtualTeamAuthority",
                  [](const Call &call, Teams &teams) {
                      teams.grant(TeamField::team(call), call.form.required("member"));
                      return done();
                  });
    const std::pair<const char *, Teams::AdminChange> adminChanges[] = {
        {"setVirtualTeamAdmin", Teams::ReplaceAdmins},
        {"addVirtualTeamAdmin", Teams::AddAdmins},
        {"deleteVirtualTeamAdmin", Teams::RemoveAdmins}};
    for (const auto &[name, change] : adminChanges) {
        addTeamChange(services, context, name, [change = change](const Call &call, Teams &teams) {
            const bool mayBeEmpty = change == Teams::ReplaceAdmins;
            teams.changeAdmins(TeamField::team(call), TeamField::people(call, mayBeEmpty), change);
            return done();
        });
    }
}

void addGroups(Services *services, BackEndContext &context)
{
    addTeamChange(services, context, "addVirtualTeamGroup", addGroup);
    addTeamChange(services, context, "modifyVirtualTeamGroup", [](const Call &call, Teams &teams) {
        const qint64 group = TeamField::group(call, "groupId");
        teams.renameGroup(TeamField::team(call), group, call.form.required("groupName"));
        return done();
    });
    addTeamChange(services, context, "deleteVirtualTeamGroup", [](const Call &call, Teams &teams) {
        teams.removeGroup(TeamField::team(call), TeamField::group(call, "groupId"));
        return done();
    });
}

} // namespace

void addTeamServices(Services *services, BackEndContext &context)
{
    addTeamReading(services, context, "getAllVirtualTeam", teamList);
    addTeamReading(services, context, "getVirtualTeamGroup", structure);
    addTeamChange(services, context, "dissolveVirtualTeam", [](const Call &call, Teams &teams) {
        teams.dissolve(TeamField::team(call));
        return done();
    });
    addTeamChange(services, context, "modifyVirtualTeamInfo", [](const Call &call, Teams &teams) {
        teams.rename(TeamField::team(call), call.form.required("vtName"));
        return done();
    });
    addMembership(services, context);
    addGroups(services, context);
}

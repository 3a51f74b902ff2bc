#include "tests/virtualteam/commandsfixture.h"

#include <functional>
#include <map>

Told::Told(TeamCommands *commands)
{
    const auto add = [this](const char *what, const QString &rest = QString()) {
        words.append(QLatin1String(what) + (rest.isEmpty() ? rest : u' ' + rest));
    };
    const auto join = [](const QStringList &ids) { return ids.join(u'+'); };
    connect(commands, &TeamCommands::teamsChanged, this, [=] { add("teams"); });
    connect(commands, &TeamCommands::teamOutdated, this, [=] { add("outdated"); });
    connect(commands, &TeamCommands::teamLeft, this, [=](auto &id) { add("left", id); });
    connect(commands, &TeamCommands::levelChanged, this,
            [=](auto &, auto &group) { add("level", group); });
    connect(commands, &TeamCommands::teamRenamed, this,
            [=](auto &, auto &name) { add("team", name); });
    connect(commands, &TeamCommands::groupRenamed, this,
            [=](auto &, auto &id, auto &name) { add("group", id + u' ' + name); });
    connect(commands, &TeamCommands::groupDeleted, this,
            [=](auto &, auto &id) { add("deleted", id); });
    connect(commands, &TeamCommands::groupAdded, this,
            [=](auto &, auto &parent, auto &id, auto &name) {
                add("added", QStringList{parent, id, name}.join(u' '));
            });
    connect(commands, &TeamCommands::nickNameChanged, this,
            [=](auto &, auto &id, auto &name) { add("nick", id + u' ' + name); });
    connect(commands, &TeamCommands::postChanged, this,
            [=](auto &, auto &id, auto &post) { add("post", id + u' ' + post); });
    connect(commands, &TeamCommands::membersDeleted, this,
            [=](auto &, auto &ids) { add("gone", join(ids)); });
    connect(commands, &TeamCommands::membersMoved, this,
            [=](auto &, auto &group, auto &ids) { add("moved", group + u' ' + join(ids)); });
    connect(commands, &TeamCommands::administratorsChanged, this,
            [=](auto &, auto &added, auto &removed) {
                add("admins", u'+' + join(added) + u'-' + join(removed));
            });
}

void CommandsFixture::give(const QString &command) const
{
    TeamCommands *to = commands;
    const TeamSelection one = teamSelection({teamMember("u2")});
    const TeamSelection two = teamSelection({teamMember("u2"), teamMember("u3")});
    const std::map<QString, std::function<void()>> table{
        {QStringLiteral("addGroup"), [=] { to->addGroup(one); }},
        {QStringLiteral("renameGroup"), [=] { to->renameGroup(one); }},
        {QStringLiteral("deleteGroup"), [=] { to->deleteGroup(one); }},
        {QStringLiteral("renameTeam"), [=] { to->renameTeam(one.team); }},
        {QStringLiteral("quit"), [=] { to->quit(one.team); }},
        {QStringLiteral("dissolve"), [=] { to->dissolve(one.team); }},
        {QStringLiteral("nick"), [=] { to->editNickName(one); }},
        {QStringLiteral("post"), [=] { to->editPost(one); }},
        {QStringLiteral("promote"), [=] { to->toggleAdministrator(one); }},
        {QStringLiteral("demote"),
         [=] { to->toggleAdministrator(teamSelection({teamMember("u2", 1)})); }},
        {QStringLiteral("delete"), [=] { to->deleteMembers(one); }},
        {QStringLiteral("deleteTwo"), [=] { to->deleteMembers(two); }},
        {QStringLiteral("move"),
         [=] { to->moveMembersTo(one.team.vtId, QStringLiteral("9"), {QStringLiteral("u2")}); }},
        {QStringLiteral("add"), [=] { to->addMembers(one, {}); }},
        {QStringLiteral("addPicked"),
         [=] {
             to->addPicked(one.team.vtId, one.groupId,
                           {QStringLiteral("u5@corp.example"), QStringLiteral("u1"),
                            QStringLiteral("u6"), QStringLiteral("u5")});
         }},
    };
    table.at(command)();
    if (editor())
        type(QStringLiteral("new & name"));
}

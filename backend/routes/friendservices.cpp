// The friend services: a user's external contacts, their groups, and who asks to become
// one.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/friends/friends.h"
#include "backend/routes/routes.h"
#include "backend/routes/rulecall.h"
#include "backend/routes/teamreplies.h"

#include <functional>
#include <limits>
#include <optional>

namespace {
using Handler = std::function<Reply(const Call &call, Friends &friends)>;

void add(Services *services, BackEndContext &context, const char *name, const Handler &handler)
{
    const std::string path = std::string("/center/friend/") + name + ".do";
    services->post(path, Services::LoggedIn, [&context, handler](const Call &call) {
        // Also who only looks may be heard of for the first time.
        return RuleCall::change(context, [&](Transaction &transaction) {
            Friends friends(transaction, context.people, context.friendLimits, call.caller.uid);
            return handler(call, friends);
        });
    });
}

// "" and "0", and no field at all: the default group.
qint64 groupIn(const Call &call, const char *name)
{
    return call.form.text(name).isEmpty()
               ? 0
               : call.form.number(name, 0, std::numeric_limits<qint64>::max());
}

qint64 givenGroup(const Call &call, const char *name)
{
    if (!call.form.has(name))
        throw IllegalField(name);
    return groupIn(call, name);
}

QString person(const Call &call)
{
    return call.form.required("userId");
}

Reply friendList(const People &people, Friends &friends)
{
    TeamReply reply;
    JsonText &json = reply.json();
    json.open("groups", '[');
    for (const FriendGroup &group : friends.groups()) {
        json.open('{').member("groupId", QString::number(group.id));
        json.member("groupName", group.name).close('}');
    }
    json.close(']').open("friends", '[');
    for (const Friend &contact : friends.friends()) {
        const std::optional<User> user = people.find(contact.uid);
        if (!user) // the people have become fewer
            continue;
        json.open('{').member("userId", contact.uid).member("name", user->name);
        json.member("remark", contact.remark).member("groupId", QString::number(contact.group));
        reply.writePerson(*user);
        json.member("email", user->email).close('}');
    }
    json.close(']');
    return reply.end();
}

Reply status(const Call &call, Friends &friends)
{
    TeamReply reply;
    reply.json().member("status", qint64(friends.status(person(call))));
    return reply.end();
}

Reply confirm(const Call &call, Friends &friends)
{
    if (call.form.number("type", 1, 2) == 1)
        friends.accept(person(call), groupIn(call, "groupId"));
    else
        friends.block(person(call));
    return done();
}

Reply createGroup(const Call &call, Friends &friends)
{
    TeamReply reply;
    const qint64 id = friends.addGroup(call.form.required("groupName"));
    reply.json().member("groupId", QString::number(id));
    return reply.end();
}

void addGroups(Services *services, BackEndContext &context)
{
    add(services, context, "createFriendGroup", createGroup);
    add(services, context, "renameFriendGroup", [](const Call &call, Friends &friends) {
        friends.renameGroup(givenGroup(call, "groupId"), call.form.required("groupName"));
        return done();
    });
    add(services, context, "removeFriendGroup", [](const Call &call, Friends &friends) {
        friends.removeGroup(givenGroup(call, "groupId"));
        return done();
    });
    add(services, context, "moveFriendItem", [](const Call &call, Friends &friends) {
        const qint64 oldGroup = givenGroup(call, "oldGroupId");
        friends.move(person(call), oldGroup, givenGroup(call, "newGroupId"));
        return done();
    });
}

} // namespace

void addFriendServices(Services *services, BackEndContext &context)
{
    add(services, context, "getFriendList",
        [&context](const Call &, Friends &friends) { return friendList(context.people, friends); });
    add(services, context, "addFriendRequest", [](const Call &call, Friends &friends) {
        friends.request(person(call), call.form.text("reason"), groupIn(call, "groupId"));
        return done();
    });
    add(services, context, "confirmAddFriend", confirm);
    add(services, context, "getRequestStatus", status);
    add(services, context, "removeFriend", [](const Call &call, Friends &friends) {
        friends.remove(person(call));
        return done();
    });
    add(services, context, "setFriendRemark", [](const Call &call, Friends &friends) {
        friends.setRemark(person(call), call.form.text("remark"));
        return done();
    });
    addGroups(services, context);
}

#include "backend/friendcontrol.h"

#include "backend/commandjson.h"
#include "backend/context.h"
#include "backend/friends/friends.h"
#include "backend/refusal.h"

namespace {
constexpr qint64 Day = 24 * 3600; // s
constexpr int MostDays = 3650;

QString textOf(const Json::Value &command, const char *name)
{
    return QString::fromStdString(command[name].asString());
}

void age(const Json::Value &command, Transaction &transaction)
{
    const int days = command["days"].asInt();
    if (days < 1 || days > MostDays)
        throw BadCommand("days out of range");
    if (!FriendStore(transaction)
             .ageRequest(textOf(command, "from"), textOf(command, "to"), days * Day))
        throw BadCommand("there is no such request");
}

void act(const std::string &action, const Json::Value &command, Friends *friends)
{
    const QString other = textOf(command, "to");
    if (action == "request")
        friends->request(other, textOf(command, "reason"), 0);
    else if (action == "accept")
        friends->accept(other, 0);
    else if (action == "blacklist")
        friends->block(other);
    else if (action == "remove")
        friends->remove(other);
    else
        throw BadCommand("unknown action");
}
} // namespace

void actAsFriend(const Json::Value &command, BackEndContext *context, Json::Value *answer)
{
    refuseOthers(command, {"action", "from", "to", "reason", "days"});
    const std::string action = command["action"].asString();
    int code = ReplyCode::Done;
    try {
        Transaction transaction(context->database);
        if (action == "age") {
            age(command, transaction);
        } else {
            Friends friends(transaction, context->people, context->friendLimits,
                            textOf(command, "from"));
            act(action, command, &friends);
        }
        transaction.commit();
    } catch (const Refusal &refusal) {
        code = refusal.code;
    }
    (*answer)["code"] = code;
    context->bell.ring();
}

void limitFriends(const Json::Value &command, BackEndContext *context)
{
    refuseOthers(command, {"uid", "limit"});
    const int limit = command["limit"].asInt();
    const QString uid = textOf(command, "uid");
    if (limit < 0 || limit > FriendLimit::MostContacts)
        throw BadCommand("limit out of range");
    if (!uid.isEmpty() && !context->people.find(uid))
        throw BadCommand("unknown user");
    context->friendLimits.set(uid, limit);
}

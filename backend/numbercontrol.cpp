#include "backend/numbercontrol.h"

#include "backend/commandjson.h"
#include "backend/context.h"
#include "backend/numbers/subscriptions.h"
#include "backend/reply.h"

#include <optional>
#include <utility>

namespace {
QString textOf(const Json::Value &value)
{
    return QString::fromStdString(value.asString());
}

void apply(const Json::Value &command, ServiceNumber *number)
{
    static constexpr std::pair<const char *, QString ServiceNumber::*> texts[] = {
        {"name", &ServiceNumber::name},
        {"description", &ServiceNumber::description},
        {"icon", &ServiceNumber::icon},
        {"subject", &ServiceNumber::subject},
        {"contactWay", &ServiceNumber::contact}};
    static constexpr std::pair<const char *, bool ServiceNumber::*> flags[] = {
        {"isInteractive", &ServiceNumber::isInteractive},
        {"fold", &ServiceNumber::isFolded},
        {"closed", &ServiceNumber::isClosed}};
    static constexpr std::pair<const char *, std::string ServiceNumber::*> trees[] = {
        {"menuList", &ServiceNumber::menu}, {"channel", &ServiceNumber::channel}};
    for (const auto &[name, member] : texts) {
        if (command.isMember(name))
            number->*member = textOf(command[name]);
    }
    for (const auto &[name, member] : flags) {
        if (command.isMember(name))
            number->*member = command[name].asBool();
    }
    for (const auto &[name, member] : trees) {
        if (command.isMember(name))
            number->*member = jsonLine(command[name]);
    }
    if (command.isMember("status"))
        number->status = command["status"].asInt();
}
} // namespace

void changeNumber(const Json::Value &command, BackEndContext *context)
{
    refuseOthers(command, {"code", "name", "description", "icon", "subject", "contactWay",
                           "isInteractive", "fold", "closed", "menuList", "channel", "status"});
    const QString code = textOf(command["code"]);
    std::optional<ServiceNumber> number = context->numbers.find(code);
    if (!number)
        throw BadCommand("unknown service number");
    apply(command, &*number); // what is of the wrong kind is refused here
    context->numbers.change(code, [command](ServiceNumber *changed) { apply(command, changed); });
    Transaction transaction(context->database);
    EventLog(transaction).tellEverybody(EventType::Services, QString());
    transaction.commit();
    context->bell.ring();
}

void addNumbers(const Json::Value &command, BackEndContext *context)
{
    refuseOthers(command, {"extra", "subscriber"});
    const int extra = command["extra"].asInt();
    if (extra < 0 || extra > ServiceNumberList::MostExtra)
        throw BadCommand("extra out of range");
    const QString uid = textOf(command["subscriber"]);
    if (!uid.isEmpty() && !context->people.find(uid))
        throw BadCommand("unknown user");
    if (command.isMember("extra"))
        context->numbers.setExtra(extra);
    Transaction transaction(context->database);
    if (!uid.isEmpty())
        Subscriptions(transaction, context->numbers, uid).subscribeToAll();
    transaction.commit();
    context->bell.ring();
}

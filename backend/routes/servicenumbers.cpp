// The service numbers: searching, subscribing, the records.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/numbers/subscriptions.h"
#include "backend/refusal.h"
#include "backend/routes/routes.h"
#include "backend/routes/rulecall.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <optional>

namespace {
constexpr int NoRight = 1; // to subscribe
constexpr int MostCodes = 10000;

using Handler = std::function<Reply(const Call &call, const ServiceNumberList &numbers,
                                    Subscriptions &subscriptions)>;

RuleCall::Work asCaller(const Call &call, BackEndContext &context, const Handler &handler)
{
    return [&](Transaction &transaction) {
        if (!context.people.find(call.caller.uid)) // the people have become fewer
            throw Refusal(ReplyCode::Illegal);
        Subscriptions subscriptions(transaction, context.numbers, call.caller.uid);
        return handler(call, context.numbers, subscriptions);
    };
}

void write(JsonText &json, const ServiceNumber &number, bool isSub)
{
    json.open('{').member("iServiceCode", number.code).member("name", number.name);
    json.member("description", number.description).member("icon", number.icon);
    json.member("subType", qint64(number.kind)).flag("isBindApp", number.isBoundToApplication);
    json.flag("isSub", isSub).flag("isInteractive", number.isInteractive);
    json.member("subject", number.subject).member("contactWay", number.contact);
    json.flag("fold", number.isFolded).rawMember("menuList", number.menu);
    json.member("status", qint64(number.status));
    json.member("version", QString::number(number.version));
    json.rawMember("channel", number.channel).close('}');
}

// The beginning of {"code":0,"version":..,"data":..}.
void open(JsonText &json, Subscriptions &subscriptions)
{
    json.open('{').member("code", qint64(ReplyCode::Done));
    json.member("version", QString::number(subscriptions.version()));
}

Reply listReply(Subscriptions &subscriptions, const std::vector<ServiceNumber> &numbers)
{
    const QStringList codes = subscriptions.codes();
    const QSet<QString> subscribed(codes.begin(), codes.end());
    std::string text;
    JsonText json(&text);
    open(json, subscriptions);
    json.open("data", '[');
    for (const ServiceNumber &number : numbers)
        write(json, number, subscribed.contains(number.code));
    json.close(']').close('}');
    return Reply::text(std::move(text));
}

ServiceNumber requireNumber(const QString &code, const ServiceNumberList &numbers)
{
    std::optional<ServiceNumber> number = numbers.find(code);
    if (!number)
        throw Refusal(ReplyCode::Illegal);
    return *number;
}

Reply search(const Call &call, const ServiceNumberList &numbers, Subscriptions &subscriptions)
{
    const QString piece = call.form.text("name").trimmed();
    std::vector<ServiceNumber> found = numbers.all();
    found.erase(std::remove_if(found.begin(), found.end(),
                               [&piece](const ServiceNumber &number) {
                                   return !number.name.contains(piece, Qt::CaseInsensitive);
                               }),
                found.end());
    return listReply(subscriptions, found);
}

// A client that has this version already has them all.
Reply own(const Call &call, const ServiceNumberList &, Subscriptions &subscriptions)
{
    const bool isKnown = call.form.text("version") == QString::number(subscriptions.version());
    return listReply(subscriptions,
                     isKnown ? std::vector<ServiceNumber>() : subscriptions.subscribed());
}

Reply detail(const Call &call, const ServiceNumberList &numbers, Subscriptions &subscriptions)
{
    const ServiceNumber number = requireNumber(call.form.required("code"), numbers);
    std::string record;
    JsonText recordJson(&record);
    write(recordJson, number, subscriptions.codes().contains(number.code));
    std::string text;
    JsonText json(&text);
    open(json, subscriptions);
    json.rawMember("data", record).close('}');
    return Reply::text(std::move(text));
}

// Those that are newer than what the client has; a version that is no number is older
// than all.
Reply newer(const Call &call, const ServiceNumberList &numbers, Subscriptions &subscriptions)
{
    const QStringList codes = call.form.required("codes").split(QLatin1Char(','));
    const QStringList versions = call.form.text("versions").split(QLatin1Char(','));
    if (codes.size() > MostCodes)
        throw IllegalField("codes");
    std::vector<ServiceNumber> found;
    QSet<QString> seen;
    for (int i = 0; i < codes.size(); ++i) {
        std::optional<ServiceNumber> number = numbers.find(codes.at(i));
        if (number && !seen.contains(number->code) &&
            number->version > versions.value(i).toLongLong()) {
            seen.insert(number->code);
            found.push_back(std::move(*number));
        }
    }
    return listReply(subscriptions, found);
}

Reply subscribe(const Call &call, const ServiceNumberList &numbers, Subscriptions &subscriptions)
{
    const ServiceNumber number = requireNumber(call.form.required("appCode"), numbers);
    if (number.isClosed)
        throw Refusal(NoRight);
    subscriptions.set(number.code, true);
    return done();
}

Reply unsubscribe(const Call &call, const ServiceNumberList &numbers, Subscriptions &subscriptions)
{
    subscriptions.set(requireNumber(call.form.required("appCode"), numbers).code, false);
    return done();
}

} // namespace

void addServiceNumbers(Services *services, BackEndContext &context)
{
    const auto add = [&](const char *name, auto way, const Handler &handler) {
        const std::string path = std::string("/center/isrv/") + name + ".do";
        services->post(path, Services::LoggedIn, [&context, way, handler](const Call &call) {
            return way(context, asCaller(call, context, handler));
        });
    };
    add("listIsrv", RuleCall::reading, search);
    add("myIsrv", RuleCall::reading, own);
    add("getIsrvInfo", RuleCall::reading, detail);
    add("getIsrvByCodes", RuleCall::reading, newer);
    add("subIsrv", RuleCall::change, subscribe);
    add("unsubIsrv", RuleCall::change, unsubscribe);
}

#include "backend/control.h"

#include "backend/commandjson.h"
#include "backend/context.h"
#include "backend/friendcontrol.h"
#include "backend/levers.h"
#include "backend/numbercontrol.h"
#include "backend/reply.h"
#include "backend/teamcontrol.h"

#include <httplib.h>

#include <thread>

namespace {
constexpr size_t MaximumPayload = 16 * 1024 * 1024; // bytes
constexpr char JsonType[] = "application/json; charset=utf-8";

Rule ruleFrom(const Json::Value &root)
{
    refuseOthers(root, {"path", "status", "delayMs", "body", "headers", "times", "drop"});
    Rule rule;
    rule.path = root["path"].asString();
    if (rule.path.empty())
        throw BadCommand("path is missing");
    rule.status = root["status"].asInt();
    rule.delayMs = root["delayMs"].asInt();
    const Json::Value &body = root["body"];
    if (body.isString())
        rule.body = body.asString();
    else if (!body.isNull())
        rule.body = jsonLine(body);
    for (const std::string &name : root["headers"].getMemberNames())
        rule.headers.emplace_back(name, root["headers"][name].asString());
    rule.times = root.get("times", -1).asInt();
    rule.drop = root["drop"].asBool();
    return rule;
}

void changeText(const Json::Value &root, const char *name, const QString &uid, People *people,
                QString User::*member)
{
    if (!root.isMember(name))
        return;
    const QString value = QString::fromStdString(root[name].asString());
    people->change(uid, [member, value](User *user) { user->*member = value; });
}

void changeUser(const Json::Value &root, BackEndContext *context)
{
    refuseOthers(root, {"uid", "expire", "expireTicket", "logOut", "mayReadOrganisation",
                        "nickName", "photoName", "duty", "mobile", "email", "pc", "phone"});
    const QString uid = QString::fromStdString(root["uid"].asString());
    const std::optional<User> user = context->people.find(uid);
    if (!user)
        throw BadCommand("unknown user");
    if (root["expire"].asBool())
        context->sessions.expire(Sessions::AuthId, uid);
    if (root["expireTicket"].asBool())
        context->sessions.expire(Sessions::LongTicket, uid);
    if (root["logOut"].asBool())
        context->sessions.forget(uid);
    People *people = &context->people;
    changeText(root, "nickName", uid, people, &User::nickName);
    changeText(root, "photoName", uid, people, &User::photoName);
    changeText(root, "duty", uid, people, &User::duty);
    changeText(root, "mobile", uid, people, &User::mobile);
    changeText(root, "email", uid, people, &User::email);
    if (root.isMember("mayReadOrganisation")) {
        const bool may = root["mayReadOrganisation"].asBool();
        people->change(uid, [may](User *changed) { changed->mayReadOrganisation = may; });
    }
    if (root.isMember("pc") || root.isMember("phone")) {
        const int pc = root.get("pc", user->reach.pc).asInt();
        const int phone = root.get("phone", user->reach.mobile).asInt();
        people->change(uid, [pc, phone](User *changed) { changed->reach = {pc, phone}; });
    }
}

// A command's answer: {} or its own, or status 400 with the reason.
template <typename Command> httplib::Server::Handler commandHandler(const Command &command)
{
    return [command](const httplib::Request &request, httplib::Response &response) {
        Json::Value answer(Json::objectValue);
        try {
            command(request, &answer);
        } catch (const std::exception &error) {
            response.status = 400;
            answer["error"] = error.what();
        }
        response.set_content(jsonLine(answer), JsonType);
    };
}
} // namespace

struct ControlServer::Private
{
    BackEndContext &context;
    Levers &levers;
    std::unique_ptr<httplib::Server> server;
    std::thread thread;
    int port = -1;

    void setUp();
};

void ControlServer::Private::setUp()
{
    using httplib::Request;
    server->set_tcp_nodelay(true);
    server->set_payload_max_length(MaximumPayload);
    server->set_keep_alive_max_count(1); // so that stopping waits for nobody
    server->Post("/_ctl/rule", commandHandler([this](const Request &request, Json::Value *) {
                     levers.add(ruleFrom(objectFrom(request.body)));
                 }));
    server->Get("/_ctl/log", commandHandler([this](const Request &, Json::Value *answer) {
                    *answer = levers.log();
                }));
    server->Post("/_ctl/user", commandHandler([this](const Request &request, Json::Value *) {
                     changeUser(objectFrom(request.body), &context);
                 }));
    server->Post("/_ctl/company", commandHandler([this](const Request &request, Json::Value *) {
                     changeCompany(objectFrom(request.body), &context);
                 }));
    server->Post("/_ctl/team", commandHandler([this](const Request &request, Json::Value *answer) {
                     makeTeam(objectFrom(request.body), &context, answer);
                 }));
    server->Post("/_ctl/friend",
                 commandHandler([this](const Request &request, Json::Value *answer) {
                     actAsFriend(objectFrom(request.body), &context, answer);
                 }));
    server->Post("/_ctl/friendLimit", commandHandler([this](const Request &request, Json::Value *) {
                     limitFriends(objectFrom(request.body), &context);
                 }));
    server->Post("/_ctl/serviceNumber",
                 commandHandler([this](const Request &request, Json::Value *) {
                     changeNumber(objectFrom(request.body), &context);
                 }));
    server->Post("/_ctl/serviceNumbers",
                 commandHandler([this](const Request &request, Json::Value *) {
                     addNumbers(objectFrom(request.body), &context);
                 }));
    server->Post("/_ctl/reset", commandHandler([this](const Request &, Json::Value *) {
                     levers.reset();
                     context.people.forgetChanges();
                     context.friendLimits.reset();
                     context.numbers.reset();
                 }));
}

ControlServer::ControlServer(BackEndContext &context, Levers &levers)
    : d(new Private{context, levers, nullptr, {}, -1})
{
}

ControlServer::~ControlServer()
{
    stop();
}

int ControlServer::port() const
{
    return d->port;
}

bool ControlServer::start(int port, QString *problem)
{
    d->server = std::make_unique<httplib::Server>();
    d->setUp();
    const bool isBound = port == 0 ? (port = d->server->bind_to_any_port("127.0.0.1")) > 0
                                   : d->server->bind_to_port("127.0.0.1", port);
    if (!isBound) {
        *problem = QStringLiteral("the control port is not free");
        d->server.reset();
        return false;
    }
    d->port = port;
    d->levers.setOn(true);
    d->thread = std::thread([this] { d->server->listen_after_bind(); });
    while (!d->server->is_running())
        std::this_thread::yield();
    return true;
}

void ControlServer::stop()
{
    if (!d->server)
        return;
    d->server->stop();
    if (d->thread.joinable())
        d->thread.join();
    d->server.reset();
    d->port = -1;
}

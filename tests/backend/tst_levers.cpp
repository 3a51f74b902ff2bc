// Scripted answers and the log of requests.
#include "backend/reply.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/testrunner.h"

#include <thread>

namespace {
constexpr char Settings[] = "/center/clientsettings/getClientSettings.do";
constexpr char Set[] = "/center/session/setSetting.do";
} // namespace

class TstLevers : public QObject
{
    Q_OBJECT

private:
    RunningBackEnd m_backEnd{withLevers()};
    std::unique_ptr<WebClient> m_client;

    int rule(const std::string &json) { return m_backEnd.control("rule", json).status; }

private slots:
    void init()
    {
        m_client = std::make_unique<WebClient>(*m_backEnd);
        m_client->logIn(*m_backEnd, QStringLiteral("u000001"));
        QCOMPARE(m_backEnd.control("reset", "{}").status, 200);
    }

    void answersInOrder()
    {
        const std::string path = "{\"path\":\"" + std::string(Settings) + '"';
        QCOMPARE(rule(path + R"(,"status":503,"times":2})"), 200);
        QCOMPARE(rule(path + R"(,"body":{"code":"x"},"headers":{"X-Test":"1"},"times":1})"), 200);
        QCOMPARE(rule(path + R"(,"drop":true,"times":1})"), 200);
        QCOMPARE(rule(path + R"(,"headers":{"passport.login.flag":"true"},"times":1})"), 200);
        QCOMPARE(m_client->post(Settings, {}).status, 503);
        QCOMPARE(m_client->post(Set, {}).code(), 10001); // another path
        QCOMPARE(m_client->post(Settings, {}).status, 503);
        const Answer own = m_client->post(Settings, {});
        QCOMPARE(own.status, 200);
        QCOMPARE(own.body, std::string(R"({"code":"x"})"));
        QCOMPARE(own.header("X-Test"), std::string("1"));
        QCOMPARE(m_client->post(Settings, {}).status, 0);
        const Answer flagged = m_client->post(Settings, {}); // the service's own answer
        QCOMPARE(flagged.code(), 0);
        QVERIFY(flagged.isOverdue());
        QVERIFY(!m_client->post(Settings, {}).isOverdue());
    }

    void withoutTimesUntilReset()
    {
        QCOMPARE(rule(R"({"path":"*","status":500,"body":"broken"})"), 200);
        for (int i = 0; i < 3; ++i)
            QCOMPARE(m_client->post(Settings, {}).status, 500);
        QCOMPARE(m_backEnd.control("reset", "{}").status, 200);
        QCOMPARE(m_client->post(Settings, {}).code(), 0);
    }

    void stoppingWaitsForNoDelay()
    {
        RunningBackEnd other(withLevers());
        other.control("rule", R"({"path":"*","delayMs":600000})");
        std::thread caller([&other] { WebClient(*other).get("/httpSampling.gif"); });
        const auto isSeen = [&other] {
            return !WebClient(other->controlPort()).get("/_ctl/log").json["requests"].empty();
        };
        QTRY_VERIFY(isSeen());
        other->stop();
        caller.join();
    }

    void logOfRequests()
    {
        m_client->post(Set, {{"sessionJid", "room@conf"}, {"isNotHint", "1"}});
        m_client->get("/httpSampling.gif?a=%20b");
        m_client->upload("/center/im/uploadFile.do", {{"type", "head"}}, "12345");
        const Json::Value requests =
            WebClient(m_backEnd->controlPort()).get("/_ctl/log").json["requests"];
        QCOMPARE(requests.size(), 3u);
        QCOMPARE(requests[0]["method"].asString(), std::string("POST"));
        QCOMPARE(requests[0]["path"].asString(), std::string(Set));
        QCOMPARE(requests[0]["body"].asString(), std::string("sessionJid=room%40conf&isNotHint=1"));
        const std::string cookie = requests[0]["headers"]["Cookie"].asString();
        QVERIFY(cookie.find(m_client->cookies["imAuthId"]) != std::string::npos);
        QCOMPARE(requests[1]["query"].asString(), std::string("a=%20b"));
        QVERIFY(requests[1]["time"].asInt64() >= requests[0]["time"].asInt64());
        QCOMPARE(requests[2]["parts"][0]["text"].asString(), std::string("head"));
        QCOMPARE(requests[2]["parts"][1]["size"].asInt(), 5);
    }

    void badCommands_data()
    {
        const Rows<QString, QString> row{"command", "json"};
        row("no JSON", "rule", "path=x");
        row("an array", "rule", "[]");
        row("no path", "rule", R"({"status":500})");
        row("misspelt", "rule", R"({"path":"x","statsu":500})");
        row("wrong kind", "rule", R"({"path":"x","status":"many"})");
        row("deep", "rule", QString(100000, QLatin1Char('[')));
        row("unknown user", "user", R"({"uid":"u999999"})");
        row("unknown company", "company", R"({"code":"C9","approval":true})");
        row("another's approver", "company", R"({"code":"C1","approver":"x000000"})");
        row("team of nobody", "team", R"({"owner":"u999999","members":2})");
        row("too large", "team", R"({"owner":"u000000","members":301})");
        row("empty", "team", R"({"owner":"u000000","members":0})");
        row("unknown action", "friend", R"({"action":"a","from":"x000012","to":"u000001"})");
        row("no such request", "friend",
            R"({"action":"age","from":"x000013","to":"u000001","days":1})");
        row("no days", "friend", R"({"action":"age","from":"x000012","to":"u000001"})");
        row("limit of nobody", "friendLimit", R"({"uid":"u999999","limit":1})");
        row("limit below none", "friendLimit", R"({"limit":-1})");
        row("number of nobody", "serviceNumbers", R"({"extra":1,"subscriber":"u999999"})");
        row("unknown number", "serviceNumber", R"({"code":"sn9"})");
        row("too many numbers", "serviceNumbers", R"({"extra":20001})");
        row("status of a number", "serviceNumber", R"({"code":"sn2001","status":[]})");
        row("no groups", "team", R"({"owner":"u000000","members":2,"groups":-1})");
    }
    void badCommands()
    {
        QFETCH(QString, command);
        QFETCH(QString, json);
        const Answer answer = m_backEnd.control(command.toStdString(), json.toStdString());
        QCOMPARE(answer.status, 400);
        QVERIFY(!answer.json["error"].asString().empty());
    }

    void teamOfAnySize()
    {
        const Answer made =
            m_backEnd.control("team", R"({"owner":"u000001","members":300,"groups":7})");
        const std::string team = made.json["vtId"].asString();
        const auto level = [&](const std::string &group) {
            return m_client
                ->post("/center/vt/getVirtualTeamGroup.do", {{"vtId", team}, {"pgId", group}})
                .json["data"];
        };
        const Json::Value root = level("0");
        QCOMPARE(root["group"].size(), 7u);
        QCOMPARE(root["members"].size(), 1u);
        QCOMPARE(root["members"][0]["role"].asInt(), 2);
        unsigned people = root["members"].size();
        for (const Json::Value &group : root["group"])
            people += level(group["groupId"].asString())["members"].size();
        QCOMPARE(people, 300u);
        QCOMPARE(m_backEnd.control("company", R"({"code":"C1","approval":true})").status, 200);
        const WebClient::Fields next{{"members", "u000002,u000003"}, {"vtName", "n"}};
        QVERIFY(
            m_client->post("/center/vt/createVirtualTeam.do", next).json["data"]["audit"].asBool());
    }

    void peopleOutside()
    {
        const auto act = [this](const char *action, const char *from, const char *to,
                                int days = 0) {
            Json::Value command(Json::objectValue);
            command["action"] = action;
            command["from"] = from;
            command["to"] = to;
            command["reason"] = "hi";
            command["days"] = days;
            return m_backEnd.control("friend", jsonLine(command)).code();
        };
        const auto events = [this](const std::string &since) {
            return m_client->post("/center/event/getEvents.do", {{"since", since}}).json["data"];
        };
        constexpr char confirm[] = "/center/friend/confirmAddFriend.do";
        const WebClient::Fields accept{{"userId", "x000012"}, {"type", "1"}};
        const std::string since = events("")["next"].asString();
        QCOMPARE(act("request", "x000012", "u000001"), 0);
        const Json::Value event = events(since)["events"][0];
        QCOMPARE(event["member"].asString(), std::string("x000012"));
        QCOMPARE(event["reason"].asString(), std::string("hi"));
        QCOMPARE(act("age", "x000012", "u000001", 7), 0);
        QCOMPARE(m_client->post(confirm, accept).code(), 10003);
        act("request", "x000012", "u000001");
        QCOMPARE(m_backEnd.control("friendLimit", R"({"limit":0})").status, 200);
        QCOMPARE(m_client->post(confirm, accept).code(), 10001);
        m_backEnd.control("friendLimit", R"({"limit":100,"uid":"u000001"})");
        QCOMPARE(m_client->post(confirm, accept).code(), 10002);
        m_backEnd.control("reset", "{}");
        QCOMPARE(m_client->post(confirm, accept).code(), 0);
        QCOMPARE(act("accept", "x000013", "u000001"), 10003);
        QCOMPARE(act("blacklist", "x000012", "u000001"), 0);
        QCOMPARE(act("remove", "x000012", "u000001"), 10001);
        QCOMPARE(act("request", "x000012", "x000012"), 10001);
    }

    void settingsAreKeptPerUser()
    {
        QCOMPARE(m_client->post(Set, {{"sessionJid", "a@conf"}, {"isNotHint", "1"}}).code(), 0);
        QCOMPARE(m_client->post(Set, {{"sessionJid", "a@conf"}, {"isNotHint", "0"}}).code(), 0);
        QCOMPARE(m_client->post(Set, {{"sessionJid", "a@conf"}, {"isNotHint", "2"}}).code(), 10001);
        QCOMPARE(m_client->post(Set, {{"sessionJid", "nowhere"}, {"isNotHint", "1"}}).code(),
                 10001);
        QCOMPARE(m_client->post(Set, {{"isNotHint", "1"}}).code(), 10001);
        QCOMPARE(m_client->postRaw(Set, "sessionJid=%ff@conf&isNotHint=1").code(), 10001);
        const Json::Value sessions = m_client->post(Settings, {}).json["data"]["sessions"];
        bool isThere = false;
        for (const Json::Value &session : sessions)
            isThere = isThere || (session["sessionJid"] == "a@conf" && session["isNotHint"] == 0);
        QVERIFY(isThere);
        WebClient other(*m_backEnd);
        other.logIn(*m_backEnd, QStringLiteral("u000002"));
        QVERIFY(other.post(Settings, {}).json["data"]["sessions"].empty());
    }
};

FRIENDUI_TEST(TstLevers)
#include "tst_levers.moc"

// What the team services tell: levels of a team, members, hits.
#include "backend/reply.h"
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

class TstTeamReplies : public QObject
{
    Q_OBJECT

private:
    TeamWorld m_world;
    TeamWorld::StandardTeam m_team;

    // The values of one key of all elements.
    static QString each(const Json::Value &list, const char *key)
    {
        QStringList values;
        for (const Json::Value &element : list)
            values.append(QString::fromStdString(element[key].asString()));
        return values.join(QLatin1Char(' '));
    }

private slots:
    void initTestCase() { m_team = m_world.makeStandardTeam(); }

    void levels_data()
    {
        const Rows<QString, QString, QString> row{"group", "groups", "members"};
        row("root", "0", "top managed", "u000010 u000011 u000012 x000000");
        row("root unnamed", "", "top managed", "u000010 u000011 u000012 x000000");
        row("group", "%2", "sub", "u000013");
        row("last", "%3", "", "u000014");
    }
    void levels()
    {
        QFETCH(QString, group);
        const Json::Value data = m_world
                                     .call(TeamWorld::Partner, "getVirtualTeamGroup",
                                           m_team.fill("vtId=%1&pgId=" + group))
                                     .data;
        QVERIFY(data["group"].isArray() && data["members"].isArray());
        QTEST(each(data["group"], "groupName"), "groups");
        QTEST(each(data["members"], "userId"), "members");
        for (const Json::Value &member : data["members"])
            QCOMPARE(member.isMember("companyName"), member["companyCode"].asString() != "C2");
    }

    void lists()
    {
        const TeamWorld::StandardTeam second = m_world.makeStandardTeam();
        const TeamAnswer own = m_world.call(TeamWorld::SubAdmin, "getAllVirtualTeam");
        QCOMPARE(each(own.data["vt"], "vtId"), m_team.id + ' ' + second.id);
        QCOMPARE(own.data["vt"][0]["role"].asInt(), 1);
        QCOMPARE(own.data["vt"][0]["count"].asInt(), 7);
        const TeamAnswer none = m_world.call(TeamWorld::Stranger, "getAllVirtualTeam");
        QVERIFY(none.data["vt"].isArray() && none.data["vt"].empty());
        QCOMPARE(m_world.code(TeamWorld::Owner, "dissolveVirtualTeam", "vtId=" + second.id), 0);
    }

    void presence_data()
    {
        const Rows<int, int, QString> row{"pc", "phone", "presence"};
        row("nowhere", 0, 0, R"({"av":false,"pt":"","rsc":"","show":""})");
        row("desk", 1, 0, R"({"av":true,"pt":"pc","rsc":"pc","show":"available"})");
        row("busy, and phone", 4, 2, R"({"av":true,"pt":"pc","rsc":"pc","show":"dnd"})");
        row("Android", 0, 1, R"({"av":true,"pt":"android","rsc":"mobile","show":"available"})");
        row("iOS", 0, 2, R"({"av":true,"pt":"ios","rsc":"mobile","show":"available"})");
    }
    void presence()
    {
        QFETCH(int, pc);
        QFETCH(int, phone);
        m_world.context.people.change(TeamWorld::InTop, [pc, phone](User *user) {
            user->reach = {pc, phone};
        });
        const Json::Value data =
            m_world.call(TeamWorld::Owner, "getVirtualTeamGroup", m_team.fill("vtId=%1&pgId=%2"))
                .data;
        QTEST(QString::fromStdString(jsonLine(data["members"][0]["presence"])), "presence");
    }

    void namesInTheTeam()
    {
        const QString change = m_team.fill("vtId=%1&member=u000013&");
        const auto card = [&] {
            return m_world
                .call(TeamWorld::Owner, "getVirtualTeamMemberDetail",
                      m_team.fill("vtId=%1&member=u000013"))
                .data;
        };
        const std::string name = m_world.context.people.find(TeamWorld::InTop)->name.toStdString();
        QCOMPARE(card()["nickName"].asString(), name);
        for (const char *fields : {"nickName= N\" ", "duty=D"})
            QCOMPARE(m_world.code(TeamWorld::Owner, "modifyVirtualTeamMemberInfo",
                                  change + QLatin1String(fields)),
                     0);
        QCOMPARE(card()["nickName"].asString(), std::string("N\""));
        QCOMPARE(card()["duty"].asString(), std::string("D"));
        const TeamAnswer all = m_world.call(TeamWorld::Owner, "getMembers", "vtId=" + m_team.id);
        const Json::Value &inTop = all.data["members"][3];
        QCOMPARE(inTop["userId"].asString(), TeamWorld::InTop.toStdString());
        QCOMPARE(inTop["nickName"].asString(), std::string("N\""));
        QCOMPARE(inTop["name"].asString(), name);
        QCOMPARE(
            m_world.code(TeamWorld::InTop, "modifyVirtualTeamMemberInfo", change + "nickName="),
            0); // his own again
        QCOMPARE(card()["nickName"].asString(), name);
    }

    void hits_data()
    {
        const Rows<QString> row{"key"};
        const User user = *m_world.context.people.find(TeamWorld::InSub);
        row("uid", user.uid.toUpper());
        row("name", user.name);
        row("code", user.employeeCode);
        row("mobile", user.mobile.mid(2));
        row("pinyin", user.spell);
        row("nickname", "Wanted");
    }
    void hits()
    {
        QFETCH(QString, key);
        QCOMPARE(m_world.code(TeamWorld::InSub, "modifyVirtualTeamMemberInfo",
                              m_team.fill("vtId=%1&member=u000014&nickName=unwanted")),
                 0);
        const auto search = [&](const QString &text) {
            return m_world
                .call(TeamWorld::Owner, "fuzzySearchVirtualTeamMember",
                      m_team.fill("vtId=%1&key=") + text)
                .data["members"];
        };
        QVERIFY(each(search(key), "userId").contains(TeamWorld::InSub));
        QVERIFY(search(" ").isArray() && search(" ").empty());
        QVERIFY(search(key + "'--%25").empty());
    }

    void people_data()
    {
        const Rows<QString, int, QString> row{"key", "code", "found"};
        const People &people = m_world.context.people;
        const User own = *people.find(QStringLiteral("u000200"));
        const User other = *people.find(QStringLiteral("x000004"));
        row("account", own.account.toUpper(), 0, own.uid);
        row("mobile", own.mobile, 0, own.uid);
        row("uid", own.uid, 0, own.uid);
        row("other company", other.mobile, 0, other.uid);
        row("personal", people.find(QStringLiteral("x000005"))->mobile, 10004, "");
        row("piece", own.mobile.left(10), 10002, "");
        row("name", own.name, 10001, "");
        row("none", "", 10001, "");
        row("two", own.uid + ' ' + other.uid, 10001, "");
        row("long", QString(65, QLatin1Char('1')), 10001, "");
    }
    void people()
    {
        QFETCH(QString, key);
        const TeamAnswer answer = m_world.call(TeamWorld::Owner, "searchMember", "key=" + key);
        QTEST(answer.code, "code");
        QTEST(QString::fromStdString(answer.data["userId"].asString()), "found");
    }

    void searchesAreCounted()
    {
        int code = 0;
        for (int i = 0; i < 20; ++i)
            code += m_world.code("u000100", "searchMember", "key=u000101");
        QCOMPARE(code, 0);
        QCOMPARE(m_world.code("u000100", "searchMember", "key=u000101"), 10003);
        QCOMPARE(m_world.code("u000102", "searchMember", "key=u000101"), 0);
    }
};

FRIENDUI_TEST(TstTeamReplies)
#include "tst_teamreplies.moc"

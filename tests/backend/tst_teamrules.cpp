// The rules of the virtual teams: who may do what, and each code.
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

namespace {
constexpr char Approver[] = "u000001"; // of C1

QString repeated(const char *piece, int times)
{
    return QString::fromUtf8(piece).repeated(times);
}
} // namespace

class TstTeamRules : public QObject
{
    Q_OBJECT

private:
    TeamWorld m_world;

private slots:
    void byRole_data()
    {
        // Codes of owner, sub-administrator, member, colleague who is none, member of a
        // partner company, somebody of another company, personal account. 1: 10001...
        const Rows<QString, QString, QString> row{"service", "fields", "codes"};
        row("level", "getVirtualTeamGroup", "vtId=%1&pgId=%2", "0001011");
        row("members", "getMembers", "vtId=%1", "0001011");
        row("search", "fuzzySearchVirtualTeamMember", "vtId=%1&key=a", "0001011");
        row("card", "getVirtualTeamMemberDetail", "vtId=%1&member=u000013", "0001011");
        row("rename", "modifyVirtualTeamInfo", "vtId=%1&vtName=n", "0022222");
        row("add", "batchAddVirtualTeamMember", "vtId=%1&groupId=&members=u000030", "0022222");
        row("remove", "deleteVirtualTeamMember", "vtId=%1&members=u000013", "0022222");
        row("move", "transferVirtualTeamMember", "vtId=%1&groupId=%4&members=u000013", "0022222");
        row("new group", "addVirtualTeamGroup", "vtId=%1&pgId=%3&groupName=n", "0022222");
        row("group's name", "modifyVirtualTeamGroup", "vtId=%1&groupId=%2&groupName=n", "0022222");
        row("remove group", "deleteVirtualTeamGroup", "vtId=%1&groupId=%2", "0022222");
        row("own nickname", "modifyVirtualTeamMemberInfo", "vtId=%1&member=u000012&nickName=n",
            "0002222");
        row("nickname", "modifyVirtualTeamMemberInfo", "vtId=%1&member=u000013&nickName=n",
            "0022222");
        row("own duty", "modifyVirtualTeamMemberInfo", "vtId=%1&member=u000012&duty=d", "0022222");
        row("quit", "quitVirtualTeam", "vtId=%1", "2001011");
        row("dissolve", "dissolveVirtualTeam", "vtId=%1", "0221211");
        row("grant", "grantVirtualTeamAuthority", "vtId=%1&member=u000013", "0222222");
        row("set", "setVirtualTeamAdmin", "vtId=%1&members=u000013", "0222222");
        row("add admin", "addVirtualTeamAdmin", "vtId=%1&members=u000013", "0222222");
        row("remove admin", "deleteVirtualTeamAdmin", "vtId=%1&members=u000011", "0222222");
        row("invite", "inviteVirtualTeam", "vtId=%1&members=x000004&reason=r", "0022222");
        row("invitation", "joinVirtualTeamStatus", "vtId=%1", "1111011");
        row("join again", "confirmJoinVirtualTeam", "vtId=%1&agree=1", "1111311");
        row("detail", "auditVirtualTeamDetail", "vtId=%1&member=u000010", "2222222");
        row("decide", "auditVirtualTeam", "vtId=%1&member=u000010&flag=1", "2222222");
    }
    void byRole()
    {
        QFETCH(QString, service);
        QFETCH(QString, fields);
        QString codes;
        for (const QString &uid :
             {TeamWorld::Owner, TeamWorld::SubAdmin, TeamWorld::Member, TeamWorld::Stranger,
              TeamWorld::Partner, TeamWorld::Outsider, TeamWorld::Personal}) {
            const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
            const QString before = m_world.members(team.id);
            const int code = m_world.code(uid, service, team.fill(fields));
            if (code != 0)
                QCOMPARE(m_world.members(team.id), before);
            codes += QString::number(code % 10);
        }
        QTEST(codes, "codes");
        QCOMPARE(m_world.contradictions(), QStringList());
    }

    void operands_data()
    {
        // By the owner.
        const Rows<QString, QString, int> row{"service", "fields", "code"};
        row("unknown team", "getMembers", "vtId=999999", 10001);
        row("no team", "getMembers", "", 10001);
        row("odd team", "getMembers", "vtId=1001 OR 1=1", 10001);
        row("group of nobody", "getVirtualTeamGroup", "vtId=%1&pgId=999999", 10001);
        row("no group", "getVirtualTeamGroup", "vtId=%1", 10001);
        row("card of nobody", "getVirtualTeamMemberDetail", "vtId=%1&member=u000020", 10001);
        row("no name", "modifyVirtualTeamInfo", "vtId=%1&vtName= ", 10001);
        row("name of 16", "modifyVirtualTeamInfo", "vtId=%1&vtName=" + repeated("𠮷", 16), 0);
        row("name of 17", "modifyVirtualTeamInfo", "vtId=%1&vtName=" + repeated("a", 17), 10001);
        row("two lines", "modifyVirtualTeamInfo", "vtId=%1&vtName=a\nb", 10001);
        row("not UTF-8", "modifyVirtualTeamInfo", "vtId=%1&vtName=%ff", 10001);
        row("1 MB", "modifyVirtualTeamInfo", "vtId=%1&vtName=" + repeated("a", 1 << 20), 10001);
        row("SQL", "modifyVirtualTeamInfo", "vtId=%1&vtName=');DROP TABLE--", 0);
        row("add to no group", "batchAddVirtualTeamMember",
            "vtId=%1&groupId=999999&members=u000030", 10001);
        row("gap in list", "batchAddVirtualTeamMember", "vtId=%1&groupId=0&members=u000030,,u1",
            10001);
        row("too many", "batchAddVirtualTeamMember",
            "vtId=%1&groupId=0&members=a" + repeated(",a", 10000), 10001);
        row("nobody", "deleteVirtualTeamMember", "vtId=%1&members=", 10001);
        row("stranger", "deleteVirtualTeamMember", "vtId=%1&members=u000012,u000020", 10001);
        row("admin", "deleteVirtualTeamMember", "vtId=%1&members=u000012,u000011", 10003);
        row("himself", "deleteVirtualTeamMember", "vtId=%1&members=u000010", 10003);
        row("move stranger", "transferVirtualTeamMember",
            "vtId=%1&groupId=%2&members=u000012,u000020", 10001);
        row("move to no group", "transferVirtualTeamMember",
            "vtId=%1&groupId=999999&members=u000012", 10001);
        row("nickname and duty", "modifyVirtualTeamMemberInfo",
            "vtId=%1&member=u000012&nickName=a&duty=b", 10001);
        row("neither", "modifyVirtualTeamMemberInfo", "vtId=%1&member=u000012", 10001);
        row("duty of 17", "modifyVirtualTeamMemberInfo",
            "vtId=%1&member=u000012&duty=" + repeated("岗", 17), 10001);
        row("duty of a stranger", "modifyVirtualTeamMemberInfo", "vtId=%1&member=u000020&duty=d",
            10001);
        row("grant stranger", "grantVirtualTeamAuthority", "vtId=%1&member=u000020", 10001);
        row("grant himself", "grantVirtualTeamAuthority", "vtId=%1&member=u000010", 10001);
        row("grant partner", "grantVirtualTeamAuthority", "vtId=%1&member=x000000", 10003);
        row("admin himself", "addVirtualTeamAdmin", "vtId=%1&members=u000010", 10001);
        row("admin stranger", "setVirtualTeamAdmin", "vtId=%1&members=u000012,u000020", 10001);
        row("no admins", "setVirtualTeamAdmin", "vtId=%1&members=", 0);
        row("no list", "setVirtualTeamAdmin", "vtId=%1", 10001);
        row("add no admins", "addVirtualTeamAdmin", "vtId=%1&members=", 10001);
        row("group's name taken", "addVirtualTeamGroup", "vtId=%1&pgId=&groupName=top", 10001);
        row("taken elsewhere", "addVirtualTeamGroup", "vtId=%1&pgId=%2&groupName=top", 0);
        row("rename to taken", "modifyVirtualTeamGroup", "vtId=%1&groupId=%2&groupName=managed",
            10001);
        row("rename to own", "modifyVirtualTeamGroup", "vtId=%1&groupId=%2&groupName=top", 0);
        row("rename root", "modifyVirtualTeamGroup", "vtId=%1&groupId=0&groupName=n", 10001);
        row("remove root", "deleteVirtualTeamGroup", "vtId=%1&groupId=0", 10001);
        row("remove managed", "deleteVirtualTeamGroup", "vtId=%1&groupId=%4", 10003);
        row("invite own", "inviteVirtualTeam", "vtId=%1&members=x000001,u000020", 10001);
        row("invite personal", "inviteVirtualTeam", "vtId=%1&members=x000002", 10001);
        row("invite nobody", "inviteVirtualTeam", "vtId=%1&members=u999999", 10001);
        row("invite joined", "inviteVirtualTeam", "vtId=%1&members=x000001,x000003", 10002);
        row("long reason", "inviteVirtualTeam",
            "vtId=%1&members=x000001&reason=" + repeated("a", 501), 10001);
    }
    void operands()
    {
        QFETCH(QString, service);
        QFETCH(QString, fields);
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        const QString before = m_world.members(team.id);
        const int code = m_world.code(TeamWorld::Owner, service, team.fill(fields));
        QTEST(code, "code");
        if (code != 0)
            QCOMPARE(m_world.members(team.id), before);
        if (code != 0) // no one has an invitation that was half made
            QCOMPARE(
                m_world.code(TeamWorld::Outsider, "joinVirtualTeamStatus", team.fill("vtId=%1")),
                10001);
    }

    void foundings_data()
    {
        const Rows<QString, QString, int> row{"uid", "fields", "code"};
        row("two others", "u000040", "members=u000041,u000042&vtName= a &reason=", 0);
        row("himself counts not", "u000040", "members=u000040,u000042&vtName=b", 10001);
        row("nobody twice", "u000040", "members=u000042,u000042&vtName=b", 10001);
        row("unknown", "u000040", "members=u000041,u000042,u999999&vtName=b", 10001);
        row("personal", "u000040", "members=u000041,u000042,x000002&vtName=b", 10001);
        row("by personal", "x000002", "members=u000041,u000042&vtName=b", 10001);
        row("name taken", "u000040", "members=u000041,u000042&vtName=a", 10002);
        row("another's name", "u000041", "members=u000040,u000042&vtName=a", 0);
        row("no name", "u000040", "members=u000041,u000042", 10001);
        row("name of 17", "u000040", "members=u000041,u000042&vtName=" + repeated("a", 17), 10001);
    }
    void foundings()
    {
        QFETCH(QString, uid);
        QFETCH(QString, fields);
        const int before = m_world.teamsOf(uid).size();
        QTEST(m_world.code(uid, "createVirtualTeam", fields), "code");
        QFETCH(int, code);
        QCOMPARE(m_world.teamsOf(uid).size(), before + (code == 0));
    }

    void idsBeginAt1001()
    {
        TeamWorld fresh;
        QCOMPARE(fresh.makeStandardTeam().id, QStringLiteral("1001"));
        QCOMPARE(fresh.code(TeamWorld::Owner, "dissolveVirtualTeam", "vtId=1001"), 0);
        QCOMPARE(fresh.makeStandardTeam().id, QStringLiteral("1002")); // never used again
        QCOMPARE(fresh.teamsOf(TeamWorld::Partner), QStringList{"1002"});
    }

    void tenLevelsOfGroups()
    {
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        QString parent = team.sub; // level 2
        for (int level = 3; level <= 11; ++level) {
            const TeamAnswer made =
                m_world.call(TeamWorld::SubAdmin, "addVirtualTeamGroup",
                             QString("vtId=%1&pgId=%2&groupName=n").arg(team.id, parent));
            QCOMPARE(made.code, level <= 10 ? 0 : 10003);
            parent = QString::fromStdString(made.data["groupId"].asString());
        }
        // Who is below goes with the group, except that an administrator keeps it.
        QCOMPARE(m_world.code(TeamWorld::Owner, "addVirtualTeamAdmin",
                              team.fill("vtId=%1&members=") + TeamWorld::InSub),
                 0);
        const QString removal = team.fill("vtId=%1&groupId=%2");
        QCOMPARE(m_world.code(TeamWorld::SubAdmin, "deleteVirtualTeamGroup", removal), 10003);
        QCOMPARE(m_world.code(TeamWorld::Owner, "deleteVirtualTeamAdmin",
                              team.fill("vtId=%1&members=") + TeamWorld::InSub),
                 0);
        QCOMPARE(m_world.code(TeamWorld::SubAdmin, "deleteVirtualTeamGroup", removal), 0);
        QCOMPARE(m_world.members(team.id), QString("u000010:2 u000011:1 u000012:0 u000015:1 "
                                                   "x000000:0"));
        QCOMPARE(m_world.contradictions(), QStringList());
    }

    void rolesChangeHands()
    {
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        const QString fields = team.fill("vtId=%1&members=u000012,u000013");
        QCOMPARE(m_world.code(TeamWorld::Owner, "setVirtualTeamAdmin", fields), 0);
        QCOMPARE(m_world.code(TeamWorld::Owner, "deleteVirtualTeamAdmin",
                              team.fill("vtId=%1&members=u000013,u000014")),
                 0);
        QCOMPARE(m_world.code(TeamWorld::Owner, "grantVirtualTeamAuthority",
                              team.fill("vtId=%1&member=u000012")),
                 0);
        QCOMPARE(m_world.members(team.id), QString("u000010:0 u000011:0 u000012:2 u000013:0 "
                                                   "u000014:0 u000015:0 x000000:0"));
        QCOMPARE(m_world.code(TeamWorld::Owner, "quitVirtualTeam", team.fill("vtId=%1")), 0);
    }

    void decisions()
    {
        const QString settings = QStringLiteral("/center/company/teamApproval.do");
        QCOMPARE(m_world.code(TeamWorld::Owner, settings, "approval=1"), 0);
        for (const bool agrees : {false, true}) {
            const QString create = "members=u000011,x000001,x000000&vtName=w%1&reason=r";
            const TeamAnswer made =
                m_world.call(TeamWorld::Owner, "createVirtualTeam", create.arg(agrees));
            QVERIFY(made.data["audit"].asBool());
            const QString team = QString::fromStdString(made.data["vtId"].asString());
            QVERIFY(!m_world.teamsOf(TeamWorld::Owner).contains(team));
            QCOMPARE(m_world.code(TeamWorld::Owner, "createVirtualTeam", create.arg(agrees)),
                     10002); // the name is taken while it waits
            QCOMPARE(m_world.code(TeamWorld::Owner, "getMembers", "vtId=" + team), 10001);
            QCOMPARE(m_world.code(TeamWorld::Partner, "joinVirtualTeamStatus", "vtId=" + team),
                     10001);
            const QString one = QString("vtId=%1&member=%2").arg(team, TeamWorld::Owner);
            QCOMPARE(m_world.code(Approver, "auditVirtualTeam",
                                  QString("vtId=%1&member=u000011&flag=1").arg(team)),
                     10001);
            QCOMPARE(m_world.code(Approver, "auditVirtualTeam", one + "&flag=2"), 10001);
            const auto detail = [&] {
                return m_world.call(Approver, "auditVirtualTeamDetail", one).data;
            };
            QVERIFY(!detail()["audited"].asBool());
            QCOMPARE(detail()["members"].size(), 3u);
            QCOMPARE(
                m_world.code(Approver, "auditVirtualTeam", one + QString("&flag=%1").arg(agrees)),
                0);
            QCOMPARE(m_world.code(Approver, "auditVirtualTeam", one + "&flag=1"), 10003);
            QVERIFY(detail()["audited"].asBool());
            QCOMPARE(m_world.members(team), agrees ? QString("u000010:2 u000011:0") : QString());
            QCOMPARE(m_world.code(TeamWorld::Partner, "joinVirtualTeamStatus", "vtId=" + team),
                     agrees ? 0 : 10001);
        }
        QCOMPARE(m_world.code(TeamWorld::Owner, settings, "approval=0"), 0);
        QCOMPARE(m_world.contradictions(), QStringList());
    }

    void invitations()
    {
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        const auto invite = [&](const QString &uids) {
            return m_world.code(TeamWorld::SubAdmin, "inviteVirtualTeam",
                                team.fill("vtId=%1&reason=r&members=") + uids);
        };
        const auto answer = [&](const QString &uid, bool agrees) {
            return m_world.code(uid, "confirmJoinVirtualTeam",
                                team.fill("vtId=%1&agree=") + QString::number(agrees));
        };
        QCOMPARE(invite("x000001,x000004"), 0);
        QCOMPARE(invite("x000007"), 0); // in the place of the earlier one
        QCOMPARE(answer("x000004", true), 10002);
        const Json::Value detail =
            m_world.call("x000010", "joinVirtualTeamStatus", team.fill("vtId=%1")).data;
        QCOMPARE(detail["members"].size(), 1u);
        QCOMPARE(detail["members"][0]["userId"].asString(), std::string("x000007"));
        QCOMPARE(detail["userId"].asString(), TeamWorld::SubAdmin.toStdString());
        QVERIFY(!detail["orgName"].asString().empty());
        QCOMPARE(answer("x000007", false), 0);
        QCOMPARE(answer("x000001", true), 10003); // the approver is too late
        QCOMPARE(invite("x000004,x000007"), 0);
        QCOMPARE(answer("x000001", true), 0);
        QVERIFY(m_world.members(team.id).endsWith("x000004:0 x000007:0"));
        QCOMPARE(invite("x000010"), 10002);
        // One of them adds colleagues of his own, when he may.
        QCOMPARE(m_world.code(TeamWorld::Owner, "addVirtualTeamAdmin",
                              team.fill("vtId=%1&members=x000004")),
                 0);
        const TeamAnswer added = m_world.call("x000004", "batchAddVirtualTeamMember",
                                              team.fill("vtId=%1&groupId=%2&members=x000010,"
                                                        "x000007,u000030,x000002,nobody"));
        QCOMPARE(added.data["failNumber"].asInt(), 4);
    }

    void companySettings_data()
    {
        const Rows<QString, QString, int> row{"uid", "fields", "code"};
        row("read", "x000003", "", 0);
        row("another's person", "x000003", "approver=u000001", 10001);
        row("nobody", "x000003", "approver=", 10001);
        row("no flag", "x000003", "approval=yes", 10001);
        row("personal", "x000002", "", 10004);
    }
    void companySettings()
    {
        QFETCH(QString, uid);
        QFETCH(QString, fields);
        const QString path = QStringLiteral("/center/company/teamApproval.do");
        QTEST(m_world.code(uid, path, fields), "code");
        const Json::Value data = m_world.call("x000006", path).data;
        QCOMPARE(data["approver"].asString(), std::string("x000000"));
        QVERIFY(!data["approval"].asBool());
    }
};

FRIENDUI_TEST(TstTeamRules)
#include "tst_teamrules.moc"

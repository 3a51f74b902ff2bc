// The organisation as it is answered, held against the sample company.
#include "sample/samplecompany.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/testrunner.h"

#include <QSet>

namespace {
constexpr char Children[] = "/center/org/searchOrg.do";
constexpr char Locate[] = "/center/org/locateOrg.do";
constexpr char Search[] = "/center/org/fuzzySearchOrg.do";

BackEndOptions largeCompany()
{
    BackEndOptions options = withLevers();
    options.people = 3000; // three levels of departments
    options.departmentSize = 2000;
    return options;
}

QString text(const Json::Value &value)
{
    return QString::fromStdString(value.asString());
}
} // namespace

class TstOrganisation : public QObject
{
    Q_OBJECT

private:
    RunningBackEnd m_backEnd{largeCompany()};
    SampleCompany m_company{3000};
    std::unique_ptr<WebClient> m_client;

    Answer search(const QString &piece, int page, int size, bool departments)
    {
        return m_client->post(Search, {{"searchText", piece.toStdString()},
                                       {"containOrg", departments ? "true" : "false"},
                                       {"pageNo", std::to_string(page)},
                                       {"pageSize", std::to_string(size)}});
    }

private slots:
    void initTestCase()
    {
        m_client = std::make_unique<WebClient>(*m_backEnd);
        m_client->logIn(*m_backEnd, QStringLiteral("u000000"));
    }

    void everyoneIsReachedFromTheCompany()
    {
        QSet<QString> departments, people;
        QStringList open{SampleCompany::companyCode()};
        while (!open.isEmpty()) {
            const QString id = open.takeFirst();
            const Answer answer = m_client->post(Children, {{"orgId", id.toStdString()}});
            QCOMPARE(answer.status, 200);
            for (const Json::Value &department : answer.json["org"]) {
                QCOMPARE(text(department["parentId"]), id);
                QVERIFY(!departments.contains(text(department["orgId"])));
                departments.insert(text(department["orgId"]));
                open.append(text(department["orgId"]));
            }
            for (const Json::Value &employee : answer.json["emp"]) {
                QCOMPARE(text(employee["orgId"]), id);
                const int index = m_company.indexOf(text(employee["userId"]));
                if (index >= 0) {
                    QCOMPARE(text(employee["nickName"]), m_company.person(index).name);
                    QCOMPARE(m_company.person(index).departmentId, id);
                }
                people.insert(text(employee["userId"]));
            }
        }
        QCOMPARE(departments.size(), m_company.departments().size() + 1);
        QCOMPARE(people.size(), 3000 + 2000);
    }

    void presenceFollowsTheCompany()
    {
        const SampleDepartment leaf = m_company.departments().last();
        const Answer answer = m_client->post(Children, {{"orgId", leaf.id.toStdString()}});
        QVERIFY(!answer.json["emp"].empty());
        for (const Json::Value &employee : answer.json["emp"]) {
            const auto reach = m_company.reachAtStart(m_company.indexOf(text(employee["userId"])));
            SampleCompany::Reach told;
            for (const Json::Value &entry : employee["presence"]) {
                const QStringList shows{QString(),
                                        QStringLiteral("available"),
                                        QStringLiteral("away"),
                                        QStringLiteral("xa"),
                                        QStringLiteral("dnd"),
                                        QStringLiteral("chat")};
                QVERIFY(entry["av"].asBool());
                if (entry["rsc"] == "mobile")
                    told.mobile = entry["pt"] == "android" ? 1 : 2;
                else
                    told.pc = shows.indexOf(text(entry["show"]));
            }
            QCOMPARE(told.pc, reach.pc);
            QCOMPARE(told.mobile, reach.mobile);
        }
    }

    void refusals_data()
    {
        const Rows<QString, QString, int> row{"user", "body", "status"};
        row("unknown department", "u000001", "orgId=D9999", 204);
        row("other company", "x000000", "orgId=C1", 403);
        row("personal account", "x000002", "orgId=C1", 403);
    }
    void refusals()
    {
        QFETCH(QString, user);
        QFETCH(QString, body);
        WebClient client(*m_backEnd);
        client.logIn(*m_backEnd, user);
        QTEST(client.postRaw(Children, body.toStdString()).status, "status");
    }

    void locate()
    {
        // From the top down to the person, with everybody at each step.
        const QString uid = QStringLiteral("u002500");
        const Answer answer =
            m_client->post(Locate, {{"empId", uid.toStdString()}, {"type", "EMP"}});
        QCOMPARE(answer.status, 200);
        const SamplePerson person = m_company.person(2500);
        Json::Value step = answer.json["location"];
        QCOMPARE(text(step["parentId"]), SampleCompany::companyCode());
        for (int level = 1;; ++level) {
            QVERIFY(level <= 3);
            const Answer children = m_client->post(Children, {{"orgId", step["orgId"].asString()}});
            QCOMPARE(step["children"]["org"].size(), children.json["org"].size());
            QCOMPARE(step["children"]["emp"], children.json["emp"]);
            if (text(step["orgId"]) == person.departmentId)
                break;
            Json::Value next;
            for (const Json::Value &child : step["children"]["org"]) {
                if (child.isMember("children")) {
                    QVERIFY(next.isNull());
                    next = child;
                }
            }
            QVERIFY(!next.isNull());
            step = next;
        }
    }

    void locateOthers_data()
    {
        const Rows<QByteArray, int, int> row{"body", "status", "code"};
        row("department", "empId=D0002&type=ORG", 200, -1);
        row("unknown person", "empId=u003000&type=EMP", 204, -1);
        row("not ours", "empId=x000001&type=EMP", 204, -1);
        row("a person as department", "empId=u000001&type=ORG", 204, -1);
        row("unknown type", "empId=D0002&type=X", 200, 10001);
        row("no id", "type=ORG", 200, 10001);
    }
    void locateOthers()
    {
        QFETCH(QByteArray, body);
        const Answer answer = m_client->postRaw(Locate, body.toStdString());
        QTEST(answer.status, "status");
        QTEST(answer.code(), "code");
    }

    void searchFinds_data()
    {
        const Rows<QString> row{"piece"};
        const SamplePerson person = m_company.person(1234);
        row("name", person.name);
        row("letters", person.spell.toUpper());
        row("account", person.account);
        row("employee code", person.employeeCode.toLower());
        row("mobile", person.mobile);
        row("mail", person.email);
    }
    void searchFinds()
    {
        QFETCH(QString, piece);
        const Answer answer = search(piece, 1, 500, false);
        bool isFound = false;
        for (const Json::Value &user : answer.json["data"]["userList"])
            isFound = isFound || user["userId"] == "u001234";
        QVERIFY(isFound);
    }

    void searchPages()
    {
        const QString piece = QStringLiteral("corp.example"); // everybody's mail
        QSet<QString> seen;
        for (int page = 1; page <= 11; ++page) {
            const Json::Value users = search(piece, page, 500, false).json["data"]["userList"];
            QCOMPARE(int(users.size()), page <= 10 ? 500 : 0);
            for (const Json::Value &user : users)
                seen.insert(text(user["userId"]));
        }
        QCOMPARE(seen.size(), 5000);
    }

    void searchCountsDepartments()
    {
        const SampleDepartment department = m_company.departments().at(3);
        const Json::Value data = search(department.name, 1, 500, true).json["data"];
        QVERIFY(data["count"].asInt() > 0);
        QCOMPARE(int(data["orgList"].size()), data["count"].asInt());
        QVERIFY(text(data["orgList"][0]["fullName"]).contains(department.name));
        QCOMPARE(search(department.name, 1, 500, false).json["data"]["count"].asInt(), 0);
    }

    void searchWithoutHit_data()
    {
        const Rows<QString> row{"piece"};
        row("empty", "");
        row("unknown", "no such person");
        row("markup", "<b>%_'\"");
        row("over two fields", m_company.person(0).name + "\n" + m_company.person(0).spell);
    }
    void searchWithoutHit()
    {
        QFETCH(QString, piece);
        const Answer answer = search(piece, 1, 20, true);
        QCOMPARE(answer.status, 200);
        QCOMPARE(answer.code(), 0);
        QVERIFY(answer.json["data"]["userList"].isArray());
        QVERIFY(answer.json["data"]["userList"].empty());
    }

    void changesReachTheLargeDepartment()
    {
        const auto duty = [this] {
            const Answer answer = m_client->post(Children, {{"orgId", "D9000"}});
            return answer.json["emp"][5]["duty"].asString();
        };
        const std::string before = duty();
        m_backEnd.control("user", "{\"uid\":\"w000005\",\"duty\":\"other\"}");
        QCOMPARE(duty(), std::string("other"));
        m_backEnd.control("reset", "{}");
        QCOMPARE(duty(), before);
    }

    void changedUsersAreToldOf()
    {
        const SamplePerson person = m_company.person(7);
        const std::string change = "{\"uid\":\"u000007\",\"pc\":4,\"phone\":0,"
                                   "\"nickName\":\"\\\"\\u0001<b>&\\n\"}";
        QCOMPARE(m_backEnd.control("user", change).status, 200);
        const Answer answer =
            m_client->post(Children, {{"orgId", person.departmentId.toStdString()}});
        QVERIFY(!answer.json.isNull());
        for (const Json::Value &employee : answer.json["emp"]) {
            if (employee["userId"] != "u000007")
                continue;
            QCOMPARE(text(employee["nickName"]), QString::fromLatin1("\"\x01<b>&\n"));
            QCOMPARE(text(employee["presence"][0]["show"]), QStringLiteral("dnd"));
            QCOMPARE(employee["presence"].size(), 1u);
        }
        m_backEnd.control("user", "{\"uid\":\"u000000\",\"mayReadOrganisation\":false}");
        QCOMPARE(m_client->post(Children, {{"orgId", "C1"}}).status, 403);
        m_backEnd.control("reset", "{}");
        QCOMPARE(m_client->post(Children, {{"orgId", "C1"}}).status, 200);
    }
};

FRIENDUI_TEST(TstOrganisation)
#include "tst_organisation.moc"

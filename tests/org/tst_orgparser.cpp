// Replies of the organisation services, also such as no service should send.
#include "http/servicepresence.h"
#include "org/httporgfun.h"
#include "org/orgparser.h"
#include "tests/support/testrunner.h"

namespace {

QStringList ids(const OrgElementList &elements)
{
    QStringList list;
    for (const OrgElement &element : elements)
        list.append(element.strId);
    return list;
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class TstOrgParser : public QObject
{
    Q_OBJECT

private slots:
    void childrenOfADepartment();
    void hostileReplies_data();
    void hostileReplies();
    void deepReplies_data();
    void deepReplies();
    void presence_data();
    void presence();
    void locationInOrder();
    void peopleSearch();
    void equalTextsAreOne();
};

void TstOrgParser::childrenOfADepartment()
{
    const QByteArray reply = R"({"emp":[{"userId":"u1","nickName":"Li Na","empChSpell":"lina",
        "orgId":"d1","email":"u1@x","photoName":"u1.png","employeeCode":"0007","duty":"Lead",
        "presence":[{"av":"true","show":"dnd","pt":"iOS","rsc":"pc"}]}],
        "org":[{"orgId":"d2","orgName":")"
                             "\xe7\xa0\x94\xe5\x8f\x91" // two characters
                             R"(","parentId":"d1","spelling":""}]})";
    OrgElementList elements;
    QString error;
    QVERIFY(HttpOrgFun::resolveJsonGetOrg(reply, &elements, &error));
    QCOMPARE(ids(elements), words("d2 u1"));
    const OrgElement &department = elements.first(), &employee = elements.last();
    QCOMPARE(department.strSpell, QStringLiteral("YANFA"));
    QCOMPARE(department.strParentId, QStringLiteral("d1"));
    QVERIFY(!department.bIsEmp);
    QCOMPARE(employee.strName, QStringLiteral("Li Na"));
    QCOMPARE(employee.strSpell, QStringLiteral("lina"));
    QCOMPARE(employee.strParentId, QStringLiteral("d1"));
    QCOMPARE(employee.strEmail, QStringLiteral("u1@x"));
    QCOMPARE(employee.strPhotoName, QStringLiteral("u1.png"));
    QCOMPARE(employee.strEmpCode, QStringLiteral("0007"));
    QCOMPARE(employee.strDuty, QStringLiteral("Lead"));
    QCOMPARE(employee.nStatus, 4);
    QCOMPARE(employee.nDevice, 2);
    QVERIFY(employee.bIsEmp);
}

void TstOrgParser::hostileReplies_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char *name, const QByteArray &reply, bool ok, const char *expected) {
        QTest::newRow(name) << reply << ok << words(expected);
    };
    row("nothing", "", false, "");
    row("empty object", "{}", true, "");
    row("a number", "5", false, "");
    row("an array", "[]", false, "");
    row("cut", R"({"org":[{"orgId":"d1")", false, "");
    row("something behind", R"({"org":[]} x)", false, "");
    row("byte order mark", "\xef\xbb\xbf{\"org\":[{\"orgId\":\"d1\"}]}", true, "d1");
    row("wrong kinds", R"({"org":{"orgId":"d1"},"emp":"x"})", true, "");
    row("entries of wrong kinds", R"({"org":[1,null,"x",[],{"orgId":{}},{"orgId":"d1"}]})", true,
        "d1");
    row("no id", R"({"emp":[{"nickName":"x"},{"userId":""},{"userId":null}]})", true, "");
    row("id beyond 2^53", R"({"emp":[{"userId":9007199254740993}]})", true, "9007199254740993");
    row("id as a number, presence no array", R"({"emp":[{"userId":7,"presence":3}]})", true, "7");
    row("ids with & and /", R"({"emp":[{"userId":"a&b"},{"userId":"c/../d"}]})", true,
        "a&b c/../d");
    row("bad UTF-8", "{\"org\":[{\"orgId\":\"d1\",\"orgName\":\"\xff\xfe\"}]}", true, "d1");
    row("the same id twice", R"({"emp":[{"userId":"u"},{"userId":"u"}]})", true, "u u");
}

void TstOrgParser::hostileReplies()
{
    QFETCH(const QByteArray, reply);
    QFETCH(const bool, ok);
    OrgElementList elements;
    QString error;
    QCOMPARE(HttpOrgFun::resolveJsonGetOrg(reply, &elements, &error), ok);
    QTEST(ids(elements), "expected");
    QCOMPARE(error.isEmpty(), ok);
}

void TstOrgParser::deepReplies_data()
{
    const Rows<QByteArray, int, bool> row{"open", "levels", "ok"};
    const QByteArray children = R"({"orgId":"d","children":{"org":[)";
    row("20 levels", children, 20, true);
    row("100,000 levels", children, 100000, false);
    row("100,000 arrays", "[", 100000, false);
}

void TstOrgParser::deepReplies()
{
    QFETCH(const QByteArray, open);
    QFETCH(const int, levels);
    QByteArray reply = "{\"location\":" + open.repeated(levels);
    for (int i = 0; i < levels; ++i)
        reply += open == "[" ? "]" : "]}}";
    reply += '}';
    OrgElementList elements;
    QString error;
    QTEST(HttpOrgFun::resolveJsonGetLocateOrg(reply, &elements, &error), "ok");
    QCOMPARE(elements.size(), error.isEmpty() ? levels : 0);
}

void TstOrgParser::presence_data()
{
    QTest::addColumn<QByteArray>("entries");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("device");
    const auto row = [](const char *name, const char *entries, int status, int device) {
        QTest::newRow(name) << QByteArray(entries) << status << device;
    };
    row("none", "", 0, 0);
    row("all unavailable", R"({"av":false,"show":"away","pt":"ios"},{"show":"dnd"})", 0, 0);
    row("available", R"({"av":true})", 1, 0);
    row("capitals", R"({"av":true,"show":"AWAY","pt":"Android","rsc":"PC"})", 2, 1);
    row("mobile leaves the status", R"({"av":true,"show":"xa","rsc":"Mobile","pt":"ios"})", 0, 2);
    row("virtual leaves the status", R"({"av":true,"show":"xa","rsc":"virtual"})", 0, 0);
    row("later overrides", R"({"av":true,"show":"xa"},{"av":"true","show":"chat"})", 5, 0);
    row("other platform leaves the device", R"({"av":1,"pt":"ios"},{"av":1,"pt":"web"})", 1, 2);
}

void TstOrgParser::presence()
{
    QFETCH(const QByteArray, entries);
    OrgElementList elements;
    QString error;
    QVERIFY(HttpOrgFun::resolveJsonGetOrg(
        R"({"emp":[{"userId":"u","presence":[)" + entries + "]}]}", &elements, &error));
    QTEST(int(elements.first().nStatus), "status");
    QTEST(int(elements.first().nDevice), "device");
}

void TstOrgParser::locationInOrder()
{
    const QByteArray reply = R"({"location":{"orgId":"top","parentId":"","children":{
        "emp":[{"userId":"u1"}],
        "org":[{"orgId":"a","children":{"emp":[{"userId":"u2"}],"org":[{"orgId":"c"}]}},
               {"orgId":"b","children":[]}]}}})";
    OrgElementList elements;
    QString error;
    QVERIFY(HttpOrgFun::resolveJsonGetLocateOrg(reply, &elements, &error));
    QCOMPARE(ids(elements), words("top a b u1 c u2"));
}

void TstOrgParser::peopleSearch()
{
    const QByteArray reply = R"({"code":0,"data":{"count":"7",
        "userList":[{"userId":"u1","nickName":"Li","leaderName":"Wang","mobile":138,
            "presenceList":[{"available":"true","show":"away","platform":"web","resource":"pc"}]},
            {"nickName":"without an id"}],
        "orgList":[{"orgId":"d1","orgName":"Sales","parentOrgId":"C1","fullName":"C/Sales"}]}})";
    OrgParser::SearchHits hits;
    QString error;
    QVERIFY(HttpOrgFun::resolveJsonGetFuzzyRult(reply, &hits, &error));
    QCOMPARE(hits.departmentCount, 7);
    QCOMPARE(hits.users.userList.size(), 1);
    const SearchUserData &user = hits.users.userList.first();
    QCOMPARE(user.leaderName, QStringLiteral("Wang"));
    QCOMPARE(user.mobile, QStringLiteral("138"));
    QCOMPARE(user.nStatus, 2);
    QCOMPARE(user.nDevice, 0);
    QCOMPARE(hits.departments.first().strParentId, QStringLiteral("C1"));
    OrgParser::SearchHits none;
    QVERIFY(HttpOrgFun::resolveJsonGetFuzzyRult(R"({"data":[]})", &none, &error));
    QVERIFY(none.users.userList.isEmpty());
}

// Ten thousand people of one department share its id.
void TstOrgParser::equalTextsAreOne()
{
    OrgElementList elements;
    QString error;
    QVERIFY(HttpOrgFun::resolveJsonGetOrg(
        R"({"emp":[{"userId":"u1","orgId":"d1","duty":"Lead"},{"userId":"u2","orgId":"d1","duty":"Lead"}]})",
        &elements, &error));
    QCOMPARE(elements.at(0).strParentId.constData(), elements.at(1).strParentId.constData());
    QCOMPARE(elements.at(0).strDuty.constData(), elements.at(1).strDuty.constData());
}

FRIENDUI_TEST(TstOrgParser)
#include "tst_orgparser.moc"

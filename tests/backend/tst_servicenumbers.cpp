// Service numbers: records, versions, subscriptions, icons and the page of their messages.
#include "sample/samplechannels.h"
#include "tests/backend/atonce.h"
#include "tests/backend/runningbackend.h"
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

#include <QImage>
#include <QRegularExpression>

#include <set>

namespace {
const QString U = QStringLiteral("u000010");
constexpr char History[] = "/center/isrvHis/pcMsg.do?id=";

QString service(const char *name)
{
    return QStringLiteral("/center/isrv/%1.do").arg(QLatin1String(name));
}

QString text(const Json::Value &value)
{
    return QString::fromStdString(value.asString());
}

QString codesOf(const TeamAnswer &answer)
{
    QStringList codes;
    for (const Json::Value &number : answer.data)
        codes.append(text(number["iServiceCode"]));
    return codes.join(QLatin1Char(' '));
}
} // namespace

class TstServiceNumbers : public QObject
{
    Q_OBJECT

private slots:
    void operations_data()
    {
        // One after the other by one user; what is subscribed to at the end.
        const Rows<QStringList, QString, QString> row{"operations", "codes", "subscribed"};
        const QString start = "sn2001 sn2002 sn2003";
        row("nothing", {}, "", start);
        row("another", {"subIsrv appCode=sn2005&groupId="}, "0", start + " sn2005");
        row("twice", {"subIsrv appCode=sn2005", "subIsrv appCode=sn2005"}, "0 0",
            start + " sn2005");
        row("ended", {"unsubIsrv appCode=sn2002"}, "0", "sn2001 sn2003");
        row("ended twice", {"unsubIsrv appCode=sn2002", "unsubIsrv appCode=sn2002"}, "0 0",
            "sn2001 sn2003");
        row("and again", {"unsubIsrv appCode=sn2001", "subIsrv appCode=sn2001"}, "0 0",
            "sn2002 sn2003 sn2001");
        row("closed", {"subIsrv appCode=sn2009", "unsubIsrv appCode=sn2009"}, "1 0", start);
        row("unknown", {"subIsrv appCode=sn100000", "unsubIsrv appCode=sn02001"}, "10001 10001",
            start);
        row("none", {"subIsrv", "subIsrv appCode=", "unsubIsrv appCode=%ff"}, "10001 10001 10001",
            start);
        row("odd", {"subIsrv appCode=sn2005' --", "getIsrvInfo code=../sn2001", "getIsrvByCodes"},
            "10001 10001 10001", start);
    }
    void operations()
    {
        QFETCH(QStringList, operations);
        TeamWorld world;
        const auto own = [&](const QString &uid) {
            return codesOf(world.call(uid, service("myIsrv"), "version="));
        };
        const QString ofOthers = own("u000011");
        QStringList codes;
        for (const QString &each : operations) {
            const QString path = service(qPrintable(each.section(' ', 0, 0)));
            codes.append(QString::number(world.code(U, path, each.section(' ', 1))));
        }
        QTEST(codes.join(' '), "codes");
        QTEST(own(U), "subscribed");
        QCOMPARE(own("u000011"), ofOthers);
    }

    void search_data()
    {
        const Rows<QString, QString> row{"name", "found"};
        row("piece", "助手", "sn2006 sn2016");
        row("other case", "CANTEEN", "sn2003");
        row("none", "%25", "");
        row("markup", "<Rel", "sn2022");
    }
    void search()
    {
        QFETCH(QString, name);
        TeamWorld world;
        const TeamAnswer found =
            world.call(U, service("listIsrv"), "groupId=&version=7&name=" + name);
        QTEST(codesOf(found), "found");
        const TeamAnswer all = world.call(U, service("listIsrv"), "name=&version=&groupId=");
        QCOMPARE(int(all.data.size()), sampleServiceNumbers().size());
        QVERIFY(all.data.size() >= 24);
    }

    void records()
    {
        TeamWorld world;
        const auto info = [&](const char *code) {
            return world.call(U, service("getIsrvInfo"), QString("version=9&code=") + code).data;
        };
        const Json::Value desk = info("sn2004");
        const std::vector<std::string> names{
            "channel", "contactWay", "description",   "fold",    "iServiceCode",
            "icon",    "isBindApp",  "isInteractive", "isSub",   "menuList",
            "name",    "status",     "subType",       "subject", "version"};
        QCOMPARE(desk.getMemberNames(), names);
        QVERIFY(desk["menuList"].isArray() && desk["menuList"].size() == 2);
        QCOMPARE(text(desk["channel"]["id"]), QStringLiteral("cs1001"));
        QVERIFY(info("sn2001")["channel"].isNull());
        QVERIFY(info("sn2001")["isSub"].asBool() && !desk["isSub"].asBool());
        QVERIFY(!info("sn2011")["isInteractive"].asBool());
        QCOMPARE(text(info("sn2010")["icon"]), QString());
    }

    void newerThan_data()
    {
        const Rows<QString, QString> row{"fields", "found"};
        row("no versions", "codes=sn2001,sn2002", "sn2001 sn2002");
        row("same", "codes=sn2001,sn2002&versions=1,1", "");
        row("one older", "codes=sn2001,sn2002&versions=1,0", "sn2002");
        row("fewer versions", "codes=sn2001,sn2002&versions=1", "sn2002");
        row("no number", "codes=sn2001&versions=new", "sn2001");
        row("unknown and twice", "codes=sn9,,sn2001,sn2001", "sn2001");
    }
    void newerThan()
    {
        QFETCH(QString, fields);
        TeamWorld world;
        QTEST(codesOf(world.call(U, service("getIsrvByCodes"), fields)), "found");
    }

    void versions()
    {
        RunningBackEnd backEnd(withLevers());
        WebClient client(*backEnd), other(*backEnd);
        client.logIn(*backEnd, U);
        other.logIn(*backEnd, U);
        const auto own = [&](const std::string &version) {
            return client.post("/center/isrv/myIsrv.do", {{"version", version}}).json;
        };
        const auto news = [&](const std::string &since) {
            return other.post("/center/event/getEvents.do", {{"since", since}}).json["data"];
        };
        const std::string before = news("0")["next"].asString();
        const std::string first = own("")["version"].asString();
        QCOMPARE(own(first)["data"].size(), 0u);
        QCOMPARE(own(first)["version"].asString(), first);
        client.post("/center/isrv/subIsrv.do", {{"appCode", "sn2005"}});
        const Json::Value second = own(first);
        QCOMPARE(second["data"].size(), 4u);
        QVERIFY(second["version"] != first);
        QCOMPARE(news(before)["events"][0]["type"].asString(), std::string("services"));
        backEnd.restart(); // they are kept
        WebClient again(*backEnd);
        again.logIn(*backEnd, U);
        QCOMPARE(again.post("/center/isrv/myIsrv.do", {}).json["data"].size(), 4u);
    }

    void levers()
    {
        RunningBackEnd backEnd(withLevers());
        WebClient client(*backEnd);
        client.logIn(*backEnd, U);
        const auto newer = [&](const std::string &version) {
            return client
                .post("/center/isrv/getIsrvByCodes.do",
                      {{"codes", "sn2001"}, {"versions", version}})
                .json["data"];
        };
        backEnd.control("serviceNumber",
                        R"({"code":"sn2001","name":"<b>","menuList":{"a":[1]},"closed":true})");
        const Json::Value changed = newer("1")[0];
        QCOMPARE(changed["name"].asString(), std::string("<b>"));
        QCOMPARE(changed["menuList"]["a"][0].asInt(), 1);
        QCOMPARE(client.post("/center/isrv/subIsrv.do", {{"appCode", "sn2001"}}).code(), 1);
        QVERIFY(client.get(std::string(History) + "sn2001").body.find("<h1>&lt;b&gt;</h1>") !=
                std::string::npos);
        backEnd.control("serviceNumbers", R"({"extra":2000,"subscriber":"u000010"})");
        const Answer own = client.post("/center/isrv/myIsrv.do", {{"version", ""}});
        QCOMPARE(int(own.json["data"].size()), 2000 + sampleServiceNumbers().size());
        backEnd.control("reset", "{}");
        QCOMPARE(newer(changed["version"].asString())[0]["name"].asString(),
                 std::string("公司新闻"));
        QCOMPARE(int(client.post("/center/isrv/myIsrv.do", {}).json["data"].size()),
                 sampleServiceNumbers().size());
    }

    void icons()
    {
        RunningBackEnd backEnd;
        WebClient client(*backEnd);
        client.logIn(*backEnd, U);
        std::set<std::string> different;
        for (const char *code : {"sn2001", "sn2002", "sn2026"}) {
            const std::string name = std::string(code) + ".png";
            const Answer icon = client.get("/center/im/downloadFile.do?name=" + name);
            QCOMPARE(icon.status, 200);
            QVERIFY(!QImage::fromData(QByteArray::fromStdString(icon.body), "PNG").isNull());
            different.insert(icon.body);
        }
        QCOMPARE(different.size(), size_t(3));
        for (const char *name : {"sn9.png", "sn2001.jpg", "sn100000.png", "../icons/sn2001.png"})
            QCOMPARE(client.get(std::string("/center/im/downloadFile.do?name=") + name).status,
                     404);
    }

    void history_data()
    {
        const Rows<QString, int> row{"query", "status"};
        row("number", "sn2022", 200);
        row("second page", "sn2022&page=2", 200);
        row("third page", "sn2022&page=3", 404);
        row("odd page", "sn2022&page=x", 404);
        row("unknown", "sn9", 404);
        row("none", "", 404);
        row("not UTF-8", "%ff", 404);
    }
    void history()
    {
        QFETCH(QString, query);
        static RunningBackEnd backEnd;
        WebClient client(*backEnd); // without a ticket
        const Answer page = client.get(History + query.toStdString());
        QTEST(page.status, "status");
        if (page.status != 200)
            return;
        QCOMPARE(page.header("Content-Type"), std::string("text/html; charset=utf-8"));
        const QString html = QString::fromStdString(page.body);
        QVERIFY(html.contains(QLatin1String("<h1>Quality &amp; &lt;Reliability&gt;</h1>")));
        QVERIFY(html.contains(QRegularExpression("<h2>\\d{4}-\\d\\d-\\d\\d</h2>")));
        QStringList links;
        QRegularExpressionMatchIterator each =
            QRegularExpression("href=\"([^\"]*)\"").globalMatch(html);
        while (each.hasNext())
            links.append(each.next().captured(1).replace("&amp;", "&"));
        QCOMPARE(links.size(), 2);
        QCOMPARE(client.get("/center/isrvHis/pcMsg.do" + links.at(0).toStdString()).status, 200);
        QVERIFY(links.at(1).startsWith(QLatin1String("https://")));
    }

    void severalAtOnce()
    {
        TeamWorld world;
        std::vector<std::function<void()>> all;
        for (const char *operation : {"subIsrv", "unsubIsrv", "subIsrv", "unsubIsrv"}) {
            all.push_back([&world, operation] {
                for (int i = 2001; i < 2009; ++i)
                    world.code(U, service(operation), QString("appCode=sn%1").arg(i));
            });
        }
        together(all);
        const TeamAnswer own = world.call(U, service("myIsrv"));
        QStringList codes = codesOf(own).split(' ', Qt::SkipEmptyParts);
        QCOMPARE(codes.removeDuplicates(), 0);
        for (const Json::Value &number : own.data)
            QVERIFY(number["isSub"].asBool());
    }
};

FRIENDUI_TEST(TstServiceNumbers)
#include "tst_servicenumbers.moc"

// The operations of the service-number services: what they send, and what they make of
// whatever comes back.
#include "servicenum/chttpservicenum.h"
#include "servicenum/servicenumreader.h"
#include "tests/servicenum/numberfixture.h"

#include "http/jsonreader.h"

#include <functional>

namespace {
using Operation = CHttpServiceNum;
using Send = std::function<void(Operation *)>;

CServiceNumData read(const QByteArray &json)
{
    Json::Value root;
    JsonReader::parse("{\"r\":" + json + "}", &root);
    return ServiceNumReader::number(root["r"]);
}
} // namespace

Q_DECLARE_METATYPE(Send)
Q_DECLARE_METATYPE(FakeReply)

class TstHttpServiceNum : public QObject
{
    Q_OBJECT

private slots:
    void bodies_data()
    {
        const Rows<Send, QByteArray, QByteArray> row{"send", "path", "body"};
        row(
            "search", [](Operation *o) { o->searchServiceNum(QStringLiteral("a&b +c,")); }, Search,
            "name=a%26b%20%2Bc%2C&version=&groupId=");
        row(
            "subscribe", [](Operation *o) { o->subServiceNum(QStringLiteral("s=1")); }, Subscribe,
            "appCode=s%3D1&groupId=");
        row(
            "cancel",
            [](Operation *o) { o->cancelSubServiceNum(QStringLiteral("s1"), QStringLiteral("7")); },
            Cancel, "appCode=s1&groupId=7");
        row(
            "mine", [](Operation *o) { o->getMyServiceNum(QStringLiteral("12")); }, Mine,
            "version=12");
        row(
            "info", [](Operation *o) { o->getServiceNumInfo(QString::fromUtf8("通"), QString()); },
            Info, "code=%E9%80%9A&version=");
        row(
            "info list",
            [](Operation *o) {
                o->getServiceNumInfoList({QStringLiteral("a"), QStringLiteral("b")},
                                         {QStringLiteral("1"), QString()});
            },
            InfoList, "codes=a%2Cb&versions=1%2C");
    }

    void bodies()
    {
        QFETCH(Send, send);
        QFETCH(QByteArray, path);
        NumberFixture fixture;
        send(new Operation(this));
        QTRY_COMPARE(fixture.server.count(path), 1);
        QFETCH(QByteArray, body);
        QCOMPARE(fixture.server.last().body, body);
        QCOMPARE(fixture.server.last().header("User-Agent"), QByteArray("PcClient"));
    }

    void subscriptionCodes_data()
    {
        const Rows<FakeReply, bool, QString> row{"reply", "ok", "error"};
        row("done", FakeReply::json("{\"code\":0}"), true, "0");
        row("as text", FakeReply::json("{\"code\":\"0\"}"), true, "0");
        row("no right", FakeReply::json("{\"code\":1}"), false, "1");
        row("unknown", FakeReply::json("{\"code\":10001}"), false, "10001");
        row("no code", FakeReply::json("{\"data\":{}}"), false, "99999");
        row("null", FakeReply::json("{\"code\":null}"), false, "99999");
        row("of another kind", FakeReply::json("{\"code\":[0]}"), false, "99999");
        row("no number", FakeReply::json("{\"code\":\"ok\"}"), false, "99999");
        row("too large", FakeReply::json("{\"code\":99999999999999999999}"), false, "99999");
        row("no object", FakeReply::json("[0]"), false, "99999");
        row("no JSON", FakeReply::of(200, "<html>"), false, "99999");
        row("server error", FakeReply::of(500, "{\"code\":0}"), false, "99999");
        row("cut off", FakeReply::json("{\"code\":0}").dropped(30), false, "99999");
    }

    void subscriptionCodes()
    {
        QFETCH(FakeReply, reply);
        NumberFixture fixture;
        fixture.server.reply(Subscribe, reply);
        auto *operation = new Operation(this);
        QSignalSpy told(operation, &Operation::signal_notifySubServiceNum);
        operation->subServiceNum(QStringLiteral("s1"));
        QVERIFY(told.isEmpty());
        QVERIFY(told.wait(TestPatience));
        QFETCH(bool, ok);
        QFETCH(QString, error);
        QCOMPARE(told.first(), (QVariantList{QStringLiteral("s1"), QString(), ok, error}));
    }

    void withoutAddress()
    {
        NumberFixture fixture;
        fixture.services.write("[Hosts]\ncenter=" + fixture.server.url().toEncoded() + "\n");
        auto *operation = new Operation(this);
        QSignalSpy told(operation, &Operation::signal_notifySubServiceNum);
        operation->subServiceNum(QStringLiteral("s1"));
        QVERIFY(told.isEmpty());
        QVERIFY(told.wait(TestPatience));
        QCOMPARE(told.first().at(3).toString(), QStringLiteral("99999"));
        auto *other = new Operation(this);
        QSignalSpy cancelled(other, &Operation::signal_notifyCancelSubServiceNum);
        other->cancelSubServiceNum(QStringLiteral("s1"));
        QVERIFY(cancelled.wait(TestPatience));
        QVERIFY(!cancelled.first().at(2).toBool());
        QVERIFY(fixture.server.requests().isEmpty());
    }

    void anotherNumberIsNoAnswer()
    {
        NumberFixture fixture;
        fixture.server.reply(Info, answer("\"data\":" + record("s2")));
        auto *operation = new Operation(this);
        QSignalSpy told(operation, &Operation::signal_notifyUpdateServiceNum);
        QSignalSpy failed(operation, &Operation::signal_failed);
        operation->getServiceNumInfo(QStringLiteral("s1"), QString());
        QVERIFY(failed.wait(TestPatience));
        QVERIFY(told.isEmpty());
    }

    void history()
    {
        NumberFixture fixture;
        const QString page =
            fixture.server.url(QStringLiteral("/center/isrvHis/pcMsg.do")).toString();
        QCOMPARE(Operation::historyAddress(QStringLiteral("a b&c")),
                 page + QLatin1String("?id=a%20b%26c"));
        fixture.server.reply("/center/isrvHis/pcMsg.do",
                             {FakeReply::of(200, "<p>"), FakeReply::of(404)});
        for (const bool there : {true, false}) {
            auto *operation = new Operation(this);
            QSignalSpy told(operation, &Operation::signal_serviceNumMessage);
            operation->getServiceNumMessage(QStringLiteral("s1"));
            QVERIFY(told.wait(TestPatience));
            QCOMPARE(told.first(), (QVariantList{QStringLiteral("s1"), there}));
            QCOMPARE(fixture.server.last().method, QByteArray("GET"));
        }
    }

    void menus_data()
    {
        const Rows<QByteArray, QString> row{"menu", "text"};
        row("array", "[ {\"name\" : \"菜单\"}, 1 ]", QString::fromUtf8("[{\"name\":\"菜单\"},1]"));
        row("object", "{\"a\":[]}", "{\"a\":[]}");
        row("text", "\"[]\"", "\"[]\"");
        row("number", "7", "7");
        row("null", "null", "");
    }

    void menus()
    {
        QFETCH(QByteArray, menu);
        QFETCH(QString, text);
        QCOMPARE(read(record("s1", "\"menuList\":" + menu)).menuList, text);
        QVERIFY(read(record("s1")).menuList.isEmpty());
    }

    void channels()
    {
        const CServiceNumData number = read(
            record("s1", R"("channel":{"id":"c1","name":"Help","photoName":"c1.png","version":3,
                     "welcome":"hi","enableRobot":"true","agentForm":"2","agentOpenSession":1,
                     "agentCloseSession":[],"workgroupList":["w1",2,{},null]})"));
        QVERIFY(number.hasChannel);
        QCOMPARE(number.channel.id, QStringLiteral("c1"));
        QCOMPARE(number.channel.version, QStringLiteral("3"));
        QVERIFY(number.channel.enableRobot);
        QCOMPARE(number.channel.agentForm, 2);
        QCOMPARE(number.channel.agentCloseSession, 0);
        QCOMPARE(number.channel.workgroups,
                 (QStringList{QStringLiteral("w1"), QStringLiteral("2")}));
        for (const char *none : {"null", "\"c1\"", "[]", "7"})
            QVERIFY(!read(record("s1", QByteArray("\"channel\":") + none)).hasChannel);
    }

    void otherKinds()
    {
        const CServiceNumData number = read(
            R"({"iServiceCode":12,"name":["x"],"description":{},"isSub":"1","isInteractive":[],
                "subType":1e99,"status":"4","fold":1,"isBindApp":"no","version":2.5})");
        QCOMPARE(number.code, QStringLiteral("12"));
        QVERIFY(number.name.isEmpty() && number.description.isEmpty());
        QVERIFY(number.fold && !number.isInteractive && !number.isBindApp);
        QCOMPARE(number.subType, 0);
        QCOMPARE(number.status, 4);
        for (const char *none : {"null", "[]", "3", "{}", "\"s1\""})
            QVERIFY(read(none).code.isEmpty());
    }
};

FRIENDUI_TEST(TstHttpServiceNum)
#include "tst_httpservicenum.moc"

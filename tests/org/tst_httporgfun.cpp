// The request object against a server that answers as told.
#include "http/cmonitorlogger.h"
#include "http/requestthrottle.h"
#include "tests/org/orgrequestfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

class TstHttpOrgFun : public OrgRequestFixture
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void sends_data()
    {
        const Rows<int, QByteArray> row{"kind", "body"};
        row("children", int(Children), "orgId=d%261%20%2B%2F");
        row("locate", int(Locate), "empId=u1&type=EMP");
        row("search", int(Search), "searchText=li%2Ca&containOrg=true&pageNo=1&pageSize=20");
    }

    void sends()
    {
        QFETCH(const int, kind);
        server->reply("/org.do", FakeReply::json("{}"));
        const QPointer<HttpOrgFun> request = start(Kind(kind));
        QTRY_VERIFY(!request);
        const FakeRequest sent = server->last();
        QCOMPARE(sent.method, QByteArray("POST"));
        QTEST(sent.body, "body");
        QCOMPARE(sent.header("User-Agent"), QByteArray("PcClient"));
        QCOMPARE(sent.header("Content-Type"), QByteArray("application/x-www-form-urlencoded"));
        QCOMPARE(sent.header("Accept-Encoding"), QByteArray("identity"));
        QCOMPARE(sent.cookie("imAuthId"), QByteArray("old"));
    }

    // What each status leads to: how often it is sent, and which signals come: success,
    // failure, not there, done.
    void statusTable_data()
    {
        const Rows<int, int, int, QVector<int>, int, int> row{
            "kind", "status", "sends", "signalsSeen", "refreshes", "overdue"};
        const QVector<int> failed{0, 1, 0, 0}, notThere{0, 0, 1, 0}, silent{0, 0, 0, 0};
        for (const Kind kind : {Children, Locate, Search}) {
            const auto add = [&](int status, int sends, const QVector<int> &seen, int refreshes = 0,
                                 int overdue = 0) {
                const char *const names[] = {"children", "locate", "search"};
                row(qPrintable(QStringLiteral("%1 %2").arg(names[kind]).arg(status)), kind, status,
                    sends, seen, refreshes, overdue);
            };
            add(200, 1, {1, 0, 0, kind == Children ? 1 : 0});
            add(204, kind == Locate ? 1 : 4, kind == Locate ? notThere : failed);
            for (const int status : {401, 403})
                add(status, kind == Search ? 4 : 1, kind == Locate ? notThere : failed);
            add(302, 4, failed, 4);
            add(480, 1, silent, 0, 1);
            for (const int status : {301, 404, 500})
                add(status, 4, failed);
        }
    }

    void statusTable()
    {
        QFETCH(const int, kind);
        QFETCH(const int, status);
        server->reply("/org.do", status == 302 || status == 301
                                     ? FakeReply::redirect(status, "/elsewhere.do")
                                     : FakeReply::of(status, status == 204 ? "" : "{}"));
        const QPointer<HttpOrgFun> request = start(Kind(kind));
        QTRY_VERIFY(!request);
        QTEST(server->count("/org.do"), "sends");
        QCOMPARE(server->count("/elsewhere.do"), 0);
        QTEST(signalCounts(), "signalsSeen");
        QTEST(passport->refreshes, "refreshes");
        QTEST(passport->overdue, "overdue");
        if (kind == Children && m_spies.at(1)->count() == 1)
            QCOMPARE(m_spies.at(1)->first().at(1).toInt(), status);
        if (kind == Children && m_spies.at(3)->count() == 1)
            QCOMPARE(m_spies.at(3)->first().at(0).toString(), QStringLiteral("d&1 +/"));
    }

    void oneCounterForAll()
    {
        server->reply("/org.do", {FakeReply::of(500), FakeReply::redirect(302, "/"),
                                  FakeReply::of(204), FakeReply::of(404), FakeReply::json("{}")});
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_VERIFY(!request);
        QCOMPARE(server->count("/org.do"), 4);
        QCOMPARE(signalCounts(), (QVector<int>{0, 1, 0, 0}));
    }

    void loginIsRefreshedBeforeTheRetry()
    {
        passport->answers = false;
        server->reply("/org.do", {FakeReply::redirect(302, "/"), FakeReply::json("{}")});
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_COMPARE(passport->refreshes, 1);
        QCOMPARE(server->count("/org.do"), 1);
        passport->finish();
        QTRY_VERIFY(!request);
        QCOMPARE(server->count("/org.do"), 2);
        QCOMPARE(server->last().cookie("imAuthId"), QByteArray("fresh"));
        QCOMPARE(signalCounts(), (QVector<int>{1, 0, 0, 1}));
    }

    void noRefreshComes()
    {
        passport->answers = false;
        server->reply("/org.do", {FakeReply::redirect(302, "/"), FakeReply::json("{}")});
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_COMPARE(passport->refreshes, 1);
        request->slot_timeout();
        QTRY_VERIFY(!request);
        QCOMPARE(server->count("/org.do"), 2);
        // Nobody to ask: again at once.
        host->context.passportServer = nullptr;
        server->forget();
        server->reply("/org.do", {FakeReply::redirect(302, "/"), FakeReply::json("{}")});
        const QPointer<HttpOrgFun> other = start(Children);
        QTRY_VERIFY(!other);
        QCOMPARE(server->count("/org.do"), 2);
    }

    void timesOut()
    {
        LogCapture log(host->context);
        server->reply("/org.do", FakeReply::json("{}").onRelease());
        const QPointer<HttpOrgFun> request = start(Children);
        for (int attempt = 1; attempt <= 4; ++attempt) {
            QTRY_COMPARE(server->count("/org.do"), attempt);
            QVERIFY(request);
            QCOMPARE(signalCounts(), (QVector<int>{0, 0, 0, 0}));
            request->slot_timeout();
        }
        QCOMPARE(signalCounts(), (QVector<int>{0, 1, 0, 0}));
        QTRY_VERIFY(!request);
        QCOMPARE(log.linesWith("time out").size(), 4);
        const MonitorRecord record = CMonitorLogger::instance().records().last();
        QCOMPARE(record.StatusCode, 103);
        QCOMPARE(record.ErrorInfo, QString::fromUtf8("Http请求超时!"));
        server->release();
    }

    void lateReplyAfterATimeout()
    {
        server->reply("/org.do", {FakeReply::json(R"({"org":[{"orgId":"late"}]})").onRelease(),
                                  FakeReply::json(R"({"org":[{"orgId":"second"}]})").onRelease()});
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_COMPARE(server->count("/org.do"), 1);
        request->slot_timeout();
        QTRY_COMPARE(server->count("/org.do"), 2);
        server->release();
        QTRY_VERIFY(!request);
        QCOMPARE(signalCounts(), (QVector<int>{1, 0, 0, 1}));
        const auto elements = m_spies.at(0)->first().at(0).value<OrgElementList>();
        QCOMPARE(elements.first().strId, QStringLiteral("second"));
    }

    void manyDepartmentsTakeTurns()
    {
        server->reply("/org.do", FakeReply::json("{}").onRelease());
        QVector<QPointer<HttpOrgFun>> requests;
        for (int i = 0; i < 30; ++i) {
            requests.append(new HttpOrgFun(this));
            requests.last()->searchOrg(QString::number(i), QStringLiteral("C1"));
        }
        QTRY_COMPARE(server->count("/org.do"), RequestThrottle::MaximumOthers);
        delete requests.at(25).data(); // while it waits
        const QPointer<HttpOrgFun> person = start(Locate);
        QTRY_COMPARE(server->count("/org.do"), RequestThrottle::MaximumOthers + 1);
        while (server->count("/org.do") < 30) {
            const int seen = server->count("/org.do");
            server->release();
            QTRY_VERIFY(server->count("/org.do") > seen);
        }
        server->release();
        for (const auto &request : qAsConst(requests))
            QTRY_VERIFY(!request);
        QTRY_VERIFY(!person);
        QCOMPARE(server->count("/org.do"), 30); // without the deleted one, with the person
    }

    void doubleReply()
    {
        const QByteArray reply = "HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n{}";
        server->reply("/org.do", FakeReply::verbatim(reply + reply));
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_VERIFY(!request);
        QCOMPARE(signalCounts(), (QVector<int>{1, 0, 0, 1}));
    }

    void brokenInTheMiddle()
    {
        server->reply("/org.do", FakeReply::json(employees(100)).dropped(500));
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_VERIFY(!request);
        QCOMPARE(signalCounts(), (QVector<int>{0, 1, 0, 0}));
    }

    void refusedReplies_data()
    {
        const Rows<QByteArray> row{"head"};
        row("too long, as it says", "Content-Length: 67108864\r\n");
        row("packed", "Content-Encoding: gzip\r\nContent-Length: 2\r\n");
    }

    void refusedReplies()
    {
        QFETCH(const QByteArray, head);
        server->reply("/org.do", FakeReply::verbatim("HTTP/1.1 200 OK\r\n" + head + "\r\n{}"));
        const QPointer<HttpOrgFun> request = start(Children);
        QTRY_VERIFY(!request);
        QCOMPARE(server->count("/org.do"), 1);
        QCOMPARE(signalCounts(), (QVector<int>{0, 1, 0, 0}));
    }

    void noAddress()
    {
        writeAddresses(QString());
        for (const Kind kind : {Children, Locate, Search}) {
            const QPointer<HttpOrgFun> request = start(kind);
            QCOMPARE(signalCounts(), (QVector<int>{0, 0, 0, 0})); // not inside the call
            QTRY_VERIFY(!request);
            QCOMPARE(signalCounts(), (QVector<int>{0, 1, 0, 0}));
        }
    }

    void malformed_data()
    {
        const Rows<int, QByteArray> row{"kind", "body"};
        const QByteArray large = employees(5000);
        for (const Kind kind : {Children, Locate, Search}) {
            row(qPrintable(QStringLiteral("small %1").arg(kind)), int(kind), "[1]");
            row(qPrintable(QStringLiteral("large %1").arg(kind)), int(kind),
                large.left(large.size() - 10));
        }
    }

    void malformed()
    {
        QFETCH(const int, kind);
        QFETCH(const QByteArray, body);
        LogCapture log(host->context);
        server->reply("/org.do", FakeReply::json(body));
        const QPointer<HttpOrgFun> request = start(Kind(kind));
        QTRY_VERIFY(!request);
        QCOMPARE(signalCounts(), (QVector<int>{0, 0, 0, 0}));
        QCOMPARE(server->count("/org.do"), 1);
        const QStringList lines = log.linesWith("was error,json format error. result=");
        QCOMPARE(lines.size(), 1);
        QVERIFY(lines.first().contains(QString::fromUtf8(body.left(20))));
        QVERIFY(lines.first().size() < 66 * 1024);
    }
};

FRIENDUI_TEST(TstHttpOrgFun)
#include "tst_httporgfun.moc"

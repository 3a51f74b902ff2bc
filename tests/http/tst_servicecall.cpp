// Single calls of services, and the requests that the request manager passes on.
#include "http/chttpsession.h"
#include "http/cpassportloginserver.h"
#include "http/httpmgr.h"
#include "http/servicecall.h"
#include "tests/http/servicefixture.h"
#include "tests/org/fakeorgrequest.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

Q_DECLARE_METATYPE(FakeReply)

namespace {
constexpr char VotePath[] = "/center/vote/createVote.do";

class CountingPassport : public CPassportLoginServer
{
public:
    int overdue = 0;
    void UserOverdue() override { ++overdue; }
};

const QByteArray Link = "/ids/login";
} // namespace

class TstServiceCall : public QObject
{
    Q_OBJECT

private slots:
    void formAndHeadersArrive()
    {
        ServiceFixture fixture;
        fixture.host.userPassword = QStringLiteral("secret");
        fixture.server.reply(VotePath, FakeReply::json(R"({"code":0,"data":{"id":"7"}})"));
        QVector<ServiceReply> replies;
        ServiceRequest request{
            "/vote/createVote",
            {{"members", QStringLiteral("u1,u2")}, {"reason", QString::fromUtf8("a+b & 项目")}}};
        request.headers = {{"Token", "t1"}};
        ServiceCall::start(request, this, HERE,
                           [&](const ServiceReply &reply) { replies.append(reply); });
        QVERIFY(replies.isEmpty());
        QTRY_COMPARE(replies.size(), 1);
        QVERIFY(replies.first().ok);

        const FakeRequest sent = fixture.server.last();
        QCOMPARE(sent.body, QByteArray("members=u1%2Cu2&reason=a%2Bb%20%26%20"
                                       "%E9%A1%B9%E7%9B%AE"));
        QCOMPARE(sent.header("Content-Type"), QByteArray("application/x-www-form-urlencoded"));
        QCOMPARE(sent.header("Token"), QByteArray("t1"));
        // u1:5ebe2294ecd0e0f08eab7690d2a6ee69
        QCOMPARE(sent.header("Authorization"),
                 QByteArray("Basic dTE6NWViZTIyOTRlY2QwZTBmMDhlYWI3NjkwZDJhNmVlNjk="));
    }

    void failuresAreToldOnceAndLater_data()
    {
        const Rows<QByteArray, int> row{"ini", "status"};
        row("no address", "[vote]\ncreateVote=\n", 0);
        row("refused address", "[vote]\ncreateVote=file:///x\n", 0);
        row("status 500", QByteArray(), 500);
        row("nothing listens", QByteArray(), -1);
    }

    void failuresAreToldOnceAndLater()
    {
        QFETCH(QByteArray, ini);
        QFETCH(int, status);
        ServiceFixture fixture;
        const LogCapture log(fixture.host);
        if (!ini.isEmpty())
            fixture.write(ini);
        fixture.server.reply(VotePath, FakeReply::of(500));
        if (status < 0)
            fixture.server.stop();
        QVector<ServiceReply> replies;
        ServiceCall::start({"/vote/createVote"}, this, HERE,
                           [&](const ServiceReply &reply) { replies.append(reply); });
        QVERIFY(replies.isEmpty());
        QTRY_COMPARE(replies.size(), 1);
        QVERIFY(!replies.first().ok);
        QCOMPARE(replies.first().code, int(ServiceReply::NoCode));
        QCOMPARE(replies.first().status, std::max(0, status));
        QVERIFY(!replies.first().error.isEmpty());
        // The line is that of the feature that called.
        QCOMPARE(log.linesWith("[tst_servicecall.cpp:").size(), 1);
        QCOMPARE(fixture.server.requests().size(), status == 500 ? 1 : 0);
    }

    void contextIsGone()
    {
        ServiceFixture fixture;
        fixture.server.reply(VotePath, FakeReply::json("{}").onRelease());
        int calls = 0;
        auto context = std::make_unique<QObject>();
        QPointer<ServiceCall> call = ServiceCall::start({"/vote/createVote"}, context.get(), HERE,
                                                        [&](const ServiceReply &) { ++calls; });
        QTRY_COMPARE(fixture.server.requests().size(), 1);
        context.reset();
        fixture.server.release();
        QTRY_VERIFY(call.isNull());
        QCOMPARE(calls, 0);
        QCOMPARE(fixture.server.unanswered(), 0); // it was not broken off
    }

    void deletedCallIsSilent()
    {
        ServiceFixture fixture;
        fixture.server.reply(VotePath, FakeReply::json("{}").onRelease());
        int calls = 0;
        delete ServiceCall::start({"/vote/createVote"}, this, HERE,
                                  [&](const ServiceReply &) { ++calls; });
        ServiceCall::start({"/vote/removeVote"}, this, HERE,
                           [&](const ServiceReply &) { calls += 10; });
        QTRY_COMPARE(calls, 10);
    }

    void openedSessionHandsOverTheReply()
    {
        ServiceFixture fixture;
        fixture.server.reply(VotePath, FakeReply::json("{}"));
        for (const char *key : {"/vote/createVote", "/tags/loadurl"}) {
            CHttpSession *session = ServiceCall::open({key}, this);
            bool failed = false;
            QObject::connect(
                session, &CHttpSession::signal_finished, this,
                [&](QNetworkReply *reply) { failed = reply->error() != QNetworkReply::NoError; });
            QSignalSpy finished(session, &CHttpSession::signal_finished);
            QVERIFY(finished.wait(TestPatience));
            QCOMPARE(failed, key == QByteArray("/tags/loadurl")); // which has no address
            delete session;
        }
    }

    void sessionThatIsAloneEndsByItself()
    {
        ServiceFixture fixture;
        fixture.server.reply("/x.do", FakeReply::json("{}"));
        ServiceRequest request;
        request.address = fixture.server.url(QStringLiteral("/x.do")).toString();
        const QPointer<CHttpSession> session = ServiceCall::openAlone(request);
        QSignalSpy finished(session, &CHttpSession::signal_finished);
        QTRY_VERIFY(!session);
        QCOMPARE(finished.size(), 1);
        QCOMPARE(fixture.server.count("/x.do"), 1);
    }

    void peopleFoundAreForwarded()
    {
        QStringList asks;
        FakeOrgRequest *request = nullptr;
        HttpMgr *manager = HttpMgr::instance();
        manager->setOrgRequestFactory(
            [&](QObject *parent) { return request = new FakeOrgRequest(&asks, parent); });
        QSignalSpy found(manager, &HttpMgr::signal_searchFinished);
        manager->fuzzySearchOrg(QStringLiteral("li"), true, 3, 20);
        QVERIFY(request);
        emit request->signal_searchFinished({}, 3, {}, QStringLiteral("li"));
        delete request;
        QCOMPARE(found.value(0).value(1).toInt(), 3);
    }

    void withoutFactoryRequestsFailLater()
    {
        HttpMgr *manager = HttpMgr::instance();
        manager->setOrgRequestFactory(nullptr);
        QSignalSpy fail(manager, &HttpMgr::searchOrgFail);
        QSignalSpy notLocated(manager, &HttpMgr::signal_locateOrgFail);
        QSignalSpy notFound(manager, &HttpMgr::signal_fuzzySearchFail);
        manager->searchOrg(QStringLiteral("d1"), QStringLiteral("C1"));
        manager->locateOrg(QStringLiteral("u7"), false);
        manager->fuzzySearchOrg(QStringLiteral("li"), true, 1, 20);
        QCOMPARE(fail.size() + notLocated.size() + notFound.size(), 0);
        QTRY_COMPARE(fail.size() + notLocated.size() + notFound.size(), 3);
        QCOMPARE(fail.value(0).value(0).toString(), QStringLiteral("d1"));
    }

    void realLink_data()
    {
        QTest::addColumn<FakeReply>("reply");
        QTest::addColumn<QString>("link"); // "=": the address itself
        const auto row = [](const char *name, const FakeReply &reply, const char *link) {
            QTest::newRow(name) << reply << QString::fromUtf8(link);
        };
        row("redirect", FakeReply::redirect(302, "https://web.example/a?ticket=S%2F1"),
            "https://web.example/a?ticket=S%2F1");
        row("no redirect", FakeReply::of(200, "<html>"), "=");
        row("local file", FakeReply::redirect(302, "file:///etc/hostname"), "");
        row("script", FakeReply::redirect(302, "javascript:alert(1)"), "");
        row("redirect to nowhere", FakeReply::of(302), "");
        row("not found", FakeReply::of(404), "");
        row("log-in is over", FakeReply::of(200).header("passport.login.flag", "true"), "");
        row("cut off", FakeReply::of(200, "<html>").dropped(47), "");
    }

    void realLink()
    {
        QFETCH(FakeReply, reply);
        QFETCH(QString, link);
        ServiceFixture fixture;
        CountingPassport passport;
        passport.setTicket(QStringLiteral("TGT-1"));
        fixture.host.passportServer = &passport;
        fixture.server.reply(Link, reply);
        HttpMgr *manager = HttpMgr::instance();
        QSignalSpy finished(manager, &HttpMgr::signal_getThirdPartyRealLinkFinish);
        manager->getThirdPartyRealLink("/enterprise/enterpriseBackgroundSingleUrl");
        QVERIFY(finished.isEmpty());
        QVERIFY(finished.wait(TestPatience));
        QCOMPARE(finished.size(), 1);
        const QString itself = fixture.server.url().toString() +
                               QStringLiteral("ids/login?service=http%3A%2F%2F127.0.0.1%3A") +
                               QString::number(fixture.server.url().port()) +
                               QStringLiteral("%2Feadmin-web");
        const QString expected = link == QLatin1String("=") ? itself : link;
        QCOMPARE(finished.value(0), (QVariantList{!expected.isEmpty(), expected}));
        QCOMPARE(fixture.server.requests().size(), 1); // the link itself is not asked for
        QCOMPARE(fixture.server.last().cookie("IMTGC"), QByteArray("TGT-1"));
        QCOMPARE(passport.overdue, QByteArray(QTest::currentDataTag()) == "log-in is over" ? 1 : 0);
    }

    void realLinkWithoutAddress()
    {
        ServiceFixture fixture;
        HttpMgr *manager = HttpMgr::instance();
        QSignalSpy finished(manager, &HttpMgr::signal_getThirdPartyRealLinkFinish);
        manager->getThirdPartyRealLink("/ImportTemp/importTemplateUrl");
        QVERIFY(finished.isEmpty());
        QVERIFY(finished.wait(TestPatience));
        QCOMPARE(finished.value(0), (QVariantList{false, QString()}));
    }
};

FRIENDUI_TEST(TstServiceCall)
#include "tst_servicecall.moc"

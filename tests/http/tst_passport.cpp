#include "tests/http/sessionfixture.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

class TstPassport : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<WebHost>();
        m_server = std::make_unique<FakeServer>();
        m_host->addresses(
            m_server->url(QString()),
            "[Passport]\nloginurl=" + m_server->url(QStringLiteral("/ids/login")).toEncoded() +
                "\nclient_id=friendui-host\n");
        passport().setAuthId(QStringLiteral("auth-old"));
        passport().setTicket(QStringLiteral("ticket-1"));
        passport().setRememberMe(QStringLiteral("remember-1"));
        m_server->reply("/ids/login",
                        FakeReply::redirect(302, "/center")
                            .header("Set-Cookie", "imAuthId=auth-new; Path=/; HttpOnly"));
        m_refreshed =
            std::make_unique<QSignalSpy>(&passport(), &CPassportLoginServer::signal_refreshed);
        m_over =
            std::make_unique<QSignalSpy>(&passport(), &CPassportLoginServer::signal_sessionOver);
    }

    void cleanup()
    {
        m_refreshed.reset();
        m_over.reset();
        m_server.reset();
        m_host.reset();
    }

    void freshAuthId()
    {
        LogCapture log(m_host->context);
        passport().ManualRefreshAuthID();
        QVERIFY(passport().isRefreshing());
        QVERIFY(m_refreshed->wait());
        QCOMPARE(m_refreshed->first().first().toBool(), true);
        QVERIFY(!passport().isRefreshing());
        QCOMPARE(passport().authId(), QStringLiteral("auth-new"));
        QCOMPARE(passport().ticket(), QStringLiteral("ticket-1"));

        const FakeRequest asked = m_server->last();
        QCOMPARE(m_server->requests().size(), 1); // where it points to is not visited
        QCOMPARE(asked.method, QByteArray("GET"));
        QCOMPARE(asked.path, "/ids/login?service=" +
                                 QUrl::toPercentEncoding(m_server->url(QString()).toString()) +
                                 "&client_id=friendui-host");
        QCOMPARE(asked.cookie("IMTGC"), QByteArray("ticket-1"));
        QCOMPARE(asked.cookie("im_ids_r_me"), QByteArray("remember-1"));

        QCOMPARE(log.linesWith("ManualRefreshAuthID authid =auth***, TGC =tick***,ids_r =reme***")
                     .size(),
                 1);
        for (const char *secret : {"auth-old", "auth-new", "ticket-1", "remember-1"})
            QVERIFY2(log.linesWith(secret).isEmpty(), secret);
    }

    void outcomes_data()
    {
        const Rows<int, QByteArray, QByteArray, bool, bool> row{"status", "flag", "cookie",
                                                                "success", "over"};
        const QByteArray good = "imAuthId=auth-new; Path=/";
        row("new auth id", 302, QByteArray(), good, true, false);
        row("redirect without one", 302, QByteArray(), QByteArray(), false, false);
        row("an empty one", 302, QByteArray(), "imAuthId=; Path=/", false, false);
        row("ticket refused", 200, "true", QByteArray(), false, true);
        row("log-in page", 200, QByteArray(), good, false, false);
        row("server error", 500, "true", good, false, false);
    }

    void outcomes()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, flag);
        QFETCH(QByteArray, cookie);
        QFETCH(bool, success);
        QFETCH(bool, over);
        FakeReply reply = FakeReply::of(status);
        if (status == 302)
            reply.header("Location", "/center");
        if (!flag.isEmpty())
            reply.header("passport.login.flag", flag);
        if (!cookie.isEmpty())
            reply.header("Set-Cookie", cookie);
        m_server->reply("/ids/login", reply);
        passport().ManualRefreshAuthID();
        QVERIFY(m_refreshed->isEmpty());
        QVERIFY(m_refreshed->wait());
        QCOMPARE(m_refreshed->first().first().toBool(), success);
        QCOMPARE(m_over->size(), over ? 1 : 0);
        QCOMPARE(passport().authId(),
                 success ? QStringLiteral("auth-new") : QStringLiteral("auth-old"));
    }

    void oneExchangeAtATime()
    {
        LogCapture log(m_host->context);
        passport().UserOverdue();
        for (int i = 0; i < 3; ++i)
            passport().UserOverdue();
        passport().ManualRefreshAuthID();
        QVERIFY(m_refreshed->wait());
        QCOMPARE(m_server->requests().size(), 1);
        QCOMPARE(m_refreshed->size(), 1);
        QCOMPARE(log.linesWith("CPassportLoginServer::UserOverdue return direct.").size(), 3);
    }

    void refusedTicketIsNotAskedForAgain()
    {
        LogCapture log(m_host->context);
        m_server->reply("/ids/login", FakeReply::of(200).header("passport.login.flag", "true"));
        passport().UserOverdue();
        QVERIFY(m_over->wait());
        passport().UserOverdue();
        QVERIFY(!passport().isRefreshing());
        QCOMPARE(log.linesWith("CPassportLoginServer::UserOverdue return direct.").size(), 1);

        // A new log-in is a new ticket.
        passport().setTicket(QStringLiteral("ticket-2"));
        passport().UserOverdue();
        QVERIFY(passport().isRefreshing());
        QVERIFY(m_refreshed->wait());
        QCOMPARE(m_server->last().cookie("IMTGC"), QByteArray("ticket-2"));

        // A service that cannot be reached has refused nothing.
        passport().setTicket(QStringLiteral("ticket-3"));
        m_server->stop();
        passport().UserOverdue();
        QVERIFY(m_refreshed->wait());
        QCOMPARE(m_over->size(), 2);
        passport().UserOverdue();
        QVERIFY(passport().isRefreshing());
    }

    void noTicket()
    {
        passport().setTicket(QString());
        passport().UserOverdue();
        QVERIFY(m_over->isEmpty());
        QVERIFY(m_over->wait());
        QCOMPARE(m_refreshed->size(), 1);
        QVERIFY(m_server->requests().isEmpty());
        passport().UserOverdue();
        QVERIFY(!passport().isRefreshing());
    }

    // The answer about the old ticket says nothing about the new one.
    void loggedInMeanwhile()
    {
        m_server->reply("/ids/login",
                        FakeReply::of(200).header("passport.login.flag", "true").onRelease());
        passport().ManualRefreshAuthID();
        QTRY_COMPARE(m_server->unanswered(), 1);
        passport().setTicket(QStringLiteral("ticket-2"));
        passport().setAuthId(QStringLiteral("auth-2"));
        m_server->release();
        QVERIFY(m_refreshed->wait());
        QVERIFY(m_over->isEmpty());
        QCOMPARE(passport().authId(), QStringLiteral("auth-2"));
    }

    void ownerGone()
    {
        m_server->reply("/ids/login", FakeReply::of(200).onRelease());
        auto other = std::make_unique<CPassportLoginServer>();
        other->setTicket(QStringLiteral("t"));
        other->ManualRefreshAuthID();
        QTRY_COMPARE(m_server->unanswered(), 1);
        other.reset();
        QTRY_COMPARE(m_server->unanswered(), 0);
    }

    void expiredRequestRefreshes()
    {
        m_server->reply("/center/a.do", FakeReply::of(200).header("passport.login.flag", "true"));
        Call first, second;
        first.get(m_server->url(QStringLiteral("/center/a.do")));
        second.get(m_server->url(QStringLiteral("/center/a.do")));
        QVERIFY(first.waitForEnd());
        QVERIFY(second.waitForEnd());
        QTRY_COMPARE(passport().authId(), QStringLiteral("auth-new"));
        Call third;
        third.get(m_server->url(QStringLiteral("/center/a.do")));
        QVERIFY(third.waitForEnd());
        QCOMPARE(m_server->requests().isEmpty(), false);
        bool sentFresh = false;
        for (const FakeRequest &request : m_server->requests())
            sentFresh = sentFresh || (request.path == "/center/a.do" &&
                                      request.cookie("imAuthId") == "auth-new");
        QVERIFY(sentFresh);
    }

private:
    CPassportLoginServer &passport() { return m_host->passport; }

    std::unique_ptr<WebHost> m_host;
    std::unique_ptr<FakeServer> m_server;
    std::unique_ptr<QSignalSpy> m_refreshed, m_over;
};

FRIENDUI_TEST(TstPassport)
#include "tst_passport.moc"

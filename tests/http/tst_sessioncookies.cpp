// The log-in in the cookies of a request, and back into the passport.
#include "tests/http/sessionfixture.h"
#include "tests/support/testrunner.h"

namespace {

// Counts what it is told instead of asking a ticket service.
struct CountingPassport : CPassportLoginServer
{
    int overdue = 0;
    void UserOverdue() override { ++overdue; }
};

} // namespace

class TstSessionCookies : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<WebHost>();
        m_host->passport.setAuthId(QStringLiteral("auth1"));
        m_host->passport.setTicket(QStringLiteral("tgc1"));
        m_host->passport.setRememberMe(QStringLiteral("remember1"));
        m_server = std::make_unique<FakeServer>();
        m_server->reply("/center/a.do", FakeReply::of(200));
    }
    void cleanup()
    {
        m_server.reset();
        m_host.reset();
    }

    void sent()
    {
        QVERIFY(run());
        QCOMPARE(m_server->last().cookie("imAuthId"), QByteArray("auth1"));
        QCOMPARE(m_server->last().cookie("IMTGC"), QByteArray("tgc1"));
        QCOMPARE(m_server->last().cookie("im_ids_r_me"), QByteArray("remember1"));
    }

    void valuesThatAreNotSent_data()
    {
        const Rows<QString> row{"value"};
        row("empty", QString());
        row("line break", QStringLiteral("a\r\nX-Inj: yes"));
        row("line feed", QStringLiteral("a\nb"));
        row("NUL", QString(QChar(0)) + QLatin1Char('a'));
        row("delete", QString(QChar(0x7f)));
        row("another cookie", QStringLiteral("a; admin=1"));
    }

    void valuesThatAreNotSent()
    {
        QFETCH(QString, value);
        m_host->passport.setAuthId(value);
        QVERIFY(run());
        QVERIFY(m_server->last().cookie("imAuthId").isNull());
        QVERIFY(m_server->last().cookie("admin").isNull());
        QVERIFY(!m_server->last().hasHeader("X-Inj"));
        QCOMPARE(m_server->last().cookie("IMTGC"), QByteArray("tgc1"));
    }

    // The jar of the manager before must not answer for it.
    void emptyAfterItWasSet()
    {
        QVERIFY(run(FakeReply::of(200).header("Set-Cookie", "imAuthId=auth2; Path=/")));
        m_host->passport.setAuthId(QString());
        QVERIFY(run());
        QVERIFY(m_server->last().cookie("imAuthId").isNull());

        // Nor when all share one.
        m_host->passport.setAuthId(QStringLiteral("auth3"));
        for (const char *expected : {"auth3", ""}) {
            Call call;
            call.session->setSharedManager(true);
            call.get(m_server->url(QStringLiteral("/center/a.do")));
            QVERIFY(call.waitForEnd());
            QCOMPARE(m_server->last().cookie("imAuthId"), QByteArray(expected));
            m_host->passport.setAuthId(QString());
        }
    }

    void replyReplaces_data()
    {
        // cookies: separated by "|"
        const Rows<QByteArray, QString> row{"cookies", "authId"};
        row("none", QByteArray(), QStringLiteral("auth1"));
        row("another name", "other=1; Path=/", QStringLiteral("auth1"));
        row("new", "imAuthId=auth2; Path=/; HttpOnly", QStringLiteral("auth2"));
        row("several paths", "imAuthId=deep; Path=/center|imAuthId=auth2; Path=/",
            QStringLiteral("auth2"));
        row("another path", "imAuthId=auth2; Path=/elsewhere", QStringLiteral("auth1"));
        row("another domain", "imAuthId=auth2; Path=/; Domain=evil.example",
            QStringLiteral("auth1"));
        row("taken away", QByteArray("imAuthId=x; Path=/; Expires=Thu, 01 Jan 1970 00:00:00 GMT"),
            QStringLiteral("auth1"));
    }

    void replyReplaces()
    {
        QFETCH(QByteArray, cookies);
        QFETCH(QString, authId);
        FakeReply reply = FakeReply::of(200);
        for (const QByteArray &cookie : cookies.split('|'))
            if (!cookie.isEmpty())
                reply.header("Set-Cookie", cookie);
        QVERIFY(run(reply));
        QCOMPARE(m_host->passport.authId(), authId);
        QCOMPARE(m_host->passport.ticket(), QStringLiteral("tgc1"));
        QCOMPARE(m_host->passport.rememberMe(), QStringLiteral("remember1"));
    }

    // A request that was sent with the old log-in ends after the new one came.
    void newerValueSurvivesAnOldReply()
    {
        m_server->reply("/center/a.do", FakeReply::of(200).onRelease());
        Call call;
        call.get(m_server->url(QStringLiteral("/center/a.do")));
        QTRY_COMPARE(m_server->unanswered(), 1);
        m_host->passport.setAuthId(QStringLiteral("fresh"));
        m_server->release();
        QVERIFY(call.waitForEnd());
        QCOMPARE(m_host->passport.authId(), QStringLiteral("fresh"));
    }

    void expiredLogIn_data()
    {
        const Rows<int, QByteArray, int> row{"status", "flag", "calls"};
        row("expired", 200, "true", 1);
        row("expired with an error", 500, "true", 1);
        row("not expired", 200, "false", 0);
        row("another word", 200, "TRUE", 0);
    }

    void expiredLogIn()
    {
        QFETCH(int, status);
        QFETCH(QByteArray, flag);
        QFETCH(int, calls);
        CountingPassport passport;
        m_host->context.passportServer = &passport;
        m_server->reply("/center/a.do",
                        FakeReply::of(status, "{}").header("passport.login.flag", flag));
        Call call;
        call.get(m_server->url(QStringLiteral("/center/a.do")));
        QVERIFY(call.waitForEnd());
        QCOMPARE(passport.overdue, calls);
        QCOMPARE(call.status, status); // delivered all the same
        QCOMPARE(call.body, QByteArray("{}"));
    }

    void withoutPassport()
    {
        m_host->context.passportServer = nullptr;
        QVERIFY(run(FakeReply::of(200)
                        .header("passport.login.flag", "true")
                        .header("Set-Cookie", "imAuthId=a; Path=/")));
        QVERIFY(!m_server->last().hasHeader("Cookie"));
    }

    void basicAuthorisation_data()
    {
        const Rows<QString, QString, QByteArray> row{"user", "password", "expected"};
        row("both", QStringLiteral("u1"), QStringLiteral("secret"),
            QByteArray("Basic " + QByteArray("u1:5ebe2294ecd0e0f08eab7690d2a6ee69").toBase64()));
        // Latin-1 under the digest, UTF-8 around it.
        row("beyond ASCII", QString::fromUtf8("张"), QString::fromUtf8("é"),
            QByteArray("Basic " + QByteArray("张:3406877694691ddd1dfb0aca54681407").toBase64()));
        row("no user", QString(), QStringLiteral("secret"), QByteArray());
        row("no password", QStringLiteral("u1"), QString(), QByteArray());
    }

    void basicAuthorisation()
    {
        QFETCH(QString, user);
        QFETCH(QString, password);
        QFETCH(QByteArray, expected);
        m_host->context.user = user;
        m_host->context.userPassword = password;
        QCOMPARE(RequestHeaders::basicAuthorization(), expected);
    }

private:
    bool run(const FakeReply &reply = FakeReply::of(200))
    {
        m_server->reply("/center/a.do", reply);
        Call call;
        call.get(m_server->url(QStringLiteral("/center/a.do")));
        return call.waitForEnd() && call.succeeded();
    }

    std::unique_ptr<WebHost> m_host;
    std::unique_ptr<FakeServer> m_server;
};

FRIENDUI_TEST(TstSessionCookies)
#include "tst_sessioncookies.moc"

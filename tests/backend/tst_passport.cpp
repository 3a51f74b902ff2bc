// Who is logged in, from the first ticket to the last.
#include "backend/session.h"
#include "sample/samplecompany.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

namespace {
constexpr char Settings[] = "/center/clientsettings/getClientSettings.do";
constexpr char Children[] = "/center/org/searchOrg.do";

std::string basic(const QString &user, const QString &password)
{
    return "Basic " + (user + QLatin1Char(':') + password).toUtf8().toBase64().toStdString();
}
} // namespace

class TstPassport : public QObject
{
    Q_OBJECT

private slots:
    void logIn_data()
    {
        const Rows<QString, bool, int> row{"name", "rightPassword", "code"};
        const SampleCompany company;
        row("uid", "u000000", true, 0);
        row("account", company.person(17).account, true, 0);
        row("other company", "x000000", true, 0);
        row("wrong password", "u000000", false, 10001);
        row("nobody", "u999999", true, 10001);
        row("digits of others", "0", true, 10001);
        row("no name", "", true, 10001);
    }
    void logIn()
    {
        static RunningBackEnd backEnd;
        QFETCH(QString, name);
        QFETCH(bool, rightPassword);
        WebClient client(*backEnd);
        const QString password = rightPassword ? backEnd->password() : QStringLiteral("wrong");
        const Answer answer = client.logIn(name, password);
        QCOMPARE(answer.status, 200);
        QTEST(answer.code(), "code");
        QCOMPARE(client.cookies.size(), size_t(answer.code() == 0 ? 3 : 0));
        for (const auto &[header, value] : answer.headers) {
            if (header == "Set-Cookie")
                QVERIFY(value.find("; Path=/; HttpOnly; Secure") != std::string::npos);
        }
    }

    void ticketsOutliveARestart()
    {
        RunningBackEnd backEnd;
        WebClient before(*backEnd);
        before.logIn(*backEnd, QStringLiteral("u000003"));
        const QString password = backEnd->password();
        backEnd.restart();
        QCOMPARE(backEnd->password(), password);
        WebClient after(*backEnd);
        after.cookies = before.cookies;
        const Answer answer = after.post(Settings, {});
        QCOMPARE(answer.code(), 0);
        QVERIFY(!answer.isOverdue());
    }

    void expiredTicketIsExchanged()
    {
        RunningBackEnd backEnd(withLevers());
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000003"));
        QCOMPARE(backEnd.control("user", R"({"uid":"u000003","expire":true})").status, 200);

        const Answer overdue = client.post(Settings, {});
        QCOMPARE(overdue.code(), 0); // answered all the same
        QVERIFY(overdue.isOverdue());
        const Answer children = client.post(Children, {{"orgId", "C1"}});
        QCOMPARE(children.status, 302);
        QCOMPARE(children.header("Location"), backEnd->address().toStdString() + "/ids/login");

        const std::string target = backEnd->address().toStdString() + "/page?a=1&b=c+d";
        const std::string old = client.cookies["imAuthId"];
        const Answer exchange =
            client.get("/ids/login?client_id=x&service=" +
                       QUrl::toPercentEncoding(QString::fromStdString(target)).toStdString());
        QCOMPARE(exchange.status, 302);
        QCOMPARE(QString::fromStdString(exchange.header("Location")),
                 QString::fromStdString(target));
        QVERIFY(client.cookies["imAuthId"] != old);
        QVERIFY(!client.post(Settings, {}).isOverdue());
        QCOMPARE(client.post(Children, {{"orgId", "C1"}}).status, 200);
    }

    void exchangeTarget_data()
    {
        // service: as it stands in the address
        const Rows<QByteArray> row{"service"};
        row("none", QByteArray());
        row("another scheme", "javascript:alert(1)");
        row("no host", "https:///x");
        row("a second header", "https://a/%0d%0aSet-Cookie:%20x=y");
        row("malformed", "%zz");
    }
    void exchangeTarget()
    {
        static RunningBackEnd backEnd;
        QFETCH(QByteArray, service);
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000003"));
        const Answer answer = client.get("/ids/login?service=" + service.toStdString());
        if (service == "%zz") {
            QCOMPARE(answer.code(), 10001);
            return;
        }
        QCOMPARE(answer.status, 302);
        QCOMPARE(answer.header("Location"), backEnd->address().toStdString() + "/center/");
        QCOMPARE(answer.headers.count("Set-Cookie"), size_t(1));
    }

    void withoutGoodTicket_data()
    {
        // code: of a service that takes an expired ticket
        const Rows<QString, int> row{"lever", "code"};
        row("logged out", R"({"uid":"u000003","logOut":true})", 10001);
        row("both expired", R"({"uid":"u000003","expire":true,"expireTicket":true})", 0);
    }
    void withoutGoodTicket()
    {
        QFETCH(QString, lever);
        RunningBackEnd backEnd(withLevers());
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000003"));
        QCOMPARE(backEnd.control("user", lever.toStdString()).status, 200);
        const Answer page = client.get("/ids/login");
        QCOMPARE(page.status, 200);
        QVERIFY(page.isOverdue());
        const Answer settings = client.post(Settings, {});
        QTEST(settings.code(), "code");
        QVERIFY(settings.isOverdue());
        QCOMPARE(client.post(Children, {{"orgId", "C1"}}).status, 302);
    }

    void whoCalls_data()
    {
        // authId: "good": the user's own; empty: no cookie
        const Rows<QString, QString, bool> row{"authId", "authorization", "known"};
        row("cookie", "good", "", true);
        row("made up", QString(64, QLatin1Char('0')), "", false);
        row("basic", "", "password", true);
        row("basic, wrong", "", "wrong", false);
        row("the cookie counts", "made up", "password", false);
        row("nothing", "", "", false);
        // One kind of ticket is no other kind.
        row("long ticket", "IMTGC", "", false);
    }
    void whoCalls()
    {
        static RunningBackEnd backEnd;
        QFETCH(QString, authId);
        QFETCH(QString, authorization);
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000003"));
        if (authId == QLatin1String("IMTGC"))
            client.cookies["imAuthId"] = client.cookies["IMTGC"];
        else if (authId.isEmpty())
            client.cookies.clear();
        else if (authId != QLatin1String("good"))
            client.cookies["imAuthId"] = authId.toStdString();
        if (!authorization.isEmpty()) {
            const bool isRight = authorization == QLatin1String("password");
            client.authorization =
                basic(QStringLiteral("u000003"), isRight ? backEnd->password() : authorization);
        }
        const Answer answer = client.post(Settings, {});
        QTEST(answer.code() == 0, "known");
        QTEST(!answer.isOverdue(), "known");
    }

    void databaseHoldsNoTicket()
    {
        RunningBackEnd backEnd;
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000003"));
        const QByteArray ticket = QByteArray::fromStdString(client.cookies["imAuthId"]);
        QCOMPARE(ticket.size(), 64);
        backEnd->stop();
        const QByteArray content = contentOf(backEnd.folder() + QStringLiteral("/backend.sqlite"));
        QVERIFY(content.contains("u000003"));
        QVERIFY(!content.contains(ticket));
        QVERIFY(!content.contains(QByteArray::fromHex(ticket)));
    }
};

FRIENDUI_TEST(TstPassport)
#include "tst_passport.moc"

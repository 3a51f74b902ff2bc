// The host's log-in to the web services, against a scripted server, and the
// services as a whole with a program that only pretends to serve.
#include "host/hostcontext.h"
#include "host/serviceaddressfile.h"
#include "host/weblog.h"
#include "host/webservices.h"
#include "host/websession.h"
#include "http/cpassportloginserver.h"
#include "tests/host/ui/fakecore.h"
#include "tests/support/fakecontext.h"
#include "tests/support/fakeserver.h"
#include "tests/support/files.h"
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"

#include <QTemporaryDir>

Q_DECLARE_METATYPE(FakeReply)

namespace {

const char LogIn[] = "/ids/login";
const char Digest[] = "5ebe2294ecd0e0f08eab7690d2a6ee69"; // of "secret"

FakeReply accepted(const QByteArray &authId = "auth-1")
{
    FakeReply reply = FakeReply::json(R"({"code":0})");
    reply.header("Set-Cookie", "imAuthId=" + authId + "; Path=/; HttpOnly");
    reply.header("Set-Cookie", "IMTGC=TGT-" + authId + "; Path=/; HttpOnly");
    reply.header("Set-Cookie", "im_ids_r_me=remember; Path=/; HttpOnly");
    return reply;
}

// The page of the ticket service for who is not known.
FakeReply loginPage()
{
    FakeReply reply = FakeReply::of(200, "please log in");
    reply.header("passport.login.flag", "true");
    return reply;
}

struct Session
{
    FakeServer server;
    QTemporaryDir folder;
    FakeContext context;
    HostContextScope scope{&context};
    WebSession session;

    Session()
    {
        context.user = QStringLiteral("u1");
        context.programFolder = folder.path();
        context.passportServer = session.passport();
        QString problem;
        ServiceAddressFile::write(ServiceAddressFile::in(folder.path()),
                                  server.url(QString()).toString(), &problem);
    }
    void logIn() { session.logIn(QStringLiteral("u1"), QStringLiteral("secret")); }
};

struct Services
{
    QTemporaryDir folder;
    FakeCore core;
    HostContext context{&core, folder.path()};
    WebServices::Options options;

    explicit Services(const char *mode)
    {
        options.found.process.program = QStringLiteral(FRIENDUI_FAKE_BACKEND);
        options.found.process.dataFolder = folder.path();
        write("mode", mode);
        write("ca.pem", "a certificate");
        write("password", "s3cret\n");
    }
    ~Services() { context.shutDown(); }
    void write(const char *name, const char *content) const
    {
        writeFile(folder.filePath(QLatin1String(name)), content);
    }
    QByteArray addresses() const { return contentOf(ServiceAddressFile::in(folder.path())); }
};

} // namespace

class TstWebSession : public QObject
{
    Q_OBJECT

private slots:
    void logsInAndKeepsTheTickets()
    {
        Session s;
        s.server.reply(LogIn, accepted());
        const LogCapture log(s.context);
        s.logIn();
        QCOMPARE(s.session.state(), WebSession::LoggingIn);
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
        QCOMPARE(s.server.last().method, QByteArray("POST"));
        QCOMPARE(s.server.last().body, QByteArray("userName=u1&password=") + Digest);
        QCOMPARE(s.session.passport()->authId(), QStringLiteral("auth-1"));
        QCOMPARE(s.session.passport()->ticket(), QStringLiteral("TGT-auth-1"));
        QCOMPARE(s.session.passport()->rememberMe(), QStringLiteral("remember"));
        const QString logged = log.lines().join(QLatin1Char('\n'));
        QVERIFY(logged.contains(QLatin1String("logged in to the web services as u1")));
        for (const char *secret : {"secret", Digest, "auth-1", "remember"})
            QVERIFY2(!logged.contains(QLatin1String(secret)), secret);

        s.session.logOut();
        QCOMPARE(s.session.state(), WebSession::LoggedOut);
        QVERIFY(s.session.passport()->authId().isEmpty());
        QVERIFY(s.session.passport()->ticket().isEmpty());
    }

    void aRefusalIsNotRepeated()
    {
        Session s;
        s.server.reply(LogIn, FakeReply::json(R"({"code":10001})"));
        s.logIn();
        QTRY_COMPARE(s.session.state(), WebSession::Refused);
        QVERIFY(s.session.problem().contains(QLatin1String("10001")));
        QCOMPARE(s.server.count(LogIn), 1);
        QVERIFY(s.session.passport()->authId().isEmpty());
        // Not by itself; but when the user asks for it.
        s.server.reply(LogIn, accepted());
        s.logIn();
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
        QCOMPARE(s.server.count(LogIn), 2);
    }

    void whatIsNoAnswerIsTriedAgain_data()
    {
        const Rows<FakeReply> row{"first"};
        row("an error", FakeReply::of(503));
        row("no service", FakeReply::of(404));
        row("no JSON", FakeReply::of(200, "<html>"));
        row("no tickets", FakeReply::json(R"({"code":0})"));
        row("a dropped connection", FakeReply::of(200, QByteArray(5000, ' ')).dropped(3000));
    }
    void whatIsNoAnswerIsTriedAgain()
    {
        QFETCH(FakeReply, first);
        Session s;
        s.server.reply(LogIn, QVector<FakeReply>{first, accepted()});
        s.logIn();
        QTRY_COMPARE(s.session.state(), WebSession::Waiting);
        QVERIFY(!s.session.problem().isEmpty());
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
        QVERIFY(s.session.problem().isEmpty());
    }

    void aServerThatComesLate()
    {
        Session s;
        s.server.reply(LogIn, accepted());
        s.server.stop();
        s.logIn();
        QTRY_COMPARE(s.session.state(), WebSession::Waiting);
        s.server.restart();
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
    }

    void anExpiredTicketIsRenewedByLoggingIn()
    {
        Session s;
        s.server.reply(LogIn, QVector<FakeReply>{accepted("old"), loginPage(), accepted("new")});
        s.logIn();
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
        // As a request of the module does whose reply says so.
        s.session.passport()->UserOverdue();
        QTRY_COMPARE(s.session.state(), WebSession::Waiting);
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
        QCOMPARE(s.session.passport()->ticket(), QStringLiteral("TGT-new"));
        QCOMPARE(s.server.count(LogIn), 3);
        QVERIFY(!s.server.last().hasHeader("Cookie")); // not the tickets that are void
    }

    void loggingOutEndsALogInUnderWay()
    {
        Session s;
        s.server.reply(LogIn, accepted().onRelease());
        s.logIn();
        QTRY_COMPARE(s.server.count(LogIn), 1);
        s.session.logOut();
        s.server.release();
        const QSignalSpy changed(&s.session, &WebSession::stateChanged);
        // Another log-in comes through behind it.
        s.server.reply(LogIn, accepted("second"));
        s.logIn();
        QTRY_COMPARE(s.session.state(), WebSession::LoggedIn);
        QCOMPARE(s.session.passport()->authId(), QStringLiteral("second"));
        QCOMPARE(changed.count(), 2);
    }

    void twoHostsDoNotDisturbEachOther()
    {
        Services one("serves");
        Services other("serves");
        const HostContextScope scope(&one.context);
        WebServices first(&one.context, one.options);
        first.start();
        QCOMPARE(first.state(), WebServices::Starting);
        // Nothing listens at the address that the program tells.
        QTRY_COMPARE(first.state(), WebServices::Unreachable);
        QCOMPARE(one.context.password(), QStringLiteral("s3cret"));
        QCOMPARE(one.context.caFile(), one.folder.filePath(QStringLiteral("ca.pem")));
        QVERIFY(one.context.passport());
        QVERIFY(one.addresses().contains("127.0.0.1:40123"));
        QVERIFY(other.addresses().isEmpty());
        const QByteArray written = one.addresses();
        {
            WebServices second(&other.context, other.options);
            second.start();
            QTRY_VERIFY(!other.addresses().isEmpty());
        }
        QVERIFY(!other.context.passport());
        QVERIFY(!other.addresses().contains("40123"));
        QCOMPARE(one.addresses(), written);
        first.stop();
        QVERIFY(!one.addresses().contains("40123"));
        QVERIFY(one.context.password().isEmpty() && one.context.caFile().isEmpty());
    }

    void aFailureIsToldAndCanBeTriedAgain()
    {
        Services bench("refuses");
        const HostContextScope scope(&bench.context);
        // Of another host that runs with this folder.
        bench.write("allurl.ini", "[Hosts]\ncenter=https://127.0.0.1:1\n");
        WebServices services(&bench.context, bench.options);
        const QSignalSpy notes(&services, &WebServices::note);
        services.start();
        QTRY_COMPARE(services.state(), WebServices::Failed);
        QCOMPARE(notes.count(), 1);
        QVERIFY(services.problem().contains(QLatin1String("the port 443 is in use")));
        QVERIFY(bench.addresses().contains("127.0.0.1:1"));
        bench.write("mode", "serves");
        services.tryAgain();
        QTRY_COMPARE(services.state(), WebServices::Unreachable);
        QVERIFY(bench.addresses().contains("40123"));
    }

    void aCrashTakesTheAddressBack()
    {
        Services bench("crashes");
        const HostContextScope scope(&bench.context);
        WebServices services(&bench.context, bench.options);
        const QSignalSpy notes(&services, &WebServices::note);
        services.start();
        QTRY_COMPARE(services.state(), WebServices::Failed);
        QCOMPARE(notes.count(), 2); // started once more; given up
        QVERIFY(!bench.addresses().contains("40123"));
    }

    void requestsReachTheMonitor()
    {
        Services bench("serves");
        WebLog log;
        QSignalSpy recorded(&log, &WebLog::recorded);
        bench.context.webRequestFinished({});
        bench.context.setWebLog(&log);
        bench.context.webRequestFinished({});
        QCOMPARE(recorded.count(), 1);
    }
};

FRIENDUI_TEST(TstWebSession)
#include "tst_websession.moc"

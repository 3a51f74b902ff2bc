// The client against the real back end, while this one answers as its levers say, or
// goes away. What the client makes of each status, redirect and certificate is seen with
// a fake server.
#include "http/cpassportloginserver.h"
#include "org/httporgfun.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QPointer>
#include <QTest>

#include <json/writer.h>

namespace {

constexpr int Long = 60000; // ms; for a machine that does much else
// Qt itself sends once more what a connection that was kept alive has swallowed.
constexpr int AtLeastFour = -4;
constexpr char ChildrenPath[] = "/center/org/searchOrg.do";
constexpr char LocatePath[] = "/center/org/locateOrg.do";

enum Kind
{
    Children,
    Locate
};

std::string quoted(const std::string &text)
{
    return Json::valueToQuotedString(text.c_str());
}

// A host whose user is logged in to a back end with levers.
class Client
{
public:
    explicit Client(const BackEndOptions &options = withLevers()) : backEnd(options)
    {
        context.programFolder = m_folder.path();
        context.passportServer = &passport;
        useBackEnd();
        logIn();
    }

    // After a restart, on another port.
    void useBackEnd()
    {
        context.authorities = backEnd->caFile();
        const QByteArray address = backEnd->address().toUtf8();
        QFile file(m_folder.filePath(QStringLiteral("allurl.ini")));
        if (!file.open(QIODevice::WriteOnly))
            qFatal("the address file cannot be written");
        file.write("[Hosts]\ncenter=" + address + "\nids=" + address + "\n[searchOrg]\n" +
                   "searchorgurl=" + address + ChildrenPath + "\nlocateorgurl=" + address +
                   LocatePath + "\n[Passport]\nloginurl=" + address +
                   "/ids/login\nclient_id=friendui-host\n");
    }
    void logIn()
    {
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000000"));
        const auto cookie = [&client](const char *name) {
            return QString::fromStdString(client.cookies[name]);
        };
        passport.setAuthId(cookie("imAuthId"));
        passport.setTicket(cookie("IMTGC"));
        passport.setRememberMe(cookie("im_ids_r_me"));
    }
    // The members of a rule besides its path.
    void rule(const char *path, const std::string &members)
    {
        const Answer done =
            backEnd.control("rule", "{\"path\":" + quoted(path) + "," + members + "}");
        if (done.status != 200)
            qFatal("%s", done.body.c_str());
    }
    Json::Value log()
    {
        return WebClient(backEnd->controlPort()).get("/_ctl/log").json["requests"];
    }
    int seen(const std::string &path)
    {
        int count = 0;
        const Json::Value requests = log();
        for (const Json::Value &request : requests)
            count += request["path"].asString() == path ? 1 : 0;
        return count;
    }

    RunningBackEnd backEnd;
    FakeContext context;
    CPassportLoginServer passport;
    HostContextScope scope{&context};

private:
    QTemporaryDir m_folder;
};

// A request and what came of it: "elements", "failed" or "silent".
struct Asked
{
    QPointer<HttpOrgFun> request = new HttpOrgFun;
    QStringList news;
    OrgElementList elements;
    int status = -1;

    explicit Asked(Kind kind = Children)
    {
        const auto arrived = [this](const OrgElementList &list) {
            elements += list;
            news.append(QStringLiteral("elements"));
        };
        const auto failed = [this] { news.append(QStringLiteral("failed")); };
        const QObject *scope = request;
        QObject::connect(request, &HttpOrgFun::signal_searchOrgElements, scope, arrived);
        QObject::connect(request, &HttpOrgFun::signal_locateOrgElements, scope, arrived);
        QObject::connect(request, &HttpOrgFun::searchOrgFail, scope,
                         [this, failed](const QString &, int code) {
                             status = code;
                             failed();
                         });
        QObject::connect(request, &HttpOrgFun::signal_locateOrgFail, scope, failed);
        if (kind == Children)
            request->searchOrg(QStringLiteral("C1"), QStringLiteral("C1"));
        else
            request->locateOrg(QStringLiteral("u000001"), false);
    }
    ~Asked() { delete request; }
    Asked(const Asked &) = delete;
    Asked &operator=(const Asked &) = delete;

    bool waitForEnd() const
    {
        return QTest::qWaitFor([this] { return !request; }, Long);
    }
    QString outcome() const
    {
        return news.isEmpty() ? QStringLiteral("silent") : news.join(QLatin1Char(' '));
    }
};

} // namespace

class TstClientFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_client = std::make_unique<Client>(); }
    void init()
    {
        if (m_client)
            m_client->backEnd.control("reset", "{}");
    }
    void cleanupTestCase() { m_client.reset(); }

    void replies_data();
    void replies();
    void endsWithItsOwner();
    void hangsAndIsGivenUp();
    void twoOfFourAttemptsAreEnough();
    void restartedWhileRequestsRun();

private:
    std::unique_ptr<Client> m_client; // made anew by the tests that spoil it
};

void TstClientFaults::replies_data()
{
    QTest::addColumn<QByteArray>("members");
    QTest::addColumn<int>("sends");
    QTest::addColumn<QString>("outcome");
    const auto row = [](const char *name, const std::string &members, int sends,
                        const char *outcome) {
        QTest::newRow(name) << QByteArray::fromStdString(members) << sends
                            << QString::fromLatin1(outcome);
    };
    const auto body = [](const std::string &text) { return "\"body\":" + quoted(text); };
    const auto deep = [](const char *piece) {
        return QByteArray(piece).repeated(100000).toStdString();
    };
    row("connection dropped", "\"drop\":true", AtLeastFour, "failed");
    row("says that it is packed", "\"headers\":{\"Content-Encoding\":\"gzip\"}", 1, "failed");
    row("33 MB", body(std::string(33, ' ')) + ",\"headers\":{\"Content-Length\":\"34603008\"}", 1,
        "failed");
    row("another kind", body("[{\"orgId\":\"d\"}]"), 1, "silent");
    row("members of other kinds", body("{\"org\":7,\"emp\":{\"userId\":\"u\"}}"), 1, "elements");
    row("cut", body("{\"org\":[{\"orgId\":\"d\""), 1, "silent");
    row("byte order mark", body("\xef\xbb\xbf{\"org\":[]}"), 1, "elements");
    row("100,000 arrays", body("{\"org\":" + deep("[")), 1, "silent");
    row("100,000 objects", body(deep("{\"org\":")), 1, "silent");
    row("no text at all", body(std::string("\0\1\2", 3)), 1, "silent");
}

void TstClientFaults::replies()
{
    QFETCH(const QByteArray, members);
    QFETCH(const int, sends);
    m_client->rule(ChildrenPath, members.toStdString());
    const Asked asked;
    QVERIFY(asked.waitForEnd());
    if (sends == AtLeastFour)
        QVERIFY(m_client->seen(ChildrenPath) >= HttpOrgFun::MaximumRetries + 1);
    else
        QCOMPARE(m_client->seen(ChildrenPath), sends);
    QTEST(asked.outcome(), "outcome");
    m_client->backEnd.control("reset", "{}");
    const Asked next;
    QVERIFY(next.waitForEnd());
    QCOMPARE(next.outcome(), QStringLiteral("elements"));
    QVERIFY(!next.elements.isEmpty());
}

// Whoever is gone gets no answer, and nothing is sent for him again.
void TstClientFaults::endsWithItsOwner()
{
    m_client->rule(ChildrenPath, "\"status\":500,\"delayMs\":300");
    {
        Asked asked;
        QTRY_COMPARE(m_client->seen(ChildrenPath), 1);
    }
    // Longer than the answer of a request that was sent later.
    m_client->rule(LocatePath, "\"delayMs\":600,\"status\":403");
    const Asked later(Locate);
    QVERIFY(later.waitForEnd());
    QCOMPARE(m_client->seen(ChildrenPath), 1);
}

void TstClientFaults::hangsAndIsGivenUp()
{
    m_client->rule(ChildrenPath, "\"delayMs\":600000");
    Asked asked;
    for (int attempt = 1; attempt <= HttpOrgFun::MaximumRetries + 1; ++attempt) {
        QTRY_COMPARE(m_client->seen(ChildrenPath), attempt);
        QVERIFY(asked.news.isEmpty());
        asked.request->slot_timeout();
    }
    QVERIFY(asked.waitForEnd());
    QCOMPARE(asked.outcome(), QStringLiteral("failed"));
    QCOMPARE(asked.status, 0);
    m_client.reset(); // its threads are asleep
    m_client = std::make_unique<Client>();
}

void TstClientFaults::twoOfFourAttemptsAreEnough()
{
    m_client->rule(ChildrenPath, "\"status\":500,\"times\":1");
    m_client->rule(ChildrenPath, "\"drop\":true,\"times\":1");
    m_client->backEnd.control("user", R"({"uid":"u000000","expire":true})");
    const QString before = m_client->passport.authId();
    const Asked asked;
    QVERIFY(asked.waitForEnd());
    QCOMPARE(asked.outcome(), QStringLiteral("elements"));
    QVERIFY(m_client->seen(ChildrenPath) >= 4); // failed, dropped, expired, answered
    QVERIFY(m_client->passport.authId() != before);
}

void TstClientFaults::restartedWhileRequestsRun()
{
    // A delay ends with the back end, which would still answer then.
    m_client->rule(ChildrenPath, "\"delayMs\":600000,\"drop\":true");
    std::vector<std::unique_ptr<Asked>> running;
    for (int i = 0; i < 5; ++i)
        running.push_back(std::make_unique<Asked>());
    QTRY_COMPARE(m_client->seen(ChildrenPath), 5);
    m_client->backEnd.restart();
    for (const auto &asked : running) {
        QVERIFY(asked->waitForEnd());
        QCOMPARE(asked->outcome(), QStringLiteral("failed"));
    }
    // The log-in has outlived it.
    m_client->useBackEnd();
    const Asked next;
    QVERIFY(next.waitForEnd());
    QCOMPARE(next.outcome(), QStringLiteral("elements"));
}

FRIENDUI_TEST(TstClientFaults)
#include "tst_clientfaults.moc"

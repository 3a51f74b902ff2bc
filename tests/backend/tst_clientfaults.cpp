// The client against the real back end, while this one answers as its levers say,
// shows wrong certificates, or goes away.
#include "http/chttpsession.h"
#include "http/cpassportloginserver.h"
#include "http/requestheaders.h"
#include "org/httporgfun.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QFile>
#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <json/writer.h>

namespace {

constexpr int Long = 60000; // ms; for a machine that does much else
// Qt itself sends once more what a connection that was kept alive has swallowed.
constexpr int AtLeastFour = -4;
constexpr char ChildrenPath[] = "/center/org/searchOrg.do";
constexpr char LocatePath[] = "/center/org/locateOrg.do";
constexpr char SearchPath[] = "/center/org/fuzzySearchOrg.do";

enum Kind
{
    Children,
    Locate,
    Search
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
                   LocatePath + "\nfuzzysearchorgurl=" + address + SearchPath +
                   "\n[Passport]\nloginurl=" + address + "/ids/login\nclient_id=friendui-host\n");
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
    QUrl url(const char *path) { return QUrl(backEnd->address() + QLatin1String(path)); }
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

// A request and what came of it: "elements", "failed", "not there" or "silent".
struct Asked
{
    QPointer<HttpOrgFun> request = new HttpOrgFun;
    QStringList news;
    OrgElementList elements;
    int status = -1;

    explicit Asked(Kind kind = Children, const QString &id = QStringLiteral("C1"))
    {
        const auto arrived = [this](const OrgElementList &list) {
            elements += list;
            news.append(QStringLiteral("elements"));
        };
        const auto failed = [this] { news.append(QStringLiteral("failed")); };
        const QObject *scope = request;
        QObject::connect(request, &HttpOrgFun::signal_searchOrgElements, scope, arrived);
        QObject::connect(request, &HttpOrgFun::signal_locateOrgElements, scope, arrived);
        QObject::connect(request, &HttpOrgFun::signal_searchFinished, scope,
                         [this] { news.append(QStringLiteral("elements")); });
        QObject::connect(request, &HttpOrgFun::searchOrgFail, scope,
                         [this, failed](const QString &, int code) {
                             status = code;
                             failed();
                         });
        QObject::connect(request, &HttpOrgFun::signal_locateOrgFail, scope, failed);
        QObject::connect(request, &HttpOrgFun::signal_fuzzySearchFail, scope, failed);
        QObject::connect(request, &HttpOrgFun::signal_noLocate, scope,
                         [this] { news.append(QStringLiteral("not there")); });
        switch (kind) {
        case Children:
            request->searchOrg(id, QStringLiteral("C1"));
            break;
        case Locate:
            request->locateOrg(QStringLiteral("u000001"), false);
            break;
        case Search:
            request->fuzzySearchOrg(QStringLiteral("a"), true, 1, 20);
            break;
        }
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

    void statusTable_data();
    void statusTable();
    void replies_data();
    void replies();
    void redirects_data();
    void redirects();
    void endsWithItsOwner();
    void hangsAndIsGivenUp();
    void twoOfFourAttemptsAreEnough();
    void restartedWhileRequestsRun();
    void certificates_data();
    void certificates();

private:
    std::unique_ptr<Client> m_client; // made anew by the tests that spoil it
};

void TstClientFaults::statusTable_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("sends");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<int>("exchanges"); // of the ticket
    struct Row
    {
        int status;
        int sends[3];
        const char *outcome[3];
        int exchanges;
    };
    const Row rows[] = {
        {200, {1, 1, 1}, {"elements", "elements", "elements"}, 0},
        {204, {4, 1, 4}, {"failed", "not there", "failed"}, 0},
        {302, {4, 4, 4}, {"failed", "failed", "failed"}, 4},
        {400, {4, 4, 4}, {"failed", "failed", "failed"}, 0},
        {401, {1, 1, 4}, {"failed", "not there", "failed"}, 0},
        {403, {1, 1, 4}, {"failed", "not there", "failed"}, 0},
        {404, {4, 4, 4}, {"failed", "failed", "failed"}, 0},
        {480, {1, 1, 1}, {"silent", "silent", "silent"}, 1},
        {500, {4, 4, 4}, {"failed", "failed", "failed"}, 0},
        {503, {4, 4, 4}, {"failed", "failed", "failed"}, 0},
    };
    const char *const names[] = {"children", "locate", "search"};
    for (const Row &row : rows) {
        for (const int kind : {Children, Locate, Search})
            QTest::addRow("%s %d", names[kind], row.status)
                << kind << row.status << row.sends[kind] << QString::fromLatin1(row.outcome[kind])
                << row.exchanges;
    }
}

void TstClientFaults::statusTable()
{
    QFETCH(const int, kind);
    QFETCH(const int, status);
    static const char *const paths[] = {ChildrenPath, LocatePath, SearchPath};
    // A 204 with a body would spoil the connection for the request after it.
    const std::string body = status == 204 ? "\"\"" : "\"{}\"";
    m_client->rule(paths[kind], "\"status\":" + std::to_string(status) + ",\"body\":" + body +
                                    ",\"headers\":{\"Location\":\"/elsewhere\"}");
    const Asked asked(Kind(kind), QStringLiteral("C1"));
    QVERIFY(asked.waitForEnd());
    QTRY_VERIFY(!m_client->passport.isRefreshing());
    QTEST(m_client->seen(paths[kind]), "sends");
    QTEST(asked.outcome(), "outcome");
    QTEST(m_client->seen("/ids/login"), "exchanges");
    QCOMPARE(m_client->seen("/elsewhere"), 0);
}

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

void TstClientFaults::redirects_data()
{
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<int>("error");
    QTest::addColumn<int>("sends");
    const auto row = [](const char *name, const QByteArray &target, int error, int sends) {
        QTest::newRow(name) << target << error << sends;
    };
    row("to itself", ChildrenPath, QNetworkReply::TooManyRedirectsError,
        CHttpSession::MaximumRedirects + 1);
    row("to plain HTTP", "http://127.0.0.1:%1/center/x", QNetworkReply::InsecureRedirectError, 1);
    row("to a file", "file:///etc/hostname", QNetworkReply::ProtocolUnknownError, 1);
    row("to a script", "javascript:alert(1)", QNetworkReply::ProtocolUnknownError, 1);
    row("to another host", "%2/center/org/searchOrg.do", QNetworkReply::SslHandshakeFailedError, 1);
}

void TstClientFaults::redirects()
{
    QFETCH(QByteArray, target);
    QFETCH(const int, error);
    RunningBackEnd other(withLevers()); // with an authority of its own, which is not known
    target.replace("%1", QByteArray::number(other->port()));
    target.replace("%2", other->address().toUtf8());
    m_client->rule(ChildrenPath, "\"status\":302,\"headers\":{\"Location\":" +
                                     quoted(target.toStdString()) + "}");
    CHttpSession session;
    session.addRawHeader("Authorization", "Basic c2VjcmV0");
    QSignalSpy finished(&session, &CHttpSession::signal_finished);
    int ended = -1;
    connect(&session, &CHttpSession::signal_finished, this,
            [&ended](const QNetworkReply *reply) { ended = reply->error(); });
    session.post(RequestHeaders::formRequest(m_client->url(ChildrenPath)),
                 QStringLiteral("orgId=C1"));
    QTRY_COMPARE_WITH_TIMEOUT(ended, error, Long);
    QTEST(m_client->seen(ChildrenPath), "sends");
    QVERIFY(WebClient(other->controlPort()).get("/_ctl/log").json["requests"].empty());
    QCOMPARE(finished.size(), 1);
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

void TstClientFaults::certificates_data()
{
    QTest::addColumn<bool>("authorityKnown");
    QTest::addColumn<QStringList>("hosts");
    QTest::addColumn<int>("validUntil"); // seconds from now
    QTest::addColumn<bool>("good");
    const QStringList here{QStringLiteral("127.0.0.1")};
    const QStringList elsewhere{QStringLiteral("im.corp.example")};
    QTest::newRow("proper") << true << here << 3600 << true;
    QTest::newRow("unknown authority") << false << here << 3600 << false;
    QTest::newRow("expired") << true << here << -60 << false;
    QTest::newRow("another host's") << true << elsewhere << 3600 << false;
}

void TstClientFaults::certificates()
{
    QFETCH(const bool, authorityKnown);
    QFETCH(const QStringList, hosts);
    QFETCH(const int, validUntil);
    QFETCH(const bool, good);
    m_client.reset();
    BackEndOptions options = withLevers();
    CertificateOptions certificate;
    certificate.hosts = hosts;
    certificate.validUntil = validUntil;
    options.specialCertificate = certificate;
    RunningBackEnd backEnd(options);
    FakeContext context;
    CPassportLoginServer passport;
    QTemporaryDir folder;
    context.programFolder = folder.path();
    context.passportServer = &passport;
    context.authorities = authorityKnown ? backEnd->caFile() : QString();
    passport.setAuthId(QStringLiteral("secret"));
    const HostContextScope scope(&context);
    QFile file(folder.filePath(QStringLiteral("allurl.ini")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[searchOrg]\nsearchorgurl=" + backEnd->address().toUtf8() + ChildrenPath + "\n");
    file.close();
    {
        const Asked asked;
        QVERIFY(asked.waitForEnd());
        // Nobody with that log-in: what counts is whether it was told at all.
        QCOMPARE(asked.outcome(), QStringLiteral("failed"));
    }
    const Json::Value requests =
        WebClient(backEnd->controlPort()).get("/_ctl/log").json["requests"];
    QCOMPARE(requests.empty(), !good);
    m_client = std::make_unique<Client>();
}

FRIENDUI_TEST(TstClientFaults)
#include "tst_clientfaults.moc"

// The reference host with the reference back end in a process of its own: log-in,
// the module's organisation over HTTPS, and what a wrong certificate or password
// leads to.
#include "host/core/embeddedcore.h"
#include "host/hostcontext.h"
#include "host/weblog.h"
#include "host/webservices.h"
#include "http/cpassportloginserver.h"
#include "http/httpmgr.h"
#include "org/orgstructuremgr.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTemporaryDir>

namespace {

constexpr int StartMs = 60000;

struct Host
{
    QTemporaryDir folder;
    EmbeddedCore core;
    HostContext context;
    HostContextScope scope;
    WebLog log;
    QVector<WebRequestRecord> requests;

    Host() : core(coreOptions(folder.path())), context(&core, folder.path()), scope(&context)
    {
        QString problem;
        if (!core.open(&problem))
            QTest::qFail(qPrintable(problem), __FILE__, __LINE__);
        context.setWebLog(&log);
        QObject::connect(&log, &WebLog::recorded, &log,
                         [this](const WebRequestRecord &record) { requests.append(record); });
    }
    ~Host() { context.shutDown(); }

    static EmbeddedCore::Options coreOptions(const QString &folder)
    {
        EmbeddedCore::Options options;
        options.folder = folder + QLatin1String("/core");
        return options;
    }
    WebServices::Options serviceOptions() const
    {
        WebServices::Options options;
        options.found.process.program = QStringLiteral(FRIENDUI_BACKEND);
        options.found.process.dataFolder = folder.path() + QLatin1String("/backend");
        options.found.process.controlPort = 0;
        return options;
    }
};

// What the module's organisation gets for a department's id.
struct Answer
{
    OrgElementList elements;
    int failure = -1; // the status that it failed with; -1: it did not
};

Answer ask(const QString &id)
{
    Answer answer;
    bool hasEnded = false;
    OrgStructureMgr::instance(); // makes the requests
    HttpMgr *requests = HttpMgr::instance();
    QObject scope;
    QObject::connect(requests, &HttpMgr::signal_searchOrgElements, &scope,
                     [&](const OrgElementList &elements) { answer.elements += elements; });
    QObject::connect(requests, &HttpMgr::signal_searchOrgDone, &scope, [&] { hasEnded = true; });
    QObject::connect(requests, &HttpMgr::searchOrgFail, &scope, [&](const QString &, int status) {
        answer.failure = status;
        hasEnded = true;
    });
    requests->searchOrg(id, SampleCompany::companyCode());
    if (!QTest::qWaitFor([&] { return hasEnded; }, StartMs))
        QTest::qFail("the request did not end", __FILE__, __LINE__);
    return answer;
}

// What a test of the back end may do: here, end a user's log-in.
bool pullLever(int controlPort, const QByteArray &json)
{
    QNetworkAccessManager manager;
    QNetworkRequest request(QUrl(QStringLiteral("http://127.0.0.1:%1/_ctl/user").arg(controlPort)));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("application/json"));
    QNetworkReply *reply = manager.post(request, json);
    QSignalSpy finished(reply, &QNetworkReply::finished);
    return (reply->isFinished() || finished.wait()) && reply->error() == QNetworkReply::NoError;
}

} // namespace

class TstHostServices : public QObject
{
    Q_OBJECT

private slots:
    void theModuleReachesTheServices()
    {
        Host host;
        WebServices services(&host.context, host.serviceOptions());
        services.start();
        QTRY_COMPARE_WITH_TIMEOUT(services.state(), WebServices::Ready, StartMs);
        const Answer top = ask(SampleCompany::companyCode());
        QCOMPARE(top.failure, -1);
        QStringList expected;
        for (const SampleDepartment &department : host.core.company().departments()) {
            if (department.parent < 0)
                expected.append(department.name);
        }
        QStringList names;
        for (const OrgElement &element : top.elements) {
            QCOMPARE(element.strParentId, SampleCompany::companyCode());
            names.append(element.strName);
        }
        QCOMPARE(names, expected);
        QCOMPARE(host.requests.size(), 2); // the log-in and this one
        for (const WebRequestRecord &record : qAsConst(host.requests)) {
            QCOMPARE(record.status, 200);
            QVERIFY(record.address.startsWith(services.address().address));
        }
        services.stop();
        QVERIFY(ask(SampleCompany::companyCode()).elements.isEmpty()); // nobody is there any more
    }

    void anExpiredLogInIsRenewed()
    {
        Host host;
        WebServices services(&host.context, host.serviceOptions());
        services.start();
        QTRY_COMPARE_WITH_TIMEOUT(services.state(), WebServices::Ready, StartMs);
        const QString before = host.context.passport()->authId();
        QVERIFY(services.address().controlPort > 0);
        QVERIFY(pullLever(services.address().controlPort, R"({"uid":"u000000","expire":true})"));
        host.requests.clear();
        const Answer top = ask(SampleCompany::companyCode());
        QCOMPARE(host.requests.first().status, 302);
        QCOMPARE(top.failure, -1);
        QVERIFY(!top.elements.isEmpty());
        QVERIFY(host.context.passport()->authId() != before);
        QCOMPARE(services.state(), WebServices::Ready);
    }

    void aBackEndThatDiesIsReplaced()
    {
        Host host;
        WebServices services(&host.context, host.serviceOptions());
        services.start();
        QTRY_COMPARE_WITH_TIMEOUT(services.state(), WebServices::Ready, StartMs);
        const QString before = services.address().address;
        services.findChild<QProcess *>()->kill();
        QTRY_VERIFY_WITH_TIMEOUT(services.state() != WebServices::Ready, StartMs);
        QTRY_COMPARE_WITH_TIMEOUT(services.state(), WebServices::Ready, StartMs);
        QVERIFY(services.address().address != before);
        QVERIFY(!ask(SampleCompany::companyCode()).elements.isEmpty());
    }

    void onlyTheRightCertificateAndPasswordDo_data()
    {
        const Rows<bool, bool, int> row{"rightAuthority", "rightPassword", "state"};
        row("both", true, true, int(WebServices::Ready));
        row("another authority", false, true, int(WebServices::Unreachable));
        row("another password", true, false, int(WebServices::Failed));
    }
    void onlyTheRightCertificateAndPasswordDo()
    {
        QFETCH(bool, rightAuthority);
        QFETCH(bool, rightPassword);
        QFETCH(int, state);
        Host host;
        const WebServices::Options own = host.serviceOptions();
        BackendProcess process(own.found.process);
        QSignalSpy ready(&process, &BackendProcess::ready);
        process.start();
        QVERIFY(ready.wait(StartMs));
        WebServices::Options options;
        options.source = WebServices::Named;
        options.named = process.address();
        if (!rightAuthority)
            options.named.caFile.clear();
        if (!rightPassword)
            options.named.password += QLatin1Char('x');
        WebServices services(&host.context, options);
        services.start();
        QTRY_COMPARE_WITH_TIMEOUT(int(services.state()), state, StartMs);
        QCOMPARE(host.context.passport()->authId().isEmpty(), state != WebServices::Ready);
    }
};

FRIENDUI_TEST(TstHostServices)
#include "tst_hostservices.moc"

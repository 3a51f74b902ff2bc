// The program: how it is started, what it says, how it ends; and its data folder.
#include "backend/database.h"
#include "common/platform.h"
#include "sample/samplecompany.h"
#include "tests/backend/consoleprocess.h"
#include "tests/backend/runningbackend.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QSslConfiguration>

#include <mutex>

namespace {
constexpr int Patience = 30000; // ms

class Program : public QProcess
{
public:
    explicit Program(const QStringList &arguments)
    {
        ConsoleProcess::prepare(this);
        start(QStringLiteral(BACKEND_PROGRAM), arguments);
    }
    ~Program() override
    {
        kill();
        waitForFinished(Patience);
    }
    // What it says when it serves; empty when it ended instead.
    QJsonObject announcement()
    {
        while (!canReadLine()) {
            if (!waitForReadyRead(Patience))
                return {};
        }
        return QJsonDocument::fromJson(readLine()).object();
    }
};

QStringList in(const QTemporaryDir &folder, const QStringList &more = {})
{
    return QStringList{QStringLiteral("--data"), folder.path()} + more;
}
} // namespace

class TstProcess : public QObject
{
    Q_OBJECT

private slots:
    void saysWhereItServes()
    {
        QTemporaryDir folder;
        Program program(in(folder));
        const QJsonObject said = program.announcement();
        const QString port = QString::number(said[QLatin1String("port")].toInt());
        QCOMPARE(said[QLatin1String("address")].toString(),
                 QStringLiteral("https://127.0.0.1:") + port);
        QCOMPARE(said[QLatin1String("controlPort")].toInt(), -1);
        for (const char *member : {"caFile", "passwordFile"}) {
            const QFileInfo file(said[QLatin1String(member)].toString());
            QVERIFY2(file.isFile(), member);
        }
    }

    void ends_data()
    {
        const Rows<bool> row{"byStdin"};
        row("end of input", true);
        row("signal", false);
    }
    void ends()
    {
        QFETCH(bool, byStdin);
        QTemporaryDir folder;
        const QStringList option{QStringLiteral("--end-with-stdin")};
        Program program(in(folder, byStdin ? option : QStringList()));
        QVERIFY(!program.announcement().isEmpty());
        program.write("not the end yet\n");
        if (byStdin)
            program.closeWriteChannel();
        else if (!ConsoleProcess::askToEnd(&program))
            QSKIP("the program has no console here that could be shared");
        QVERIFY(program.waitForFinished(Patience));
        QCOMPARE(program.exitStatus(), QProcess::NormalExit);
        QCOMPARE(program.exitCode(), 0);
    }

    void folderIsUsedOnce()
    {
        QTemporaryDir folder;
        Program first(in(folder));
        QVERIFY(!first.announcement().isEmpty());
        Program second(in(folder));
        QVERIFY(second.waitForFinished(Patience));
        QCOMPARE(second.exitCode(), 1);
        QVERIFY(second.readAllStandardError().contains(folder.path().toUtf8()));
        first.kill(); // leaves its lock behind
        QVERIFY(first.waitForFinished(Patience));
        Program third(in(folder));
        QVERIFY(!third.announcement().isEmpty());
    }

    void wrongCommandLines_data()
    {
        const Rows<QStringList> row{"arguments"};
        row("no folder", QStringList());
        row("unknown", QStringList{"--data", "x", "--what"});
        row("no value", QStringList{"--data"});
        row("no number", QStringList{"--data", "x", "--people", "many"});
        row("too many", QStringList{"--data", "x", "--people", "100001"});
        row("no such port", QStringList{"--data", "x", "--port", "65536"});
        row("team", QStringList{"--data", "x", "--team-size", "-1"});
        row("friends", QStringList{"--data", "x", "--friend-limit", "100001"});
        row("service numbers", QStringList{"--data", "x", "--service-numbers", "many"});
        row("certificate", QStringList{"--data", "x", "--certificate", "good"});
    }
    void wrongCommandLines()
    {
        QFETCH(QStringList, arguments);
        Program program(arguments);
        QVERIFY(program.waitForFinished(Patience));
        QCOMPARE(program.exitCode(), 2);
        QVERIFY(!program.readAllStandardError().isEmpty());
    }

    void portInUse()
    {
        RunningBackEnd other;
        QTemporaryDir folder;
        Program program(in(folder, {QStringLiteral("--port"), QString::number(other->port())}));
        QVERIFY(program.waitForFinished(Patience));
        QCOMPARE(program.exitCode(), 1);
    }

    void teamIsMadeOnce()
    {
        BackEndOptions options;
        options.teamSize = 60;
        options.teamApproval = true;
        RunningBackEnd backEnd(options);
        backEnd.restart();
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000000"));
        const Json::Value teams =
            client.post("/center/vt/getAllVirtualTeam.do", {}).json["data"]["vt"];
        QCOMPARE(teams.size(), 1u);
        QCOMPARE(teams[0]["count"].asInt(), 60);
        const Answer company = client.post("/center/company/teamApproval.do", {});
        QVERIFY(company.json["data"]["approval"].asBool());
        QCOMPARE(company.json["data"]["approver"].asString(), std::string("u000001"));
    }

    void limitAndServiceNumbers()
    {
        BackEndOptions options;
        options.friendLimit = SampleCompany::KnownOutsiderCount; // as many as there are
        options.serviceNumbers = 5;
        RunningBackEnd backEnd(options);
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000001"));
        QCOMPARE(client.post("/center/friend/addFriendRequest.do", {{"userId", "x000012"}}).code(),
                 10001);
        const Answer last = client.post("/center/isrv/getIsrvInfo.do", {{"code", "sn100004"}});
        QCOMPARE(last.json["data"]["iServiceCode"].asString(), std::string("sn100004"));
        QCOMPARE(client.post("/center/isrv/getIsrvInfo.do", {{"code", "sn100005"}}).code(), 10001);
    }

    void servesTheManagerOfQt()
    {
        RunningBackEnd backEnd;
        QNetworkAccessManager manager;
        QSslConfiguration trusting = QSslConfiguration::defaultConfiguration();
        trusting.setCaCertificates(QSslCertificate::fromPath(backEnd->caFile()));
        QNetworkRequest request(QUrl(backEnd->address() + QStringLiteral("/ids/login")));
        request.setSslConfiguration(trusting);
        request.setHeader(QNetworkRequest::ContentTypeHeader,
                          QStringLiteral("application/x-www-form-urlencoded"));
        int good = 0;
        for (int i = 0; i < 40; ++i) { // more than it has connections
            const QByteArray body = "userName=u000001&password=" +
                                    QByteArray::fromStdString(md5Of(backEnd->password().toUtf8()));
            QNetworkReply *reply = manager.post(request, body);
            connect(reply, &QNetworkReply::finished, this, [reply, &good] {
                good += reply->readAll().contains("\"code\":0") ? 1 : 0;
                reply->deleteLater();
            });
        }
        QTRY_COMPARE_WITH_TIMEOUT(good, 40, Patience);
    }

    void logHoldsNoSecret()
    {
        BackEndOptions options;
        QStringList lines;
        std::mutex mutex;
        options.log = [&](const std::string &line) {
            const std::lock_guard<std::mutex> lock(mutex);
            lines.append(QString::fromStdString(line));
        };
        RunningBackEnd backEnd(options);
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000001"));
        client.get("/ids/login?service=https://a/secret");
        client.get("/a%0Aforged%20line");
        backEnd->stop();
        const QString all = lines.join(QLatin1Char('\n'));
        QCOMPARE(lines.size(), 3);
        QVERIFY(!all.contains(backEnd->password()));
        QVERIFY(!all.contains(QLatin1String(md5Of(backEnd->password().toUtf8()).c_str())));
        QVERIFY(!all.contains(QString::fromStdString(client.cookies["imAuthId"])));
        QVERIFY(!all.contains(QLatin1String("secret")));
        QCOMPARE(all.count(QLatin1Char('\n')), 2);
    }

    void filesAreTheOwnersOnly()
    {
        RunningBackEnd backEnd;
        QVERIFY(Platform::isOwnerOnly(backEnd.folder()));
        for (const char *name : {"backend.sqlite", "ca-key.pem", "server-key.pem", "password"}) {
            const QString file = backEnd.folder() + QLatin1Char('/') + QLatin1String(name);
            QVERIFY2(QFileInfo::exists(file), name);
            QVERIFY2(Platform::isOwnerOnly(file), name);
        }
    }

    void damagedDatabaseIsSetAside_data()
    {
        const Rows<QByteArray> row{"content"};
        row("something else", QByteArray(4096, 'x'));
        row("cut off", QByteArray("SQLite format 3\0", 16));
    }
    void damagedDatabaseIsSetAside()
    {
        QFETCH(QByteArray, content);
        RunningBackEnd backEnd;
        backEnd->stop();
        const QString name = backEnd.folder() + QStringLiteral("/backend.sqlite");
        writeFile(name, content);
        backEnd.restart();
        QCOMPARE(contentOf(name + QStringLiteral(".damaged")), content);
        WebClient client(*backEnd);
        client.logIn(*backEnd, QStringLiteral("u000001"));
    }

    void databaseOfTheFutureIsLeftAlone()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(QStringLiteral("backend.sqlite"));
        QString problem;
        Database database;
        QVERIFY(database.open(name, &problem));
        {
            Transaction transaction(database);
            transaction.prepare("PRAGMA user_version = 9999").run();
            transaction.commit();
        }
        database.close();
        Database again;
        QVERIFY(!again.open(name, &problem));
        QVERIFY2(problem.contains(name), qPrintable(problem));
        QVERIFY(!QFileInfo::exists(name + QStringLiteral(".damaged")));
    }

    void oddRequests_data()
    {
        const Rows<QString, int> row{"target", "status"};
        row("unknown", "/center/no.do", 404);
        row("a form's service", "/center/session/setSetting.do", 404);
        row("long", QLatin1Char('/') + QString(7000, QLatin1Char('a')), 404);
    }
    void oddRequests()
    {
        static RunningBackEnd backEnd;
        QFETCH(QString, target);
        WebClient client(*backEnd);
        QTEST(client.get(target.toStdString()).status, "status");
        client.post(target.toStdString(), {}); // answered or not, it survives
        QCOMPARE(WebClient(*backEnd).get("/httpSampling.gif").status, 200);
        WebClient poster(*backEnd);
        const std::string large(3 * 1024 * 1024, 'a');
        QCOMPARE(poster.postRaw("/ids/login", large).status, 413);
        QCOMPARE(poster.postRaw("/ids/login", "a=" + large.substr(0, 100000)).code(), 10001);
    }
};

FRIENDUI_TEST(TstProcess)
#include "tst_process.moc"

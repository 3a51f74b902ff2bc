// Who is told what about teams, and the requests that wait for it.
#include "backend/eventlog.h"
#include "backend/schema.h"
#include "backend/teams/teamstore.h"
#include "tests/backend/runningbackend.h"
#include "tests/backend/teamworld.h"
#include "tests/support/testrunner.h"

#include <sqlite3.h>

#include <mutex>
#include <thread>

namespace {
constexpr char Events[] = "/center/event/getEvents.do";
constexpr char Create[] = "/center/vt/createVirtualTeam.do";

QStringList statementsOf(Database &database)
{
    Transaction transaction(database);
    Statement rows = transaction.prepare("SELECT sql FROM sqlite_master ORDER BY name");
    QStringList result;
    while (rows.next())
        result.append(rows.text(0));
    return result;
}
} // namespace

class TstTeamEvents : public QObject
{
    Q_OBJECT

private:
    TeamWorld m_world;

private slots:
    void told_data()
    {
        // An action of the owner; what others hear of it.
        const Rows<QString, QString, QStringList, QStringList> row{"service", "fields", "hear",
                                                                   "hearNot"};
        const QStringList members{TeamWorld::Owner, TeamWorld::Member, TeamWorld::Partner};
        const QStringList strangers{TeamWorld::Stranger};
        row("rename", "modifyVirtualTeamInfo", "vtId=%1&vtName=n", members, strangers);
        row("refused", "modifyVirtualTeamInfo", "vtId=%1&vtName=", {}, members);
        row("removal", "deleteVirtualTeamMember", "vtId=%1&members=u000012", members, strangers);
        row("group", "deleteVirtualTeamGroup", "vtId=%1&groupId=%2",
            members + QStringList{TeamWorld::InSub}, strangers);
        row("addition", "batchAddVirtualTeamMember", "vtId=%1&groupId=0&members=u000020",
            members + strangers, {"u000021"});
        row("end", "dissolveVirtualTeam", "vtId=%1", members, strangers);
    }
    void told()
    {
        QFETCH(QString, service);
        QFETCH(QString, fields);
        QFETCH(QStringList, hear);
        QFETCH(QStringList, hearNot);
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        const qint64 before = m_world.lastEvent(TeamWorld::Owner);
        m_world.code(TeamWorld::Owner, service, team.fill(fields));
        const QStringList update{"update " + team.id + ' ' + TeamWorld::Owner};
        for (const QString &uid : hear) {
            qint64 since = before;
            QCOMPARE(m_world.events(uid, &since), update);
            QCOMPARE(m_world.events(uid, &since), QStringList()); // once
        }
        for (const QString &uid : hearNot) {
            qint64 since = before;
            QCOMPARE(m_world.events(uid, &since), QStringList());
        }
    }

    void applications()
    {
        const QString settings = QStringLiteral("/center/company/teamApproval.do");
        qint64 begun = m_world.lastEvent(TeamWorld::Owner);
        m_world.code(TeamWorld::Owner, settings, "approval=1");
        const TeamAnswer made = m_world.call(TeamWorld::Owner, "createVirtualTeam",
                                             "members=u000011,x000004,x000003&vtName=w&reason=r");
        const QString team = QString::fromStdString(made.data["vtId"].asString());
        const QString audit = "audit " + team + " u000010";
        const QString join = "join " + team + " u000010";
        qint64 since = begun;
        QCOMPARE(m_world.events("u000001", &since), QStringList{audit});
        QCOMPARE(m_world.events("x000004", &(since = begun)), QStringList());
        // A new approver hears of what has been waiting, and who comes later as well.
        m_world.code(TeamWorld::Owner, settings, "approver=u000002");
        QCOMPARE(m_world.events("u000002", &(since = begun)), QStringList{audit});
        QCOMPARE(m_world.events("u000002", &(since = -1)), QStringList{audit});
        QCOMPARE(m_world.events("u000001", &(since = -1)), QStringList());
        QCOMPARE(m_world.events("u000001", &(since = begun)),
                 (QStringList{audit, "update " + team + " u000010"}));
        const QString decision = QString("vtId=%1&member=u000010&flag=1").arg(team);
        QCOMPARE(m_world.code("u000001", "auditVirtualTeam", decision), 10002);
        QCOMPARE(m_world.code("u000002", "auditVirtualTeam", decision), 0);
        m_world.code(TeamWorld::Owner, settings, "approval=0&approver=u000001");
        QCOMPARE(m_world.events(TeamWorld::Owner, &(since = begun)),
                 (QStringList{"agreed " + team + " u000002", "update " + team + " u000002"}));
        for (const char *uid : {"x000004", "x000001"}) { // the invited one and his approver
            QCOMPARE(m_world.events(uid, &(since = begun)), QStringList{join});
            QCOMPARE(m_world.events(uid, &(since = -1)), QStringList{join});
        }
        begun = since = m_world.lastEvent(TeamWorld::Owner);
        m_world.code("x000004", "confirmJoinVirtualTeam", QString("vtId=%1&agree=0").arg(team));
        QCOMPARE(m_world.events(TeamWorld::Owner, &since),
                 (QStringList{"refused " + team + " x000004", "update " + team + " x000004"}));
        QCOMPARE(m_world.events("x000001", &(since = -1)), QStringList());
        QCOMPARE(m_world.events("x000001", &(since = begun)),
                 QStringList{"update " + team + " x000004"});

        // Nobody can answer for a team that has gone.
        m_world.code(TeamWorld::Owner, "inviteVirtualTeam",
                     QString("vtId=%1&members=x000004&reason=r").arg(team));
        begun = since = m_world.lastEvent(TeamWorld::Owner);
        m_world.code(TeamWorld::Owner, "dissolveVirtualTeam", QString("vtId=%1").arg(team));
        for (const char *uid : {"x000004", "x000001"}) {
            QCOMPARE(m_world.events(uid, &(since = begun)),
                     QStringList{"update " + team + " u000010"});
            QCOMPARE(m_world.events(uid, &(since = -1)), QStringList());
        }
    }

    void whatIsForgotten()
    {
        const TeamWorld::StandardTeam team = m_world.makeStandardTeam();
        qint64 since = m_world.lastEvent(TeamWorld::Owner) + 1000; // of another database
        const QStringList all = m_world.teamsOf(TeamWorld::Owner);
        const QStringList update{"friends", "services", "update " + all.join(QLatin1Char(','))};
        QCOMPARE(m_world.events(TeamWorld::Owner, &since), update);
        QCOMPARE(m_world.events(TeamWorld::Owner, &since), QStringList());
        const qint64 early = since;
        m_world.code(TeamWorld::Owner, "modifyVirtualTeamInfo", team.fill("vtId=%1&vtName=n"));
        {
            Transaction transaction(m_world.context.database);
            transaction.prepare("UPDATE event SET time = time - 2 * 86400").run();
            transaction.commit();
        }
        m_world.code("x000000", "quitVirtualTeam", team.fill("vtId=%1"));
        since = early;
        QCOMPARE(m_world.events(TeamWorld::Owner, &since), update);
        QCOMPARE(m_world.events(TeamWorld::Owner, &since), QStringList());
        QCOMPARE(m_world.code(TeamWorld::Owner, Events, "since=soon"), 10001);
        QCOMPARE(m_world.code(TeamWorld::Owner, Events, "since=-1"), 10001);
        QCOMPARE(m_world.code(TeamWorld::Owner, Events, "since=0&waitSeconds=26"), 10001);
    }

    void waitsUntilThereIsSomething()
    {
        std::mutex mutex;
        QByteArray log;
        BackEndOptions options = withLevers();
        options.log = [&](const std::string &line) {
            const std::lock_guard<std::mutex> lock(mutex);
            log += line.c_str();
        };
        RunningBackEnd backEnd(options);
        WebClient waiting(*backEnd), acting(*backEnd);
        waiting.logIn(*backEnd, QStringLiteral("u000002"));
        acting.logIn(*backEnd, QStringLiteral("u000003"));
        const std::string since = waiting.post(Events, {}).json["data"]["next"].asString();
        Answer answer;
        std::thread poll([&] {
            answer = waiting.post(Events, {{"since", since}, {"waitSeconds", "25"}});
        });
        const auto seen = [&] {
            return WebClient(backEnd->controlPort()).get("/_ctl/log").json["requests"].size();
        };
        QTRY_COMPARE(seen(), 4u);
        const WebClient::Fields team{{"members", "u000002,u000004"}, {"vtName", "n"}};
        QCOMPARE(acting.post(Create, team).code(), 0);
        poll.join();
        QCOMPARE(answer.json["data"]["events"].size(), 1u);
        QCOMPARE(answer.json["data"]["events"][0]["teams"].asString(), std::string("1001"));
        const std::lock_guard<std::mutex> lock(mutex);
        QVERIFY(!log.contains("getEvents") && log.contains("createVirtualTeam"));
    }

    void otherRequestsAreAnsweredMeanwhile()
    {
        RunningBackEnd backEnd(withLevers());
        std::vector<std::thread> polls;
        for (int i = 0; i < EventBell::Seats + 8; ++i) {
            polls.emplace_back([&, i] {
                WebClient client(*backEnd);
                client.logIn(*backEnd, SampleCompany::uid(i));
                client.post(Events, {{"since", "0"}, {"waitSeconds", "25"}});
            });
        }
        const auto seen = [&] {
            return WebClient(backEnd->controlPort()).get("/_ctl/log").json["requests"].size();
        };
        QTRY_COMPARE_WITH_TIMEOUT(seen(), unsigned(2 * polls.size()), 30000);
        QCOMPARE(WebClient(*backEnd).get("/httpSampling.gif").status, 200);
        backEnd->stop(); // ends the others
        for (std::thread &poll : polls)
            poll.join();
    }

    void seats()
    {
        EventBell bell;
        bell.setOn(true);
        const auto hours = [] { return EventBell::Clock::now() + std::chrono::hours(1); };
        const QString uid = QStringLiteral("u1");
        EventBell::Seat first(bell, uid);
        bell.ring(); // between looking and waiting
        QVERIFY(first.wait(hours()));
        QVERIFY(!first.wait(EventBell::Clock::now()));
        std::list<EventBell::Seat> own;
        for (int i = 0; i < EventBell::SeatsPerUser; ++i)
            own.emplace_back(bell, uid);
        QVERIFY(!first.wait(hours())); // gave way
        std::list<EventBell::Seat> others;
        for (int i = EventBell::SeatsPerUser; i < EventBell::Seats; ++i)
            others.emplace_back(bell, QString::number(i));
        EventBell::Seat standing(bell, QStringLiteral("u2"));
        QVERIFY(!standing.wait(hours()));
        std::thread end([&] { bell.setOn(false); });
        QVERIFY(!own.back().wait(hours()));
        end.join();
    }

    void olderFileIsBroughtUpToDate_data()
    {
        // From before a table was made, and what happened until then.
        const Rows<QString, QString, int> row{"table", "content", "lastEvent"};
        row("without teams", "TABLE company", "", 0);
        row("events of teams only", "TABLE event ",
            "; INSERT INTO teamEvent VALUES (8, 'u1', 'update', 1001, 'u2', 0), "
            "(9, 'u1', 'audit', 1001, 'u2', 0); DELETE FROM teamEvent WHERE seq = 9",
            9);
    }
    void olderFileIsBroughtUpToDate()
    {
        QFETCH(QString, table);
        QFETCH(QString, content);
        QTemporaryDir folder;
        const QString old = folder.filePath(QStringLiteral("old.sqlite"));
        const std::vector<const char *> &steps = schemaSteps();
        const auto end = std::find_if(steps.begin(), steps.end(), [&table](const char *sql) {
            return QString::fromLatin1(sql).contains(table);
        });
        std::string sql;
        for (auto step = steps.begin(); step != end; ++step)
            sql += std::string(*step) + ';';
        sql += "PRAGMA user_version = " + std::to_string(end - steps.begin()) +
               "; INSERT INTO sessionSetting VALUES ('u000001', 'r@conf', 1)" +
               content.toStdString();
        sqlite3 *handle = nullptr;
        QCOMPARE(sqlite3_open(old.toUtf8().constData(), &handle), SQLITE_OK);
        QCOMPARE(sqlite3_exec(handle, sql.c_str(), nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(handle);
        Database upgraded;
        Database fresh;
        QString problem;
        QVERIFY2(upgraded.open(old, &problem), qPrintable(problem));
        QVERIFY(fresh.open(folder.filePath(QStringLiteral("new.sqlite")), &problem));
        QCOMPARE(statementsOf(upgraded), statementsOf(fresh));
        Transaction transaction(upgraded);
        QVERIFY(transaction.prepare("SELECT * FROM sessionSetting").next());
        QCOMPARE(TeamStore(transaction).addTeam({}), qint64(1001));
        QTEST(int(EventLog(transaction).last()), "lastEvent");
        QCOMPARE(EventLog(transaction).after("u1", 0).size(), size_t(content.isEmpty() ? 0 : 1));
    }
};

FRIENDUI_TEST(TstTeamEvents)
#include "tst_teamevents.moc"

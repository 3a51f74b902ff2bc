// What the operations send, and how they end.
#include "tests/support/logcapture.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamcases.h"
#include "tests/virtualteam/teamservice.h"

#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

Q_DECLARE_METATYPE(FakeReply)

namespace {
using Op = CHttpVirtualTeamOperation;

// One operation that runs, and what it told.
struct Running
{
    QPointer<Op> operation = new Op;
    QStringList told;
    int code = -77;
    QStringList members;

    explicit Running(const TeamCase &which)
    {
        watchAll(operation, [this](const QString &arguments) {
            told.append(arguments);
            code = operation->resultCode();
            members = operation->memberIds();
        });
        which.call(operation);
    }
    ~Running() { delete operation; }
    // Waits for the end, without the pauses of QTRY_VERIFY.
    bool ends() const
    {
        return !operation || QSignalSpy(operation, &QObject::destroyed).wait(TestPatience);
    }
};

const TeamCase &dissolving()
{
    static const TeamCase &found =
        *std::find_if(teamCases().begin(), teamCases().end(),
                      [](const TeamCase &c) { return QByteArray(c.name) == "dissolve"; });
    return found;
}

// Everything that is not a success with a code, which then is the first.
const QVector<std::pair<int, FakeReply>> &failures()
{
    static const QVector<std::pair<int, FakeReply>> replies{
        {10001, TeamService::reply("{}", 10001)},
        {10002, TeamService::reply(R"({"vtId":"5","vt":[{"vtId":"1"}],"userId":"u"})", 10002)},
        {10003, FakeReply::json(R"({"code":"10003"})")},
        {10004, FakeReply::json(R"({"code":10004,"data":[[]]})")},
        {-1, FakeReply::json(R"({"code":[0]})")},
        {-1, FakeReply::json(R"({"code":99999999999})")},
        {0, FakeReply::of(500, R"({"code":10002})")},
        {0, FakeReply::of(404)},
        {0, TeamService::reply("{}").dropped(30)},
        {0, FakeReply::of(204)},
        {0, FakeReply::of(200, "<html>")},
        {0, FakeReply::of(200, R"({"code":0,"data":{)")},
        {0, FakeReply::of(200, "[0]")},
        {0, FakeReply::of(200, QByteArray(100000, '['))},
    };
    return replies;
}
} // namespace

class TstTeamOperations : public QObject
{
    Q_OBJECT

private slots:
    void succeeds_data() { addCases(); }

    void succeeds()
    {
        QFETCH(int, number);
        const TeamCase &c = teamCases().at(number);
        TeamService service;
        service.answer(c.service, c.data);
        Running running(c);
        QVERIFY(running.told.isEmpty());
        QVERIFY(running.ends());
        QCOMPARE(running.told, QStringList(QString::fromUtf8(c.success)));
        QCOMPARE(running.code, 0);
        QCOMPARE(service.server.requests().size(), 1);
        QCOMPARE(service.server.last().method, QByteArray("POST"));
        QCOMPARE(service.server.last().path, TeamService::path(c.service));
        QCOMPARE(service.form(), c.form);
    }

    void fails_data() { addCases(); }

    void fails()
    {
        QFETCH(int, number);
        const TeamCase &c = teamCases().at(number);
        for (const auto &[code, reply] : failures()) {
            TeamService service;
            service.server.reply(TeamService::path(c.service), reply);
            Running running(c);
            QVERIFY(running.ends());
            const QString wanted =
                QString::fromUtf8(c.failure).replace(QLatin1String("%1"), QString::number(code));
            QCOMPARE(running.told, QStringList(wanted));
            QCOMPARE(running.code, code);
        }
    }

    void dataOfOtherKinds_data() { addCases(); }

    void dataOfOtherKinds()
    {
        QFETCH(int, number);
        const TeamCase &c = teamCases().at(number);
        const QByteArray deep = QByteArray("[").repeated(190) + QByteArray("]").repeated(190);
        const QByteArray odd = "[5,null,\"x\",[{}],{\"vtId\":{},\"groupId\":[],\"userId\":{}}]";
        for (const QByteArray &data :
             {QByteArray("null"), QByteArray("[{}]"), QByteArray("\"x\""), QByteArray("1e308"),
              deep,
              "{\"vt\":" + odd + ",\"group\":" + odd + ",\"members\":" + odd +
                  ",\"failNumber\":{},\"audit\":[],\"audited\":\"maybe\",\"role\":[],"
                  "\"presence\":\"x\"}"}) {
            TeamService service;
            service.answer(c.service, data);
            Running running(c);
            QVERIFY(running.ends());
            QCOMPARE(running.told.size(), 1);
            QVERIFY(!running.told.contains(QString::fromUtf8(c.failure)));
        }
    }

    void repliesInTheirNamedSlots_data() { addCases(); }

    // The slots are there under their names, and what is late is not told.
    void repliesInTheirNamedSlots()
    {
        QFETCH(int, number);
        const TeamCase &c = teamCases().at(number);
        TeamService service;
        service.server.reply(TeamService::path(c.service), TeamService::reply("{}").onRelease());
        Running running(c);
        QTRY_COMPARE(service.server.unanswered(), 1);
        QNetworkAccessManager manager;
        QNetworkReply *reply = manager.get(QNetworkRequest(QUrl(QStringLiteral("x:"))));
        QTRY_VERIFY(reply->isFinished());
        for (int i = 0; i < 2; ++i)
            QVERIFY(QMetaObject::invokeMethod(running.operation, c.slotName,
                                              Q_ARG(QNetworkReply *, reply)));
        const QStringList failed{
            QString::fromUtf8(c.failure).replace(QLatin1String("%1"), QLatin1String("0"))};
        QCOMPARE(running.told, failed);
        service.server.release();
        QTRY_COMPARE(service.server.unanswered(), 0);
        QVERIFY(running.ends());
        QCOMPARE(running.told, failed);
    }

    void runsOutOfTime()
    {
        TeamService service;
        const LogCapture log(service.host.context);
        service.server.reply(TeamService::path(dissolving().service),
                             TeamService::reply("{}").onRelease());
        Running running(dissolving());
        QTRY_COMPARE(service.server.unanswered(), 1);
        auto *timer = running.operation->findChild<QTimer *>();
        QVERIFY(timer->isActive());
        QCOMPARE(timer->interval(), 10000);
        timer->setInterval(0);
        QVERIFY(running.ends());
        QCOMPARE(running.told, QStringList(QStringLiteral("vt7|0|0")));
        QCOMPARE(log.linesWith("networkerror=").size(), 1);
    }

    // In one turn of the event loop, in both orders.
    void timeOutAndReply_data()
    {
        const Rows<bool> row{"timeOutFirst"};
        row("time-out first", true);
        row("reply first", false);
    }

    void timeOutAndReply()
    {
        QFETCH(bool, timeOutFirst);
        TeamService service;
        service.server.reply(TeamService::path(dissolving().service),
                             TeamService::reply("{}").onRelease());
        Running running(dissolving());
        QTRY_COMPARE(service.server.unanswered(), 1);
        const auto expire = [&] {
            QVERIFY(QMetaObject::invokeMethod(running.operation, "slot_ReplyTimeOut"));
        };
        service.server.release();
        if (timeOutFirst)
            expire();
        else
            connect(running.operation, &Op::signal_DissolveVirtualTeamFinish, this, expire);
        QVERIFY(running.ends());
        QCOMPARE(running.told,
                 QStringList(timeOutFirst ? QStringLiteral("vt7|0|0") : QStringLiteral("vt7|1|0")));
    }

    void deletedBeforeTheReply()
    {
        TeamService service;
        Running running(dissolving());
        delete running.operation;
        QTRY_COMPARE(service.count("dissolveVirtualTeam"), 1);
        Running next(dissolving());
        QVERIFY(next.ends());
        QVERIFY(running.told.isEmpty());
    }

    // The texts that a slot got are still there when the operation has gone.
    void deletedBySlot()
    {
        TeamService service;
        QPointer<Op> operation = new Op;
        QString said;
        connect(operation, &Op::signal_addVirtualTeamAdminFinish, this,
                [&](const QString &vtId, const QStringList &members) {
                    delete operation;
                    said = vtId + members.join(QLatin1Char(' '));
                });
        // Texts that nobody else holds.
        operation->addVirtualTeamAdmin(QString(3, QLatin1Char('t')),
                                       {QString(2, QLatin1Char('u'))});
        QTRY_VERIFY(operation.isNull());
        QCOMPARE(said, QStringLiteral("tttuu"));
    }

    void oneRequestOnly()
    {
        TeamService service;
        Running running(dissolving());
        running.operation->quitVirtualTeam(QStringLiteral("8"));
        QVERIFY(running.ends());
        QCOMPARE(service.server.requests().size(), 1);
        QCOMPARE(running.told, QStringList(QStringLiteral("vt7|1|0")));
    }

    void nowhereToSend_data()
    {
        const Rows<QByteArray> row{"address"};
        row("no address", "");
        row("no web address", "file:///etc/passwd");
        row("nobody listens", "http://127.0.0.1:1/");
    }

    void nowhereToSend()
    {
        QFETCH(QByteArray, address);
        TeamService service;
        writeFile(service.folder.filePath(QStringLiteral("allurl.ini")),
                  "[virtualTeam]\ndissolveVirtualTeamUrl=" + address + "\n");
        Running running(dissolving());
        QVERIFY(running.told.isEmpty());
        QVERIFY(running.ends());
        QCOMPARE(running.told, QStringList(QStringLiteral("vt7|0|0")));
    }

    // It has no address of its own: it is where the list of teams is.
    void addressOfMemberDetail_data()
    {
        const Rows<QByteArray, QByteArray> row{"list", "path"};
        row("another path", "center/vt/x.do", "/center/vt/getVirtualTeamMemberDetail.do");
        row("behind a gateway", "gw%2Fa/1/center/vt/x.do?a=b#c",
            "/gw%2Fa/1/center/vt/getVirtualTeamMemberDetail.do");
        row("without the centre", "list", "/center/vt/getVirtualTeamMemberDetail.do");
        row("none", "", "");
    }

    void addressOfMemberDetail()
    {
        QFETCH(QByteArray, list);
        QFETCH(QByteArray, path);
        TeamService service;
        writeFile(
            service.folder.filePath(QStringLiteral("allurl.ini")),
            "[virtualTeam]\ngetMyVirtualTeamUrl=" +
                (list.isEmpty() ? list : '"' + service.server.url().toEncoded() + list + '"') +
                "\n[Hosts]\ncenter=http://127.0.0.1:1\n");
        auto *operation = new Op(this);
        const QPointer<Op> alive(operation);
        operation->getVirtualTeamMemberInfo(QStringLiteral("vt7"), QStringLiteral("u2"));
        QTRY_VERIFY(!alive);
        QCOMPARE(service.server.requests().size(), path.isEmpty() ? 0 : 1);
        if (!path.isEmpty())
            QCOMPARE(service.server.last().path, path);
    }

    void whatTheLogSays_data()
    {
        const Rows<FakeReply, QByteArray, QByteArray> row{"reply", "level", "line"};
        row("no JSON", FakeReply::of(200, "secret"), "ERROR", ": JsonString prase error!");
        row("network", FakeReply::of(500, "secret"), "ERROR", ": networkerror=");
        row("some were not added", TeamService::reply(R"({"failNumber":2,"x":"secret"})"), "WARN",
            ": failNumber=2");
    }

    void whatTheLogSays()
    {
        QFETCH(FakeReply, reply);
        QFETCH(QByteArray, level);
        QFETCH(QByteArray, line);
        TeamService service;
        const LogCapture log(service.host.context);
        service.server.reply(TeamService::path("batchAddVirtualTeamMember"), reply);
        const QPointer<Op> operation = new Op(this);
        operation->addVirtualTeamMembers(QStringLiteral("secret"), QStringLiteral("0"),
                                         {QStringLiteral("secret")});
        QTRY_VERIFY(!operation);
        const QStringList lines = log.linesWith(line);
        QCOMPARE(lines.size(), 1);
        QVERIFY(lines.first().contains(QLatin1Char('[') + QString::fromUtf8(level) +
                                       QLatin1String("][HttpVirtualTeamOperation.cpp:")));
        for (const char *edge : {"entry", "exit"})
            for (const char *function :
                 {"addVirtualTeamMembers", "slot_AddVirtualTeamMembersFinish"})
                QCOMPARE(log.linesWith((QByteArray(edge) +
                                        " fun CHttpVirtualTeamOperation::" + function + "()")
                                           .constData())
                             .size(),
                         1);
        QVERIFY(log.linesWith("secret").isEmpty());
    }

private:
    static void addCases()
    {
        QTest::addColumn<int>("number");
        for (int i = 0; i < teamCases().size(); ++i)
            QTest::newRow(teamCases().at(i).name) << i;
    }
};

FRIENDUI_TEST(TstTeamOperations)
#include "tst_teamoperations.moc"

// What the host makes of news about teams, and the levers of the company, with the
// services scripted.
#include "host/companylevers.h"
#include "host/eventlog.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/teamnews.h"
#include "host/weblog.h"
#include "host/webservices.h"
#include "host/windows/notices.h"
#include "hostapi/eventcodes.h"
#include "tests/host/ui/fakecore.h"
#include "tests/support/fakecontext.h"
#include "tests/support/fakeserver.h"
#include "tests/support/testrunner.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTranslator>

namespace {

const QByteArray Events = ServiceEvents::path().toLatin1();
const char Approval[] = "/center/company/teamApproval.do";

FakeReply news(int next, const QByteArray &events = "[]")
{
    return FakeReply::json("{\"code\":0,\"data\":{\"next\":" + QByteArray::number(next) +
                           ",\"events\":" + events + "}}");
}

const QByteArray Audit = R"({"type":"audit","teams":"5","vtId":"5","member":"u2"})";

class OtherLanguage : public QTranslator
{
public:
    QString translate(const char *, const char *, const char *, int) const override
    {
        return QStringLiteral("other words");
    }
    bool isEmpty() const override { return false; }
};

struct Bench
{
    FakeServer server;
    QTemporaryDir folder;
    FakeCore core;
    HostContext context{&core, folder.path()};
    HostContextScope scope{&context};
    WebLog webLog;
    EventLog log;
    HostBus bus{&log};
    QObject plugin;
    Notices notices;
    QVector<QPair<QString, QString>> told; // ids and data of the events for the plug-in
    std::unique_ptr<WebServices> services;
    ServiceEvents events;
    std::unique_ptr<TeamNews> teamNews;

    Bench()
    {
        FakeReply logIn = FakeReply::json(R"({"code":0})");
        logIn.header("Set-Cookie", "imAuthId=a; Path=/; HttpOnly");
        server.reply("/ids/login", logIn);
        context.setWebLog(&webLog);
        bus.setPlugin(&plugin, QString::fromLatin1(PluginId::FriendUi));
        QObject::connect(&log, &EventLog::recorded, &log, [this](const EventRecord &record) {
            QDataStream in(record.payload);
            QString ids, data;
            in >> ids >> data;
            if (record.code == Inbound::VirtualTeamsChanged)
                told.append({ids, data});
        });
        WebServices::Options options;
        options.source = WebServices::Named;
        options.named.address = server.url(QString()).toString();
        options.named.password = QStringLiteral("secret");
        services = std::make_unique<WebServices>(&context, options);
        teamNews =
            std::make_unique<TeamNews>(TeamNews::Parts{&events, &core, &bus, &webLog, &notices});
        events.follow(services.get(), &core);
    }
    QByteArray lastForm(const QByteArray &path) const
    {
        QByteArray form;
        for (const FakeRequest &request : server.requests()) {
            if (request.path == path)
                form = request.body;
        }
        return form;
    }
    ~Bench()
    {
        teamNews.reset();
        events.stop();
        services.reset();
        context.setWebLog(nullptr);
        context.shutDown();
    }
};

} // namespace

class TstTeamNews : public QObject
{
    Q_OBJECT

private slots:
    void newsReachThePluginAndTheNotices()
    {
        Bench bench;
        bench.server.reply(Events,
                           {news(1), news(2, "[" + Audit + R"(,{"type":"update","teams":"1,2"}])"),
                            news(2).onRelease()});
        bench.services->start();
        QTRY_COMPARE(bench.told.size(), 1);
        QCOMPARE(bench.told.first(), qMakePair(QStringLiteral("1,2"), QString()));
        QCOMPARE(bench.notices.count(), 1);
        bench.notices.findChild<QPushButton *>(QStringLiteral("acceptNotice"))->click();
        QCOMPARE(bench.told.size(), 2);
        QCOMPARE(bench.told.last().first, QStringLiteral("5"));
        const QJsonObject data =
            QJsonDocument::fromJson(bench.told.last().second.toUtf8()).object();
        QCOMPARE(data.value(QStringLiteral("type")).toString(), QStringLiteral("audit"));
        QCOMPARE(data.value(QStringLiteral("vtId")).toString(), QStringLiteral("5"));
        QCOMPARE(data.value(QStringLiteral("member")).toString(), QStringLiteral("u2"));
    }

    // The text of a name is not taken for a place for another.
    void whatOthersDecideIsTold()
    {
        Bench bench;
        QStringList notes;
        QObject::connect(bench.teamNews.get(), &TeamNews::note, bench.teamNews.get(),
                         [&notes](const QString &text) { notes.append(text); });
        bench.server.reply(
            Events,
            {news(1),
             news(2, R"([{"type":"refused","teams":"5","vtId":"5","vtName":"B","member":"u%2"},)"
                     R"({"type":"agreed","teams":"6","vtId":"6","vtName":"C","member":"u3"}])"),
             news(2).onRelease()});
        bench.services->start();
        QTRY_COMPARE(notes, (QStringList{QString::fromUtf8("u%2 has refused: team “B”"),
                                         QString::fromUtf8("u3 has agreed: team “C”")}));
    }

    void whatTheUserDecidesDisappears()
    {
        Bench bench;
        bench.server.reply(Events, {news(1, "[" + Audit + "]"), news(1).onRelease()});
        bench.services->start();
        QTRY_COMPARE(bench.notices.count(), 1);
        QTRY_COMPARE(bench.server.unanswered(), 1);
        bench.server.reply(Events, news(2));
        WebRequestRecord decision;
        decision.status = 200;
        decision.address = QStringLiteral("https://127.0.0.1:1/center/vt/auditVirtualTeam.do");
        emit bench.webLog.recorded(decision);
        QTRY_COMPARE(bench.notices.count(), 0);
    }

    void whatSomebodyElseDecidesDisappears()
    {
        Bench bench;
        bench.server.reply(Events, {news(1, "[" + Audit + "]"),
                                    news(2, R"([{"type":"update","teams":"4,5"}])"),
                                    news(2).onRelease(), news(2)});
        bench.services->start();
        QTRY_COMPARE(bench.told.size(), 1);
        QTRY_COMPARE(bench.notices.count(), 0);
    }

    void noticesFollowTheLanguage()
    {
        Bench bench;
        bench.server.reply(
            Events, {news(1, "[" + Audit + "]"), news(1).onRelease(), news(1, "[" + Audit + "]")});
        bench.services->start();
        QTRY_COMPARE(bench.notices.count(), 1);
        QTRY_COMPARE(bench.server.unanswered(), 1);
        OtherLanguage language;
        QCoreApplication::installTranslator(&language);
        const auto *list = bench.notices.findChild<QListWidget *>();
        QTRY_VERIFY(list->item(0)->text().contains(QStringLiteral("other words")));
    }

    void nobodyIsAskedWhileOffline()
    {
        Bench bench;
        bench.core.connected = false;
        bench.server.reply(Events, {news(1), news(1).onRelease()});
        bench.services->start();
        QTRY_COMPARE(bench.services->state(), WebServices::Ready);
        QCOMPARE(bench.server.count(Events), 0);
        bench.core.connected = true;
        emit bench.core.connectionChanged(true);
        QTRY_COMPARE(bench.server.unanswered(), 1);
        bench.core.connected = false;
        emit bench.core.connectionChanged(false);
        QTRY_COMPARE(bench.server.unanswered(), 0);
    }

    void theCompanysLeversFollowTheServices()
    {
        Bench bench;
        const auto settings = [](bool approval, const char *uid) {
            return FakeReply::json(
                QByteArray(R"({"code":0,"data":{"companyCode":"C1","approval":)") +
                (approval ? "true" : "false") + R"(,"approver":")" + uid +
                R"(","approverName":"A & B"}})");
        };
        bench.server.reply(Approval, {settings(false, "u9"), settings(true, "u9"),
                                      settings(true, "u0"), FakeReply::json(R"({"code":10004})")});
        CompanyLevers levers(bench.services.get(), QStringLiteral("u0"),
                             [](const auto &picked) { picked(QStringLiteral("u3")); });
        const auto action = [&levers](const char *name) {
            return levers.findChild<QAction *>(QLatin1String(name));
        };
        QVERIFY(!levers.menuAction()->isEnabled());
        bench.services->start();
        QTRY_VERIFY(action("approverMe")->isEnabled() && levers.menuAction()->isEnabled());
        QTRY_VERIFY(action("approverName")->text().contains(QLatin1String("A && B (u9)")));
        QVERIFY(!action("teamsNeedApproval")->isChecked());

        action("teamsNeedApproval")->trigger();
        QTRY_COMPARE(bench.lastForm(Approval), QByteArray("approval=1"));
        QTRY_VERIFY(action("teamsNeedApproval")->isChecked());
        action("approverMe")->trigger();
        QTRY_VERIFY(!action("approverMe")->isEnabled());
        action("approverOther")->trigger();
        QTRY_COMPARE(bench.lastForm(Approval), QByteArray("approver=u3"));
        QTRY_VERIFY(!action("teamsNeedApproval")->isEnabled()); // a personal account
        bench.services->stop();
        QVERIFY(!levers.menuAction()->isEnabled());
    }
};

FRIENDUI_TEST(TstTeamNews)
#include "tst_teamnews.moc"

// Listening for what happens to teams, and what is found among colleagues, against a
// scripted server.
#include "host/colleaguesearch.h"
#include "host/serviceaddressfile.h"
#include "host/serviceevents.h"
#include "tests/support/fakecontext.h"
#include "tests/support/fakeserver.h"
#include "tests/support/testrunner.h"

#include <QTemporaryDir>

Q_DECLARE_METATYPE(TeamRequest)
Q_DECLARE_METATYPE(FakeReply)

namespace {

const QByteArray Events = ServiceEvents::path().toLatin1();

FakeReply news(int next, const QByteArray &events = "[]")
{
    return FakeReply::json("{\"code\":0,\"data\":{\"next\":" + QByteArray::number(next) +
                           ",\"events\":" + events + "}}");
}

struct Bench
{
    FakeServer server;
    QTemporaryDir folder;
    FakeContext context;
    HostContextScope scope{&context};

    Bench()
    {
        context.user = QStringLiteral("u1");
        context.programFolder = folder.path();
        QString problem;
        ServiceAddressFile::write(ServiceAddressFile::in(folder.path()),
                                  server.url(QString()).toString(), &problem);
    }
};

struct Listener
{
    ServiceEvents events;
    QSignalSpy changed{&events, &ServiceEvents::teamsChanged};
    QSignalSpy waiting{&events, &ServiceEvents::waiting};
    QVector<TeamRequest> requested;

    Listener()
    {
        QObject::connect(&events, &ServiceEvents::requested, &events,
                         [this](const TeamRequest &request) { requested.append(request); });
    }
};

} // namespace

class TstServiceEvents : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qRegisterMetaType<QList<TeamRequest>>("QList<TeamRequest>"); }

    void tellsWhatHappensInOrder()
    {
        Bench bench;
        Listener listener;
        bench.server.reply(
            Events,
            {news(7, R"([{"type":"audit","vtId":"5","member":"u2"}])"),
             news(9, R"([{"type":"join","vtId":"8","member":"x1","teams":"8"},)"
                     R"({"type":"update","teams":"5,6"},{"type":"new kind","teams":"6,7"}])"),
             news(9).onRelease()});
        listener.events.start();
        QTRY_COMPARE(bench.server.requests().size(), 3);
        QCOMPARE(listener.waiting.count(), 1);
        const auto waiting = listener.waiting.first().first().value<QList<TeamRequest>>();
        QCOMPARE(waiting.size(), 1);
        QCOMPARE(waiting.first().member, QStringLiteral("u2"));
        QCOMPARE(listener.requested.size(), 1);
        QCOMPARE(listener.requested.first().type, QStringLiteral("join"));
        QCOMPARE(listener.changed.count(), 1);
        QCOMPARE(listener.changed.first().first().toStringList().join(QLatin1Char(',')),
                 QStringLiteral("5,6,7"));
        QCOMPARE(bench.server.requests().at(0).body, QByteArray());
        QCOMPARE(bench.server.requests().at(1).body, QByteArray("since=7&waitSeconds=25"));
        QCOMPARE(bench.server.requests().at(2).body, QByteArray("since=9&waitSeconds=25"));
    }

    void everyKindOfNewsIsTold()
    {
        Bench bench;
        Listener listener;
        QStringList told;
        const auto note = [&told](const QString &text) { told.append(text); };
        const ServiceEvents *events = &listener.events;
        connect(events, &ServiceEvents::friendRequested, events, [&](const FriendRequest &each) {
            note(QStringList{each.uid, each.name, each.companyName, each.reason, each.time}.join(
                QLatin1Char('|')));
        });
        connect(events, &ServiceEvents::friendsWaiting, events,
                [&](const QList<FriendRequest> &all) {
                    note(QStringLiteral("waiting %1").arg(all.size()));
                });
        connect(
            events, &ServiceEvents::pictureChanged, events,
            [&](const QString &uid, const QString &name) { note(uid + QLatin1Char(' ') + name); });
        connect(events, &ServiceEvents::friendsChanged, events,
                [&] { note(QStringLiteral("friends")); });
        connect(events, &ServiceEvents::subscriptionsChanged, events,
                [&] { note(QStringLiteral("services")); });
        bench.server.reply(
            Events,
            {news(1, R"([{"type":"friendRequest","member":"x1"}])"),
             news(2, R"([{"type":"friendRequest","member":"x1","reason":"old"},)"
                     R"({"type":"friendRequest","reason":"nobody"},{"type":"friends"},)"
                     R"({"type":"friendRequest","member":"x1","name":"N","companyName":"C",)"
                     R"("reason":"r","time":"t"},{"type":"services"},{"type":"friends"},)"
                     R"({"type":"picture","member":"u3","photoName":"3.png"}])"),
             news(2).onRelease()});
        listener.events.start();
        QTRY_COMPARE(told, (QStringList{QStringLiteral("waiting 1"), QStringLiteral("x1|N|C|r|t"),
                                        QStringLiteral("u3 3.png"), QStringLiteral("friends"),
                                        QStringLiteral("services")}));
        QVERIFY(listener.changed.isEmpty() && listener.requested.isEmpty());
    }

    // What was asked before it was closed, and decided since, is not asked again.
    void goesOnWhereAnotherProcessEnded()
    {
        Bench bench;
        Listener listener;
        QSignalSpy reached(&listener.events, &ServiceEvents::reached);
        int lists = 0; // of what waits, that were asked for
        bench.server.replyElsewhere([&lists](const FakeRequest &request) {
            lists += request.body.isEmpty() ? 1 : 0;
            if (request.body.isEmpty())
                return news(8);
            if (request.body.startsWith("since=5&"))
                return news(8, R"([{"type":"friendRequest","member":"x1"}])");
            return news(8).onRelease();
        });
        listener.events.goOnFrom(5);
        listener.events.start();
        QTRY_COMPARE(lists, 2);
        QTRY_VERIFY(listener.waiting.count() > 0);
        QTRY_COMPARE(reached.count(), 1);
        QCOMPARE(reached.first().first().toLongLong(), 8);
    }

    void goesOnWhereItWasStopped()
    {
        Bench bench;
        Listener listener;
        bench.server.reply(Events, {news(7), news(7).onRelease()});
        listener.events.start();
        QTRY_COMPARE(bench.server.unanswered(), 1);
        listener.events.stop();
        bench.server.forget();
        bench.server.reply(Events, news(12));
        listener.events.start();
        QTRY_VERIFY(bench.server.requests().size() >= 3);
        QByteArrayList bodies;
        for (const FakeRequest &request : bench.server.requests())
            bodies.append(request.body);
        QVERIFY(bodies.contains("since=7&waitSeconds=25"));
        QVERIFY(bodies.contains(QByteArray())); // what waits may have been decided elsewhere
    }

    void asksAgainAfterAFailure_data()
    {
        const Rows<FakeReply> row{"failure"};
        row("no service", FakeReply::of(404));
        row("a refusal", FakeReply::json(R"({"code":10001})"));
        row("no JSON", FakeReply::of(200, "hello"));
        row("broken off", news(1).dropped(20));
    }
    void asksAgainAfterAFailure()
    {
        QFETCH(FakeReply, failure);
        Bench bench;
        Listener listener;
        // At first, and while it waits.
        bench.server.reply(Events,
                           {failure, news(3), failure,
                            news(4, R"([{"type":"update","teams":"1"}])"), news(4).onRelease()});
        listener.events.start();
        QTRY_COMPARE(listener.changed.count(), 1);
        QCOMPARE(listener.waiting.count(), 1);
    }

    void doesNotFloodServicesThatDoNotWait()
    {
        Bench bench;
        Listener listener;
        bench.server.reply(Events, news(3));
        listener.events.start();
        QTRY_COMPARE(bench.server.requests().size(), 3);
        QVERIFY(bench.server.requests().size() < 5);
        listener.events.stop();
        QVERIFY(!listener.events.isRunning());
    }

    void strangeNewsDoNoHarm()
    {
        Bench bench;
        Listener listener;
        bench.server.reply(Events,
                           {news(1),
                            news(2, R"([5,null,"x",{"type":"audit"},{"type":5,"teams":[1]},)"
                                    R"({"teams":",,"},{"type":"update","teams":"3"}])"),
                            news(2).onRelease()});
        listener.events.start();
        QTRY_COMPARE(listener.changed.count(), 1);
        QCOMPARE(listener.changed.first().first().toStringList(), QStringList{QStringLiteral("3")});
        QVERIFY(listener.requested.isEmpty());
    }

    void onlyColleaguesAreFound()
    {
        Bench bench;
        bench.server.reply(
            "/center/org/fuzzySearchOrg.do",
            FakeReply::json(
                R"({"code":0,"data":{"userList":[{"userId":"u7","nickName":"A\nB","companyCode":"C1"},)"
                R"({"userId":"x1","nickName":"X","companyCode":"C2"},{"companyCode":"C1"},7]}})"));
        ColleagueSearch search(QStringLiteral("C1"), QStringLiteral("corp.example"));
        QVector<PeopleModel::Person> found;
        QStringList texts;
        connect(&search, &ColleagueSearch::found, this,
                [&](const QString &text, const QVector<PeopleModel::Person> &people) {
                    texts.append(text);
                    found = people;
                });
        search.search(QStringLiteral("a"));
        search.search(QStringLiteral(" ab "));
        QTRY_COMPARE(texts, QStringList{QStringLiteral("ab")});
        QCOMPARE(found.size(), 1);
        QCOMPARE(found.first().jid, QStringLiteral("u7@corp.example"));
        QCOMPARE(found.first().name, QStringLiteral("A B"));
        QCOMPARE(bench.server.requests().size(), 1);
    }
};

FRIENDUI_TEST(TstServiceEvents)
#include "tst_serviceevents.moc"

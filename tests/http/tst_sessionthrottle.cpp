// The limits on requests at a time, counted by a server.
#include "http/managerpool.h"
#include "http/requestthrottle.h"
#include "tests/http/sessionfixture.h"
#include "tests/support/testrunner.h"

namespace {

using Calls = std::vector<std::unique_ptr<Call>>;

constexpr int Others = RequestThrottle::MaximumOthers;
constexpr int Pictures = RequestThrottle::MaximumPictures;

const char *pathOf(qint16 kind)
{
    return kind == CHttpSession::PictureKind ? "/picture" : "/other";
}

void add(Calls &calls, const FakeServer &server, int count, qint16 kind = 0)
{
    for (int i = 0; i < count; ++i) {
        calls.push_back(std::make_unique<Call>());
        calls.back()->throttled(kind).get(server.url(QString::fromLatin1(pathOf(kind))));
    }
}

int waiting(const Calls &calls)
{
    return int(std::count_if(calls.begin(), calls.end(), [](const std::unique_ptr<Call> &call) {
        return call->session && call->session->isWaiting();
    }));
}

bool waitForAll(const Calls &calls)
{
    return std::all_of(calls.begin(), calls.end(),
                       [](const std::unique_ptr<Call> &call) { return call->waitForEnd(); });
}

} // namespace

class TstSessionThrottle : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_host = std::make_unique<WebHost>();
        m_server = std::make_unique<FakeServer>();
        m_server->reply("/picture", FakeReply::of(200).onRelease());
        m_server->reply("/other", FakeReply::of(200).onRelease());
        m_server->reply("/quick", FakeReply::of(200));
    }
    void cleanup()
    {
        m_server.reset();
        m_host.reset();
    }

    void limits_data()
    {
        const Rows<int, int> row{"kind", "limit"};
        row("others", 0, 20);
        row("pictures", int(CHttpSession::PictureKind), 5);
    }

    // Really on the wire, not only out of the client's own list.
    void limits()
    {
        QFETCH(int, kind);
        QFETCH(int, limit);
        Calls calls;
        add(calls, *m_server, limit + 1, qint16(kind));
        QCOMPARE(waiting(calls), 1);
        QVERIFY(calls.back()->session->isWaiting());
        QTRY_COMPARE(m_server->unanswered(), limit);

        m_server->release(1);
        QTRY_COMPARE(m_server->requests().size(), limit + 1);
        m_server->release();
        QVERIFY(waitForAll(calls));
        QCOMPARE(m_server->mostUnanswered(), limit);
    }

    void unthrottledIsSentAtOnce()
    {
        Calls calls;
        add(calls, *m_server, Others + 5);
        Call call;
        call.post(m_server->url(QStringLiteral("/quick")));
        Call raw;
        raw.throttled().session->postWithRedirectRaw(
            RequestHeaders::formRequest(m_server->url(QStringLiteral("/quick"))), QString());
        QVERIFY(call.waitForEnd());
        QVERIFY(raw.waitForEnd());
        QCOMPARE(waiting(calls), 5);
    }

    void placesBecomeFree_data()
    {
        const Rows<int> row{"how"};
        int number = 0;
        for (const char *how : {"deleted", "cancelled", "timed out", "dropped", "waiting deleted"})
            row(how, number++);
    }

    void placesBecomeFree()
    {
        QFETCH(int, how);
        Calls calls;
        if (how == 2) {
            calls.push_back(std::make_unique<Call>());
            calls.back()->session->setTimeout(200);
            calls.back()->throttled(CHttpSession::PictureKind);
            calls.back()->get(m_server->url(QStringLiteral("/picture")));
        }
        add(calls, *m_server, Pictures + 2 - int(calls.size()), CHttpSession::PictureKind);
        QTRY_COMPARE(m_server->unanswered(), Pictures);
        switch (how) {
        case 0:
            calls.front()->session.reset();
            break;
        case 1:
            calls.front()->session->cancel();
            break;
        case 3:
            // The network layer asks once more when it got no byte; the place stays
            // taken until it gives up.
            m_server->stop();
            QVERIFY(waitForAll(calls));
            QCOMPARE(waiting(calls), 0);
            return;
        case 4:
            calls.at(Pictures)->session.reset();
            m_server->release(1);
            break;
        default:
            break; // its time runs out
        }
        QTRY_COMPARE(m_server->requests().size(), Pictures + 1);
        QCOMPARE(waiting(calls), how == 4 ? 0 : 1);
    }

    // Those that wait behind the others are about to go as well: none is sent.
    void ownerOfAllGone()
    {
        auto owner = std::make_unique<QObject>();
        for (int i = 0; i < Others + 100; ++i) {
            auto *session = new CHttpSession(owner.get());
            session->setThrottled(true);
            session->get(RequestHeaders::request(m_server->url(QStringLiteral("/other"))));
        }
        QTRY_COMPARE(m_server->unanswered(), Others);
        owner.reset();
        Calls next;
        add(next, *m_server, Others);
        QCOMPARE(waiting(next), 0);
        QTRY_COMPARE(m_server->requests().size(), 2 * Others);
    }

    void waitingListFull()
    {
        Calls calls;
        add(calls, *m_server, Pictures + RequestThrottle::MaximumWaiting,
            CHttpSession::PictureKind);
        QCOMPARE(waiting(calls), RequestThrottle::MaximumWaiting);
        Call refused;
        refused.throttled(CHttpSession::PictureKind).get(m_server->url(QStringLiteral("/picture")));
        QCOMPARE(refused.ends, 0);
        QVERIFY(refused.waitForEnd());
        QVERIFY(refused.hadReply);
        QVERIFY(refused.error != QNetworkReply::NoError);
        QCOMPARE(waiting(calls), RequestThrottle::MaximumWaiting);
    }

    void waitingIsNotTimed()
    {
        Calls calls;
        add(calls, *m_server, Pictures, CHttpSession::PictureKind);
        Call late;
        late.session->setTimeout(150);
        late.throttled(CHttpSession::PictureKind).get(m_server->url(QStringLiteral("/quick")));
        Call clock; // runs out of the same time meanwhile
        clock.session->setTimeout(200);
        clock.get(m_server->url(QStringLiteral("/other")));
        QVERIFY(clock.waitForEnd());
        QCOMPARE(clock.error, QNetworkReply::TimeoutError);
        QVERIFY(late.session->isWaiting());
        m_server->release();
        QVERIFY(late.waitForEnd());
        QVERIFY(late.succeeded());
    }

    void picturesDelayNobody()
    {
        Calls pictures;
        add(pictures, *m_server, 1000, CHttpSession::PictureKind);
        QTRY_COMPARE(m_server->unanswered(), Pictures);
        Call interactive;
        interactive.throttled().post(m_server->url(QStringLiteral("/quick")));
        QVERIFY(interactive.waitForEnd());
        // Not one picture came in between.
        QCOMPARE(m_server->requests().size(), Pictures + 1);
        QCOMPARE(m_server->last().path, QByteArray("/quick"));
    }

    // After every reply each free place is taken as long as somebody wants it.
    void neverIdleWhileWorkWaits()
    {
        Calls calls;
        add(calls, *m_server, 3 * Others);
        add(calls, *m_server, 3 * Pictures, CHttpSession::PictureKind);
        const int all = int(calls.size());
        QTRY_COMPARE(m_server->unanswered(), Others + Pictures);
        for (int answered = 1; answered <= all - Others - Pictures; ++answered) {
            m_server->release(1);
            QTRY_COMPARE(m_server->requests().size(), Others + Pictures + answered);
        }
        m_server->release();
        QVERIFY(waitForAll(calls));
        QCOMPARE(m_server->mostUnanswered(), Others + Pictures);
    }

    void managersAreReused()
    {
        ManagerPool::instance().clear();
        const int before = ManagerPool::instance().made();
        m_server->reply("/other", FakeReply::of(200, "{}"));
        m_server->reply("/picture", FakeReply::of(200, "{}"));
        Calls calls;
        add(calls, *m_server, 200);
        add(calls, *m_server, 50, CHttpSession::PictureKind);
        QVERIFY(waitForAll(calls));
        for (const auto &call : calls)
            QVERIFY(call->succeeded());
        QVERIFY(ManagerPool::instance().made() - before <= Others + Pictures);
        QVERIFY(ManagerPool::instance().idle() <= ManagerPool::MaximumIdle);
        QVERIFY(m_server->connections() <= Others + Pictures);

        // More than can be kept: the rest ends.
        m_server->reply("/other", FakeReply::of(200).onRelease());
        Calls many;
        for (int i = 0; i < 40; ++i) {
            many.push_back(std::make_unique<Call>());
            many.back()->get(m_server->url(QStringLiteral("/other")));
        }
        QTRY_COMPARE(m_server->unanswered(), 40);
        m_server->release();
        QVERIFY(waitForAll(many));
        QCOMPARE(ManagerPool::instance().idle(), int(ManagerPool::MaximumIdle));
    }

    void sharedManager()
    {
        m_server->reply("/other", FakeReply::of(200).header("Set-Cookie", "seat=7; Path=/"));
        const auto send = [this](bool shared) {
            Call call;
            call.session->setSharedManager(shared);
            call.get(m_server->url(QStringLiteral("/other")));
            return call.waitForEnd();
        };
        QVERIFY(send(true));
        QVERIFY(send(true));
        QCOMPARE(m_server->last().cookie("seat"), QByteArray("7"));
        // A session by itself inherits nothing, neither from those nor from its like.
        QVERIFY(send(false));
        QVERIFY(send(false));
        QVERIFY(m_server->last().cookie("seat").isNull());
    }

private:
    std::unique_ptr<WebHost> m_host;
    std::unique_ptr<FakeServer> m_server;
};

FRIENDUI_TEST(TstSessionThrottle)
#include "tst_sessionthrottle.moc"

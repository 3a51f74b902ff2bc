// Replies so large that they are read on another thread and handed over in slices.
#include "tests/org/orgrequestfixture.h"
#include "tests/support/testrunner.h"

#include <QPointer>

class TstOrgLargeReplies : public OrgRequestFixture
{
    Q_OBJECT

private slots:
    void init() { setUp(); }
    void cleanup() { tearDown(); }

    void largeDepartmentInSlices()
    {
        constexpr int Count = 10000;
        server->reply("/org.do", FakeReply::json(employees(Count)));
        const QPointer<HttpOrgFun> request = start(Children);
        bool doneLast = false;
        connect(request, &HttpOrgFun::signal_searchOrgDone, this,
                [&] { doneLast = m_spies.at(0)->count() == Count / HttpOrgFun::SliceSize; });
        QTRY_VERIFY(!request);
        QVERIFY(doneLast);
        int next = 0;
        for (const QList<QVariant> &arguments : *m_spies.at(0)) {
            const auto slice = arguments.at(0).value<OrgElementList>();
            QVERIFY(slice.size() <= HttpOrgFun::SliceSize);
            for (const OrgElement &element : slice)
                QCOMPARE(element.strId, QStringLiteral("u%1").arg(next++));
            QCOMPARE(arguments.at(1).toString(), QStringLiteral("C1"));
        }
        QCOMPARE(next, Count);
    }

    void ownerGoneWhileReading()
    {
        server->reply("/org.do", FakeReply::json(employees(20000)));
        const QPointer<HttpOrgFun> request = start(Children);
        // Until the round of events in which the worker has been started.
        while (host->context.webRequests.isEmpty())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QVERIFY(request);
        delete request.data();
        // The next reply is read by the same worker, after this one.
        const auto spies = m_spies;
        const QPointer<HttpOrgFun> next = start(Locate);
        QTRY_VERIFY(!next);
        for (const auto &spy : spies)
            QCOMPARE(spy->count(), 0);
    }

    void receiverEndsItBetweenSlices()
    {
        server->reply("/org.do", FakeReply::json(employees(10000)));
        QPointer<HttpOrgFun> request = start(Children);
        connect(request, &HttpOrgFun::signal_searchOrgElements, this,
                [&] { delete request.data(); });
        QTRY_VERIFY(!request);
        QCOMPARE(m_spies.at(0)->count(), 1);
        QCOMPARE(m_spies.at(3)->count(), 0);
    }

    void locationOfALargeCompany()
    {
        QByteArray people = employees(5000);
        server->reply("/org.do",
                      FakeReply::json(R"({"location":{"orgId":"C1","children":)" + people + "}}"));
        OrgElementList ahead;
        const QPointer<HttpOrgFun> request = start(Locate);
        connect(request, &HttpOrgFun::signal_searchOrgElements, this,
                [&](const OrgElementList &slice, const QString &company) {
                    QVERIFY(company.isEmpty());
                    QCOMPARE(m_spies.at(0)->count(), 0); // the place comes last
                    ahead += slice;
                });
        QTRY_VERIFY(!request);
        QCOMPARE(signalCounts(), (QVector<int>{1, 0, 0, 0}));
        QVERIFY(!ahead.isEmpty());
        ahead += m_spies.at(0)->first().at(0).value<OrgElementList>();
        QCOMPARE(ahead.size(), 5001);
        QCOMPARE(ahead.first().strId, QStringLiteral("C1"));
    }
};

FRIENDUI_TEST(TstOrgLargeReplies)
#include "tst_orglargereplies.moc"

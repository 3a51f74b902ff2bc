#include "http/requestthrottle.h"
#include "tests/support/testrunner.h"

#include <deque>

using Lane = RequestThrottle::Lane;
using Admission = RequestThrottle::Admission;

namespace {

// Notes its number when its turn comes; may leave at once.
struct Numbered : RequestThrottle::Entry
{
    Numbered(int entryNumber, QVector<int> *orderOfTurns) : number(entryNumber), order(orderOfTurns)
    {
    }
    int number;
    QVector<int> *order;
    RequestThrottle *leavesAtOnce = nullptr;

    void turnCame() override
    {
        order->append(number);
        if (leavesAtOnce)
            leavesAtOnce->leave(this);
    }
};

struct Fixture
{
    RequestThrottle throttle;
    QVector<int> order;
    std::deque<Numbered> entries;

    Numbered *add(Lane lane, Admission expected)
    {
        entries.emplace_back(int(entries.size()), &order);
        const Admission got = throttle.admit(&entries.back(), lane);
        if (got != expected)
            QTest::qFail("another admission than expected", __FILE__, __LINE__);
        return &entries.back();
    }
    QVector<Numbered *> fill(Lane lane)
    {
        const int limit = lane == Lane::Pictures ? RequestThrottle::MaximumPictures
                                                 : RequestThrottle::MaximumOthers;
        QVector<Numbered *> added;
        for (int i = 0; i < limit; ++i)
            added.append(add(lane, Admission::Active));
        return added;
    }
};

} // namespace

class TstThrottle : public QObject
{
    Q_OBJECT

private slots:
    void longestWaitFirst()
    {
        Fixture fixture;
        const QVector<Numbered *> running = fixture.fill(Lane::Others);
        QVector<int> waiting;
        for (int i = 0; i < 3; ++i)
            waiting.append(fixture.add(Lane::Others, Admission::Waiting)->number);
        for (int i = 0; i < 3; ++i) {
            fixture.throttle.leave(running.at(i));
            fixture.throttle.startNext();
        }
        QCOMPARE(fixture.order, waiting);
    }

    // Several may end before anybody looks: no place stays free while someone waits,
    // and who comes new does not get in front.
    void severalPlacesAtOnce()
    {
        Fixture fixture;
        const QVector<Numbered *> running = fixture.fill(Lane::Others);
        const int first = fixture.add(Lane::Others, Admission::Waiting)->number;
        const int second = fixture.add(Lane::Others, Admission::Waiting)->number;
        for (int i = 0; i < 3; ++i)
            fixture.throttle.leave(running.at(i));
        const int newcomer = fixture.add(Lane::Others, Admission::Waiting)->number;
        fixture.throttle.startNext();
        QCOMPARE(fixture.order, (QVector<int>{first, second, newcomer}));
        QCOMPARE(fixture.throttle.active(Lane::Others), RequestThrottle::MaximumOthers);
    }

    // A request that fails when it is sent must not hold up those behind it.
    void turnThatEndsAtOnce()
    {
        Fixture fixture;
        const QVector<Numbered *> running = fixture.fill(Lane::Pictures);
        for (int i = 0; i < 3; ++i)
            fixture.add(Lane::Pictures, Admission::Waiting)->leavesAtOnce = &fixture.throttle;
        fixture.throttle.leave(running.first());
        fixture.throttle.startNext();
        QCOMPARE(fixture.order.size(), 3);
        QCOMPARE(fixture.throttle.active(Lane::Pictures), RequestThrottle::MaximumPictures - 1);
    }

    void strangersLeave()
    {
        Fixture fixture;
        const QVector<Numbered *> running = fixture.fill(Lane::Others);
        QVector<int> order;
        const Numbered stranger(0, &order);
        fixture.throttle.leave(&stranger);
        fixture.throttle.leave(running.first());
        fixture.throttle.leave(running.first()); // ended and then deleted
        QCOMPARE(fixture.throttle.active(Lane::Others), RequestThrottle::MaximumOthers - 1);
    }
};

FRIENDUI_TEST(TstThrottle)
#include "tst_throttle.moc"

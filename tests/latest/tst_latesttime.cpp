// The times of conversations.
#include "contacts/latest/daywatch.h"
#include "contacts/latest/latesttime.h"
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"

#include <QSignalSpy>

#include <ctime>

namespace {

// Another time zone for the process, as long as it exists.
class TimeZone
{
public:
    explicit TimeZone(const QByteArray &name) : m_before(qgetenv("TZ")) { set(name); }
    ~TimeZone() { set(m_before); }

private:
    static void set(const QByteArray &name)
    {
        if (name.isEmpty())
            qunsetenv("TZ");
        else
            qputenv("TZ", name);
        tzset();
    }
    QByteArray m_before;
};

QDateTime at(const char *text)
{
    return QDateTime::fromString(QLatin1String(text), QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}

} // namespace

class TstLatestTime : public QObject
{
    Q_OBJECT

private slots:
    void text_data()
    {
        const Rows<QString, QString, QString> row{"time", "now", "text"};
        row("now", "2026-03-05 12:00:00", "2026-03-05 12:00:00", "12:00");
        row("this midnight", "2026-03-05 00:00:00", "2026-03-05 23:59:59", "00:00");
        row("a minute ago, yesterday", "2026-03-04 23:59:59", "2026-03-05 00:00:10", "yesterday");
        row("yesterday's first second", "2026-03-04 00:00:00", "2026-03-05 23:59:59", "yesterday");
        row("two calendar days, 25 hours", "2026-03-03 23:00:00", "2026-03-05 00:10:00", "03-03");
        row("three days ago", "2026-03-02 12:00:00", "2026-03-05 12:00:00", "03-02");
        row("first of January", "2026-01-01 08:00:00", "2026-12-31 12:00:00", "01-01");
        row("yesterday was last year", "2025-12-31 23:59:00", "2026-01-01 00:01:00", "25-12-31");
        row("long ago", "2009-06-07 10:00:00", "2026-03-05 12:00:00", "09-06-07");
        row("clock set back an hour", "2026-03-05 13:00:00", "2026-03-05 12:00:00", "13:00");
        row("clock set back some days", "2026-03-08 13:00:00", "2026-03-05 12:00:00", "13:00");
        row("clock set back over new year", "2026-01-01 00:30:00", "2025-12-31 23:30:00",
            "26-01-01");
        row("leap day", "2028-02-29 10:00:00", "2028-03-01 09:00:00", "yesterday");
        row("unreadable", "soon", "2026-03-05 12:00:00", "");
        row("empty", "", "2026-03-05 12:00:00", "");
        row("no such day", "2026-02-30 10:00:00", "2026-03-05 12:00:00", "");
        row("another form", "2026-03-05T12:00:00", "2026-03-05 12:00:00", "");
    }

    void text()
    {
        QFETCH(QString, time);
        QFETCH(QString, now);
        QTEST(latestTimeText(readStoredTime(time), readStoredTime(now)), "text");
    }

    void summerTime_data()
    {
        const Rows<QString, QString, QString> row{"time", "now", "text"};
        // In New York the clock went forward on 2026-03-08 and back on 2026-11-01.
        row("a day of 23 hours", "2026-03-07 23:30:00", "2026-03-08 23:00:00", "yesterday");
        row("two days, 47 hours", "2026-03-07 12:00:00", "2026-03-09 11:00:00", "03-07");
        row("a day of 25 hours", "2026-11-01 00:10:00", "2026-11-01 23:50:00", "00:10");
        row("the day after", "2026-11-01 00:10:00", "2026-11-02 00:05:00", "yesterday");
        row("an hour that there was not", "2026-03-08 02:30:00", "2026-03-09 12:00:00",
            "yesterday");
    }

    void summerTime()
    {
        const TimeZone zone("America/New_York");
        text();
    }

    void orderIsThatOfTheStoredTexts()
    {
        const TimeZone zone("America/New_York");
        const QDateTime now = at("2026-11-01 12:00:00");
        const QStringList texts{"2026-10-31 23:59:59", "2026-11-01 00:59:59",
                                "2026-11-01 01:00:00", "2026-11-01 01:30:00",
                                "2026-11-01 02:00:00", "2026-11-01 11:00:00"};
        for (int i = 1; i < texts.size(); ++i)
            QVERIFY2(timeOrder(texts.at(i - 1), now) < timeOrder(texts.at(i), now),
                     qPrintable(texts.at(i)));
        QVERIFY(timeOrder("", now) < timeOrder("1970-01-01 00:00:00", now));
        QCOMPARE(timeOrder("2099-01-01 00:00:00", now), timeOrder("2026-11-02 12:00:00", now));
    }

    void storable_data()
    {
        const Rows<QString, QString> row{"text", "stored"};
        row("plain", "2026-03-05 11:59:58", "2026-03-05 11:59:58");
        row("a bit ahead", "2026-03-06 11:59:59", "2026-03-06 11:59:59");
        row("far ahead", "2099-01-01 00:00:00", "2026-03-05 12:00:00");
        row("empty", "", "2026-03-05 12:00:00");
        row("markup", "<b>now</b>", "2026-03-05 12:00:00");
        row("too long", "2026-03-05 11:59:58Z", "2026-03-05 12:00:00");
    }

    void storable()
    {
        QFETCH(QString, text);
        QTEST(storableTime(text, at("2026-03-05 12:00:00")), "stored");
    }

    void looksAgain_data()
    {
        const Rows<QString, int, int> row{"now", "atLeast", "atMost"};
        row("noon", "2026-03-05 12:00:00", 1000, 60000);
        row("seconds before midnight", "2026-03-05 23:59:57", 3000, 3500);
        row("midnight", "2026-03-06 00:00:00", 1000, 60000);
    }

    // Soon after midnight, rarely else.
    void looksAgain()
    {
        QFETCH(QString, now);
        DayWatch watch;
        watch.setClock([&now] { return readStoredTime(now); });
        QFETCH(int, atLeast);
        QFETCH(int, atMost);
        QVERIFY(watch.msToNextLook() >= atLeast);
        QVERIFY(watch.msToNextLook() <= atMost);
    }

    void turns()
    {
        QDateTime now = at("2026-03-05 23:59:59").addMSecs(990);
        DayWatch watch;
        watch.setClock([&now] { return now; });
        QSignalSpy turned(&watch, &DayWatch::turned);
        watch.setActive(true);
        QCOMPARE(turned.count(), 0);
        now = now.addMSecs(20);
        // By itself, the timer being set for midnight.
        QTRY_COMPARE(turned.count(), 1);
        now = now.addSecs(-3600); // the clock is set back
        watch.look();
        QCOMPARE(turned.count(), 2);
        now = now.addSecs(1); // an hour like any other
        watch.look();
        QCOMPARE(turned.count(), 2);
        now = now.toOffsetFromUtc(now.offsetFromUtc() + 900); // another time zone
        watch.look();
        QCOMPARE(turned.count(), 3);
        // Nothing moves while nobody looks; what was missed is told afterwards.
        watch.setActive(false);
        now = now.addDays(2);
        QCOMPARE(turned.count(), 3);
        watch.setActive(true);
        QCOMPARE(turned.count(), 4);
    }
};

FRIENDUI_TEST(TstLatestTime)
#include "tst_latesttime.moc"

#include "contacts/latest/latesttime.h"

#include <QObject>

namespace {
QString storedForm()
{
    return QStringLiteral("yyyy-MM-dd hh:mm:ss");
}

constexpr qint64 SecondsPerDay = 24 * 60 * 60;

struct ClockTime
{
    QDate date;
    QTime time;

    bool isValid() const { return date.isValid() && time.isValid(); }
};

// By its parts: an hour that summer time leaves out makes a QDateTime invalid, but what
// stands in the table may come from elsewhere. To make a QDateTime also takes a look at
// the time zone, which costs more than all else that is done with a message.
ClockTime readClock(const QString &text)
{
    if (text.size() != 19 || text.at(10) != QLatin1Char(' '))
        return {};
    return {QDate::fromString(text.left(10), Qt::ISODate),
            QTime::fromString(text.mid(11), Qt::ISODate)};
}

// The reading of the clock as a number: unlike the seconds since the epoch it does not
// go back when summer ends, and orders as the stored texts do.
qint64 readingOf(QDate date, QTime time)
{
    return date.toJulianDay() * SecondsPerDay + time.msecsSinceStartOfDay() / 1000;
}

qint64 dayAfter(const QDateTime &now)
{
    return readingOf(now.date(), now.time()) + SecondsPerDay;
}
} // namespace

QString latestTimeText(const QDateTime &time, const QDateTime &now)
{
    if (!time.date().isValid() || !time.time().isValid())
        return QString();
    if (time.date().year() != now.date().year())
        return time.date().toString(QStringLiteral("yy-MM-dd"));
    const qint64 days = time.date().daysTo(now.date());
    if (days == 1)
        return QObject::tr("yesterday");
    return days < 2 ? time.time().toString(QStringLiteral("hh:mm"))
                    : time.date().toString(QStringLiteral("MM-dd"));
}

QDateTime readStoredTime(const QString &text)
{
    const ClockTime clock = readClock(text);
    return clock.isValid() ? QDateTime(clock.date, clock.time) : QDateTime();
}

QString storableTime(const QString &text, const QDateTime &now)
{
    const ClockTime clock = readClock(text);
    const bool usable = clock.isValid() && readingOf(clock.date, clock.time) <= dayAfter(now);
    return usable ? text : now.toString(storedForm());
}

qint64 timeOrder(const QString &text, const QDateTime &now)
{
    const ClockTime clock = readClock(text);
    return clock.isValid() ? qMin(readingOf(clock.date, clock.time), dayAfter(now)) : 0;
}

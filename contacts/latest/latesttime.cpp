#include "contacts/latest/latesttime.h"

#include <QObject>

namespace {
QString storedForm()
{
    return QStringLiteral("yyyy-MM-dd hh:mm:ss");
}

// By its parts: an hour that summer time leaves out makes a time invalid, but what
// stands in the table may come from elsewhere.
bool isReadable(const QDateTime &time)
{
    return time.date().isValid() && time.time().isValid();
}

// The reading of the clock as a number: unlike the seconds since the epoch it does not
// go back when summer ends, and orders as the stored texts do.
qint64 clockReading(const QDateTime &time)
{
    constexpr qint64 SecondsPerDay = 24 * 60 * 60;
    return time.date().toJulianDay() * SecondsPerDay + time.time().msecsSinceStartOfDay() / 1000;
}
} // namespace

QString latestTimeText(const QDateTime &time, const QDateTime &now)
{
    if (!isReadable(time))
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
    // Far quicker than by the form, which the length makes sure of.
    if (text.size() != 19 || text.at(10) != QLatin1Char(' '))
        return QDateTime();
    return QDateTime::fromString(text, Qt::ISODate);
}

QString storableTime(const QString &text, const QDateTime &now)
{
    const QDateTime time = readStoredTime(text);
    return isReadable(time) && time <= now.addDays(1) ? text : now.toString(storedForm());
}

qint64 timeOrder(const QDateTime &time, const QDateTime &now)
{
    return isReadable(time) ? qMin(clockReading(time), clockReading(now.addDays(1))) : 0;
}

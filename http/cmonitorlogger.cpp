#include "http/cmonitorlogger.h"

#include "common/context.h"
#include "http/requesttext.h"

#include <QDateTime>

namespace {
// yyyyMMddhhmmsszzz, local time, now. Every request asks twice, and what is local
// time costs more than all the rest to find out: once for each minute.
QByteArray monitorTime()
{
    static qint64 knownMinute = -1;
    static QByteArray minuteText;
    constexpr qint64 Minute = 60000; // ms
    const qint64 now = QDateTime::currentMSecsSinceEpoch();
    if (now / Minute != knownMinute) {
        knownMinute = now / Minute;
        minuteText =
            QDateTime::fromMSecsSinceEpoch(now).toString(QStringLiteral("yyyyMMddhhmm")).toLatin1();
    }
    const QByteArray rest = QByteArray::number(now % Minute);
    return minuteText + QByteArray("00000", 5 - rest.size()) + rest;
}

// The same as people read it: yyyy-MM-dd hh:mm:ss.zzz.
QString readable(QByteArray time)
{
    time.insert(14, '.').insert(12, ':').insert(10, ':').insert(8, ' ');
    return QString::fromLatin1(time.insert(6, '-').insert(4, '-'));
}
} // namespace

CMonitorLogger &CMonitorLogger::instance()
{
    static CMonitorLogger logger;
    return logger;
}

void CMonitorLogger::add(const MonitorRecord &record)
{
    if (m_ring.size() < Capacity) {
        m_ring.append(record);
        return;
    }
    m_ring[m_next] = record;
    m_next = (m_next + 1) % Capacity;
}

QVector<MonitorRecord> CMonitorLogger::records() const
{
    return m_ring.mid(m_next) + m_ring.mid(0, m_next);
}

RequestTiming::RequestTiming(const char *method, const QUrl &url, qint64 sent) : m_running(true)
{
    const QByteArray now = monitorTime();
    m_begin = QString::fromLatin1(now);
    m_record.time = readable(now);
    m_record.method = QString::fromLatin1(method);
    m_record.address = RequestText::address(url);
    m_record.sent = sent;
    m_elapsed.start();
}

void RequestTiming::finish(int status, qint64 received, const QString &error)
{
    if (!m_running)
        return;
    m_running = false;
    m_record.status = status;
    m_record.received = received;
    m_record.error = RequestText::message(error);
    m_record.duration = m_elapsed.elapsed();

    MonitorRecord record;
    record.BeginTime = m_begin;
    record.EndTime = QString::fromLatin1(monitorTime());
    record.Length = received;
    record.StatusCode = status;
    record.ErrorInfo = m_record.error;
    CMonitorLogger::instance().add(record);
    // Last: the host may start another request from inside the call.
    const WebRequestRecord finished = m_record;
    if (ApplicationContext *host = hostContext())
        host->webRequestFinished(finished);
}

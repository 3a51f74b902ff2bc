#include "http/cmonitorlogger.h"

#include "common/context.h"
#include "http/requesttext.h"

#include <QDateTime>

namespace {
QString monitorTime(const QDateTime &time)
{
    return time.toString(QStringLiteral("yyyyMMddhhmmsszzz"));
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
    const QDateTime now = QDateTime::currentDateTime();
    m_begin = monitorTime(now);
    m_record.time = now.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
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
    record.EndTime = monitorTime(QDateTime::currentDateTime());
    record.Length = received;
    record.StatusCode = status;
    record.ErrorInfo = m_record.error;
    CMonitorLogger::instance().add(record);
    // Last: the host may start another request from inside the call.
    const WebRequestRecord finished = m_record;
    if (ApplicationContext *host = hostContext())
        host->webRequestFinished(finished);
}

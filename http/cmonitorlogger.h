// Collects what every web request cost: the last hundred in memory, each handed to
// the host as well. Nothing is uploaded, and no query or body is kept.
#pragma once

#include "hostapi/webrequestrecord.h"

#include <QElapsedTimer>
#include <QString>
#include <QUrl>
#include <QVector>

struct MonitorRecord
{
    QString BeginTime; // yyyyMMddhhmmsszzz, local time
    QString EndTime;
    qint64 Length = 0; // bytes of the reply's body
    int StatusCode = 0;
    QString ErrorInfo; // empty: none
};

class CMonitorLogger
{
public:
    static constexpr int Capacity = 100;

    static CMonitorLogger &instance();

    void add(const MonitorRecord &record);
    QVector<MonitorRecord> records() const; // oldest first

private:
    CMonitorLogger() = default;
    QVector<MonitorRecord> m_ring;
    int m_next = 0;
};

// Measures one request: made when it is sent, finish() when it has ended.
class RequestTiming
{
public:
    RequestTiming() = default;
    RequestTiming(const char *method, const QUrl &url, qint64 sent);
    // Once; later calls do nothing.
    void finish(int status, qint64 received, const QString &error);

private:
    bool m_running = false;
    QElapsedTimer m_elapsed;
    QString m_begin;
    WebRequestRecord m_record;
};

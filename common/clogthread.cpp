#include "common/clogthread.h"

#include "common/logfilewriter.h"

namespace {
// Shared by all log threads of the process.
std::atomic<int> s_written{0};

void pauseEveryHundredEntries()
{
    if (++s_written >= 100) {
        s_written = 0;
        QThread::msleep(10);
    }
}
} // namespace

CLogThread::CLogThread(QObject *parent) : QThread(parent) {}

void CLogThread::setWriter(LogFileWriter *writer)
{
    const QMutexLocker lock(&m_mutex);
    m_writer = writer;
}

LogFileWriter *CLogThread::writer() const
{
    const QMutexLocker lock(&m_mutex);
    return m_writer;
}

void CLogThread::enqueue(qint32 level, const QString &location, const QString &message)
{
    enqueue(LogEntry{level, location, message});
}

void CLogThread::enqueue(const LogEntry &entry)
{
    const QMutexLocker lock(&m_mutex);
    if (m_queue.size() >= MaximumQueue) {
        m_queue.pop_front();
        ++m_dropped;
    }
    m_queue.push_back(entry);
    m_wake.wakeAll();
}

void CLogThread::stop()
{
    m_stop = true;
}

bool CLogThread::isDrained() const
{
    const QMutexLocker lock(&m_mutex);
    return m_queue.empty() && !m_writing;
}

void CLogThread::run()
{
    while (!m_stop) {
        LogEntry entry;
        qint64 dropped = 0;
        LogFileWriter *writer = nullptr;
        {
            const QMutexLocker lock(&m_mutex);
            m_writing = false;
            while (m_queue.empty())
                m_wake.wait(&m_mutex);
            entry = std::move(m_queue.front());
            m_queue.pop_front();
            std::swap(dropped, m_dropped);
            writer = m_writer;
            m_writing = true;
        }
        if (writer) {
            if (dropped > 0) {
                writer->write(4, QStringLiteral("clogthread.cpp:0"),
                              QStringLiteral("%1 log entries were dropped").arg(dropped));
            }
            writer->write(entry.level, entry.location, entry.message);
        }
        pauseEveryHundredEntries();
    }
}

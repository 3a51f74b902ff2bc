#include "common/clogthread.h"

#include "common/logfilewriter.h"

#include <algorithm>
#include <cstring>

namespace {
// After its last entry the thread looks a while for more before it waits to be
// woken. Entries come in bursts, and to wake a thread costs the caller many times
// what an entry does.
constexpr unsigned long PauseMilliseconds = 2;
constexpr int Pauses = 250;

// The memory of a longer queue is given back.
constexpr size_t UsualQueue = 256;

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

CLogThread::CLogThread(QObject *parent) : QThread(parent)
{
    m_queue.reserve(UsualQueue);
}

void CLogThread::setWriter(LogFileWriter *writer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_writer = writer;
}

LogFileWriter *CLogThread::writer() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_writer;
}

QString CLogThread::location(const char *file, int line)
{
    const char *const end = file + std::strlen(file);
    const char *name = end;
    while (name > file && name[-1] != '/' && name[-1] != '\\')
        --name;
    return QString::fromUtf8(name, int(end - name)) + QLatin1Char(':') + QString::number(line);
}

LogEntry CLogThread::WaitingEntry::complete() const
{
    if (!file)
        return entry;
    return {entry.level, location(file, line), QString::fromUtf8(text, length)};
}

CLogThread::WaitingEntry &CLogThread::append()
{
    if (m_queue.size() < MaximumQueue)
        return m_queue.emplace_back();
    WaitingEntry &oldest = m_queue[m_first];
    m_first = (m_first + 1) % MaximumQueue;
    ++m_dropped;
    return oldest;
}

void CLogThread::release(std::unique_lock<std::mutex> &lock)
{
    const bool wake = m_waiting;
    m_waiting = false;
    lock.unlock();
    if (wake)
        m_wake.notify_all();
}

void CLogThread::enqueue(qint32 level, const QString &location, const QString &message)
{
    enqueue(LogEntry{level, location, message});
}

void CLogThread::enqueue(const LogEntry &entry)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    WaitingEntry &waiting = append();
    waiting.entry = entry;
    waiting.file = nullptr;
    release(lock);
}

void CLogThread::enqueueShort(qint32 level, const char *file, int line, const char *text,
                              int length)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    WaitingEntry &waiting = append();
    waiting.entry.level = level;
    waiting.file = file;
    waiting.line = line;
    waiting.length = std::min(length, ShortText);
    std::memcpy(waiting.text, text, size_t(waiting.length));
    release(lock);
}

void CLogThread::stop()
{
    m_stop = true;
}

bool CLogThread::isDrained() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_queue.empty() && !m_writing;
}

void CLogThread::waitForEntries(std::unique_lock<std::mutex> &lock)
{
    const int pauses = m_writing ? Pauses : 0;
    m_writing = false;
    for (int i = 0; i < pauses && m_queue.empty(); ++i) {
        lock.unlock();
        msleep(PauseMilliseconds);
        lock.lock();
    }
    while (m_queue.empty()) {
        m_waiting = true;
        m_wake.wait(lock);
    }
}

// Swaps the queue for the empty `batch` and returns how many entries were dropped
// since the last time.
qint64 CLogThread::takeQueue(std::vector<WaitingEntry> *batch, LogFileWriter **writer)
{
    qint64 dropped = 0;
    size_t first = 0;
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        waitForEntries(lock);
        m_queue.swap(*batch);
        std::swap(first, m_first);
        std::swap(dropped, m_dropped);
        *writer = m_writer;
        m_writing = true;
    }
    std::rotate(batch->begin(), batch->begin() + std::ptrdiff_t(first), batch->end());
    return dropped;
}

void CLogThread::run()
{
    std::vector<WaitingEntry> batch;
    while (!m_stop) {
        if (batch.capacity() > UsualQueue)
            batch = {};
        batch.clear();
        batch.reserve(UsualQueue);
        LogFileWriter *writer = nullptr;
        const qint64 dropped = takeQueue(&batch, &writer);
        if (writer && dropped > 0) {
            writer->write(4, QStringLiteral("clogthread.cpp:0"),
                          QStringLiteral("%1 log entries were dropped").arg(dropped));
        }
        for (size_t i = 0; i < batch.size() && (i == 0 || !m_stop); ++i) {
            if (writer) {
                const LogEntry entry = batch[i].complete();
                writer->write(entry.level, entry.location, entry.message);
            }
            pauseEveryHundredEntries();
        }
    }
}

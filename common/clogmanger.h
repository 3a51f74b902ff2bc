// The front end of the log: builds an entry on the calling thread and hands it
// to the log thread of the host.
#pragma once

#include <QObject>
#include <QString>

#include <atomic>
#include <mutex>

class CLogThread;
class LogFileWriter;

class CLogManger : public QObject
{
    Q_OBJECT

public:
    static CLogManger &instance();

    // The level of the entry being built: 1 TRACE .. 6 FATAL.
    std::atomic<int> level{2};

    // The base name of `file` and the line.
    void setLocation(const char *file, int line);

    // Adds UTF-8 text to the entry; the exact text "\n" ends it. Without a log
    // thread in the context the entry is dropped.
    CLogManger &append(const char *text);
    CLogManger &append(const QString &text);

    // One complete entry in one call, from any thread. It does not mix with an
    // entry that is being built.
    void log(int entryLevel, const QString &location, const QString &message);

    // The same as CLogThread::enqueueShort().
    void logShort(int entryLevel, const char *file, int line, const char *text, int length);

    void clear();
    void flush();

private:
    CLogManger();
    // The log thread of the context, null without one. Other threads than that of the
    // GUI get it once the GUI thread has asked.
    CLogThread *attach();
    void finishEntry();

    std::atomic<LogFileWriter *> m_writer{nullptr};
    const Qt::HANDLE m_guiThread; // null when it was not the one that made this
    std::atomic<CLogThread *> m_thread{nullptr};
    QString m_location;
    QString m_buffer;
    std::mutex m_mutex;
};

inline CLogManger &operator<<(CLogManger &log, const char *text)
{
    return log.append(text);
}
inline CLogManger &operator<<(CLogManger &log, const QString &text)
{
    return log.append(text);
}

// The thread that writes queued log entries to the file.
#pragma once

#include <QMutex>
#include <QString>
#include <QThread>
#include <QWaitCondition>

#include <atomic>
#include <deque>

class LogFileWriter;

struct LogEntry
{
    qint32 level = 2;
    QString location;
    QString message;
};

class CLogThread : public QThread
{
    Q_OBJECT

public:
    // Above this many waiting entries the oldest is dropped, and one WARN line
    // tells how many were.
    static constexpr size_t MaximumQueue = 100000;

    explicit CLogThread(QObject *parent = nullptr);

    void setWriter(LogFileWriter *writer); // not owned
    LogFileWriter *writer() const;

    // Never waits for the disk.
    void enqueue(qint32 level, const QString &location, const QString &message);
    void enqueue(const LogEntry &entry);

    // The loop ends after the entry that it is waiting for or writing: whoever
    // stops the thread enqueues one last line to wake it. What is still queued
    // behind is lost.
    void stop();

    // Whether everything enqueued so far has been written.
    bool isDrained() const;

protected:
    void run() override;

private:
    std::atomic<bool> m_stop{false};
    mutable QMutex m_mutex;
    QWaitCondition m_wake;
    std::deque<LogEntry> m_queue;
    qint64 m_dropped = 0;
    bool m_writing = false;
    LogFileWriter *m_writer = nullptr;
};

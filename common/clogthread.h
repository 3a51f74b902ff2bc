// The thread that writes queued log entries to the file.
#pragma once

#include <QString>
#include <QThread>

#include <atomic>
#include <condition_variable>
#include <mutex>
#include <vector>

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

    // The bytes of a message that wait in the queue itself.
    static constexpr int ShortText = 112;

    explicit CLogThread(QObject *parent = nullptr);

    void setWriter(LogFileWriter *writer); // not owned
    LogFileWriter *writer() const;

    // Never waits for the disk.
    void enqueue(qint32 level, const QString &location, const QString &message);
    void enqueue(const LogEntry &entry);

    // The same for a message in UTF-8 of at most ShortText bytes, which costs the
    // caller no memory: the thread makes the texts. `file` is kept as a pointer and
    // must live for ever, as __FILE__ does.
    void enqueueShort(qint32 level, const char *file, int line, const char *text, int length);

    // The base name of `file`, a colon and the line.
    static QString location(const char *file, int line);

    // The loop ends after the entry that it is waiting for or writing: whoever
    // stops the thread enqueues one last line to wake it. What is still queued
    // behind is lost.
    void stop();

    // Whether everything enqueued so far has been written.
    bool isDrained() const;

protected:
    void run() override;

private:
    struct WaitingEntry
    {
        LogEntry entry; // without its texts when `file` is set
        const char *file = nullptr;
        int line = 0;
        int length = 0;
        char text[ShortText];

        LogEntry complete() const;
    };

    // The place for one more entry at the tail. Holds the mutex.
    WaitingEntry &append();
    // Ends an append: unlocks, and wakes the thread if it waits.
    void release(std::unique_lock<std::mutex> &lock);
    qint64 takeQueue(std::vector<WaitingEntry> *batch, LogFileWriter **writer);
    void waitForEntries(std::unique_lock<std::mutex> &lock);

    std::atomic<bool> m_stop{false};
    mutable std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_waiting = false;
    // In order from m_first, once round: a full queue has its head in the middle.
    std::vector<WaitingEntry> m_queue;
    size_t m_first = 0;
    qint64 m_dropped = 0;
    bool m_writing = false;
    LogFileWriter *m_writer = nullptr;
};

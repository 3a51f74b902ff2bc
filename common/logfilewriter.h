// Writes log lines to a file and rolls it over by size. Thread-safe.
#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QMutex>
#include <QString>
#include <QTextStream>

#include <memory>

class LogFileWriter
{
public:
    static constexpr qint64 DefaultMaximumFileSize = 0xA00000; // 10 MiB
    static constexpr qint32 DefaultMaximumBackupIndex = 10;

    // Opens the file, which is readable by its owner only. A file that cannot be
    // opened leaves the writer closed, and every line is dropped.
    explicit LogFileWriter(const QString &fileName);
    ~LogFileWriter();

    bool isOpen() const;
    bool isEnabled(qint32 level) const;
    void setThreshold(qint32 level); // lines below it are dropped; default 0
    void setMaximumFileSize(qint64 kilobytes);
    void setMaximumBackupIndex(qint32 index); // 0: no backups are kept

    // Appends "[time][LEVEL][location]: message\n" and rolls over when the file
    // has reached its maximum size.
    void write(qint32 level, const QString &location, const QString &message);
    void flush();
    void close();
    void clear(); // empties the log

    // "DEBUG" for 2 and so on; empty outside 1..6.
    static QString levelName(qint32 level);

private:
    void open();
    void closeLocked();
    void rollOver();
    QString backup(qint32 index) const;
    bool canRollOver() const;

    const QString m_fileName;
    qint32 m_threshold = 0;
    qint64 m_maximumSize = DefaultMaximumFileSize;
    qint32 m_maximumBackupIndex = DefaultMaximumBackupIndex;
    std::unique_ptr<QFile> m_file;
    std::unique_ptr<QTextStream> m_stream;
    bool m_open = false;
    QElapsedTimer m_postponed; // since a roll-over for which the files were not free
    mutable QMutex m_mutex;
};

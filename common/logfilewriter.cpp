#include "common/logfilewriter.h"

#include "common/platform.h"

#include <QDateTime>

namespace {
constexpr qint64 PostponedMs = 1000; // until the next attempt to roll over
} // namespace

LogFileWriter::LogFileWriter(const QString &fileName) : m_fileName(fileName)
{
    open();
}

LogFileWriter::~LogFileWriter()
{
    close();
}

void LogFileWriter::open()
{
    const QMutexLocker lock(&m_mutex);
    Platform::makeFileForOwner(m_fileName);
    m_file = std::make_unique<QFile>(m_fileName);
    // Unbuffered, since the buffer of a file on a full disk keeps what it cannot
    // write, and grows with every line.
    m_open = m_file->open(QIODevice::ReadWrite | QIODevice::Text | QIODevice::Unbuffered);
    if (!m_open) {
        m_file.reset();
        return;
    }
    m_stream = std::make_unique<QTextStream>(m_file.get());
    m_stream->setCodec("UTF-8");
    // One byte before the end: a continued file's last line break is overwritten
    // on purpose; in a new file the seek fails and the position stays 0.
    m_stream->seek(m_file->size() - 1);
}

bool LogFileWriter::isOpen() const
{
    const QMutexLocker lock(&m_mutex);
    return m_open;
}

bool LogFileWriter::isEnabled(qint32 level) const
{
    const QMutexLocker lock(&m_mutex);
    return m_threshold <= level;
}

void LogFileWriter::setThreshold(qint32 level)
{
    const QMutexLocker lock(&m_mutex);
    m_threshold = level;
}

void LogFileWriter::setMaximumFileSize(qint64 kilobytes)
{
    const QMutexLocker lock(&m_mutex);
    m_maximumSize = kilobytes * 1024;
}

void LogFileWriter::setMaximumBackupIndex(qint32 index)
{
    const QMutexLocker lock(&m_mutex);
    m_maximumBackupIndex = index;
}

void LogFileWriter::write(qint32 level, const QString &location, const QString &message)
{
    const QString time =
        QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    bool rollOverDue = false;
    {
        const QMutexLocker lock(&m_mutex);
        if (!m_open || level < m_threshold || !m_file || !m_stream)
            return;
        *m_stream << '[' << time << "][" << levelName(level) << "][" << location << "]: " << message
                  << '\n';
        // Without the flush the size below would be that of before the line.
        m_stream->flush();
        // After a line that failed, the stream would refuse all others.
        m_stream->resetStatus();
        rollOverDue = m_file->size() >= m_maximumSize &&
                      (!m_postponed.isValid() || m_postponed.hasExpired(PostponedMs));
    }
    if (rollOverDue)
        rollOver();
}

void LogFileWriter::flush()
{
    const QMutexLocker lock(&m_mutex);
    if (m_open && m_stream)
        m_stream->flush();
}

void LogFileWriter::closeLocked()
{
    if (!m_open)
        return;
    m_open = false;
    m_stream->flush();
    m_stream.reset();
    m_file.reset();
}

void LogFileWriter::close()
{
    const QMutexLocker lock(&m_mutex);
    closeLocked();
}

void LogFileWriter::clear()
{
    close();
    Platform::waitUntilClosed(m_fileName);
    QFile::remove(m_fileName);
    open();
}

QString LogFileWriter::backup(qint32 index) const
{
    return m_fileName + QLatin1Char('.') + QString::number(index);
}

// A file that stays where it is, because another program has it open, would be in the
// way of the others: with each attempt, one of them would be lost.
bool LogFileWriter::canRollOver() const
{
    const QMutexLocker lock(&m_mutex);
    bool canMove = Platform::waitUntilClosed(m_fileName);
    for (qint32 i = 1; i <= m_maximumBackupIndex && canMove; ++i)
        canMove = Platform::waitUntilClosed(backup(i));
    return canMove;
}

void LogFileWriter::rollOver()
{
    close();
    if (!canRollOver()) {
        m_postponed.start();
        open();
        return;
    }
    m_postponed.invalidate();
    {
        const QMutexLocker lock(&m_mutex);
        if (m_maximumBackupIndex > 0) {
            QString target = backup(m_maximumBackupIndex);
            QFile::remove(target);
            for (qint32 i = m_maximumBackupIndex - 1; i >= 1; --i) {
                const QString source = backup(i);
                if (QFile::exists(source))
                    QFile::rename(source, target);
                target = source;
            }
            QFile::rename(m_fileName, target);
        }
        closeLocked();
    }
    QFile::remove(m_fileName);
    open();
}

QString LogFileWriter::levelName(qint32 level)
{
    static const char *const names[] = {"", "TRACE", "DEBUG", "INFO", "WARN", "ERROR", "FATAL"};
    return QString::fromLatin1(level >= 1 && level <= 6 ? names[level] : "");
}

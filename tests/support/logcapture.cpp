#include "tests/support/logcapture.h"

#include "common/clogthread.h"
#include "common/logfilewriter.h"
#include "tests/support/files.h"

#include <QCoreApplication>
#include <QTest>

namespace {

struct ProcessLog
{
    QString path = qEnvironmentVariable("HOME") + QStringLiteral("/capture.log");
    LogFileWriter writer{path};
    CLogThread thread;

    ProcessLog()
    {
        writer.setMaximumFileSize(1024 * 1024);
        thread.setWriter(&writer);
        thread.start();
        // It would go on writing while the process takes the codecs apart.
        qAddPostRoutine(stop);
    }
    static void stop();
};

// Never destroyed: the log manager keeps the first thread that it sees.
ProcessLog &processLog()
{
    static auto *log = new ProcessLog;
    return *log;
}

void ProcessLog::stop()
{
    CLogThread &thread = processLog().thread;
    thread.stop();
    thread.enqueue(LogEntry()); // wakes it
    thread.wait();
}

QStringList writtenLines()
{
    ProcessLog &log = processLog();
    if (!QTest::qWaitFor([&log] { return log.thread.isDrained(); }, 30000))
        QTest::qFail("the log thread does not come to an end", __FILE__, __LINE__);
    log.writer.flush();
    return QString::fromUtf8(textOf(log.path)).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

LogCapture::LogCapture(FakeContext &context) : m_skip(writtenLines().size())
{
    context.writer = &processLog().writer;
    context.thread = &processLog().thread;
}

QStringList LogCapture::lines() const
{
    return writtenLines().mid(m_skip);
}

QStringList LogCapture::linesWith(const char *text) const
{
    return lines().filter(QString::fromUtf8(text));
}

// The log of a test process. The log manager keeps the first thread and writer
// that it meets, so there is one of each, which is never destroyed.
//
//     FakeContext host;
//     SharedLog::instance().attachTo(&host);
//     const HostContextScope scope(&host);
//     ...
//     QVERIFY(SharedLog::instance().errors().join(' ').contains("..."));
#pragma once

#include "common/clogthread.h"
#include "common/logfilewriter.h"
#include "tests/support/fakecontext.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <QTest>

class SharedLog
{
public:
    static SharedLog &instance()
    {
        static auto *log = new SharedLog;
        return *log;
    }

    void attachTo(FakeContext *host)
    {
        host->writer = &m_writer;
        host->thread = &m_thread;
    }

    void clear()
    {
        waitUntilDrained();
        m_writer.clear();
    }

    // The finished lines since the last clear().
    QStringList lines()
    {
        waitUntilDrained();
        QFile file(m_file);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }
    QStringList errors() { return lines().filter(QLatin1String("][ERROR][")); }

private:
    SharedLog() : m_file(m_folder.filePath(QStringLiteral("test.log"))), m_writer(m_file)
    {
        m_thread.setWriter(&m_writer);
        m_thread.start();
    }
    void waitUntilDrained()
    {
        (void)QTest::qWaitFor([this] { return m_thread.isDrained(); }, 20000);
    }

    QTemporaryDir m_folder;
    QString m_file;
    LogFileWriter m_writer;
    CLogThread m_thread;
};

#include "common/clogmanger.h"

#include "common/clogthread.h"
#include "common/context.h"
#include "common/logfilewriter.h"

#include <QCoreApplication>
#include <QThread>

#include <cstring>

namespace {
bool isGuiThread()
{
    const QCoreApplication *application = QCoreApplication::instance();
    return !application || application->thread() == QThread::currentThread();
}
} // namespace

CLogManger &CLogManger::instance()
{
    static auto *manager = new CLogManger;
    return *manager;
}

CLogManger::CLogManger() : m_guiThread(isGuiThread() ? QThread::currentThreadId() : nullptr)
{
    attach();
}

CLogThread *CLogManger::attach()
{
    CLogThread *thread = m_thread;
    // Only the GUI thread may ask the host.
    if (thread || !(m_guiThread ? m_guiThread == QThread::currentThreadId() : isGuiThread()))
        return thread;
    thread = ctx().logThread();
    if (!thread)
        return nullptr; // asked again by the next entry
    LogFileWriter *writer = ctx().logWriter();
    if (writer)
        thread->setWriter(writer);
    m_writer = writer;
    m_thread = thread;
    return thread;
}

void CLogManger::setLocation(const char *file, int line)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_location = CLogThread::location(file, line);
}

CLogManger &CLogManger::append(const char *text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (std::strcmp(text, "\n") == 0)
        finishEntry();
    else
        m_buffer += QString::fromUtf8(text);
    return *this;
}

CLogManger &CLogManger::append(const QString &text)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (text == QLatin1String("\n"))
        finishEntry();
    else
        m_buffer += text;
    return *this;
}

void CLogManger::finishEntry()
{
    if (CLogThread *thread = attach())
        thread->enqueue(level, m_location, m_buffer);
    m_buffer.clear();
}

void CLogManger::log(int entryLevel, const QString &location, const QString &message)
{
    if (CLogThread *thread = attach())
        thread->enqueue(entryLevel, location, message);
}

void CLogManger::logShort(int entryLevel, const char *file, int line, const char *text, int length)
{
    if (CLogThread *thread = attach())
        thread->enqueueShort(entryLevel, file, line, text, length);
}

void CLogManger::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    attach();
    if (LogFileWriter *writer = m_writer)
        writer->clear();
}

void CLogManger::flush()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    attach();
    if (LogFileWriter *writer = m_writer)
        writer->flush();
}

#include "common/clogmanger.h"

#include "common/clogthread.h"
#include "common/context.h"
#include "common/logfilewriter.h"

#include <cstring>

namespace {
const char *baseName(const char *path)
{
    const char *slash = std::strrchr(path, '/');
    const char *backslash = std::strrchr(path, '\\');
    const char *last = slash > backslash ? slash : backslash;
    return last ? last + 1 : path;
}
} // namespace

CLogManger &CLogManger::instance()
{
    static auto *manager = new CLogManger;
    return *manager;
}

CLogManger::CLogManger() : m_stream(&m_buffer, QIODevice::ReadWrite)
{
    attach();
}

bool CLogManger::attach()
{
    if (m_thread)
        return true;
    m_writer = ctx().logWriter();
    m_thread = ctx().logThread();
    if (m_thread && m_writer)
        m_thread->setWriter(m_writer);
    return m_thread != nullptr;
}

void CLogManger::setLocation(const char *file, int line)
{
    const QMutexLocker lock(&m_mutex);
    m_location = QString::fromUtf8(baseName(file)) + QLatin1Char(':') + QString::number(line);
}

CLogManger &CLogManger::append(const char *text)
{
    const QMutexLocker lock(&m_mutex);
    if (std::strcmp(text, "\n") == 0)
        finishEntry();
    else
        m_stream << QString::fromUtf8(text);
    return *this;
}

CLogManger &CLogManger::append(const QString &text)
{
    const QMutexLocker lock(&m_mutex);
    if (text == QLatin1String("\n"))
        finishEntry();
    else
        m_stream << text;
    return *this;
}

void CLogManger::finishEntry()
{
    m_stream.flush();
    if (attach())
        m_thread->enqueue(level, m_location, m_buffer);
    m_buffer.clear();
    m_stream.seek(0);
}

void CLogManger::log(int entryLevel, const QString &location, const QString &message)
{
    const QMutexLocker lock(&m_mutex);
    if (attach())
        m_thread->enqueue(entryLevel, location, message);
}

void CLogManger::clear()
{
    const QMutexLocker lock(&m_mutex);
    if (attach() && m_writer)
        m_writer->clear();
}

void CLogManger::flush()
{
    const QMutexLocker lock(&m_mutex);
    if (attach() && m_writer)
        m_writer->flush();
}

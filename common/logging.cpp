#include "common/logging.h"

namespace {
void writeLine(const char *file, int line, const char *word, const char *function)
{
    LogLine(LogDebug, file, line) << word << function;
}
} // namespace

QString logText(const QString &text)
{
    constexpr int MaximumLength = 4096;
    QString line = text.left(MaximumLength);
    for (QChar &c : line) {
        if (c.category() == QChar::Other_Control || c == QChar::LineSeparator ||
            c == QChar::ParagraphSeparator)
            c = QLatin1Char(' ');
    }
    return line;
}

LogLine &LogLine::appendLong(const QString &text)
{
    if (!m_isLong)
        m_long = QString::fromUtf8(m_short, m_length);
    m_isLong = true;
    m_long += text;
    return *this;
}

LogLine::~LogLine()
{
    CLogManger &log = CLogManger::instance();
    if (m_isLong)
        log.log(m_level, CLogThread::location(m_file, m_line), m_long);
    else
        log.logShort(m_level, m_file, m_line, m_short, m_length);
}

LogScope::LogScope(const char *file, int line, const char *function)
    : m_file(file), m_line(line), m_function(function)
{
    writeLine(m_file, m_line, "entry fun ", m_function);
}

LogScope::~LogScope()
{
    writeLine(m_file, m_line, "exit fun ", m_function);
}

#include "common/logging.h"

namespace {
void writeLine(const char *file, int line, const char *word, const char *function)
{
    CLogManger &log = CLogManger::instance();
    log.level = LogDebug;
    log.setLocation(file, line);
    log << word << function << "\n";
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

LogScope::LogScope(const char *file, int line, const char *function)
    : m_file(file), m_line(line), m_function(function)
{
    writeLine(m_file, m_line, "entry fun ", m_function);
}

LogScope::~LogScope()
{
    writeLine(m_file, m_line, "exit fun ", m_function);
}

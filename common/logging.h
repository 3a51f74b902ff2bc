// How the code logs.
//
//     void FriendTreeWidget::slot_addFriend(QString friendJid)
//     {
//         LOG_SCOPE("FriendTreeWidget::slot_addFriend(QString friendJid)");
//         ...
//         LOG_ERROR("the group of " << friendJid << " is unknown");
//     }
//
// Text from other people goes through logText(), never raw.
#pragma once

#include "common/clogmanger.h"

#include <QString>

enum LogLevel
{
    LogTrace = 1,
    LogDebug = 2,
    LogInfo = 3,
    LogWarn = 4,
    LogError = 5,
    LogFatal = 6
};

// Another person's or a server's text as a log line may hold it: control
// characters and line separators replaced by blanks, at most 4,096 characters.
QString logText(const QString &text);

#define LOG_LINE(lineLevel, pieces)                                                                \
    do {                                                                                           \
        CLogManger &logLineManager = CLogManger::instance();                                       \
        logLineManager.level = (lineLevel);                                                        \
        logLineManager.setLocation(__FILE__, __LINE__);                                            \
        logLineManager << pieces << "\n";                                                          \
    } while (false)

#define LOG_DEBUG(pieces) LOG_LINE(LogDebug, pieces)
#define LOG_INFO(pieces) LOG_LINE(LogInfo, pieces)
#define LOG_WARN(pieces) LOG_LINE(LogWarn, pieces)
#define LOG_ERROR(pieces) LOG_LINE(LogError, pieces)

// Writes "entry fun F" now and "exit fun F" when the scope ends.
class LogScope
{
public:
    LogScope(const char *file, int line, const char *function);
    ~LogScope();
    LogScope(const LogScope &) = delete;
    LogScope &operator=(const LogScope &) = delete;

private:
    const char *m_file;
    int m_line;
    const char *m_function;
};

#define LOG_SCOPE(function) const LogScope logScope(__FILE__, __LINE__, function)

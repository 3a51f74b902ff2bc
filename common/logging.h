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
#include "common/clogthread.h"

#include <QString>

#include <cstring>

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

// One entry, sent when the object ends. Its pieces never mix with those of another
// thread. A short entry of literals takes no memory of its own.
class LogLine
{
public:
    LogLine(int level, const char *file, int line) : m_level(level), m_line(line), m_file(file) {}
    ~LogLine();
    LogLine(const LogLine &) = delete;
    LogLine &operator=(const LogLine &) = delete;

    LogLine &operator<<(const char *utf8)
    {
        const auto length = int(std::strlen(utf8));
        if (m_isLong || length > CLogThread::ShortText - m_length)
            return appendLong(QString::fromUtf8(utf8));
        std::memcpy(m_short + m_length, utf8, size_t(length));
        m_length += length;
        return *this;
    }
    LogLine &operator<<(const QString &text) { return appendLong(text); }

private:
    LogLine &appendLong(const QString &text);

    const int m_level;
    const int m_line;
    const char *const m_file;
    int m_length = 0; // of what is in m_short
    bool m_isLong = false;
    QString m_long; // everything, once it does not fit
    char m_short[CLogThread::ShortText];
};

#define LOG_LINE(lineLevel, pieces)                                                                \
    do {                                                                                           \
        LogLine logLine((lineLevel), __FILE__, __LINE__);                                          \
        logLine << pieces;                                                                         \
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

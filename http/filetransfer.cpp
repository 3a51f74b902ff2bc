#include "http/fileservices.h"

#include "common/displaytext.h"
#include "common/logging.h"

#include <QTimer>

bool FileTransfer::begin()
{
    if (m_state != Idle)
        return false;
    m_state = Running;
    return true;
}

void FileTransfer::end(const HttpResponseData &result)
{
    if (m_state != Running)
        return;
    m_state = Over;
    QTimer::singleShot(0, this, [this, result] { emit finished(result); });
}

void FileTransfer::fail(const QString &reason, int code)
{
    if (m_state != Running)
        return;
    LOG_ERROR("a file transfer failed: " << logText(reason));
    HttpResponseData result;
    result.code = code;
    result.message = reason;
    end(result);
}

bool FileServices::isSafeName(const QString &name)
{
    constexpr int longest = 255; // bytes, on most file systems
    if (name.isEmpty() || name.toUtf8().size() > longest || isReservedFileName(name))
        return false;
    for (const QChar c : name) {
        const bool leadsAway = c == QLatin1Char('/') || c == QLatin1Char('\\') ||
                               c == QLatin1Char(':') || c.category() == QChar::Other_Control;
        if (leadsAway)
            return false;
    }
    // Also "." and "..", and what Windows drops.
    return !name.endsWith(QLatin1Char('.')) && !name.endsWith(QLatin1Char(' '));
}

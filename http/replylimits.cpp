#include "http/replylimits.h"

#include "http/headerguard.h"

namespace ReplyLimits {

void guard(QNetworkReply *reply)
{
    HeaderGuard::watch(reply, MaximumHeaders);
}

QString headerRefusal(const QNetworkReply *reply, qint64 maximumBody)
{
    const QList<QNetworkReply::RawHeaderPair> &headers = reply->rawHeaderPairs();
    if (headers.size() > MaximumHeaders || HeaderGuard::hasCut(reply))
        return QStringLiteral("too many headers");
    qint64 bytes = 0;
    for (const QNetworkReply::RawHeaderPair &header : headers) {
        bytes += header.first.size() + header.second.size();
        if (header.first.compare("Content-Encoding", Qt::CaseInsensitive) == 0 &&
            header.second.compare("identity", Qt::CaseInsensitive) != 0)
            return QStringLiteral("a packed body, which nobody asked for");
    }
    if (bytes > MaximumHeaderBytes)
        return QStringLiteral("headers too long");
    if (reply->header(QNetworkRequest::ContentLengthHeader).toLongLong() > maximumBody)
        return QStringLiteral("body too large");
    return QString();
}

QString refusal(const QNetworkReply *reply, qint64 taken, qint64 maximumBody)
{
    if (taken + reply->bytesAvailable() > maximumBody)
        return QStringLiteral("body too large");
    return headerRefusal(reply, maximumBody);
}

} // namespace ReplyLimits

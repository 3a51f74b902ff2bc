#include "http/failedreply.h"

FailedReply::FailedReply(const QNetworkRequest &request, QNetworkAccessManager::Operation operation,
                         NetworkError error, const QString &text, QObject *parent)
    : QNetworkReply(parent)
{
    setRequest(request);
    setUrl(request.url());
    setOperation(operation);
    setError(error, text);
    setFinished(true);
    open(QIODevice::ReadOnly);
}

qint64 FailedReply::readData(char *, qint64)
{
    return -1;
}

#include "http/failedreply.h"

FailedReply::FailedReply(const QNetworkRequest &request, QNetworkAccessManager::Operation operation,
                         NetworkError error, const QString &text, QObject *parent)
    : QNetworkReply(parent)
{
    setRequest(request);
    setUrl(request.url());
    setOperation(operation);
    open(QIODevice::ReadOnly); // first: it forgets the text of an error
    setError(error, text);
    setFinished(true);
}

qint64 FailedReply::readData(char *, qint64)
{
    return -1;
}

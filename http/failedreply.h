// The reply of a request that has none: never sent, given up, or refused. Whoever
// reads it finds the error, no status and no body.
#pragma once

#include <QNetworkReply>

class FailedReply : public QNetworkReply
{
    Q_OBJECT

public:
    FailedReply(const QNetworkRequest &request, QNetworkAccessManager::Operation operation,
                NetworkError error, const QString &text, QObject *parent);

    void abort() override {}

protected:
    qint64 readData(char *data, qint64 maximum) override;
};

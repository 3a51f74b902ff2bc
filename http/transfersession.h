// What the file transfers share: a session that may take as long as it makes
// progress, and the form that carries a file.
#pragma once

#include "http/servicecall.h"

#include <QHttpPart>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <functional>

class CHttpSession;
class QHttpMultiPart;
class QNetworkReply;

class TransferSession : public QObject
{
    Q_OBJECT

public:
    // Ms without a byte; for a throttled request, which may wait for its turn first,
    // ms from sending to the end.
    static constexpr int StallTimeout = 30000;

    explicit TransferSession(QObject *parent = nullptr);

    using Done = std::function<void(QNetworkReply *)>;
    // Each ends in one call of `done`, never inside this one. A transfer has one
    // request at a time; a new one ends the one before without a call.
    void postParts(const QString &address, QHttpMultiPart *parts, const ServiceRequest &request,
                   const Done &done);
    void get(const QString &address, qint64 maximumSize, const ServiceRequest &request,
             const Done &done);
    // Ends the request without a call.
    void stop();

signals:
    void uploadProgress(qint64 sent, qint64 total);
    void downloadProgress(qint64 received, qint64 total);
    void readyRead(QNetworkReply *reply);

private:
    CHttpSession *open(const ServiceRequest &request, const Done &done);

    void moved();

    QPointer<CHttpSession> m_session;
    QTimer m_stall;
    bool m_watched = false;
};

namespace FileForm {

QHttpPart textPart(const char *name, const QByteArray &value);
// The head of the part with the file itself; the name is only its last component.
QHttpPart filePart(const QString &fileName);

} // namespace FileForm

#include "host/tour/backendlevers.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QTimer>
#include <QUrl>

namespace {
constexpr int AnswerMs = 10000;
}

bool BackendLevers::pull(const BackendAddress &services, const char *command,
                         const QByteArray &json)
{
    if (services.controlPort <= 0)
        return false;
    QNetworkAccessManager manager;
    QNetworkRequest request(QUrl(QStringLiteral("http://127.0.0.1:%1/_ctl/%2")
                                     .arg(services.controlPort)
                                     .arg(QLatin1String(command))));
    request.setHeader(QNetworkRequest::ContentTypeHeader, QByteArray("application/json"));
    QNetworkReply *reply = manager.post(request, json);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(AnswerMs, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    return reply->isFinished() && reply->error() == QNetworkReply::NoError;
}

#include "host/tour/serviceuser.h"

#include "http/jsonreader.h"

#include <QCryptographicHash>
#include <QEventLoop>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>

ServiceUser::ServiceUser(const BackendAddress &services, const QString &uid) : m_services(services)
{
    const QByteArray digest =
        QCryptographicHash::hash(services.password.toUtf8(), QCryptographicHash::Md5).toHex();
    call(QStringLiteral("/ids/login"),
         {{"userName", uid}, {"password", QString::fromLatin1(digest)}});
}

Json::Value ServiceUser::call(const QString &path, const Fields &fields)
{
    QByteArray body;
    for (const auto &[name, value] : fields)
        body +=
            (body.isEmpty() ? "" : "&") + QByteArray(name) + '=' + QUrl::toPercentEncoding(value);
    QNetworkRequest request(QUrl(m_services.address + path));
    request.setHeader(QNetworkRequest::ContentTypeHeader,
                      QByteArray("application/x-www-form-urlencoded"));
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setCaCertificates(QSslCertificate::fromPath(m_services.caFile));
    request.setSslConfiguration(tls);
    QNetworkReply *reply = m_manager.post(request, body);
    QEventLoop loop;
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    QTimer::singleShot(AnswerMs, &loop, &QEventLoop::quit);
    if (!reply->isFinished())
        loop.exec();
    Json::Value root;
    const bool isObject = reply->isFinished() && JsonReader::parse(reply->readAll(), &root);
    reply->deleteLater();
    m_code = isObject ? int(JsonReader::integer(root, "code")) : -1;
    return m_code == 0 ? JsonReader::object(root, "data") : Json::Value();
}

Json::Value ServiceUser::team(const char *service, const Fields &fields)
{
    return call(QStringLiteral("/center/vt/%1.do").arg(QLatin1String(service)), fields);
}

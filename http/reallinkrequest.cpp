#include "http/reallinkrequest.h"

#include "common/context.h"
#include "common/logging.h"
#include "http/cpassportloginserver.h"
#include "http/requestheaders.h"
#include "http/requesttext.h"

#include <QNetworkCookieJar>
#include <QNetworkReply>
#include <QTimer>

namespace {
bool isWebLink(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

// Where the reply leads to; an invalid address when it leads nowhere.
QUrl linkOf(const QNetworkReply *reply, int status)
{
    if (status == 200)
        return reply->url();
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    const bool isRedirect = status == 301 || status == 302 || status == 303;
    if (!isRedirect || target.isEmpty())
        return QUrl();
    const QUrl link = reply->url().resolved(target);
    return isWebLink(link) ? link : QUrl();
}
} // namespace

RealLinkRequest::RealLinkRequest(QObject *parent) : QObject(parent)
{
    connect(&m_manager, &QNetworkAccessManager::finished, this, &RealLinkRequest::replyFinished);
}

void RealLinkRequest::start(const QString &address)
{
    const QUrl url(address);
    if (!isWebLink(url)) {
        QTimer::singleShot(0, this, [this] { finish(QString()); });
        return;
    }
    QNetworkRequest request = RequestHeaders::request(url);
    request.setTransferTimeout(Timeout);
    m_sent = RequestHeaders::storeLoginCookies(m_manager.cookieJar(), url);
    m_timing = RequestTiming("GET", url, 0);
    m_manager.get(request);
}

void RealLinkRequest::replyFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool failed = reply->error() != QNetworkReply::NoError;
    m_timing.finish(status, reply->bytesAvailable(), failed ? reply->errorString() : QString());
    if (failed) {
        LOG_ERROR("networkerror=" << logText(RequestText::message(reply->errorString())));
        finish(QString());
        return;
    }
    RequestHeaders::takeLoginCookies(m_manager.cookieJar(), reply->url(), m_sent);
    if (reply->rawHeader("passport.login.flag") == "true") {
        if (CPassportLoginServer *passport = ctx().passport())
            passport->UserOverdue();
        finish(QString());
        return;
    }
    finish(linkOf(reply, status).toString(QUrl::FullyEncoded));
}

void RealLinkRequest::finish(const QString &link)
{
    deleteLater();
    emit signal_finished(link);
}

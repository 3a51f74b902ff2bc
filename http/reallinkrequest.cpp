#include "http/reallinkrequest.h"

#include "common/context.h"
#include "common/logging.h"
#include "http/cpassportloginserver.h"
#include "http/replylimits.h"
#include "http/requestheaders.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"

#include <QCoreApplication>
#include <QNetworkCookieJar>
#include <QNetworkReply>
#include <QTimer>

namespace {
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
    return ServiceAddresses::isWebAddress(link) ? link : QUrl();
}
} // namespace

RealLinkRequest::RealLinkRequest(QObject *parent) : QObject(parent)
{
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            [this] { delete this; });
}

RealLinkRequest::~RealLinkRequest()
{
    if (!m_reply)
        return;
    m_reply->disconnect(this);
    m_reply->abort();
    m_reply->deleteLater();
}

void RealLinkRequest::start(const QString &address)
{
    const QUrl url(address);
    if (!ServiceAddresses::isWebAddress(url)) {
        QTimer::singleShot(0, this, [this] { finish(QString()); });
        return;
    }
    QNetworkRequest request = RequestHeaders::request(url);
    m_manager = ManagerPool::instance().lend();
    m_sent = RequestHeaders::storeLoginCookies(m_manager->cookieJar(), url);
    m_timing = RequestTiming("GET", url, 0);
    m_reply = m_manager->get(request);
    ReplyLimits::guard(m_reply);
    connect(m_reply, &QNetworkReply::finished, this, &RealLinkRequest::replyFinished);
    // A time-out of the transfer's would begin anew with each byte.
    QTimer::singleShot(Timeout, m_reply.data(), &QNetworkReply::abort);
    connect(m_reply, &QNetworkReply::readyRead, this, [this] {
        if (!ReplyLimits::refusal(m_reply, 0, MaximumReply).isEmpty())
            m_reply->abort();
    });
}

void RealLinkRequest::replyFinished()
{
    QNetworkReply *const reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const bool failed = reply->error() != QNetworkReply::NoError;
    m_timing.finish(status, reply->bytesAvailable(), failed ? reply->errorString() : QString());
    if (failed) {
        LOG_ERROR("networkerror=" << logText(RequestText::message(reply->errorString())));
        finish(QString());
        return;
    }
    RequestHeaders::takeLoginCookies(m_manager->cookieJar(), reply->url(), m_sent);
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

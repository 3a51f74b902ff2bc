#include "http/cpassportloginserver.h"

#include "common/logging.h"
#include "http/logurl.h"
#include "http/managerpool.h"
#include "http/replylimits.h"
#include "http/requestheaders.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"

#include <QNetworkCookie>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

struct CPassportLoginServer::Exchange
{
    ManagerLease manager;
    QString ticket;                 // the one that is asked for
    QNetworkReply *reply = nullptr; // lives until the exchange has ended
    QTimer timer;
};

namespace {

QUrl exchangeUrl()
{
    const auto encoded = [](const QString &value) {
        return QString::fromLatin1(QUrl::toPercentEncoding(value));
    };
    QUrl url(ServiceAddresses::address("/Passport/loginurl"));
    url.setQuery(
        QStringLiteral("service=") + encoded(ServiceAddresses::host(QStringLiteral("center"))) +
        QStringLiteral("&client_id=") + encoded(ServiceAddresses::value("/Passport/client_id")));
    return url;
}

bool isWeb(const QUrl &url)
{
    return !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

} // namespace

CPassportLoginServer::CPassportLoginServer(QObject *parent) : QObject(parent) {}

CPassportLoginServer::~CPassportLoginServer()
{
    if (!m_exchange)
        return;
    m_exchange->reply->disconnect(this);
    m_exchange->reply->abort();
    m_exchange->reply->deleteLater();
}

void CPassportLoginServer::ManualRefreshAuthID()
{
    if (m_refreshing)
        return;
    LOG_DEBUG("ManualRefreshAuthID authid =" << logSecret(m_authId)
                                             << ", TGC =" << logSecret(m_ticket)
                                             << ",ids_r =" << logSecret(m_rememberMe));
    m_refreshing = true;
    const QUrl url = exchangeUrl();
    if (m_ticket.isEmpty() || !isWeb(url)) {
        const bool noTicket = m_ticket.isEmpty();
        QTimer::singleShot(0, this, [this, noTicket] {
            if (noTicket)
                refuse();
            else
                finishRefresh(false);
        });
        return;
    }
    m_exchange = std::make_unique<Exchange>();
    m_exchange->manager = ManagerPool::instance().lend();
    m_exchange->ticket = m_ticket;
    RequestHeaders::storeLoginCookies(m_exchange->manager->cookieJar(), url,
                                      {QString(), m_ticket, m_rememberMe});
    m_exchange->reply = m_exchange->manager->get(RequestHeaders::request(url));
    ReplyLimits::guard(m_exchange->reply);
    connect(m_exchange->reply, &QNetworkReply::finished, this,
            &CPassportLoginServer::exchangeEnded);
    connect(m_exchange->reply, &QNetworkReply::readyRead, this, [this] {
        if (!ReplyLimits::refusal(m_exchange->reply, 0, MaximumReply).isEmpty())
            m_exchange->reply->abort();
    });
    connect(&m_exchange->timer, &QTimer::timeout, m_exchange->reply, &QNetworkReply::abort);
    m_exchange->timer.setSingleShot(true);
    m_exchange->timer.start(ExchangeTimeout);
}

void CPassportLoginServer::UserOverdue()
{
    if (m_refreshing || (!m_refusedTicket.isNull() && m_refusedTicket == m_ticket)) {
        LOG_DEBUG("CPassportLoginServer::UserOverdue return direct.");
        return;
    }
    ManualRefreshAuthID();
}

// Only a redirect with a new auth id is a success: the service sends whoever it
// knows on to where they wanted to go, and shows its log-in page to all others.
void CPassportLoginServer::exchangeEnded()
{
    const std::unique_ptr<Exchange> ended = std::move(m_exchange);
    QNetworkReply *reply = ended->reply;
    reply->deleteLater();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (m_ticket != ended->ticket) {
        // Somebody logged in meanwhile; this answer is about a past log-in.
        finishRefresh(!m_authId.isEmpty());
        return;
    }
    if (reply->error() == QNetworkReply::NoError && status == 302) {
        const auto cookies =
            reply->header(QNetworkRequest::SetCookieHeader).value<QList<QNetworkCookie>>();
        bool hasAuthId = false;
        for (const QNetworkCookie &cookie : cookies) {
            const QString value = QString::fromLatin1(cookie.value());
            if (cookie.name() == RequestHeaders::AuthIdCookie && !value.isEmpty()) {
                m_authId = value;
                hasAuthId = true;
            } else if (cookie.name() == RequestHeaders::TicketCookie) {
                m_ticket = value;
            } else if (cookie.name() == RequestHeaders::RememberMeCookie) {
                m_rememberMe = value;
            }
        }
        finishRefresh(hasAuthId);
        return;
    }
    if (status == 200 && reply->rawHeader("passport.login.flag") == "true") {
        refuse();
        return;
    }
    LOG_ERROR("networkerror=" << RequestText::message(reply->errorString()));
    finishRefresh(false);
}

void CPassportLoginServer::refuse()
{
    m_refusedTicket = m_ticket.isNull() ? QStringLiteral("") : m_ticket;
    const QPointer<CPassportLoginServer> alive(this);
    finishRefresh(false);
    if (alive)
        emit signal_sessionOver();
}

void CPassportLoginServer::finishRefresh(bool success)
{
    m_refreshing = false;
    emit signal_refreshed(success);
}

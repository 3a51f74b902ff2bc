#include "host/websession.h"

#include "common/logging.h"
#include "http/chttpsession.h"
#include "http/cpassportloginserver.h"
#include "http/requestheaders.h"
#include "http/serviceaddresses.h"
#include "http/servicereply.h"

#include <QCryptographicHash>
#include <QNetworkReply>
#include <QUrl>

namespace {
const char LogInKey[] = "/Passport/loginurl";

QString digest(const QString &password)
{
    return QString::fromLatin1(
        QCryptographicHash::hash(password.toUtf8(), QCryptographicHash::Md5).toHex());
}
} // namespace

WebSession::WebSession(QObject *parent)
    : QObject(parent), m_passport(new CPassportLoginServer(this))
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, &WebSession::send);
    connect(m_passport, &CPassportLoginServer::signal_sessionOver, this, &WebSession::sessionOver);
}

WebSession::~WebSession() = default;

void WebSession::setState(State state)
{
    if (m_state == state)
        return;
    m_state = state;
    emit stateChanged();
}

void WebSession::forgetTickets()
{
    m_passport->setAuthId(QString());
    m_passport->setTicket(QString());
    m_passport->setRememberMe(QString());
}

void WebSession::logIn(const QString &user, const QString &password)
{
    m_user = user;
    m_password = password;
    m_pause = FirstPause;
    send();
}

void WebSession::logOut()
{
    m_retry.stop();
    delete m_request;
    m_user.clear();
    m_password.clear();
    m_problem.clear();
    forgetTickets();
    setState(LoggedOut);
}

void WebSession::send()
{
    m_retry.stop();
    delete m_request;
    forgetTickets();
    m_request = new CHttpSession(this);
    m_request->setThrottled(false);
    connect(m_request, &CHttpSession::signal_finished, this, &WebSession::takeReply);
    setState(LoggingIn);
    m_request->post(
        RequestHeaders::formRequest(QUrl(ServiceAddresses::address(LogInKey))),
        RequestHeaders::formBody({{"userName", m_user}, {"password", digest(m_password)}}));
}

void WebSession::takeReply(QNetworkReply *reply)
{
    const ServiceReply result = ServiceReply::of(reply, HERE);
    const bool isUntrusted = reply->error() == QNetworkReply::SslHandshakeFailedError;
    m_request->deleteLater();
    m_request.clear();
    if (result.ok && !m_passport->authId().isEmpty()) {
        LOG_INFO("logged in to the web services as " << logText(m_user));
        m_problem.clear();
        m_since.start();
        setState(LoggedIn);
        return;
    }
    if (result.code != ServiceReply::NoCode && !result.ok) {
        m_problem = tr("The web services refuse the log-in of %1 (code %2).")
                        .arg(m_user, QString::number(result.code));
        LOG_ERROR(logText(m_problem));
        setState(Refused);
        return;
    }
    m_problem =
        isUntrusted ? tr("There is no connection to the web services that can be trusted; the "
                         "log tells why.")
        : result.status == 0
            ? tr("The web services cannot be reached: %1").arg(result.error)
            : tr("The web services do not answer the log-in (status %1).").arg(result.status);
    tryLater();
}

void WebSession::tryLater()
{
    LOG_ERROR(logText(m_problem) << " Trying again in " << QString::number(m_pause) << " ms");
    m_retry.start(m_pause);
    m_pause = qMin(2 * m_pause, LongestPause);
    setState(Waiting);
}

void WebSession::sessionOver()
{
    if (m_state != LoggedIn)
        return;
    LOG_INFO("the log-in to the web services has ended");
    if (m_since.elapsed() >= SteadySession)
        m_pause = FirstPause;
    m_problem = tr("The log-in to the web services has ended.");
    tryLater();
}

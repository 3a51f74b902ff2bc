#include "http/chttpsession.h"

#include "common/context.h"
#include "common/logging.h"
#include "http/cmonitorlogger.h"
#include "http/cpassportloginserver.h"
#include "http/failedreply.h"
#include "http/logurl.h"
#include "http/managerpool.h"
#include "http/redirectrules.h"
#include "http/replylimits.h"
#include "http/requestheaders.h"
#include "http/requestthrottle.h"
#include "http/serviceaddresses.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QHttpMultiPart>
#include <QMetaMethod>

#include <algorithm>

namespace {

bool isWeb(const QUrl &url)
{
    return url.isValid() && !url.host().isEmpty() &&
           (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http"));
}

// Keeps from a reply what the network's thread has still to tell it. An error would be
// a second one for a reply that has been aborted, which Qt reports as a fault.
class Deafness : public QObject
{
public:
    using QObject::QObject;
    bool eventFilter(QObject *, QEvent *event) override
    {
        return event->type() == QEvent::MetaCall;
    }
};

} // namespace

struct CHttpSession::Private : RequestThrottle::Entry
{
    enum State
    {
        Idle,
        Waiting,
        Sending,
        Ending, // signal_finished() is on its way
        Ended
    };

    explicit Private(CHttpSession *session) : q(session) {}

    CHttpSession *const q;
    State state = Idle;
    int timeout = DefaultTimeout;
    qint16 kind = 0;
    bool throttled = false;
    bool shared = false;
    bool trusted = true; // the present hop may see the log-in and the headers
    bool isForm = true;  // not a multipart form
    int hops = 0;
    qint64 maximumReply = DefaultMaximumReply;
    qint64 taken = 0; // bytes that others read while the reply arrived

    QNetworkAccessManager::Operation operation = QNetworkAccessManager::GetOperation;
    QNetworkRequest request; // as the caller made it
    QUrl url;                // of the present hop
    QString shownUrl;        // the same for the log
    QVector<std::pair<QByteArray, QByteArray>> headers;
    QByteArray body;
    QHttpMultiPart *parts = nullptr; // owned, until a reply takes it over
    RequestHeaders::LoginCookies sent;

    ManagerLease lease;
    QNetworkReply *reply = nullptr;
    QTimer timer;
    QElapsedTimer age; // since the first hop was sent
    RequestTiming timing;

    QNetworkAccessManager *manager();
    QNetworkRequest hopRequest() const;
    void turnCame() override;
    void goTo(const QUrl &address);
    void begin(const char *logPrefix, const QNetworkRequest &given,
               QNetworkAccessManager::Operation how, const QByteArray &bytes);
    void send();
    void arrived();
    bool redirect(int status);
    void fail(QNetworkReply::NetworkError error, const QString &text);
    void failLater(QNetworkReply::NetworkError error, const QString &text);
    void stopReply();
    void release();
    void handOver(QNetworkReply *ended);
    void leaveQuietly();
};

CHttpSession::CHttpSession(QObject *parent) : QObject(parent), d(new Private(this))
{
    d->timer.setSingleShot(true);
    connect(&d->timer, &QTimer::timeout, this, &CHttpSession::slot_timeout);
}

CHttpSession::~CHttpSession()
{
    d->leaveQuietly();
}

void CHttpSession::setTimeout(int milliseconds)
{
    if (milliseconds > 0)
        d->timeout = milliseconds;
}

int CHttpSession::timeout() const
{
    return d->timeout;
}

void CHttpSession::setThrottled(bool throttled)
{
    d->throttled = throttled;
}

bool CHttpSession::isThrottled() const
{
    return d->throttled;
}

void CHttpSession::setRequestKind(qint16 kind)
{
    d->kind = kind;
}

qint16 CHttpSession::requestKind() const
{
    return d->kind;
}

void CHttpSession::setMaximumReply(qint64 bytes)
{
    d->maximumReply = bytes;
}

void CHttpSession::addRawHeader(const QByteArray &name, const QByteArray &value)
{
    d->headers.append({name, value});
}

void CHttpSession::setSharedManager(bool shared)
{
    d->shared = shared;
}

bool CHttpSession::isWaiting() const
{
    return d->state == Private::Waiting;
}

void CHttpSession::post(const QNetworkRequest &request, const QString &body)
{
    d->begin("CHttpSession::post().url=", request, QNetworkAccessManager::PostOperation,
             body.toUtf8());
}

void CHttpSession::get(const QNetworkRequest &request)
{
    d->begin("CHttpSession::get().url=", request, QNetworkAccessManager::GetOperation,
             QByteArray());
}

void CHttpSession::postWithRedirectRaw(const QNetworkRequest &request, const QString &body)
{
    d->throttled = false;
    d->begin("CHttpSession::postWithRedirectRaw url", request, QNetworkAccessManager::PostOperation,
             body.toUtf8());
}

void CHttpSession::postParts(const QNetworkRequest &request, QHttpMultiPart *parts)
{
    parts->setParent(this);
    if (d->state == Private::Idle)
        d->parts = parts;
    d->begin("CHttpSession::post().url=", request, QNetworkAccessManager::PostOperation,
             QByteArray());
}

void CHttpSession::cancel()
{
    if (d->state != Private::Waiting && d->state != Private::Sending)
        return;
    d->failLater(QNetworkReply::OperationCanceledError, QStringLiteral("cancelled"));
}

void CHttpSession::slot_sslErrors(QList<QSslError> errors)
{
    for (const QSslError &error : qAsConst(errors))
        LOG_ERROR("ssl error=" << logText(error.errorString()));
}

void CHttpSession::slot_timeout()
{
    if (d->state == Private::Sending)
        d->fail(QNetworkReply::TimeoutError, QStringLiteral("timed out"));
}

void CHttpSession::replyFinished()
{
    QNetworkReply *reply = d->reply;
    if (!reply || !reply->isFinished())
        return;
    d->timer.stop();
    disconnect(reply, nullptr, this, nullptr);
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QNetworkReply::NetworkError error = reply->error();
    const QString refusal = ReplyLimits::refusal(reply, d->taken, d->maximumReply);
    if (!refusal.isEmpty()) {
        d->fail(QNetworkReply::UnknownContentError, refusal);
        return;
    }
    const QPointer<CHttpSession> alive(this); // the host is called next
    d->timing.finish(status, d->taken + reply->bytesAvailable(),
                     error == QNetworkReply::NoError ? QString() : reply->errorString());

    if (reply->rawHeader("passport.login.flag") == "true") {
        LOG_DEBUG("HttpSession::replyFinished cookie expires, url is" << d->shownUrl);
        if (CPassportLoginServer *passport = ctx().passport())
            passport->UserOverdue();
    }
    if (!alive)
        return;
    // The jar holds what it was given unless the reply says otherwise.
    if (d->trusted && reply->hasRawHeader("Set-Cookie"))
        RequestHeaders::takeLoginCookies(d->manager()->cookieJar(), reply->url(), d->sent);
    if (d->redirect(status))
        return;

    LOG_DEBUG("HttpSession::replyFinished status" << d->shownUrl << ", "
                                                  << QString::number(status));
    d->reply = nullptr;
    d->handOver(reply);
}

QNetworkAccessManager *CHttpSession::Private::manager()
{
    if (shared)
        return ManagerPool::instance().shared();
    if (!lease)
        lease = ManagerPool::instance().lend();
    return lease.operator->();
}

void CHttpSession::Private::goTo(const QUrl &address)
{
    url = address;
    shownUrl = logUrl(address);
}

void CHttpSession::Private::begin(const char *logPrefix, const QNetworkRequest &given,
                                  QNetworkAccessManager::Operation how, const QByteArray &bytes)
{
    if (state != Idle) {
        LOG_ERROR("CHttpSession: one request per session");
        return;
    }
    request = given;
    goTo(given.url());
    LOG_DEBUG(logPrefix << shownUrl);
    operation = how;
    body = bytes;
    if (!isWeb(url)) {
        failLater(QNetworkReply::ProtocolUnknownError, QStringLiteral("not a web address"));
        return;
    }
    if (!throttled) {
        send();
        return;
    }
    const auto lane =
        kind == PictureKind ? RequestThrottle::Lane::Pictures : RequestThrottle::Lane::Others;
    switch (RequestThrottle::instance().admit(this, lane)) {
    case RequestThrottle::Admission::Active:
        send();
        break;
    case RequestThrottle::Admission::Waiting:
        state = Waiting;
        break;
    case RequestThrottle::Admission::Refused:
        failLater(QNetworkReply::TemporaryNetworkFailureError,
                  QStringLiteral("too many requests are waiting"));
        break;
    }
}

void CHttpSession::Private::turnCame()
{
    send();
}

// A redirected request is one of the client's own making; what the service added
// goes along only to those whom the client knows.
QNetworkRequest CHttpSession::Private::hopRequest() const
{
    QNetworkRequest hop = trusted ? request : RequestHeaders::formRequest(url);
    if (hops > 0) {
        hop.setHeader(QNetworkRequest::ContentTypeHeader,
                      QStringLiteral("application/x-www-form-urlencoded"));
        hop.setUrl(url);
    }
    RequestHeaders::complete(&hop);
    if (trusted)
        for (const auto &[name, value] : headers)
            hop.setRawHeader(name, value);
    if (parts)
        hop.setHeader(QNetworkRequest::ContentTypeHeader, QVariant());
    return hop;
}

void CHttpSession::Private::send()
{
    state = Sending;
    taken = 0;
    if (hops == 0)
        age.start();
    const QNetworkRequest hop = hopRequest();
    QNetworkCookieJar *jar = manager()->cookieJar();
    if (trusted)
        sent = RequestHeaders::storeLoginCookies(jar, url);
    else
        RequestHeaders::dropLoginCookies(jar, url);

    if (operation == QNetworkAccessManager::GetOperation) {
        timing = RequestTiming("GET", url, 0);
        reply = manager()->get(hop);
    } else if (parts) {
        timing = RequestTiming("POST", url, 0);
        isForm = false;
        reply = manager()->post(hop, parts);
        parts->setParent(reply);
        parts = nullptr;
    } else {
        timing = RequestTiming("POST", url, body.size());
        reply = manager()->post(hop, body);
    }
    ReplyLimits::guard(reply);
    connect(reply, &QNetworkReply::finished, q, &CHttpSession::replyFinished);
    connect(reply, &QNetworkReply::sslErrors, q, &CHttpSession::slot_sslErrors);
    connect(reply, &QNetworkReply::readyRead, q, [this] { arrived(); });
    // Passing these on costs each request; few look at them.
    static const QMetaMethod upload = QMetaMethod::fromSignal(&CHttpSession::signal_uploadProgress);
    if (q->isSignalConnected(upload))
        connect(reply, &QNetworkReply::uploadProgress, q, &CHttpSession::signal_uploadProgress);
    static const QMetaMethod download =
        QMetaMethod::fromSignal(&CHttpSession::signal_downloadProgress);
    if (q->isSignalConnected(download))
        connect(reply, &QNetworkReply::downloadProgress, q, &CHttpSession::signal_downloadProgress);
    const qint64 left = qint64(timeout) * DeadlineFactor - age.elapsed();
    timer.start(int(std::max(qint64(0), std::min(qint64(timeout), left))));
}

void CHttpSession::Private::arrived()
{
    const QString refusal = ReplyLimits::refusal(reply, taken, maximumReply);
    if (!refusal.isEmpty()) {
        fail(QNetworkReply::UnknownContentError, refusal);
        return;
    }
    const QPointer<CHttpSession> alive(q);
    QNetworkReply *const arriving = reply;
    const qint64 before = arriving->bytesAvailable();
    emit q->signal_readyRead(arriving);
    if (alive && reply == arriving)
        taken += before - arriving->bytesAvailable();
}

// Whether the reply is a redirect, which has been dealt with then.
bool CHttpSession::Private::redirect(int status)
{
    const QUrl location = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    if ((status != 301 && status != 302) || location.isEmpty() || !isForm)
        return false;
    const RedirectRules::Hop hop = RedirectRules::judge(
        request.url(), url, location, hops, MaximumRedirects, &ServiceAddresses::isServiceHost);
    goTo(hop.url);
    LOG_DEBUG("HttpSession::replyFinished redirect url" << shownUrl);
    if (!hop.isFollowed()) {
        fail(hop.refusal, QStringLiteral("a redirect that is not followed"));
        return true;
    }
    reply->deleteLater();
    reply = nullptr;
    ++hops;
    trusted = hop.trusted;
    send();
    return true;
}

void CHttpSession::Private::stopReply()
{
    timer.stop();
    if (!reply)
        return;
    reply->disconnect(q);
    reply->installEventFilter(new Deafness(reply));
    reply->abort();
    reply->deleteLater();
    reply = nullptr;
}

// Frees the place and the manager, and lets the next ones go.
void CHttpSession::Private::release()
{
    lease.giveBack();
    RequestThrottle::instance().leave(this);
    RequestThrottle::instance().startNext();
}

// Ends the request without a reply of the server's.
void CHttpSession::Private::fail(QNetworkReply::NetworkError error, const QString &text)
{
    LOG_ERROR("CHttpSession failed, url=" << shownUrl << ", " << text);
    stopReply();
    const QPointer<CHttpSession> alive(q);
    timing.finish(0, 0, text);
    if (alive)
        handOver(new FailedReply(request, operation, error, text, nullptr));
}

// The same for a caller who is still inside a call of his own.
void CHttpSession::Private::failLater(QNetworkReply::NetworkError error, const QString &text)
{
    state = Ending;
    stopReply();
    release();
    QTimer::singleShot(0, q, [this, error, text] { fail(error, text); });
}

// Last of all: a slot may delete the session or begin the next.
void CHttpSession::Private::handOver(QNetworkReply *ended)
{
    state = Ended;
    ended->deleteLater();
    release();
    emit q->signal_finished(ended);
}

void CHttpSession::Private::leaveQuietly()
{
    const bool held = state == Waiting || state == Sending;
    state = Ended;
    stopReply();
    lease.giveBack();
    RequestThrottle::instance().leave(this);
    if (held && throttled)
        RequestThrottle::startNextLater();
}

#include "webview/pagenetwork.h"

#include "common/logging.h"
#include "http/failedreply.h"
#include "http/replylimits.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"
#include "webview/pagecookies.h"

#include <QTimer>

namespace {
bool isPlain(const QUrl &url)
{
    return url.scheme() == QLatin1String("http");
}

int statusOf(const QNetworkReply *reply)
{
    return reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

QUrl targetOf(const QNetworkReply *reply)
{
    const QUrl target = reply->attribute(QNetworkRequest::RedirectionTargetAttribute).toUrl();
    return target.isEmpty() ? target : reply->url().resolved(target);
}

// With a page, or with something that is to be stored.
bool isFile(const QNetworkReply *reply)
{
    return reply->rawHeader("Content-Disposition").trimmed().toLower().startsWith("attachment");
}
} // namespace

PageNetwork::PageNetwork(QObject *parent) : QNetworkAccessManager(parent)
{
    setCookieJar(new PageCookies(this));
    setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
}

void PageNetwork::begin(const QUrl &page)
{
    m_page = page;
    m_state = Waiting;
    ++m_pages;
    m_refused.clear();
    m_requests = 0;
    m_refusals = 0;
    m_received = 0;
}

QString PageNetwork::refusal(Operation operation, const QUrl &url)
{
    const bool isKnown =
        operation == GetOperation || operation == HeadOperation || operation == PostOperation;
    if (!ServiceAddresses::isWebAddress(url))
        return QStringLiteral("neither http nor https");
    if (!isKnown)
        return QStringLiteral("not a request of a page");
    if (isPlain(url) && (!isPlain(m_page) || m_refused.contains(url)))
        return QStringLiteral("not encrypted, from a page that is");
    if (++m_requests > MaximumRequests || m_received > MaximumOfPage)
        return QStringLiteral("the page asks for too much");
    return QString();
}

QNetworkReply *PageNetwork::createRequest(Operation operation, const QNetworkRequest &request,
                                          QIODevice *body)
{
    if (m_requests == 0)
        m_page = request.url(); // as the browser writes it
    const QString reason = refusal(operation, request.url());
    if (!reason.isEmpty()) {
        if (++m_refusals <= MaximumTold)
            LOG_ERROR("refused to a page: " << logText(RequestText::address(request.url())) << ", "
                                            << reason);
        auto *reply =
            new FailedReply(request, operation, QNetworkReply::ProtocolUnknownError, reason, this);
        if (request.url() == m_page)
            setState(Failed);
        QTimer::singleShot(0, reply, &QNetworkReply::finished);
        return reply;
    }
    QNetworkRequest complete = request;
    complete.setRawHeader("User-Agent", QByteArray());
    RequestHeaders::complete(&complete);
    complete.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                          QNetworkRequest::AlwaysNetwork);
    complete.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    QNetworkReply *reply = QNetworkAccessManager::createRequest(operation, complete, body);
    ReplyLimits::guard(reply);
    watch(reply);
    return reply;
}

// Before whoever asked hears of anything.
void PageNetwork::watch(QNetworkReply *reply)
{
    // Of a page that gave way to another one nothing is of interest.
    connect(reply, &QNetworkReply::metaDataChanged, this, [this, reply, page = m_pages] {
        if (page == m_pages)
            headersCame(reply);
        else
            reply->abort();
    });
    connect(reply, &QNetworkReply::downloadProgress, this,
            [this, reply, page = m_pages, before = qint64(0)](qint64 received) mutable {
                if (page != m_pages)
                    return;
                m_received += received - before;
                before = received;
                if (received > MaximumReply || m_received > MaximumOfPage)
                    reply->abort();
            });
    connect(reply, &QNetworkReply::finished, this, [this, reply, page = m_pages] {
        if (page == m_pages)
            ended(reply);
    });
}

void PageNetwork::headersCame(QNetworkReply *reply)
{
    const QUrl target = targetOf(reply);
    const bool leadsAway = !target.isEmpty() && (!ServiceAddresses::isWebAddress(target) ||
                                                 (isPlain(target) && !isPlain(reply->url())));
    if (leadsAway)
        m_refused.insert(target);
    if (leadsAway || isFile(reply) || !ReplyLimits::headerRefusal(reply, MaximumReply).isEmpty()) {
        if (reply->url() == m_page)
            setState(Failed);
        reply->abort();
    } else if (!target.isEmpty() && reply->url() == m_page) {
        m_page = target;
    }
}

void PageNetwork::ended(QNetworkReply *reply)
{
    if (reply->url() != m_page || m_state != Waiting)
        return;
    constexpr int noContent = 204, resetContent = 205, firstOther = 300;
    const int status = statusOf(reply);
    const bool isPage = reply->error() == QNetworkReply::NoError && status < firstOther &&
                        status != noContent && status != resetContent;
    setState(isPage ? Arrived : Failed);
}

void PageNetwork::setState(State state)
{
    if (m_state == Failed)
        return;
    m_state = state;
    if (state == Failed)
        emit pageFailed();
}

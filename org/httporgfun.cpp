#include "org/httporgfun.h"

#include "common/context.h"
#include "common/logging.h"
#include "http/cmonitorlogger.h"
#include "http/cpassportloginserver.h"
#include "http/logurl.h"
#include "http/managerpool.h"
#include "http/replylimits.h"
#include "http/requestheaders.h"
#include "http/requestthrottle.h"
#include "http/serviceaddresses.h"
#include "org/organswer.h"

#include <QElapsedTimer>
#include <QNetworkReply>
#include <QTimer>

namespace {

constexpr int MaximumLoggedReply = 64 * 1024; // bytes
constexpr int TimeoutCode = 103;              // in the monitoring records

QString textForLog(const QByteArray &reply)
{
    const QString text = QString::fromUtf8(reply.left(MaximumLoggedReply));
    QString shown;
    constexpr int Piece = 2048; // well below what logText() lets through
    for (int at = 0; at < text.size(); at += Piece)
        shown += logText(text.mid(at, Piece));
    return shown;
}

} // namespace

struct HttpOrgFun::Private : RequestThrottle::Entry
{
    explicit Private(HttpOrgFun *request) : q(request) {}

    HttpOrgFun *const q;
    OrgRequestKind kind = OrgRequestKind::Children;
    QString subject; // what was asked for: an id or a text
    QString companyCode;
    QUrl url;
    QByteArray body;

    ManagerLease manager;
    QPointer<QNetworkReply> reply; // any other one is late
    RequestHeaders::LoginCookies sent;
    QTimer timer;
    int retries = 0;
    RequestTiming timing;
    QMetaObject::Connection refreshed; // while the log-in is being refreshed
    std::vector<OrgElementList> slices;
    size_t nextSlice = 0;

    void start(OrgRequestKind what, const char *key, const RequestHeaders::Fields &fields);
    void begin();
    void turnCame() override { begin(); }
    void leaveLine();
    void send();
    void dropReply();
    void limit();
    void ended(QNetworkReply *finished);
    void act(OrgReplyAction action, int status, const QByteArray &content);
    void sendAgain(int status);
    void refreshLogin();
    void goOnAfterRefresh();
    void fail(int status);
    void handOver(OrgAnswer *answer, const QByteArray &content);
    void handOverSlices();
    void handOverSlice(const OrgElementList &slice);
};

HttpOrgFun::HttpOrgFun(QObject *parent) : OrgRequest(parent), d(std::make_unique<Private>(this))
{
    d->timer.setSingleShot(true);
    connect(&d->timer, &QTimer::timeout, this, &HttpOrgFun::slot_timeout);
}

HttpOrgFun::~HttpOrgFun()
{
    if (d->manager)
        d->manager->disconnect(this);
    d->dropReply();
    d->leaveLine();
}

void HttpOrgFun::searchOrg(const QString &orgId, const QString &companyCode)
{
    d->subject = orgId;
    d->companyCode = companyCode;
    d->start(OrgRequestKind::Children, "/searchOrg/searchorgurl", {{"orgId", orgId}});
}

void HttpOrgFun::locateOrg(const QString &id, bool bIsOrg)
{
    d->subject = id;
    d->start(OrgRequestKind::Locate, "/searchOrg/locateorgurl",
             {{"empId", id}, {"type", bIsOrg ? QStringLiteral("ORG") : QStringLiteral("EMP")}});
}

void HttpOrgFun::fuzzySearchOrg(const QString &searchText, bool containOrg, int pageNo,
                                int pageSize)
{
    d->subject = searchText;
    d->start(OrgRequestKind::Search, "/searchOrg/fuzzysearchorgurl",
             {{"searchText", searchText},
              {"containOrg", containOrg ? QStringLiteral("true") : QStringLiteral("false")},
              {"pageNo", QString::number(pageNo)},
              {"pageSize", QString::number(pageSize)}});
}

// --- Sending ---------------------------------------------------------------------

void HttpOrgFun::Private::start(OrgRequestKind what, const char *key,
                                const RequestHeaders::Fields &fields)
{
    kind = what;
    url = QUrl(ServiceAddresses::address(key));
    body = RequestHeaders::formBody(fields).toLatin1();
    if (url.isEmpty()) {
        LOG_ERROR("no address for " << key);
        QTimer::singleShot(0, q, [this] { fail(0); });
        return;
    }
    // A tree that is refreshed asks for all of its open departments at once.
    if (kind != OrgRequestKind::Children) {
        begin();
        return;
    }
    switch (RequestThrottle::instance().admit(this, RequestThrottle::Lane::Others)) {
    case RequestThrottle::Admission::Active:
        begin();
        break;
    case RequestThrottle::Admission::Waiting:
        break;
    case RequestThrottle::Admission::Refused:
        LOG_ERROR("too many organisation requests are waiting");
        QTimer::singleShot(0, q, [this] { fail(0); });
        break;
    }
}

void HttpOrgFun::Private::leaveLine()
{
    RequestThrottle::instance().leave(this);
    RequestThrottle::startNextLater();
}

void HttpOrgFun::Private::begin()
{
    manager = ManagerPool::instance().lend();
    const QNetworkAccessManager *sender = manager.operator->();
    switch (kind) {
    case OrgRequestKind::Children:
        connect(sender, &QNetworkAccessManager::finished, q, &HttpOrgFun::slot_searchOrg);
        break;
    case OrgRequestKind::Locate:
        connect(sender, &QNetworkAccessManager::finished, q, &HttpOrgFun::slot_locateOrg);
        break;
    case OrgRequestKind::Search:
        connect(sender, &QNetworkAccessManager::finished, q, &HttpOrgFun::slot_fuzzySearchOrg);
        break;
    }
    send();
}

void HttpOrgFun::Private::send()
{
    timing = RequestTiming("POST", url, body.size());
    sent = RequestHeaders::storeLoginCookies(manager->cookieJar(), url);
    reply = manager->post(RequestHeaders::formRequest(url), body);
    ReplyLimits::guard(reply);
    connect(reply, &QNetworkReply::readyRead, q, [this] { limit(); });
    connect(reply, &QNetworkReply::metaDataChanged, q, [this] { limit(); });
    timer.start(Timeout);
}

// What comes from it from now on is late.
void HttpOrgFun::Private::dropReply()
{
    QNetworkReply *dropped = reply;
    reply = nullptr;
    if (!dropped)
        return;
    dropped->disconnect(q);
    dropped->abort();
    dropped->deleteLater();
}

// A reply that is too much is not asked for again: it would be the same.
void HttpOrgFun::Private::limit()
{
    if (!reply)
        return;
    const QString refusal = ReplyLimits::refusal(reply, 0, MaximumReply);
    if (refusal.isEmpty())
        return;
    LOG_ERROR("organisation reply refused: " << refusal);
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    timer.stop();
    // Not aborted: it is in the middle of telling about itself.
    reply->disconnect(q);
    reply->deleteLater();
    reply = nullptr;
    const QPointer<HttpOrgFun> alive(q);
    timing.finish(status, 0, refusal);
    if (alive)
        fail(status);
}

void HttpOrgFun::slot_searchOrg(QNetworkReply *reply)
{
    d->ended(reply);
}

void HttpOrgFun::slot_locateOrg(QNetworkReply *reply)
{
    d->ended(reply);
}

void HttpOrgFun::slot_fuzzySearchOrg(QNetworkReply *reply)
{
    d->ended(reply);
}

void HttpOrgFun::slot_timeout()
{
    if (d->refreshed) {
        d->goOnAfterRefresh();
        return;
    }
    LOG_ERROR("time out");
    d->timer.stop();
    d->dropReply();
    const QPointer<HttpOrgFun> alive(this);
    d->timing.finish(TimeoutCode, 0, QString::fromUtf8("Http请求超时!"));
    if (alive)
        d->sendAgain(0);
}

// --- Replies ---------------------------------------------------------------------

void HttpOrgFun::Private::ended(QNetworkReply *finished)
{
    if (finished != reply) {
        finished->deleteLater();
        return;
    }
    reply = nullptr;
    timer.stop();
    finished->deleteLater();
    const int status = finished->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QNetworkReply::NetworkError error = finished->error();
    const QString refusal = ReplyLimits::refusal(finished, 0, MaximumReply);
    const QByteArray content = finished->readAll();
    if (error != QNetworkReply::NoError)
        LOG_ERROR("http error,errorCode=" << QString::number(int(error)) << ", url=" << logUrl(url)
                                          << ", status " << QString::number(status));
    RequestHeaders::takeLoginCookies(manager->cookieJar(), url, sent);
    const QPointer<HttpOrgFun> alive(q);
    timing.finish(status, content.size(),
                  error == QNetworkReply::NoError ? refusal : finished->errorString());
    if (!alive)
        return;
    if (!refusal.isEmpty()) {
        LOG_ERROR("organisation reply refused: " << refusal);
        fail(status);
    } else if (status == 200 && error != QNetworkReply::NoError) {
        sendAgain(status); // the connection broke in the middle
    } else {
        act(orgReplyAction(kind, status), status, content);
    }
}

void HttpOrgFun::Private::act(OrgReplyAction action, int status, const QByteArray &content)
{
    switch (action) {
    case OrgReplyAction::Parse:
        leaveLine();
        if (content.size() <= ParseAsideAbove) {
            OrgAnswer answer = OrgAnswer::read(kind, content, 0);
            handOver(&answer, content);
        } else {
            OrgAnswer::readAside(kind, content, SliceSize, q,
                                 [this, content](OrgAnswer *answer) { handOver(answer, content); });
        }
        break;
    case OrgReplyAction::Again:
        sendAgain(status);
        break;
    case OrgReplyAction::RefreshLogin:
        refreshLogin();
        break;
    case OrgReplyAction::Refused:
        fail(status);
        break;
    case OrgReplyAction::NotThere:
        q->deleteLater();
        emit q->signal_noLocate();
        break;
    case OrgReplyAction::SessionOver:
        q->deleteLater();
        if (CPassportLoginServer *passport = ctx().passport())
            passport->UserOverdue();
        break;
    }
}

void HttpOrgFun::Private::sendAgain(int status)
{
    if (retries >= MaximumRetries) {
        fail(status);
        return;
    }
    ++retries;
    send();
}

// Sending at once would be answered in the same way, so the exchange comes first;
// but not for ever.
void HttpOrgFun::Private::refreshLogin()
{
    CPassportLoginServer *passport = ctx().passport();
    if (!passport || retries >= MaximumRetries) {
        if (passport)
            passport->ManualRefreshAuthID();
        sendAgain(302);
        return;
    }
    refreshed = connect(passport, &CPassportLoginServer::signal_refreshed, q,
                        [this] { goOnAfterRefresh(); });
    timer.start(Timeout);
    passport->ManualRefreshAuthID();
}

void HttpOrgFun::Private::goOnAfterRefresh()
{
    disconnect(refreshed);
    refreshed = {};
    timer.stop();
    sendAgain(302);
}

void HttpOrgFun::Private::fail(int status)
{
    q->deleteLater();
    switch (kind) {
    case OrgRequestKind::Children:
        emit q->searchOrgFail(subject, status);
        break;
    case OrgRequestKind::Locate:
        emit q->signal_locateOrgFail(subject);
        break;
    case OrgRequestKind::Search:
        emit q->signal_fuzzySearchFail(subject);
        break;
    }
}

void HttpOrgFun::Private::handOver(OrgAnswer *answer, const QByteArray &content)
{
    if (!answer->ok) {
        LOG_ERROR("was error,json format error. result=" << textForLog(content));
        q->deleteLater();
        return;
    }
    switch (kind) {
    case OrgRequestKind::Children:
    case OrgRequestKind::Locate:
        slices = std::move(answer->slices);
        handOverSlices();
        break;
    case OrgRequestKind::Search:
        q->deleteLater();
        emit q->signal_searchFinished(answer->hits.users, answer->hits.departmentCount,
                                      answer->hits.departments, subject);
        break;
    }
}

void HttpOrgFun::Private::handOverSlices()
{
    const QPointer<HttpOrgFun> alive(q);
    QElapsedTimer busy;
    busy.start();
    while (nextSlice < slices.size()) {
        handOverSlice(std::move(slices[nextSlice++]));
        if (!alive)
            return;
        if (busy.elapsed() >= SliceTime)
            break;
    }
    if (nextSlice < slices.size()) {
        QTimer::singleShot(0, q, [this] { handOverSlices(); });
        return;
    }
    q->deleteLater();
    if (kind == OrgRequestKind::Children)
        emit q->signal_searchOrgDone(subject);
}

// What leads to a place goes ahead of it as the children of no company in particular,
// which is how a location's elements are kept; the place itself is told at the end.
void HttpOrgFun::Private::handOverSlice(const OrgElementList &slice)
{
    if (kind == OrgRequestKind::Children || nextSlice < slices.size())
        emit q->signal_searchOrgElements(slice, companyCode);
    else
        emit q->signal_locateOrgElements(slice, subject);
}

// --- Parsing ---------------------------------------------------------------------

bool HttpOrgFun::resolveJsonGetOrg(const QByteArray &utf8, OrgElementList *elements, QString *error)
{
    std::vector<OrgElementList> slices;
    if (!OrgParser::children(utf8, 0, &slices, error))
        return false;
    elements->append(slices.front());
    return true;
}

bool HttpOrgFun::resolveJsonGetLocateOrg(const QByteArray &utf8, OrgElementList *elements,
                                         QString *error)
{
    std::vector<OrgElementList> slices;
    if (!OrgParser::location(utf8, 0, &slices, error))
        return false;
    elements->append(slices.front());
    return true;
}

bool HttpOrgFun::resolveJsonGetFuzzyRult(const QByteArray &utf8, OrgParser::SearchHits *hits,
                                         QString *error)
{
    return OrgParser::search(utf8, hits, error);
}

void HttpOrgFun::recursiveResolveJson(Json::Value &jsonResponse, OrgElementList &orgItemList)
{
    OrgParser::addLevel(jsonResponse, &orgItemList);
}

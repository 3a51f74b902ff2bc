#include "host/serviceevents.h"

#include "host/messagingcore.h"
#include "host/webservices.h"
#include "http/jsonreader.h"
#include "http/serviceaddresses.h"
#include "http/servicecall.h"

#include <algorithm>

struct ServiceNews
{
    qint64 next = 0;
    QStringList changedTeams;
    QList<TeamRequest> requests;
    QList<TeamDecision> decisions;
    QList<FriendRequest> friendRequests;
    QList<QPair<QString, QString>> pictures; // uid and name
    bool friends = false;
    bool subscriptions = false;
};

namespace {
constexpr int AnswerMs = 10000; // beyond what the services were told to wait
constexpr int MaximumEvents = 1000;

void takeTeamEvent(const Json::Value &event, const QString &type, ServiceNews *news)
{
    const TeamRequest request{type, JsonReader::text(event, "vtId"),
                              JsonReader::text(event, "member"), JsonReader::text(event, "vtName")};
    if (type == QLatin1String("agreed") || type == QLatin1String("refused"))
        news->decisions.append({request.teamName, request.member, type == QLatin1String("agreed")});
    else if (type != QLatin1String("audit") && type != QLatin1String("join"))
        news->changedTeams +=
            JsonReader::text(event, "teams").split(QLatin1Char(','), Qt::SkipEmptyParts);
    else if (!request.teamId.isEmpty() && !news->requests.contains(request))
        news->requests.append(request);
}

void takeFriendRequest(const Json::Value &event, ServiceNews *news)
{
    const FriendRequest request{JsonReader::text(event, "member"), JsonReader::text(event, "name"),
                                JsonReader::text(event, "companyName"),
                                JsonReader::text(event, "reason"), JsonReader::text(event, "time")};
    const auto isOfThem = [&request](const FriendRequest &each) { return each.uid == request.uid; };
    QList<FriendRequest> &all = news->friendRequests;
    all.erase(std::remove_if(all.begin(), all.end(), isOfThem), all.end()); // the newest counts
    if (!request.uid.isEmpty())
        all.append(request);
}

void takeEvent(const Json::Value &event, ServiceNews *news)
{
    const QString type = JsonReader::text(event, "type");
    if (type == QLatin1String("friendRequest"))
        takeFriendRequest(event, news);
    else if (type == QLatin1String("friends"))
        news->friends = true;
    else if (type == QLatin1String("services"))
        news->subscriptions = true;
    else if (type == QLatin1String("picture"))
        news->pictures.append(
            {JsonReader::text(event, "member"), JsonReader::text(event, "photoName")});
    else
        takeTeamEvent(event, type, news);
}

ServiceNews newsIn(const Json::Value &data)
{
    ServiceNews news;
    news.next = JsonReader::integer(data, "next");
    const Json::Value &events = JsonReader::array(data, "events");
    for (Json::ArrayIndex i = 0; i < events.size() && i < MaximumEvents; ++i)
        takeEvent(events[i], &news);
    news.changedTeams.removeDuplicates();
    return news;
}
} // namespace

ServiceEvents::ServiceEvents(QObject *parent) : QObject(parent)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        if (m_since < 0)
            refresh();
        else
            poll();
    });
}

ServiceEvents::~ServiceEvents()
{
    stop();
}

QString ServiceEvents::path()
{
    return QStringLiteral("/center/event/getEvents.do");
}

ServiceCall *ServiceEvents::ask(qint64 since, void (ServiceEvents::*taken)(const ServiceReply &))
{
    ServiceRequest request;
    request.address = ServiceAddresses::host(QStringLiteral("center")) + path();
    if (since >= 0) {
        request.fields = {{"since", QString::number(since)},
                          {"waitSeconds", QString::number(WaitSeconds)}};
        request.timeout = WaitSeconds * 1000 + AnswerMs;
    }
    return ServiceCall::start(request, this, HERE,
                              [this, taken](const ServiceReply &reply) { (this->*taken)(reply); });
}

void ServiceEvents::follow(const WebServices *services, const MessagingCore *core)
{
    const auto look = [this, services, core] {
        if (services->state() == WebServices::Ready && core->isConnected())
            start();
        else
            stop();
    };
    connect(services, &WebServices::changed, this, look);
    connect(core, &MessagingCore::connectionChanged, this, look);
    look();
}

void ServiceEvents::start()
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_isFirstPoll = true;
    m_pause = FirstPause;
    refresh();
    if (m_since >= 0)
        poll();
}

void ServiceEvents::stop()
{
    m_isRunning = false;
    m_retry.stop();
    delete m_poll;
    delete m_refresh;
}

void ServiceEvents::refresh()
{
    if (!m_isRunning)
        return;
    delete m_refresh;
    m_refresh = ask(-1, &ServiceEvents::takeWaiting);
}

void ServiceEvents::poll()
{
    m_poll = ask(m_since, &ServiceEvents::takeNews);
}

void ServiceEvents::tryLater()
{
    m_retry.start(m_pause);
    m_pause = qMin(2 * m_pause, LongestPause);
}

void ServiceEvents::takeWaiting(const ServiceReply &reply)
{
    m_refresh.clear(); // it ends by itself
    if (!reply.ok) {
        // Otherwise the request that waits finds out whether there are services.
        if (m_since < 0)
            tryLater();
        return;
    }
    const ServiceNews news = newsIn(reply.data());
    const bool isFirst = m_since < 0;
    if (isFirst) {
        m_since = news.next;
        m_pause = FirstPause;
        m_isFirstPoll = false;
        poll();
    }
    emit waiting(news.requests);
    emit friendsWaiting(news.friendRequests);
    if (isFirst)
        emit reached(m_since);
}

void ServiceEvents::takeNews(const ServiceReply &reply)
{
    m_poll.clear();
    if (!reply.ok) {
        tryLater();
        return;
    }
    const ServiceNews news = newsIn(reply.data());
    const bool isNew = news.next != m_since;
    m_since = news.next;
    m_pause = FirstPause;
    // Services that answer at once without news must not be asked without end.
    if (isNew)
        poll();
    else
        m_retry.start(FirstPause);
    // What was asked of the user while this host was away may be decided since.
    if (m_isFirstPoll && !(news.requests.isEmpty() && news.friendRequests.isEmpty()))
        refresh();
    m_isFirstPoll = false;
    tell(news);
    if (isNew)
        emit reached(m_since);
}

void ServiceEvents::tell(const ServiceNews &news)
{
    for (const TeamRequest &request : news.requests)
        emit requested(request);
    for (const TeamDecision &decision : news.decisions)
        emit decided(decision);
    for (const FriendRequest &request : news.friendRequests)
        emit friendRequested(request);
    for (const auto &[uid, photoName] : news.pictures)
        emit pictureChanged(uid, photoName);
    if (!news.changedTeams.isEmpty())
        emit teamsChanged(news.changedTeams);
    if (news.friends)
        emit friendsChanged();
    if (news.subscriptions)
        emit subscriptionsChanged();
}

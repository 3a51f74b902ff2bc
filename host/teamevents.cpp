#include "host/teamevents.h"

#include "http/jsonreader.h"
#include "http/serviceaddresses.h"
#include "http/servicecall.h"

namespace {
constexpr int AnswerMs = 10000; // beyond what the services were told to wait
constexpr int MaximumEvents = 1000;

struct News
{
    qint64 next = 0;
    QStringList changed;
    QList<TeamRequest> requests;
    QList<TeamDecision> decisions;
};

News newsIn(const Json::Value &data)
{
    News news;
    news.next = JsonReader::integer(data, "next");
    const Json::Value &events = JsonReader::array(data, "events");
    for (Json::ArrayIndex i = 0; i < events.size() && i < MaximumEvents; ++i) {
        const Json::Value &event = events[i];
        const QString type = JsonReader::text(event, "type");
        const TeamRequest request{type, JsonReader::text(event, "vtId"),
                                  JsonReader::text(event, "member"),
                                  JsonReader::text(event, "vtName")};
        if (type == QLatin1String("agreed") || type == QLatin1String("refused"))
            news.decisions.append(
                {request.teamName, request.member, type == QLatin1String("agreed")});
        else if (type != QLatin1String("audit") && type != QLatin1String("join"))
            news.changed +=
                JsonReader::text(event, "teams").split(QLatin1Char(','), Qt::SkipEmptyParts);
        else if (!request.teamId.isEmpty() && !news.requests.contains(request))
            news.requests.append(request);
    }
    news.changed.removeDuplicates();
    return news;
}
} // namespace

TeamEvents::TeamEvents(QObject *parent) : QObject(parent)
{
    m_retry.setSingleShot(true);
    connect(&m_retry, &QTimer::timeout, this, [this] {
        if (m_since < 0)
            refresh();
        else
            poll();
    });
}

TeamEvents::~TeamEvents()
{
    stop();
}

QString TeamEvents::path()
{
    return QStringLiteral("/center/event/getEvents.do");
}

ServiceCall *TeamEvents::ask(qint64 since, void (TeamEvents::*taken)(const ServiceReply &))
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

void TeamEvents::start()
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    m_pause = FirstPause;
    refresh();
    if (m_since >= 0)
        poll();
}

void TeamEvents::stop()
{
    m_isRunning = false;
    m_retry.stop();
    delete m_poll;
    delete m_refresh;
}

void TeamEvents::refresh()
{
    if (!m_isRunning)
        return;
    delete m_refresh;
    m_refresh = ask(-1, &TeamEvents::takeWaiting);
}

void TeamEvents::poll()
{
    m_poll = ask(m_since, &TeamEvents::takeNews);
}

void TeamEvents::tryLater()
{
    m_retry.start(m_pause);
    m_pause = qMin(2 * m_pause, LongestPause);
}

void TeamEvents::takeWaiting(const ServiceReply &reply)
{
    m_refresh.clear(); // it ends by itself
    if (!reply.ok) {
        // Otherwise the request that waits finds out whether there are services.
        if (m_since < 0)
            tryLater();
        return;
    }
    const News news = newsIn(reply.data());
    const bool isFirst = m_since < 0;
    if (isFirst) {
        m_since = news.next;
        m_pause = FirstPause;
        poll();
    }
    emit waiting(news.requests);
}

void TeamEvents::takeNews(const ServiceReply &reply)
{
    m_poll.clear();
    if (!reply.ok) {
        tryLater();
        return;
    }
    const News news = newsIn(reply.data());
    const bool isNew = news.next != m_since;
    m_since = news.next;
    m_pause = FirstPause;
    // Services that answer at once without news must not be asked without end.
    if (isNew)
        poll();
    else
        m_retry.start(FirstPause);
    for (const TeamRequest &request : news.requests)
        emit requested(request);
    for (const TeamDecision &decision : news.decisions)
        emit decided(decision);
    if (!news.changed.isEmpty())
        emit teamsChanged(news.changed);
}

// What has happened to the caller's teams. A request may wait for it.
#include "backend/context.h"
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

#include <limits>

namespace {
constexpr qint64 LongestWait = 25; // s

struct News
{
    qint64 next = 0;
    std::vector<TeamEvent> events;
};

void writeEvent(JsonText &json, const QString &teams, const TeamEvent &event)
{
    json.open('{').member("teams", teams).member("type", event.type);
    json.member("vtId", QString::number(event.team)).member("vtName", event.name);
    json.member("member", event.member);
    json.close('}');
}

// All updates are one event.
Reply replyFor(const News &news)
{
    QStringList updated;
    const TeamEvent *update = nullptr;
    TeamReply written;
    JsonText &json = written.json();
    json.member("next", news.next).open("events", '[');
    for (const TeamEvent &event : news.events) {
        if (event.type == QLatin1String(TeamEventType::Update)) {
            update = &event;
            updated.append(QString::number(event.team));
        } else {
            writeEvent(json, QString::number(event.team), event);
        }
    }
    if (update)
        writeEvent(json, updated.join(QLatin1Char(',')), *update);
    json.close(']');
    Reply reply = written.end();
    reply.isRoutine = true;
    return reply;
}

// For a caller who knows nothing yet: what he has to decide. One who knew something
// that is forgotten here is also sent to look at all of his teams.
News fromTheBeginning(Teams &teams, TeamEventLog &events, bool hasMissed)
{
    News news{events.last(), teams.waiting()};
    if (hasMissed) {
        const QString update = QString::fromLatin1(TeamEventType::Update);
        for (const OwnTeam &own : teams.store().teamsOf(teams.caller().uid))
            news.events.push_back({news.next, update, own.id, {}, {}});
    }
    return news;
}

News newsAfter(qint64 number, BackEndContext &context, const QString &uid)
{
    Transaction transaction(context.database);
    TeamEventLog events(transaction);
    if (number >= 0 && !events.isForgotten(number)) {
        News news{number, events.after(uid, number)};
        if (!news.events.empty())
            news.next = news.events.back().number;
        return news;
    }
    Teams teams(transaction, context.people, uid);
    return fromTheBeginning(teams, events, number >= 0);
}

Reply getEvents(const Call &call, BackEndContext &context)
{
    const bool isFirst = call.form.text("since").isEmpty();
    const qint64 since =
        isFirst ? -1 : call.form.number("since", 0, std::numeric_limits<qint64>::max() - 1);
    const qint64 seconds = call.form.number("waitSeconds", 0, LongestWait, 0);
    const auto deadline = EventBell::Clock::now() + std::chrono::seconds(seconds);
    std::optional<EventBell::Seat> seat;
    if (seconds > 0 && !isFirst)
        seat.emplace(context.teamBell, call.caller.uid);
    try {
        News news = newsAfter(since, context, call.caller.uid);
        while (seat && news.events.empty() && news.next == since && seat->wait(deadline))
            news = newsAfter(since, context, call.caller.uid);
        return replyFor(news);
    } catch (const TeamRefusal &refusal) {
        return Reply::code(refusal.code);
    }
}

} // namespace

void addEventServices(Services *services, BackEndContext &context)
{
    services->post("/center/event/getEvents.do", Services::LoggedIn,
                   [&context](const Call &call) { return getEvents(call, context); });
}

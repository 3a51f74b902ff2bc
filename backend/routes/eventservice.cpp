// What has happened that concerns the caller. A request may wait for it.
#include "backend/context.h"
#include "backend/friends/friends.h"
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

#include <QDateTime>

#include <limits>

namespace {
constexpr qint64 LongestWait = 25; // s

// With what the event's reply tells about the present state.
struct Told
{
    Event event;
    FriendRequest request; // of "friendRequest"
};

struct News
{
    qint64 next = 0;
    std::vector<Told> events;
};

bool is(const Event &event, const char *type)
{
    return event.type == QLatin1String(type);
}

void writeTeamEvent(JsonText &json, const QString &teams, const Event &event)
{
    json.open('{').member("teams", teams).member("type", event.type);
    json.member("vtId", event.subject).member("vtName", event.teamName);
    json.member("member", event.member).close('}');
}

void writeFriendRequest(JsonText &json, const Told &told, const People &people)
{
    const User asker = people.find(told.request.asker).value_or(User());
    json.member("member", told.request.asker).member("name", asker.name);
    json.member("companyName", asker.companyName).member("reason", told.request.reason);
    json.member("time", QDateTime::fromSecsSinceEpoch(told.request.time)
                            .toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")));
}

void writeOtherEvent(JsonText &json, const Told &told, const People &people)
{
    json.open('{').member("type", told.event.type);
    if (is(told.event, EventType::FriendRequest)) {
        writeFriendRequest(json, told, people);
    } else if (is(told.event, EventType::Picture)) {
        const QString &uid = told.event.subject;
        json.member("member", uid);
        json.member("photoName", people.find(uid).value_or(User()).photoName);
    }
    json.close('}');
}

bool isAboutTeam(const Event &event)
{
    static constexpr const char *types[] = {EventType::Update, EventType::Audit, EventType::Join,
                                            EventType::Agreed, EventType::Refused};
    return std::any_of(std::begin(types), std::end(types),
                       [&event](const char *type) { return is(event, type); });
}

// All updates are one event.
Reply replyFor(const News &news, const People &people)
{
    QStringList updated;
    const Event *update = nullptr;
    TeamReply written;
    JsonText &json = written.json();
    json.member("next", news.next).open("events", '[');
    for (const Told &told : news.events) {
        if (is(told.event, EventType::Update)) {
            update = &told.event;
            updated.append(told.event.subject);
        } else if (isAboutTeam(told.event)) {
            writeTeamEvent(json, told.event.subject, told.event);
        } else {
            writeOtherEvent(json, told, people);
        }
    }
    if (update)
        writeTeamEvent(json, updated.join(QLatin1Char(',')), *update);
    json.close(']');
    Reply reply = written.end();
    reply.isRoutine = true;
    return reply;
}

Event eventOf(const char *type, const QString &subject = {})
{
    return {0, QString::fromLatin1(type), subject, {}, {}};
}

// What somebody has missed of whom nothing is known any more: he is sent to look at all
// of it again.
void addMissed(Transaction &transaction, Teams &teams, News *news)
{
    for (const OwnTeam &own : teams.store().teamsOf(teams.caller().uid))
        news->events.push_back({eventOf(EventType::Update, QString::number(own.id)), {}});
    news->events.push_back({eventOf(EventType::Friends), {}});
    news->events.push_back({eventOf(EventType::Services), {}});
    Statement pictures =
        transaction.prepare("SELECT uid FROM portrait ORDER BY rowid DESC LIMIT ?");
    pictures.bind(EventLog::MaximumRead);
    while (pictures.next())
        news->events.push_back({eventOf(EventType::Picture, pictures.text(0)), {}});
}

// For a caller who knows nothing yet: what he has to decide.
News fromTheBeginning(Transaction &transaction, const People &people, const QString &uid,
                      bool hasMissed)
{
    Teams teams(transaction, people, uid);
    News news{EventLog(transaction).last(), {}};
    for (const Event &event : teams.waiting())
        news.events.push_back({event, {}});
    for (const FriendRequest &request :
         FriendStore(transaction).requestsTo(uid, oldestOpenRequest()))
        news.events.push_back({eventOf(EventType::FriendRequest, request.asker), request});
    if (hasMissed)
        addMissed(transaction, teams, &news);
    return news;
}

News newsAfter(qint64 number, BackEndContext &context, const QString &uid)
{
    Transaction transaction(context.database);
    EventLog events(transaction);
    if (number < 0 || events.isForgotten(number))
        return fromTheBeginning(transaction, context.people, uid, number >= 0);
    News news{number, {}};
    FriendStore friends(transaction);
    for (Event &event : events.after(uid, number)) {
        news.next = event.number;
        std::optional<FriendRequest> request;
        if (is(event, EventType::FriendRequest)) {
            request = friends.request(event.subject, uid);
            if (!request || request->time <= oldestOpenRequest())
                continue; // it has been answered, or too late
        }
        news.events.push_back({std::move(event), request.value_or(FriendRequest())});
    }
    return news;
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
        seat.emplace(context.bell, call.caller.uid);
    try {
        News news = newsAfter(since, context, call.caller.uid);
        while (seat && news.events.empty() && news.next == since && seat->wait(deadline))
            news = newsAfter(since, context, call.caller.uid);
        return replyFor(news, context.people);
    } catch (const Refusal &refusal) {
        return Reply::code(refusal.code);
    }
}

} // namespace

void addEventServices(Services *services, BackEndContext &context)
{
    services->post("/center/event/getEvents.do", Services::LoggedIn,
                   [&context](const Call &call) { return getEvents(call, context); });
}

// Finding people: to take into a team, and in it.
#include "backend/context.h"
#include "backend/peopleindex.h"
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

#include <deque>

namespace {
constexpr int LongestKey = 64;
constexpr size_t SearchesPerMinute = 20; // of one caller

class SearchLimit
{
public:
    // Counts a search of the caller, unless there were too many.
    bool take(const QString &uid)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const auto now = std::chrono::steady_clock::now();
        std::deque<std::chrono::steady_clock::time_point> &searches = m_searches[uid];
        while (!searches.empty() && now - searches.front() > std::chrono::minutes(1))
            searches.pop_front();
        if (searches.size() >= SearchesPerMinute)
            return false;
        searches.push_back(now);
        return true;
    }

private:
    std::mutex m_mutex;
    QHash<QString, std::deque<std::chrono::steady_clock::time_point>> m_searches;
};

// What an account or a mobile number can look like.
bool isWellFormed(const QString &key)
{
    return !key.isEmpty() && key.size() <= LongestKey &&
           std::all_of(key.begin(), key.end(), [](QChar c) {
               return c.unicode() < 0x80 &&
                      (c.isLetterOrNumber() || QLatin1String("._-@+").contains(c));
           });
}

std::optional<User> withAccountOrMobile(const QString &key, const People &people,
                                        const PeopleIndex &index)
{
    const QString uid = people.uidOfLogin(key);
    if (!uid.isEmpty())
        return people.find(uid);
    const auto isMeant = [&key](const User &user) {
        return user.mobile == key || user.account.compare(key, Qt::CaseInsensitive) == 0;
    };
    for (const int number : index.find(key)) {
        const User user = index.user(number);
        if (isMeant(user))
            return user;
    }
    for (int i = 0; i < SampleCompany::OutsiderCount; ++i) {
        const std::optional<User> user = people.find(people.company().outsider(i).uid);
        if (user && isMeant(*user))
            return user;
    }
    return std::nullopt;
}

Reply searchPerson(const Call &call, const People &people, const PeopleIndex &index,
                   SearchLimit *limit)
{
    const QString key = call.form.text("key").trimmed();
    if (!isWellFormed(key))
        throw IllegalField("key");
    if (!limit->take(call.caller.uid))
        return Reply::code(ReplyCode::Blocked);
    const std::optional<User> found = withAccountOrMobile(key, people, index);
    if (!found)
        return Reply::code(ReplyCode::NoRight);
    if (found->companyCode.isEmpty())
        return Reply::code(ReplyCode::Personal);
    TeamReply reply;
    reply.json().member("userId", found->uid).member("name", found->name);
    reply.writePerson(*found);
    return reply.end();
}

Reply memberList(const Call &call, Teams &teams)
{
    const qint64 team = TeamField::team(call);
    teams.requireMember(team);
    TeamReply reply;
    reply.json().open("members", '[');
    for (const TeamMember &member : teams.store().members(team)) {
        const User user = teams.person(member.uid);
        reply.json().open('{').member("userId", member.uid);
        reply.json().member("nickName", nickNameOf(member, user)).member("name", user.name);
        reply.json().member("photoName", user.photoName).member("companyCode", user.companyCode);
        reply.json().member("role", qint64(member.role)).close('}');
    }
    reply.json().close(']');
    return reply.end();
}

Reply memberDetail(const Call &call, Teams &teams)
{
    const qint64 team = TeamField::team(call);
    const QString uid = call.form.required("member");
    teams.requireMember(team);
    const TeamMember member = teams.requireTarget(team, uid);
    const User user = teams.person(uid);
    TeamReply reply;
    reply.json().member("userId", uid).member("nickName", nickNameOf(member, user));
    reply.json().member("duty", member.duty).member("role", qint64(member.role));
    reply.writePerson(user);
    reply.json().member("email", user.email);
    return reply.end();
}

bool matches(const TeamMember &member, const User &user, const QString &key)
{
    const QString *texts[] = {&user.uid,          &user.name,   &member.nickName,
                              &user.employeeCode, &user.mobile, &user.spell};
    return std::any_of(std::begin(texts), std::end(texts), [&key](const QString *text) {
        return text->contains(key, Qt::CaseInsensitive);
    });
}

Reply searchMembers(const Call &call, Teams &teams)
{
    const qint64 team = TeamField::team(call);
    const QString key = call.form.text("key").trimmed();
    teams.requireMember(team);
    TeamReply reply;
    reply.json().open("members", '[');
    const std::vector<TeamMember> members =
        key.isEmpty() ? std::vector<TeamMember>() : teams.store().members(team);
    for (const TeamMember &member : members) {
        const User user = teams.person(member.uid);
        if (!matches(member, user, key))
            continue;
        reply.json().open('{');
        reply.writeMember(member, user);
        reply.json().member("companyName", user.companyName).member("mobile", user.mobile);
        reply.json().close('}');
    }
    reply.json().close(']');
    return reply.end();
}

} // namespace

void addTeamPeopleServices(Services *services, BackEndContext &context,
                           const std::shared_ptr<const PeopleIndex> &index)
{
    const auto limit = std::make_shared<SearchLimit>();
    services->post("/center/vt/searchMember.do", Services::LoggedIn,
                   [&context, index, limit](const Call &call) {
                       return searchPerson(call, context.people, *index, limit.get());
                   });
    addTeamReading(services, context, "getMembers", memberList);
    addTeamReading(services, context, "getVirtualTeamMemberDetail", memberDetail);
    addTeamReading(services, context, "fuzzySearchVirtualTeamMember", searchMembers);
}

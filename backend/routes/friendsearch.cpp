// Finding people: outside the own company, to become contacts, and whether people are
// colleagues.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/friends/friends.h"
#include "backend/peopleindex.h"
#include "backend/routes/routes.h"
#include "backend/routes/teamcall.h"
#include "backend/routes/teamreplies.h"

#include <optional>

namespace {
constexpr int LongestKey = 64;
constexpr int ShortestPiece = 2; // of a name, in characters

class Search
{
public:
    Search(const People &people, const PeopleIndex &index, const User &caller, const QString &key)
        : m_people(people), m_index(index), m_caller(caller), m_key(key)
    {
    }

    QVector<User> run()
    {
        take(m_people.find(m_people.uidOfLogin(m_key)));
        for (int i = 0; i < SampleCompany::OutsiderCount; ++i) {
            const std::optional<User> user = m_people.find(m_people.company().outsider(i).uid);
            if (user && (user->mobile == m_key || hasName(*user)))
                take(user);
        }
        // Everybody in the index is of one company.
        if (m_caller.companyCode != SampleCompany::companyCode())
            lookUp();
        return m_found;
    }

private:
    bool hasName(const User &user) const
    {
        return m_key.toUcs4().size() >= ShortestPiece &&
               user.name.contains(m_key, Qt::CaseInsensitive);
    }
    void lookUp()
    {
        for (const int number : m_index.findWhole(m_key, FriendLimit::Found)) {
            const User user = m_index.user(number);
            if (user.mobile == m_key || user.account.compare(m_key, Qt::CaseInsensitive) == 0)
                take(user);
        }
        if (m_key.toUcs4().size() < ShortestPiece)
            return;
        for (const int number : m_index.findName(m_key, FriendLimit::Found))
            take(m_index.user(number));
    }
    void take(const std::optional<User> &user)
    {
        const auto isMeant = [&user](const User &each) { return each.uid == user->uid; };
        if (user && m_found.size() < FriendLimit::Found && isOutside(m_caller, *user) &&
            std::none_of(m_found.begin(), m_found.end(), isMeant))
            m_found.append(*user);
    }

    const People &m_people;
    const PeopleIndex &m_index;
    const User &m_caller;
    const QString m_key;
    QVector<User> m_found;
};

Reply search(const Call &call, const People &people, const PeopleIndex &index)
{
    const QString key = call.form.text("key").trimmed();
    const std::optional<User> caller = people.find(call.caller.uid);
    if (!caller || key.isEmpty() || key.size() > LongestKey)
        throw IllegalField("key");
    std::string text;
    JsonText json(&text);
    json.open('{').member("code", qint64(ReplyCode::Done)).open("data", '[');
    for (const User &user : Search(people, index, *caller, key).run()) {
        json.open('{').member("userId", user.uid).member("name", user.name);
        json.member("companyCode", user.companyCode).member("companyName", user.companyName);
        json.member("photoName", user.photoName).close('}');
    }
    json.close(']').close('}');
    return Reply::text(std::move(text));
}

// Clients keep the contacts within the company themselves; what they are told is whom
// they may take for one.
Reply createColleagues(const Call &call, const People &people)
{
    const std::optional<User> caller = people.find(call.caller.uid);
    TeamReply reply;
    reply.json().open("failList", '[');
    for (const QString &uid : TeamField::people(call)) {
        const std::optional<User> user = people.find(uid);
        const bool isColleague = user && caller && uid != caller->uid && !isOutside(*caller, *user);
        if (!isColleague)
            reply.json().element(uid);
    }
    reply.json().close(']');
    return reply.end();
}

} // namespace

void addFriendSearch(Services *services, BackEndContext &context,
                     const std::shared_ptr<const PeopleIndex> &index)
{
    services->post(
        "/center/friend/search.do", Services::LoggedIn,
        [&context, index](const Call &call) { return search(call, context.people, *index); });
    // Clients write the address with two slashes.
    for (const char *path :
         {"/center/roster//batchCreateRosterItem.do", "/center/roster/batchCreateRosterItem.do"}) {
        services->post(path, Services::LoggedIn, [&context](const Call &call) {
            return createColleagues(call, context.people);
        });
    }
}

#include "host/friendrecords.h"

#include "http/jsonreader.h"

#include <QSet>

namespace {
constexpr Json::ArrayIndex MaximumEntries = 100000;

QString jidOf(const Json::Value &entry, const QString &domain)
{
    const QString uid = JsonReader::text(entry, "userId");
    return uid.isEmpty() ? uid : uid + QLatin1Char('@') + domain;
}

FriendData contactOf(const Json::Value &entry, const QString &jid)
{
    FriendData contact;
    contact.jid = jid;
    contact.nickName = JsonReader::text(entry, "name");
    contact.remark = JsonReader::text(entry, "remark");
    contact.groupId = JsonReader::text(entry, "groupId");
    contact.companyCode = JsonReader::text(entry, "companyCode");
    contact.outside = 1;
    return contact;
}
} // namespace

QString FriendRecords::serviceGroupId(const QString &groupId)
{
    return groupId.isEmpty() ? QStringLiteral("0") : groupId;
}

FriendList FriendRecords::list(const Json::Value &data, const QString &domain)
{
    FriendList list;
    const Json::Value &groups = JsonReader::array(data, "groups");
    for (Json::ArrayIndex i = 0; i < groups.size() && i < MaximumEntries; ++i) {
        const GroupData group{JsonReader::text(groups[i], "groupId"),
                              JsonReader::text(groups[i], "groupName")};
        if (!group.id.isEmpty())
            list.groups.append(group);
    }
    QSet<QString> known;
    const Json::Value &friends = JsonReader::array(data, "friends");
    for (Json::ArrayIndex i = 0; i < friends.size() && i < MaximumEntries; ++i) {
        const QString jid = jidOf(friends[i], domain);
        if (jid.isEmpty() || known.contains(jid))
            continue;
        known.insert(jid);
        list.contacts.append(contactOf(friends[i], jid));
        if (JsonReader::has(friends[i], "photoName"))
            list.photoNames.insert(jid, JsonReader::text(friends[i], "photoName"));
    }
    return list;
}

QList<SearchFriendResultData> FriendRecords::people(const Json::Value &found, const QString &domain)
{
    QList<SearchFriendResultData> people;
    if (!found.isArray())
        return people;
    for (Json::ArrayIndex i = 0; i < found.size() && i < MaximumEntries; ++i) {
        SearchFriendResultData person;
        person.jid = jidOf(found[i], domain);
        person.name = JsonReader::text(found[i], "name");
        person.nickName = person.name;
        person.photoName = JsonReader::text(found[i], "photoName");
        person.companyName = JsonReader::text(found[i], "companyName");
        if (!person.jid.isEmpty())
            people.append(person);
    }
    return people;
}

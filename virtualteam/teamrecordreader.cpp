#include "virtualteam/teamrecordreader.h"

#include "http/jsonfields.h"
#include "http/servicepresence.h"

#include <QSet>

#include <utility>

namespace {

using Team = CVirtualTeamSimpleInfo;
using Member = CVirtualTeamMemberInfo;
using Detail = CVirtualTeamInfo;

constexpr JsonField<Team> teamFields[] = {
    {"count", nullptr}, {"role", nullptr}, {"vtId", &Team::vtId}, {"vtName", &Team::vtName}};

constexpr JsonField<Team> groupFields[] = {{"groupId", &Team::vtId}, {"groupName", &Team::vtName}};

constexpr JsonField<Member> memberFields[] = {{"companyCode", &Member::companyCode, true},
                                              {"companyName", &Member::companyName, true},
                                              {"duty", &Member::duty, true},
                                              {"email", &Member::email},
                                              {"employeeCode", &Member::employeeCode},
                                              {"mobile", &Member::mobile},
                                              {"name", &Member::name},
                                              {"nickName", &Member::nickName},
                                              {"photoName", &Member::photoName},
                                              {"presence", nullptr},
                                              {"role", nullptr},
                                              {"userId", &Member::userId}};

constexpr JsonField<Detail> detailFields[] = {{"audited", nullptr},
                                              {"companyCode", &Detail::companyCode},
                                              {"companyName", &Detail::companyName},
                                              {"creatorEmployeeCode", &Detail::creatorEmployeeCode},
                                              {"members", nullptr},
                                              {"mobile", &Detail::mobile},
                                              {"nickName", &Detail::nickName},
                                              {"orgName", &Detail::orgName},
                                              {"photoName", &Detail::photoName},
                                              {"reason", &Detail::reason},
                                              {"userId", &Detail::userId},
                                              {"vtId", &Detail::vtId},
                                              {"vtName", &Detail::vtName}};

static_assert(areInOrder(teamFields) && areInOrder(groupFields) && areInOrder(memberFields) &&
              areInOrder(detailFields));

PresenceData presence(const Json::Value &value)
{
    const ServicePresence told = servicePresence(value);
    PresenceData read;
    read.pcShow = PresenceData::ePcShowType(told.status);
    read.mobile = told.device;
    return read;
}

void readTeam(const Json::Value &entry, SharedTexts *shared, Team *team)
{
    readFields(entry, teamFields, shared, team,
               [team](std::string_view name, const Json::Value &value) {
                   if (name == "role")
                       team->role = JsonReader::toInt32(value);
                   else
                       team->count = qMax(0, JsonReader::toInt32(value));
               });
}

void readGroup(const Json::Value &entry, SharedTexts *shared, Team *group)
{
    readFields(entry, groupFields, shared, group, [](std::string_view, const Json::Value &) {});
}

void readMember(const Json::Value &entry, SharedTexts *shared, Member *member)
{
    readFields(entry, memberFields, shared, member,
               [member](std::string_view name, const Json::Value &value) {
                   if (name == "role")
                       member->role = JsonReader::toInt32(value);
                   else
                       member->presence = presence(value);
               });
}

template <class Record>
QList<Record> list(const Json::Value &array, QString Record::*id,
                   void (*read)(const Json::Value &, SharedTexts *, Record *))
{
    QList<Record> records;
    if (!array.isArray())
        return records;
    records.reserve(int(array.size()));
    QSet<QString> known;
    known.reserve(int(array.size()));
    SharedTexts shared;
    for (const Json::Value &entry : array) {
        Record record;
        read(entry, &shared, &record);
        if ((record.*id).isEmpty() || known.contains(record.*id))
            continue;
        known.insert(record.*id);
        records.append(std::move(record));
    }
    return records;
}

} // namespace

QList<Team> TeamRecordReader::teams(const Json::Value &data)
{
    return list(JsonReader::array(data, "vt"), &Team::vtId, &readTeam);
}

QList<Team> TeamRecordReader::groups(const Json::Value &data)
{
    return list(JsonReader::array(data, "group"), &Team::vtId, &readGroup);
}

QList<Member> TeamRecordReader::members(const Json::Value &data)
{
    return list(JsonReader::array(data, "members"), &Member::userId, &readMember);
}

Member TeamRecordReader::member(const Json::Value &data)
{
    SharedTexts shared;
    Member read;
    readMember(data, &shared, &read);
    return read;
}

Detail TeamRecordReader::detail(const Json::Value &data)
{
    SharedTexts shared;
    Detail read;
    readFields(data, detailFields, &shared, &read,
               [&](std::string_view name, const Json::Value &value) {
                   if (name == "audited")
                       read.audited = JsonReader::toFlag(value);
                   else
                       read.members = list(value, &Member::userId, &readMember);
               });
    return read;
}

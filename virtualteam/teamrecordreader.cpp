#include "virtualteam/teamrecordreader.h"

#include "http/jsonreader.h"
#include "http/servicepresence.h"

#include <QSet>

#include <cstring>
#include <limits>
#include <utility>

namespace {

// How the services call a text of a record.
template <class Record> struct TextField
{
    const char *key;
    QString Record::*text;
};

constexpr TextField<CVirtualTeamMemberInfo> memberTexts[] = {
    {"userId", &CVirtualTeamMemberInfo::userId},
    {"nickName", &CVirtualTeamMemberInfo::nickName},
    {"name", &CVirtualTeamMemberInfo::name},
    {"photoName", &CVirtualTeamMemberInfo::photoName},
    {"duty", &CVirtualTeamMemberInfo::duty},
    {"companyCode", &CVirtualTeamMemberInfo::companyCode},
    {"companyName", &CVirtualTeamMemberInfo::companyName},
    {"employeeCode", &CVirtualTeamMemberInfo::employeeCode},
    {"mobile", &CVirtualTeamMemberInfo::mobile},
    {"email", &CVirtualTeamMemberInfo::email},
};

constexpr TextField<CVirtualTeamInfo> detailTexts[] = {
    {"vtId", &CVirtualTeamInfo::vtId},
    {"vtName", &CVirtualTeamInfo::vtName},
    {"userId", &CVirtualTeamInfo::userId},
    {"nickName", &CVirtualTeamInfo::nickName},
    {"creatorEmployeeCode", &CVirtualTeamInfo::creatorEmployeeCode},
    {"companyCode", &CVirtualTeamInfo::companyCode},
    {"companyName", &CVirtualTeamInfo::companyName},
    {"orgName", &CVirtualTeamInfo::orgName},
    {"photoName", &CVirtualTeamInfo::photoName},
    {"mobile", &CVirtualTeamInfo::mobile},
    {"reason", &CVirtualTeamInfo::reason},
};

constexpr TextField<CVirtualTeamSimpleInfo> teamTexts[] = {
    {"vtId", &CVirtualTeamSimpleInfo::vtId},
    {"vtName", &CVirtualTeamSimpleInfo::vtName},
};

constexpr TextField<CVirtualTeamSimpleInfo> groupTexts[] = {
    {"groupId", &CVirtualTeamSimpleInfo::vtId},
    {"groupName", &CVirtualTeamSimpleInfo::vtName},
};

template <class Record, size_t Count>
Record withTexts(const Json::Value &entry, const TextField<Record> (&fields)[Count])
{
    Record record;
    for (const TextField<Record> &field : fields)
        record.*field.text = JsonReader::text(entry, field.key);
    return record;
}

template <class Record, class Read>
QList<Record> entries(const Json::Value &data, const char *key, QString Record::*id,
                      const Read &read)
{
    const Json::Value &array = JsonReader::array(data, key);
    QList<Record> records;
    records.reserve(int(array.size()));
    QSet<QString> known;
    known.reserve(int(array.size()));
    for (const Json::Value &entry : array) {
        Record record = read(entry);
        if ((record.*id).isEmpty() || known.contains(record.*id))
            continue;
        known.insert(record.*id);
        records.append(std::move(record));
    }
    return records;
}

PresenceData presenceOf(const Json::Value &entry)
{
    static const char key[] = "presence";
    PresenceData presence;
    if (!entry.isObject())
        return presence;
    if (const Json::Value *told = entry.find(key, key + std::strlen(key))) {
        const ServicePresence read = servicePresence(*told);
        presence.pcShow = PresenceData::ePcShowType(read.status);
        presence.mobile = read.device;
    }
    return presence;
}

CVirtualTeamSimpleInfo team(const Json::Value &entry)
{
    CVirtualTeamSimpleInfo read = withTexts(entry, teamTexts);
    read.role = TeamRecordReader::number(entry, "role");
    read.count = qMax(0, TeamRecordReader::number(entry, "count"));
    return read;
}

} // namespace

QList<CVirtualTeamSimpleInfo> TeamRecordReader::teams(const Json::Value &data)
{
    return entries(data, "vt", &CVirtualTeamSimpleInfo::vtId, &team);
}

QList<CVirtualTeamSimpleInfo> TeamRecordReader::groups(const Json::Value &data)
{
    return entries(data, "group", &CVirtualTeamSimpleInfo::vtId,
                   [](const Json::Value &entry) { return withTexts(entry, groupTexts); });
}

QList<CVirtualTeamMemberInfo> TeamRecordReader::members(const Json::Value &data)
{
    return entries(data, "members", &CVirtualTeamMemberInfo::userId, &member);
}

CVirtualTeamMemberInfo TeamRecordReader::member(const Json::Value &data)
{
    CVirtualTeamMemberInfo read = withTexts(data, memberTexts);
    read.role = number(data, "role");
    read.presence = presenceOf(data);
    return read;
}

CVirtualTeamInfo TeamRecordReader::detail(const Json::Value &data)
{
    CVirtualTeamInfo read = withTexts(data, detailTexts);
    read.audited = JsonReader::flag(data, "audited");
    read.members = members(data);
    return read;
}

qint32 TeamRecordReader::number(const Json::Value &data, const char *key)
{
    const qint64 value = JsonReader::integer(data, key);
    using Limits = std::numeric_limits<qint32>;
    return value >= Limits::min() && value <= Limits::max() ? qint32(value) : 0;
}

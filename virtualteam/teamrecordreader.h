// The records of virtual teams, read from "data" of a service's reply. Nothing throws,
// whatever the value is: what is missing or of another kind reads as empty. Entries of
// a list that have no id are left out, and so are all but the first of one id.
#pragma once

#include "virtualteam/teamrecords.h"

#include <json/value.h>

namespace TeamRecordReader {

QList<CVirtualTeamSimpleInfo> teams(const Json::Value &data);
QList<CVirtualTeamSimpleInfo> groups(const Json::Value &data); // of one level
QList<CVirtualTeamMemberInfo> members(const Json::Value &data);
CVirtualTeamMemberInfo member(const Json::Value &data);
CVirtualTeamInfo detail(const Json::Value &data);

} // namespace TeamRecordReader

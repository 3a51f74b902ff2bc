// How what the pane hears of people, rooms and the like becomes an entry that can be
// found. `known` is what is known of the same one already, null for nothing: an entry
// keeps what the news does not tell.
#pragma once

#include "contacts/search/searchindex.h"
#include "hostapi/hostrecords.h"
#include "http/orgrecords.h"

namespace SearchEntries {

SearchEntry contact(const FriendData &contact, const SearchEntry *known);
// An employee or a department.
SearchEntry element(const OrgElement &element, const SearchEntry *known);
SearchEntry group(const GroupData &group);
SearchEntry team(const QString &id, const QString &name);
SearchEntry room(const QString &roomJid, const QString &subject);
SearchEntry serviceNumber(const CServiceNumData &number);
SearchEntry channel(const CSChannelData &channel);

void addProfile(const VcardInfo &profile, SearchEntry *person);

} // namespace SearchEntries

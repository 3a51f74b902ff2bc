// A row of the search's results, and what of it is shown.
#pragma once

#include "contacts/search/searchindexrecords.h"
#include "hostapi/rosterrecords.h"
#include "http/orgrecords.h"

struct SearchResult
{
    SearchEntry entry;

    // What the people search tells besides; empty for who was found locally only.
    QString place; // "company / department"
    QString photoName;
    PresenceData presence;
    bool isTold = false; // whether it told anything of this one
};

namespace SearchResults {

SearchResult local(const SearchEntry &entry);
// A hit of the people search.
SearchResult person(const SearchUserData &user);
SearchResult department(const OrgElement &element);

// Whether the user may see entries of this kind and origin at all.
bool mayBeSeen(const SearchEntry &entry);

} // namespace SearchResults

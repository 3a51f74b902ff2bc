// The replies of the organisation services, read. Nothing here touches anything
// but its arguments, so that any thread may call it.
#pragma once

#include "http/orgrecords.h"

#include <QByteArray>

#include <json/value.h>

#include <vector>

namespace OrgParser {

struct SearchHits
{
    SearchResponseData users;
    OrgElementList departments; // strReserved1 holds the path of names above
    int departmentCount = 0;    // as the service counts
};

// False, with a reason in *error, when the text is no JSON object. An entry that is
// no object or has no id is left out. Equal parents and duties share their text.
// Elements come in slices of so many, at least one slice; 0: in one.
bool children(const QByteArray &utf8, int sliceSize, std::vector<OrgElementList> *slices,
              QString *error);
bool location(const QByteArray &utf8, int sliceSize, std::vector<OrgElementList> *slices,
              QString *error);
bool search(const QByteArray &utf8, SearchHits *hits, QString *error);

// The departments of a level, then its employees, then what is below each
// department. `level` holds "org" and "emp".
void addLevel(const Json::Value &level, OrgElementList *elements);

} // namespace OrgParser

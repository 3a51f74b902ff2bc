// Presence as the organisation services tell it.
#pragma once

#include <QString>

#include <json/value.h>

struct OrgPresence
{
    qint32 status = 0; // a PresenceData::ePcShowType
    qint32 device = 0; // a PresenceData::MobileDevice
};

// From the array "presence" of an employee; a later entry overrides an earlier one.
OrgPresence orgPresence(const Json::Value &entries);
// The same from "presenceList" of a search hit, whose members have other names.
OrgPresence searchPresence(const Json::Value &entries);

// Presence as the services of the company tell it.
#pragma once

#include <QString>

#include <json/value.h>

struct ServicePresence
{
    qint32 status = 0; // a PresenceData::ePcShowType
    qint32 device = 0; // a PresenceData::MobileDevice
};

// From "presence" of a person: an array, of which a later entry overrides an earlier
// one, or the only entry itself.
ServicePresence servicePresence(const Json::Value &entries);
// The same from "presenceList" of a search hit, whose members have other names.
ServicePresence searchPresence(const Json::Value &entries);

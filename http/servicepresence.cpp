#include "http/servicepresence.h"

#include "hostapi/rosterrecords.h"
#include "http/jsonreader.h"

namespace {

struct Keys
{
    const char *available, *show, *platform, *resource;
};

qint32 statusOf(const QString &show)
{
    if (show == QLatin1String("away"))
        return PresenceData::Away;
    if (show == QLatin1String("xa"))
        return PresenceData::ExtendedAway;
    if (show == QLatin1String("dnd"))
        return PresenceData::DoNotDisturb;
    if (show == QLatin1String("chat"))
        return PresenceData::FreeForChat;
    return PresenceData::Available;
}

void add(const Json::Value &entry, const Keys &keys, ServicePresence *presence)
{
    if (!JsonReader::flag(entry, keys.available))
        return;
    const QString resource = JsonReader::text(entry, keys.resource).toLower();
    if (resource != QLatin1String("mobile") && resource != QLatin1String("virtual"))
        presence->status = statusOf(JsonReader::text(entry, keys.show).toLower());
    const QString platform = JsonReader::text(entry, keys.platform).toLower();
    if (platform == QLatin1String("android"))
        presence->device = PresenceData::Android;
    else if (platform == QLatin1String("ios"))
        presence->device = PresenceData::Ios;
}

ServicePresence read(const Json::Value &entries, const Keys &keys)
{
    ServicePresence presence;
    if (entries.isObject())
        add(entries, keys, &presence);
    else if (entries.isArray()) {
        for (const Json::Value &entry : entries)
            add(entry, keys, &presence);
    }
    return presence;
}

} // namespace

ServicePresence servicePresence(const Json::Value &entries)
{
    return read(entries, {"av", "show", "pt", "rsc"});
}

ServicePresence searchPresence(const Json::Value &entries)
{
    return read(entries, {"available", "show", "platform", "resource"});
}

#include "hostapi/eventcatalogue.h"

#include "hostapi/eventcodes.h"

#include <algorithm>

namespace {

#define ROW_IN(code, name, payload, purpose)                                                       \
    EventInfo{code, EventInfo::ToPlugin, #name, PluginId::FriendUi, payload, purpose},
#define ROW_ROSTER(code, name, payload, purpose)                                                   \
    EventInfo{code, EventInfo::FromPlugin, #name, PluginId::Roster, payload, purpose},
#define ROW_CHAT(code, name, payload, purpose)                                                     \
    EventInfo{code, EventInfo::FromPlugin, #name, PluginId::Chat, payload, purpose},
#define ROW_ROOMS(code, name, payload, purpose)                                                    \
    EventInfo{code, EventInfo::FromPlugin, #name, PluginId::Rooms, payload, purpose},
#define ROW_MAIL(code, name, payload, purpose)                                                     \
    EventInfo{code, EventInfo::FromPlugin, #name, PluginId::Mail, payload, purpose},
#define ROW_EVERYBODY(code, name, payload, purpose)                                                \
    EventInfo{code, EventInfo::FromPlugin, #name, PluginId::Everybody, payload, purpose},

constexpr EventInfo rows[] = {
    // clang-format off
    FRIENDUI_INBOUND_EVENTS(ROW_IN)
    FRIENDUI_BOTH_WAYS_EVENTS(ROW_IN)
    FRIENDUI_REQUESTS_TO_ROSTER(ROW_ROSTER)
    FRIENDUI_REQUESTS_TO_CHAT(ROW_CHAT)
    FRIENDUI_REQUESTS_TO_ROOMS(ROW_ROOMS)
    FRIENDUI_REQUESTS_TO_MAIL(ROW_MAIL)
    FRIENDUI_REQUESTS_TO_EVERYBODY(ROW_EVERYBODY)
    FRIENDUI_BOTH_WAYS_EVENTS(ROW_EVERYBODY)
    // clang-format on
};

bool before(const EventInfo &a, const EventInfo &b)
{
    return std::make_pair(a.direction, a.code) < std::make_pair(b.direction, b.code);
}

} // namespace

const QVector<EventInfo> &EventCatalogue::all()
{
    static const QVector<EventInfo> sorted = [] {
        QVector<EventInfo> list(std::begin(rows), std::end(rows));
        std::sort(list.begin(), list.end(), before);
        return list;
    }();
    return sorted;
}

const EventInfo *EventCatalogue::find(EventInfo::Direction direction, qint32 code)
{
    const EventInfo key{code, direction, "", "", "", ""};
    const auto at = std::lower_bound(all().begin(), all().end(), key, before);
    return at != all().end() && !before(key, *at) ? &*at : nullptr;
}

QVector<EventCatalogue::PayloadField> EventCatalogue::payloadFields(const EventInfo &info)
{
    QVector<PayloadField> fields;
    // A comma inside a type has no blank behind it, one between fields has.
    const QStringList parts =
        QString::fromLatin1(info.payload).split(QStringLiteral(", "), Qt::SkipEmptyParts);
    for (const QString &part : parts) {
        const int blank = part.lastIndexOf(QLatin1Char(' '));
        fields.append({part.left(blank), part.mid(blank + 1)});
    }
    return fields;
}

QString EventCatalogue::receiverName(const QString &pluginId)
{
    static const struct
    {
        const char *id;
        const char *name;
    } names[] = {{PluginId::FriendUi, "friendui"},  {PluginId::Roster, "roster"},
                 {PluginId::Chat, "chat"},          {PluginId::Rooms, "rooms"},
                 {PluginId::Mail, "mail"},          {PluginId::Topics, "topics"},
                 {PluginId::Everybody, "everybody"}};
    for (const auto &entry : names) {
        if (pluginId == QLatin1String(entry.id))
            return QString::fromLatin1(entry.name);
    }
    return pluginId;
}

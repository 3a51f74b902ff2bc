#include "host/presencewords.h"

#include <QCoreApplication>

namespace {
QString tr(const char *text)
{
    return QCoreApplication::translate("PresenceWords", text);
}
} // namespace

QVector<PresenceData::ePcShowType> PresenceWords::choices()
{
    return {PresenceData::Available, PresenceData::FreeForChat, PresenceData::Away,
            PresenceData::ExtendedAway, PresenceData::DoNotDisturb};
}

QString PresenceWords::of(PresenceData::ePcShowType show)
{
    switch (show) {
    case PresenceData::Offline:
        return tr("offline");
    case PresenceData::Available:
        return tr("available");
    case PresenceData::Away:
        return tr("away");
    case PresenceData::ExtendedAway:
        return tr("away for long");
    case PresenceData::DoNotDisturb:
        return tr("do not disturb");
    case PresenceData::FreeForChat:
        return tr("free for chat");
    }
    return QString();
}

QString PresenceWords::of(const PresenceData &presence)
{
    if (presence.pcShow == PresenceData::Offline && presence.mobile != PresenceData::NoMobile)
        return tr("on the phone app");
    return of(presence.pcShow);
}

#include "controls/presencetext.h"

#include <QObject>

QString presenceText(const PresenceData &presence)
{
    switch (presence.pcShow) {
    case PresenceData::Available:
        return QObject::tr("presenceOnline");
    case PresenceData::Away:
        return QObject::tr("presenceAway");
    case PresenceData::ExtendedAway:
        return QObject::tr("presenceXa");
    case PresenceData::DoNotDisturb:
        return QObject::tr("presenceDnd");
    case PresenceData::FreeForChat:
        return QObject::tr("presenceChat");
    case PresenceData::Offline:
        break;
    }
    return presence.mobile != PresenceData::NoMobile ? QObject::tr("presenceMobile")
                                                     : QObject::tr("presenceOffline");
}

// How the host words a person's presence.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QString>
#include <QVector>

namespace PresenceWords {

QString of(const PresenceData &presence);

// What a user can choose for himself, in the order of a menu.
QVector<PresenceData::ePcShowType> choices();
QString of(PresenceData::ePcShowType show);

} // namespace PresenceWords

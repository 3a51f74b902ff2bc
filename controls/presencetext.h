// Presence in words.
#pragma once

#include "hostapi/rosterrecords.h"

#include <QString>

// Translated: "online", "away"..., "on a mobile device", "offline".
QString presenceText(const PresenceData &presence);

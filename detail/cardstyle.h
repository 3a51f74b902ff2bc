// The style sheets of the contact card and of what looks like it.
#pragma once

#include "hostapi/skinrecord.h"

#include <QString>

// For the window or frame around the card. Colours that the record leaves out, or
// that are none, come from the skin of now.
QString cardStyleSheet(const SysUIData &skin);

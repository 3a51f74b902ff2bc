// The host's two skins: its own palette, and the record that the plug-in gets.
#pragma once

#include "hostapi/skinrecord.h"

#include <QPalette>
#include <QString>

namespace HostSkin {

// "light" or "dark"; anything else means light.
QPalette palette(const QString &name);
SysUIData record(const QString &name);

// Gives the application the palette and a style that follows it everywhere.
void apply(const QString &name);

// A font with Chinese characters in a size for lists. Before the first widget.
void setFont();

} // namespace HostSkin

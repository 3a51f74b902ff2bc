// Shortcuts to the client on the user's desktop, one per contact.
#pragma once

#include <QString>

namespace DesktopShortcut {

// <desktop>/<safe name of the jid>.lnk. Empty when the jid is empty or the
// system has no desktop folder.
QString file(const QString &jid);

// Whether the shortcut of this jid is there.
bool exists(const QString &jid);

// Makes the shortcut, or renews one that is there. False when it cannot be made,
// or when something that is no link has its name.
bool create(const QString &jid);

// Deletes the shortcut of this jid; anything that is no link stays. True when it
// was there and is gone.
bool remove(const QString &jid);

} // namespace DesktopShortcut

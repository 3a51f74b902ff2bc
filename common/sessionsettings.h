// What the user has set for conversations, as stored locally. A muted conversation is
// not listed among the latest ones, a pinned one before all others.
#pragma once

#include <QSet>
#include <QString>

namespace SessionSettings {

bool isMuted(const QString &jid);
bool setMuted(const QString &jid, bool muted); // false when it could not be stored
// All that are muted, in the place of what was stored, in one transaction.
bool replaceMuted(const QSet<QString> &jids);
QSet<QString> muted();

// In the row of the latest contacts, if there is one: which conversations are pinned
// the host knows, this is where the list finds them again.
bool setPinned(const QString &jid, bool pinned);

} // namespace SessionSettings

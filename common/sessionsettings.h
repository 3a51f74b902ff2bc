// What the user has set for conversations, as stored locally in "sessionsetting":
// a muted conversation is not listed among the latest ones.
#pragma once

#include <QSet>
#include <QString>

namespace SessionSettings {

bool isMuted(const QString &jid);
bool setMuted(const QString &jid, bool muted); // false when it could not be stored
// All that are muted, in the place of what was stored, in one transaction.
bool replaceMuted(const QSet<QString> &jids);
QSet<QString> muted();

} // namespace SessionSettings

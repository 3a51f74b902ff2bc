// What the client-setting service tells of a user's conversations.
#pragma once

#include <QSet>
#include <QString>

#include <json/value.h>

namespace ClientSettings {

// The jids in `data` of a reply whose messages come without a notification.
QSet<QString> silentSessions(const Json::Value &data);

} // namespace ClientSettings

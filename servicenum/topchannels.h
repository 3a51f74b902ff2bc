// The pinned channels of each user, kept in the table "cstopchannel" of the user's
// database.
#pragma once

#include <QStringList>

#include <optional>

namespace TopChannels {

// Of the stored list, ids with commas between them. What does not fit is left out.
constexpr int MaximumLength = 200; // characters

// Whether the id can be part of a stored list.
bool canPin(const QString &id);

// Those of the logged-in user, the newest pin first. Nothing when the database cannot
// be read, or nobody is logged in.
std::optional<QStringList> load();

// Keeps the newest that fit, never a part of an id; the others are named in the log.
// False, with a line in the log, when nothing was stored.
bool store(const QStringList &ids);

} // namespace TopChannels

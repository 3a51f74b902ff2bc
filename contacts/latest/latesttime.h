// The times of conversations: as they are stored, put in order, and shown. All are
// local times.
#pragma once

#include <QDateTime>
#include <QString>

// As a list shows `time`: the time of day, "yesterday", the day, or with the year
// when that is another one. Empty for an invalid time.
QString latestTimeText(const QDateTime &time, const QDateTime &now);

// "yyyy-MM-dd hh:mm:ss", the only form that is stored; null for anything else.
QDateTime readStoredTime(const QString &text);

// The time of a message as it may be stored: `now` in the place of one that cannot
// be read or is more than a day ahead, which would stay on top for ever.
QString storableTime(const QString &text, const QDateTime &now);

// Of a stored time, greater for what is newer; 0 for an unreadable one. What is more than a day
// ahead counts as a day ahead.
qint64 timeOrder(const QString &text, const QDateTime &now);

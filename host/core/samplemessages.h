// What the people of the sample company have written before the first start, and
// write while it runs: texts and every other kind of message.
#pragma once

#include "messages/messagebody.h"
#include "sample/sampleroster.h"

#include <QDateTime>
#include <QList>

namespace SampleMessages {

// One message of the time before the first start.
struct Line
{
    QString session; // jid, room jid or channel id
    bool isOwn = false;
    int speaker = 0; // of a room: which of its members, the own user left out
    QDateTime time;
    QString body;
};

// Of today, yesterday, earlier this year and earlier years, the oldest first; none
// later than `now`.
QList<Line> history(const SampleRoster &sample, const QDateTime &now);

// One of many, by any number; most are plain text. `name` is some person's.
QString body(quint64 number, const QString &name);
QString serviceBody(quint64 number);
// An answer of a channel's work group; `workGroup` may be empty.
QString channelBody(quint64 number, const QString &workGroup);
QString closedBody(const QString &workGroup); // outside of its hours

} // namespace SampleMessages

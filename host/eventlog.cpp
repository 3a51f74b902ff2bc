#include "host/eventlog.h"

#include <QDateTime>

void EventLog::add(EventInfo::Direction direction, qint32 code, const QString &sender,
                   const QString &receiver, const QByteArray &payload)
{
    emit recorded(
        {QDateTime::currentMSecsSinceEpoch(), direction, code, sender, receiver, payload});
}

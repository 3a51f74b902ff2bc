// Every event that passes the bus, in both directions, for whoever watches.
#pragma once

#include "hostapi/eventcatalogue.h"

#include <QByteArray>
#include <QObject>
#include <QString>

struct EventRecord
{
    qint64 time = 0; // ms since the epoch
    EventInfo::Direction direction = EventInfo::ToPlugin;
    qint32 code = 0;
    QString sender, receiver; // plug-in ids; an empty receiver = every plug-in
    QByteArray payload;
};

Q_DECLARE_METATYPE(EventRecord)

class EventLog : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    // Stamps the event with the current time and tells the watchers.
    void add(EventInfo::Direction direction, qint32 code, const QString &sender,
             const QString &receiver, const QByteArray &payload);

signals:
    void recorded(const EventRecord &record);
};

// What every event code means, for logs, monitors and documents.
#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

struct EventInfo
{
    enum Direction
    {
        ToPlugin,
        FromPlugin
    };

    qint32 code;
    Direction direction;
    const char *name;
    const char *receiver; // plug-in id for FromPlugin; empty = every plug-in
    const char *payload;  // "QString jid, bool inner"; empty = none
    const char *purpose;
};

namespace EventCatalogue {

// Every row, by direction and code.
const QVector<EventInfo> &all();

// Null for an unknown code.
const EventInfo *find(EventInfo::Direction direction, qint32 code);

struct PayloadField
{
    QString type; // "QMap<QString,bool>"
    QString name;
};

// The fields of a payload text, in wire order.
QVector<PayloadField> payloadFields(const EventInfo &info);

// A word for a plug-in id: "roster", "chat"...; the id itself when unknown.
QString receiverName(const QString &pluginId);

} // namespace EventCatalogue

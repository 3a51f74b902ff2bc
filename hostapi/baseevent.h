// The one event type that the host and its plug-ins exchange.
#pragma once

#include <QByteArray>
#include <QEvent>
#include <QString>
#include <QVariantList>

// A numbered event with a QDataStream payload. The members are public and their
// order is part of the contract between separately built modules.
class BaseEvent : public QEvent
{
public:
    static constexpr QEvent::Type EventType = QEvent::Type(1000);

    explicit BaseEvent(qint32 eventCode = 0, const QByteArray &eventPayload = QByteArray(),
                       const QString &sender = QString(), const QString &receiver = QString(),
                       qint32 async = 0)
        : QEvent(EventType),
          code(eventCode),
          payload(eventPayload),
          payloadFlag(0),
          senderId(sender),
          receiverId(receiver),
          postAsync(async)
    {
    }

    qint32 code;
    QByteArray payload; // the arguments, streamed in order
    qint32 payloadFlag; // carried unchanged
    QString senderId;   // plug-in id of the sender, braces included
    QString receiverId; // plug-in id of the receiver; empty = every plug-in
    qint32 postAsync;   // not 0: queue the event; 0: deliver at once
    QVariantList extra;
};

// The event behind `event`, or null when it is of another type. Casts by type
// number: dynamic_cast is unreliable across separately built modules.
inline BaseEvent *asBaseEvent(QEvent *event)
{
    return event && event->type() == BaseEvent::EventType ? static_cast<BaseEvent *>(event)
                                                          : nullptr;
}

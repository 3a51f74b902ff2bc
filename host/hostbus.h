// The host's end of the event bus: takes the plug-in's requests and sends it
// events. The plug-in knows this object as its host receiver.
//
// A request is routed by its receiver id and handed to the handler of its code.
// An event for everybody also goes back to the plug-in. Every event in either
// direction is put into the EventLog. GUI thread only.
#pragma once

#include "hostapi/hostrecords.h"

#include <QHash>
#include <QObject>
#include <QPointer>

#include <functional>

class BaseEvent;
class EventLog;

class HostBus : public QObject
{
    Q_OBJECT

public:
    // Reads the payload and acts. False when the payload is not what the code
    // demands; nothing has been done then.
    using Handler = std::function<bool(const QByteArray &payload)>;

    // The log is not owned and outlives the bus.
    explicit HostBus(EventLog *log, QObject *parent = nullptr);

    // Where events for the plug-in go, and its address on the bus; null ends it.
    void setPlugin(QObject *receiver, const QString &pluginId);

    void setHandler(qint32 code, const Handler &handler);
    bool hasHandler(qint32 code) const { return m_handlers.contains(code); }

    // Sends an event at once, the arguments streamed in order.
    template <class... Args> void notify(qint32 code, const Args &...args)
    {
        QByteArray payload;
        {
            QDataStream out(&payload, QIODevice::WriteOnly);
            (void(out << args), ...);
        }
        send(code, payload);
    }
    void send(qint32 code, const QByteArray &payload);

    // Asks the plug-in whether somebody may be added as a contact. False as well
    // when no plug-in answers.
    bool mayAddContact(const QString &jid);

signals:
    // A request that nothing in this host answers.
    void unanswered(qint32 code, const QString &receiver);
    // A request whose payload could not be read.
    void malformed(qint32 code, int payloadSize);

protected:
    void customEvent(QEvent *event) override;

private:
    void handleRequest(const BaseEvent &request);
    void deliver(BaseEvent *event);

    EventLog *m_log;
    QPointer<QObject> m_plugin;
    QString m_pluginId;
    QHash<qint32, Handler> m_handlers;
    int m_depth = 0;
};

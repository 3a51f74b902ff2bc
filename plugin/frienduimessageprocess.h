// The door between the host and the plug-in: takes the host's events, sends the
// plug-in's own, and keeps the pane.
#pragma once

#include "hostapi/baseevent.h"
#include "plugin/payloadreader.h"

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariantList>
#include <QWidget>

#include <functional>

// One per process, made at the first use and never destroyed. GUI thread only.
class FriendUIMessageProcess : public QObject
{
    Q_OBJECT

public:
    using Handler = std::function<void(BaseEvent &)>;

    static FriendUIMessageProcess *instance();

    // Who makes the pane. Without a factory getFriendWidget() answers null.
    void setPaneFactory(const std::function<QWidget *()> &factory);

    // The pane; made without a parent at the first call, and again when whoever
    // embedded it has destroyed it. Whoever embeds it owns it.
    QWidget *getFriendWidget();

    // Whether the pane has been made and still exists; never makes it.
    bool hasPane() const { return !friendWidget.isNull(); }

    // Receives every event that the plug-in sends; not owned, may be destroyed
    // at any time.
    void setHostReceiver(QObject *receiver);

    // Delivers at once, the caller keeping the event; or queues it when its
    // postAsync is set, the queue taking it. Without a receiver the event is
    // logged and dropped, a queued one deleted.
    void sendToHost(BaseEvent *event);

    // Takes over a code from the built-in table; an empty handler gives it back.
    void registerHandler(qint32 code, const Handler &handler);

    // The same with the payload read in order: missing arguments are default
    // values.
    //
    //     onEvent<QString, bool>(Inbound::ContactRemoved, [](QString jid, bool inner) { ... });
    template <class... Args, class Function> void onEvent(qint32 code, Function function)
    {
        registerHandler(code, [function](BaseEvent &event) {
            auto arguments = readPayload<Args...>(event.payload);
            std::apply(function, arguments);
        });
    }

protected:
    // Accepts the BaseEvents that are addressed to this plug-in or to all, and
    // ignores others. Codes without a handler do nothing.
    void customEvent(QEvent *event) override;

private:
    FriendUIMessageProcess() = default;

    QVariantList pendingList; // always empty
    QPointer<QObject> hostReceiver;
    QPointer<QWidget> friendWidget;
    QString name; // always empty
    std::function<QWidget *()> m_paneFactory;
    QHash<qint32, Handler> m_registered;
};

#include "plugin/frienduimessageprocess.h"

#include "common/logging.h"
#include "hostapi/eventcodes.h"
#include "plugin/inboundtable.h"

#include <QCoreApplication>

FriendUIMessageProcess *FriendUIMessageProcess::instance()
{
    // The host may still send events while the process ends.
    static FriendUIMessageProcess *const process = new FriendUIMessageProcess;
    return process;
}

void FriendUIMessageProcess::setPaneFactory(const std::function<QWidget *()> &factory)
{
    m_paneFactory = factory;
}

QWidget *FriendUIMessageProcess::getFriendWidget()
{
    if (!friendWidget && m_paneFactory)
        friendWidget = m_paneFactory();
    return friendWidget;
}

void FriendUIMessageProcess::setHostReceiver(QObject *receiver)
{
    hostReceiver = receiver;
}

void FriendUIMessageProcess::sendToHost(BaseEvent *event)
{
    if (!event)
        return;
    if (!hostReceiver) {
        LOG_ERROR("request " << QString::number(event->code)
                             << " dropped: the host has no receiver");
        if (event->postAsync)
            delete event;
        return;
    }
    if (event->postAsync)
        QCoreApplication::postEvent(hostReceiver, event);
    else
        QCoreApplication::sendEvent(hostReceiver, event);
}

void FriendUIMessageProcess::registerHandler(qint32 code, const Handler &handler)
{
    if (handler)
        m_registered.insert(code, handler);
    else
        m_registered.remove(code);
}

void FriendUIMessageProcess::customEvent(QEvent *event)
{
    BaseEvent *hostEvent = asBaseEvent(event);
    if (!hostEvent)
        return;
    if (!hostEvent->receiverId.isEmpty() &&
        hostEvent->receiverId != QLatin1String(PluginId::FriendUi)) {
        hostEvent->ignore();
        return;
    }
    hostEvent->accept();

    // A copy: the handler may take itself out of the table while it runs.
    if (const Handler registered = m_registered.value(hostEvent->code))
        registered(*hostEvent);
    else
        handleInbound(*hostEvent, hasPane());
}

#include "host/hostbus.h"

#include "common/logging.h"
#include "host/eventlog.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcodes.h"

#include <QCoreApplication>

namespace {
// Events inside events: a plug-in that answers a broadcast with the same
// broadcast would end the process.
constexpr int MaximumDepth = 32;

const QString hostSender()
{
    return QString::fromLatin1(PluginId::Roster);
}

// Whether `receiver` is an address behind which this host stands.
bool isHostAddress(const QString &receiver)
{
    static const QStringList addresses{
        QString::fromLatin1(PluginId::Roster), QString::fromLatin1(PluginId::Chat),
        QString::fromLatin1(PluginId::Rooms), QString::fromLatin1(PluginId::Mail)};
    return addresses.contains(receiver);
}
} // namespace

HostBus::HostBus(EventLog *log, QObject *parent) : QObject(parent), m_log(log) {}

void HostBus::setPlugin(QObject *receiver, const QString &pluginId)
{
    m_plugin = receiver;
    m_pluginId = pluginId;
}

void HostBus::setHandler(qint32 code, const Handler &handler)
{
    m_handlers.insert(code, handler);
}

void HostBus::send(qint32 code, const QByteArray &payload)
{
    BaseEvent event(code, payload, hostSender(), m_pluginId);
    deliver(&event);
}

void HostBus::deliver(BaseEvent *event)
{
    if (!m_plugin)
        return;
    if (m_depth >= MaximumDepth) {
        LOG_ERROR("event " << QString::number(event->code) << " dropped: too many nested events");
        return;
    }
    m_log->add(EventInfo::ToPlugin, event->code, event->senderId, event->receiverId,
               event->payload);
    ++m_depth;
    QCoreApplication::sendEvent(m_plugin, event);
    --m_depth;
}

bool HostBus::mayAddContact(const QString &jid)
{
    QByteArray question;
    QDataStream out(&question, QIODevice::WriteOnly);
    out << jid;
    BaseEvent query(Inbound::MayAddContact, question, hostSender(), m_pluginId);
    deliver(&query);
    // Untouched, the payload is still the question.
    if (query.payload == question)
        return false;
    bool allowed = false;
    QDataStream answer(query.payload);
    answer >> allowed;
    return answer.status() == QDataStream::Ok && allowed;
}

void HostBus::customEvent(QEvent *event)
{
    BaseEvent *request = asBaseEvent(event);
    if (!request)
        return;
    request->accept();
    m_log->add(EventInfo::FromPlugin, request->code, request->senderId, request->receiverId,
               request->payload);

    if (request->receiverId.isEmpty()) {
        handleRequest(*request);
        BaseEvent echo(request->code, request->payload, request->senderId, QString());
        echo.payloadFlag = request->payloadFlag;
        echo.extra = request->extra;
        deliver(&echo);
    } else if (isHostAddress(request->receiverId)) {
        handleRequest(*request);
    } else {
        request->ignore();
        emit unanswered(request->code, request->receiverId);
    }
}

void HostBus::handleRequest(const BaseEvent &request)
{
    const auto handler = m_handlers.constFind(request.code);
    if (handler == m_handlers.constEnd()) {
        // A broadcast is also for the plug-in itself, which may answer it alone.
        const bool pluginAnswers =
            request.receiverId.isEmpty() && EventCatalogue::find(EventInfo::ToPlugin, request.code);
        if (!pluginAnswers)
            emit unanswered(request.code, request.receiverId);
        return;
    }
    const EventInfo *info = EventCatalogue::find(EventInfo::FromPlugin, request.code);
    if (info && request.receiverId != QLatin1String(info->receiver)) {
        LOG_WARN("request " << QString::number(request.code) << " came to a wrong receiver");
        emit unanswered(request.code, request.receiverId);
        return;
    }
    // A copy: the handler may replace the table's entry.
    const Handler handle = *handler;
    if (!handle(request.payload)) {
        LOG_WARN("request " << QString::number(request.code) << " has an unreadable payload of "
                            << QString::number(request.payload.size()) << " bytes");
        emit malformed(request.code, request.payload.size());
    }
}

#include "host/subscriptionnews.h"

#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "host/serviceevents.h"
#include "host/webservices.h"
#include "hostapi/eventcodes.h"
#include "http/servicecall.h"
#include "servicenum/servicenumreader.h"

#include <utility>

SubscriptionNews::SubscriptionNews(const Parts &parts, QObject *parent)
    : QObject(parent), m_parts(parts)
{
    connect(parts.services, &WebServices::changed, this, &SubscriptionNews::load);
    connect(parts.events, &ServiceEvents::subscriptionsChanged, this, &SubscriptionNews::load);
}

void SubscriptionNews::load()
{
    delete m_request;
    if (m_parts.services->state() == WebServices::Ready && m_parts.core->isConnected())
        m_request =
            ServiceCall::start({"/servicenum/myServiceNumUrl", {{"version", QString()}}}, this,
                               HERE, [this](const ServiceReply &reply) { take(reply); });
}

// The plug-in asks for the whole list by itself; what differs from the last one is told.
void SubscriptionNews::take(const ServiceReply &reply)
{
    m_request.clear(); // it ends by itself
    if (!reply.ok)
        return;
    const QList<CServiceNumData> numbers = ServiceNumReader::numbers(reply.data());
    QSet<QString> codes;
    QList<CServiceNumData> added;
    for (const CServiceNumData &number : numbers) {
        codes.insert(number.code);
        if (!m_codes.contains(number.code))
            added.append(number);
    }
    const QSet<QString> gone = m_codes - codes;
    m_codes = codes;
    if (!std::exchange(m_isKnown, true))
        return;
    if (!added.isEmpty())
        m_parts.bus->notify(Inbound::ServiceNumbersAdded, added);
    for (const QString &code : gone)
        m_parts.bus->notify(Inbound::ServiceNumberCancelled, code, QString(), true);
}

#include "host/externalnews.h"

#include "host/externalroster.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/messagingcore.h"
#include "host/windows/notices.h"
#include "hostapi/eventcodes.h"

#include <QEvent>

ExternalNews::ExternalNews(const Parts &parts, QObject *parent) : QObject(parent), m_parts(parts)
{
    connect(parts.events, &ServiceEvents::friendRequested, this, &ExternalNews::list);
    connect(parts.events, &ServiceEvents::friendsWaiting, this, &ExternalNews::listAll);
    // Answered here, on another host of the user's, or by a request the other way.
    connect(parts.events, &ServiceEvents::friendsChanged, parts.events, &ServiceEvents::refresh);
    connect(parts.roster, &ExternalRoster::answered, this, [this](const QString &jid) {
        m_requests.remove(jid);
        m_parts.notices->remove(Notice::ExternalRequest, jid);
    });
    connect(parts.notices, &Notices::accepted, this, [this](int kind, const QString &jid) {
        if (kind == Notice::ExternalRequest)
            open(jid);
    });
    parts.notices->installEventFilter(this);
}

// What is listed is said anew in the other language.
bool ExternalNews::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        listAll(m_requests.values());
    return QObject::eventFilter(watched, event);
}

QString ExternalNews::jidOf(const FriendRequest &request) const
{
    return request.uid + QLatin1Char('@') + m_parts.core->serverDomain();
}

Notice ExternalNews::noticeOf(const FriendRequest &request) const
{
    const QString who = request.companyName.isEmpty()
                            ? request.name
                            : tr("%1 of %2").arg(request.name, request.companyName);
    return {Notice::ExternalRequest, jidOf(request), request.name.isEmpty() ? request.uid : who,
            tr("asks to become an external contact: %1").arg(request.reason)};
}

// From now on the plug-in is told that the person is of another company.
void ExternalNews::take(const FriendRequest &request)
{
    m_requests.insert(jidOf(request), request);
    m_parts.context->setOutsider(jidOf(request), !request.companyName.isEmpty());
}

void ExternalNews::list(const FriendRequest &request)
{
    take(request);
    m_parts.notices->add(noticeOf(request));
}

void ExternalNews::listAll(const QList<FriendRequest> &requests)
{
    m_requests.clear();
    QList<Notice> notices;
    for (const FriendRequest &request : requests) {
        take(request);
        notices.append(noticeOf(request));
    }
    m_parts.notices->setAll(Notice::ExternalRequest, notices);
}

void ExternalNews::open(const QString &jid)
{
    const FriendRequest request = m_requests.value(jid);
    m_parts.bus->notify(Inbound::ContactRequested, jid, request.reason, request.time);
}

#include "host/teamnews.h"

#include "host/chat/chatpage.h"
#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "host/weblog.h"
#include "host/windows/notices.h"
#include "hostapi/eventcodes.h"

#include <QEvent>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace {
constexpr int RefreshMs = 200;

QString idOf(const TeamRequest &request)
{
    return QStringList{request.type, request.teamId, request.member}.join(QLatin1Char('|'));
}

// The requests by which the module looks at an application or decides it.
bool isAboutApplications(const QString &address)
{
    const QString service = address.section(QLatin1Char('/'), -1);
    return service.startsWith(QLatin1String("audit")) ||
           service.contains(QLatin1String("joinVirtualTeam"), Qt::CaseInsensitive);
}
} // namespace

TeamNews::TeamNews(const Parts &parts, QObject *parent) : QObject(parent), m_parts(parts)
{
    m_refresh.setSingleShot(true);
    m_refresh.setInterval(RefreshMs);
    connect(&m_refresh, &QTimer::timeout, parts.events, &ServiceEvents::refresh);
    connect(parts.webLog, &WebLog::recorded, this, &TeamNews::watch);
    connect(parts.events, &ServiceEvents::teamsChanged, this, [this](const QStringList &ids) {
        // Somebody else may have decided what is listed.
        const bool isListed =
            std::any_of(m_requests.cbegin(), m_requests.cend(),
                        [&ids](const TeamRequest &each) { return ids.contains(each.teamId); });
        if (isListed)
            m_refresh.start();
        m_parts.bus->notify(Inbound::VirtualTeamsChanged, ids.join(QLatin1Char(',')), QString());
    });
    connect(parts.events, &ServiceEvents::requested, this, &TeamNews::list);
    connect(parts.events, &ServiceEvents::decided, this, &TeamNews::tell);
    connect(parts.events, &ServiceEvents::waiting, this, &TeamNews::listAll);
    connect(parts.notices, &Notices::accepted, this, [this](int kind, const QString &id) {
        if (kind == Notice::TeamRequest)
            open(id);
    });
    parts.notices->installEventFilter(this);
}

// What is listed is said anew in the other language.
bool TeamNews::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        listAll(m_requests.values());
    return QObject::eventFilter(watched, event);
}

void TeamNews::watch(const WebRequestRecord &record)
{
    if (isAboutApplications(record.address))
        m_refresh.start();
}

Notice TeamNews::noticeOf(const TeamRequest &request) const
{
    const QString said = request.type == QLatin1String("audit")
                             ? tr("asks for your approval of the team “%1”")
                             : tr("invites your company into the team “%1”");
    return {Notice::TeamRequest, idOf(request), nameOf(request.member), said.arg(request.teamName)};
}

QString TeamNews::nameOf(const QString &uid) const
{
    const MessagingCore &core = *m_parts.core;
    return ChatPage::nameOf(core, uid + QLatin1Char('@') + core.serverDomain());
}

void TeamNews::tell(const TeamDecision &decision)
{
    const QString said =
        decision.agreed ? tr("%1 has agreed: team “%2”") : tr("%1 has refused: team “%2”");
    emit note(said.arg(nameOf(decision.member), decision.teamName));
}

void TeamNews::list(const TeamRequest &request)
{
    m_requests.insert(idOf(request), request);
    m_parts.notices->add(noticeOf(request));
}

void TeamNews::listAll(const QList<TeamRequest> &requests)
{
    m_requests.clear();
    QList<Notice> notices;
    for (const TeamRequest &request : requests) {
        m_requests.insert(idOf(request), request);
        notices.append(noticeOf(request));
    }
    m_parts.notices->setAll(Notice::TeamRequest, notices);
}

void TeamNews::open(const QString &id)
{
    const TeamRequest request = m_requests.value(id);
    const QJsonObject data{{QStringLiteral("type"), request.type},
                           {QStringLiteral("vtId"), request.teamId},
                           {QStringLiteral("member"), request.member}};
    m_parts.bus->notify(Inbound::VirtualTeamsChanged, request.teamId,
                        QString::fromUtf8(QJsonDocument(data).toJson(QJsonDocument::Compact)));
}

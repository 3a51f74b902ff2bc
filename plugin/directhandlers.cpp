#include "plugin/directhandlers.h"

#include "common/context.h"
#include "common/cserversettings.h"
#include "common/logging.h"
#include "hostapi/eventcatalogue.h"
#include "plugin/paneactions.h"
#include "plugin/payloadreader.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace {

FriendUISignalSender *hub()
{
    return FriendUISignalSender::instance();
}

// The actions to call for the event, or null after its one line in the log.
PaneActions *actionsFor(const BaseEvent &event)
{
    PaneActions *actions = paneActions();
    if (!actions)
        DirectHandlers::drop(event);
    return actions;
}

// Reads the payload in the order of the action's parameters and calls it.
template <class... Params> void act(const BaseEvent &event, void (PaneActions::*action)(Params...))
{
    if (PaneActions *actions = actionsFor(event)) {
        auto arguments = readPayload<Params...>(event.payload);
        std::apply([=](auto &...argument) { (actions->*action)(argument...); }, arguments);
    }
}

void logDetailFailure()
{
    LOG_ERROR("ContactInfo dialog creat failed!");
}

} // namespace

void DirectHandlers::nothing(BaseEvent &) {}

void DirectHandlers::drop(const BaseEvent &event)
{
    const EventInfo *info = EventCatalogue::find(EventInfo::ToPlugin, event.code);
    LOG_WARN("event " << QString::number(event.code) << " " << (info ? info->name : "")
                      << " dropped: nobody is there to act on it");
}

void DirectHandlers::contactRemoved(BaseEvent &event)
{
    const auto [jid, inner] = readPayload<QString, bool>(event.payload);
    if (inner)
        emit hub()->signal_delFriend(jid);
    else
        emit hub()->signal_delOutsideFriend(jid);
}

void DirectHandlers::connectionChanged(BaseEvent &event)
{
    const auto [connected] = readPayload<bool>(event.payload);
    // Receivers of the signal already ask isOnline().
    if (CServerSettings *settings = ctx().serverSettings())
        settings->setConnected(connected);
    emit hub()->signal_isConnected(connected);
}

void DirectHandlers::loginChanged(BaseEvent &event)
{
    const auto [loggedIn] = readPayload<bool>(event.payload);
    if (loggedIn)
        emit hub()->signal_login();
    else
        emit hub()->signal_logout();
}

void DirectHandlers::allOffline(BaseEvent &event)
{
    emit hub()->signal_doalloffline();
    if (PaneActions *actions = actionsFor(event))
        actions->hideContactCard(QString());
}

void DirectHandlers::mayAddContact(BaseEvent &event)
{
    const auto [jid] = readPayload<QString>(event.payload);
    // The rule needs no view, and the sender reads a bool in any case.
    const PaneActions *actions = paneActions();
    const bool answer = actions ? actions->mayAddContact(jid) : mayBecomeContact(jid);
    event.payload.clear();
    QDataStream out(&event.payload, QIODevice::WriteOnly);
    out << answer;
}

void DirectHandlers::openContactDetail(BaseEvent &event)
{
    const auto [jid] = readPayload<QString>(event.payload);
    PaneActions *actions = paneActions();
    if (!actions || !actions->openContactDetail(jid))
        logDetailFailure();
}

void DirectHandlers::openOwnDetail(BaseEvent &)
{
    PaneActions *actions = paneActions();
    if (!actions || !actions->openOwnDetail())
        logDetailFailure();
}

void DirectHandlers::showContactCard(BaseEvent &event)
{
    act(event, &PaneActions::showContactCard);
}

void DirectHandlers::hideContactCard(BaseEvent &event)
{
    act(event, &PaneActions::hideContactCard);
}

void DirectHandlers::hideOfflineInitialised(BaseEvent &event)
{
    act(event, &PaneActions::hideOfflineInitialised);
}

void DirectHandlers::locateContact(BaseEvent &event)
{
    act(event, &PaneActions::locateContact);
}

void DirectHandlers::externalContactAnswer(BaseEvent &event)
{
    act(event, &PaneActions::externalContactAnswer);
}

void DirectHandlers::openServiceNumber(BaseEvent &event)
{
    act(event, &PaneActions::openServiceNumber);
}

void DirectHandlers::openServiceNumberSearch(BaseEvent &event)
{
    act(event, &PaneActions::openServiceNumberSearch);
}

void DirectHandlers::reloadChannels(BaseEvent &event)
{
    act(event, &PaneActions::reloadChannels);
}

void DirectHandlers::virtualTeamsChanged(BaseEvent &event)
{
    const auto [ids, data] = readPayload<QString, QString>(event.payload);
    const QJsonObject object = QJsonDocument::fromJson(data.toUtf8()).object();
    const QString type = object.value(QLatin1String("type")).toString();

    if (type == QLatin1String("audit") || type == QLatin1String("join")) {
        if (PaneActions *actions = actionsFor(event))
            actions->virtualTeamEvent(type, object.value(QLatin1String("vtId")).toString(),
                                      object.value(QLatin1String("member")).toString());
    } else {
        QStringList teams = ids.split(QLatin1Char(','), Qt::SkipEmptyParts);
        teams.removeDuplicates();
        for (const QString &team : qAsConst(teams))
            emit hub()->signal_refresh_virtualTeam(team);
    }
    emit hub()->signal_position_virtualTeam(true);
}

#include "host/externalroster.h"

#include "common/displaytext.h"
#include "host/friendrecords.h"
#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "host/serviceevents.h"
#include "host/webservices.h"
#include "hostapi/eventcodes.h"
#include "http/jsonreader.h"
#include "http/serviceaddresses.h"
#include "http/servicecall.h"

#include <QTimer>

#include <algorithm>
#include <utility>

namespace {
const char RemarkPath[] = "/center/friend/setFriendRemark.do";
constexpr qint32 Accept = 1; // of the services and of the plug-in
constexpr qint32 Blacklist = 2;
constexpr int NoLongerOpen = 10003; // the request that is confirmed

template <class List, class Field> auto findBy(List *list, Field field, const QString &value)
{
    return std::find_if(list->begin(), list->end(),
                        [&](const auto &each) { return each.*field == value; });
}

// As the plug-in and the core say it.
QString ownGroupId(const QString &id)
{
    return id == QLatin1String("0") ? QString::fromLatin1("") : id;
}
} // namespace

ExternalRoster::ExternalRoster(const Parts &parts, QObject *parent)
    : QObject(parent), m_parts(parts)
{
    const auto look = [this] {
        if (isReachable()) {
            reload();
        } else if (m_reload) {
            delete m_reload;
            takeList(ServiceReply());
        }
    };
    connect(parts.services, &WebServices::changed, this, look);
    connect(parts.core, &MessagingCore::connectionChanged, this, look);
    connect(parts.events, &ServiceEvents::friendsChanged, this, &ExternalRoster::reload);
    look();
}

bool ExternalRoster::isReachable() const
{
    return m_parts.services->state() == WebServices::Ready && m_parts.core->isConnected();
}

ServiceCall *ExternalRoster::send(const ServiceRequest &request, const Done &done)
{
    if (isReachable())
        return ServiceCall::start(request, this, HERE, done);
    QTimer::singleShot(0, this, [done] { done(ServiceReply()); });
    return nullptr;
}

// --- The list -----------------------------------------------------------------

void ExternalRoster::reload()
{
    delete m_reload; // its answer may be older than what made this necessary
    m_reload = send({"/roster/getOutsideFriendListUrl"},
                    [this](const ServiceReply &reply) { takeList(reply); });
}

void ExternalRoster::takeList(const ServiceReply &reply)
{
    m_reload.clear(); // it ends by itself
    const bool isWanted = std::exchange(m_isListWanted, false);
    MessagingCore *core = m_parts.core;
    if (reply.ok) {
        const FriendList list = FriendRecords::list(reply.data(), core->serverDomain());
        core->keepExternal(list.groups, list.contacts);
        for (auto at = list.photoNames.cbegin(); at != list.photoNames.cend(); ++at)
            emit pictureKnown(at.key(), at.value());
    } else if (isWanted) {
        m_parts.bus->notify(Inbound::GroupListFailed);
    }
    if (!isWanted)
        return;
    // The last known ones, when there are no newer.
    m_parts.bus->notify(Inbound::GroupList, core->groups(false), false);
    m_parts.bus->notify(Inbound::ContactList, core->contacts());
}

void ExternalRoster::requestGroups()
{
    m_isListWanted = true;
    reload();
}

bool ExternalRoster::keep(const Change &change)
{
    QList<GroupData> groups = m_parts.core->groups(false);
    QList<FriendData> contacts;
    const QList<FriendData> all = m_parts.core->contacts();
    std::copy_if(all.begin(), all.end(), std::back_inserter(contacts),
                 [](const FriendData &contact) { return contact.outside != 0; });
    change(&groups, &contacts);
    const bool differs = m_parts.core->keepExternal(groups, contacts);
    if (m_reload)
        reload();
    return differs;
}

// --- Groups and contacts --------------------------------------------------------

// Whatever is changed is told by the core; the plug-in is answered here when nothing is.
void ExternalRoster::createGroup(const QString &name)
{
    const QString wanted = name.trimmed();
    send({"/roster/createFriendGroupUrl", {{"groupName", wanted}}},
         [this, wanted](const ServiceReply &reply) {
             const QString id = JsonReader::text(reply.data(), "groupId");
             const bool done = reply.ok && !id.isEmpty();
             const bool isTold = done && keep([&](QList<GroupData> *groups, QList<FriendData> *) {
                                     groups->append({id, wanted});
                                 });
             if (!isTold)
                 m_parts.bus->notify(Inbound::GroupCreated, id, wanted, done, false);
         });
}

void ExternalRoster::renameGroup(const QString &groupId, const QString &name)
{
    const QString wanted = name.trimmed();
    const QString id = ownGroupId(groupId);
    send({"/roster/renameFriendGroupUrl",
          {{"groupId", FriendRecords::serviceGroupId(id)}, {"groupName", wanted}}},
         [this, id, wanted](const ServiceReply &reply) {
             const auto rename = [&](QList<GroupData> *groups, QList<FriendData> *) {
                 const auto at = findBy(groups, &GroupData::id, id);
                 if (at != groups->end())
                     at->name = wanted;
             };
             if (!reply.ok || !keep(rename))
                 m_parts.bus->notify(Inbound::GroupRenamed, id, wanted, reply.ok, false);
         });
}

void ExternalRoster::deleteGroup(const QString &groupId)
{
    const QString id = ownGroupId(groupId);
    send({"/roster/removeFriendGroupUrl", {{"groupId", FriendRecords::serviceGroupId(id)}}},
         [this, id](const ServiceReply &reply) {
             const auto remove = [&](QList<GroupData> *groups, QList<FriendData> *contacts) {
                 const auto at = findBy(groups, &GroupData::id, id);
                 if (at != groups->end())
                     groups->erase(at);
                 for (FriendData &contact : *contacts) {
                     if (contact.groupId == id)
                         contact.groupId = QString::fromLatin1("");
                 }
             };
             if (!reply.ok || !keep(remove))
                 m_parts.bus->notify(Inbound::GroupDeleted, reply.ok, id, false);
         });
}

void ExternalRoster::moveContact(const QString &jid, const QString &oldGroupId,
                                 const QString &newGroupId)
{
    const QString from = ownGroupId(oldGroupId), to = ownGroupId(newGroupId);
    send({"/roster/moveFriendItemUrl",
          {{"userId", jidUser(jid)},
           {"oldGroupId", FriendRecords::serviceGroupId(from)},
           {"newGroupId", FriendRecords::serviceGroupId(to)}}},
         [this, jid, from, to](const ServiceReply &reply) {
             const auto move = [&](QList<GroupData> *, QList<FriendData> *contacts) {
                 const auto at = findBy(contacts, &FriendData::jid, jid);
                 if (at != contacts->end())
                     at->groupId = to;
             };
             if (!reply.ok || !keep(move))
                 m_parts.bus->notify(Inbound::ContactMoved, reply.ok, jid, from, to, false);
         });
}

void ExternalRoster::removeContact(const QString &jid)
{
    send({"/roster/deleteOutsideFriendUrl", {{"userId", jidUser(jid)}}},
         [this, jid](const ServiceReply &reply) {
             const auto remove = [&](QList<GroupData> *, QList<FriendData> *contacts) {
                 const auto at = findBy(contacts, &FriendData::jid, jid);
                 if (at != contacts->end())
                     contacts->erase(at);
             };
             if (!reply.ok)
                 m_parts.bus->notify(Inbound::ContactRemovalFailed, jid, false);
             else if (!keep(remove))
                 m_parts.bus->notify(Inbound::ContactRemoved, jid, false);
         });
}

void ExternalRoster::setRemark(const QString &jid, const QString &remark)
{
    const QString wanted = remark.trimmed();
    ServiceRequest request;
    request.address = ServiceAddresses::host(QStringLiteral("center")) + QLatin1String(RemarkPath);
    request.fields = {{"userId", jidUser(jid)}, {"remark", wanted}};
    send(request, [this, jid, wanted](const ServiceReply &reply) {
        const auto change = [&](QList<GroupData> *, QList<FriendData> *contacts) {
            const auto at = findBy(contacts, &FriendData::jid, jid);
            if (at != contacts->end())
                at->remark = wanted;
        };
        if (!reply.ok)
            emit note(tr("The remark could not be stored."));
        else if (!keep(change))
            m_parts.bus->notify(Inbound::RemarkChanged, jid, wanted);
    });
}

// --- People who are no contacts -------------------------------------------------

void ExternalRoster::searchPeople(const QString &key)
{
    send({"/roster/searchOutsideFriendUrl", {{"key", key}}}, [this](const ServiceReply &reply) {
        QList<SearchFriendResultData> found;
        if (reply.ok)
            found = FriendRecords::people(reply.data(), m_parts.core->serverDomain());
        m_parts.bus->notify(Inbound::PeopleFound, found, reply.ok ? qint32(found.size()) : -1);
    });
}

void ExternalRoster::answerWith(Action action, const QString &jid, const ServiceReply &reply)
{
    m_parts.bus->notify(Inbound::ExternalContactAnswer, jid, reply.ok, qint32(reply.code),
                        qint32(action));
    const bool isGone = action == Confirmed && reply.code == NoLongerOpen;
    if (!reply.ok && !isGone)
        return;
    if (action != Requested)
        emit answered(jid);
    reload(); // they may be a contact by now, or no longer
}

void ExternalRoster::add(const QString &jid, const QString &validation, const QString &client)
{
    send({"/roster/addOutsideFriendUrl",
          {{"userId", jidUser(jid)},
           {"reason", validation},
           {"groupId", QStringLiteral("0")},
           {"clientType", client}}},
         [this, jid](const ServiceReply &reply) { answerWith(Requested, jid, reply); });
}

void ExternalRoster::settle(Action action, const QString &jid, const QString &client)
{
    send({"/roster/confirmOutsideFriendUrl",
          {{"userId", jidUser(jid)},
           {"type", QString::number(action == Confirmed ? Accept : Blacklist)},
           {"groupId", QStringLiteral("0")},
           {"clientType", client}}},
         [this, action, jid](const ServiceReply &reply) { answerWith(action, jid, reply); });
}

// There is no refusal: a request that is not wanted waits until it expires.
void ExternalRoster::confirm(const QString &jid, qint32 agree, const QString &client)
{
    if (agree == Accept)
        settle(Confirmed, jid, client);
    else
        QTimer::singleShot(0, this, [this, jid] { answerWith(Confirmed, jid, ServiceReply()); });
}

void ExternalRoster::blacklist(const QString &jid)
{
    settle(Blacklisted, jid, QStringLiteral("pc"));
}

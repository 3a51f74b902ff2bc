#include "host/corenotifier.h"

#include "common/cserversettings.h"
#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "hostapi/eventcodes.h"

namespace {
using Core = MessagingCore;

// One row: the signal's arguments are the event's payload.
template <class... Args>
void forward(Core *core, HostBus *bus, void (Core::*signal)(Args...), qint32 code)
{
    QObject::connect(core, signal, bus, [bus, code](const std::decay_t<Args> &...args) {
        bus->notify(code, args...);
    });
}
} // namespace

CoreNotifier::CoreNotifier(MessagingCore *core, HostBus *bus, CServerSettings *settings,
                           QObject *parent)
    : QObject(parent), m_core(core), m_bus(bus), m_settings(settings)
{
    m_settings->setConnected(core->isConnected());
    connect(core, &Core::connectionChanged, this, &CoreNotifier::announceConnection);
    forwardRoster();
    forwardProfiles();
    forwardRooms();
}

void CoreNotifier::forwardRoster()
{
    const auto row = [this](auto signal, qint32 code) { forward(m_core, m_bus, signal, code); };
    row(&Core::groupsReceived, Inbound::GroupList);
    row(&Core::contactsReceived, Inbound::ContactList);
    row(&Core::groupCreated, Inbound::GroupCreated);
    row(&Core::groupRenamed, Inbound::GroupRenamed);
    row(&Core::contactMoved, Inbound::ContactMoved);
    row(&Core::contactAdded, Inbound::ContactAdded);
    row(&Core::contactRemoved, Inbound::ContactRemoved);
    row(&Core::contactRemovalFailed, Inbound::ContactRemovalFailed);
    row(&Core::remarkChanged, Inbound::RemarkChanged);
    row(&Core::presenceChanged, Inbound::PresenceChanged);
    row(&Core::contactRequested, Inbound::ContactRequested);
    row(&Core::requestAnswered, Inbound::ContactRequestAnswered);
    row(&Core::additionFailed, Inbound::ContactAdditionFailed);
    row(&Core::batchAdditionFailed, Inbound::BatchAdditionFailed);
    row(&Core::ownPresenceChanged, Inbound::OwnStatusChanged);

    // Contacts follow the groups that they belong to, also when those come late.
    connect(m_core, &Core::groupsReceived, this, [this](const QList<GroupData> &, bool inner) {
        if (inner && m_contactsDue) {
            m_contactsDue = false;
            m_core->requestContacts();
        }
    });
    connect(m_core, &Core::groupDeleted, this, [this](const QString &id, bool success, bool inner) {
        m_bus->notify(Inbound::GroupDeleted, success, id, inner);
    });
    connect(m_core, &Core::groupsFailed, this,
            [this](bool) { m_bus->notify(Inbound::GroupListFailed); });
    connect(m_core, &Core::policyReceived, this,
            [this](const QString &jid, const QString &config, const QString &displayName) {
                // Whoever asked has a window open, or has closed it since.
                m_bus->notify(Inbound::RequestPolicy, jid, config, QString(), displayName, false);
            });
}

void CoreNotifier::forwardProfiles()
{
    const auto row = [this](auto signal, qint32 code) { forward(m_core, m_bus, signal, code); };
    row(&Core::profileFailed, Inbound::ProfileFailed);
    row(&Core::ownProfileStored, Inbound::OwnProfileStored);
    connect(m_core, &Core::profileReceived, this,
            [this](const QString &jid, const VcardInfo &profile, bool full) {
                m_bus->notify(full ? Inbound::FullProfileReceived : Inbound::ProfileReceived, jid,
                              profile);
            });
}

void CoreNotifier::forwardRooms()
{
    const auto row = [this](auto signal, qint32 code) { forward(m_core, m_bus, signal, code); };
    row(&Core::roomRenamed, Inbound::RoomSubjectChanged);
    row(&Core::roomLeft, Inbound::RoomLeft);
    row(&Core::roomDismissed, Inbound::RoomDismissed);
    row(&Core::roomClassified, Inbound::RoomClassified);
    row(&Core::messageReceived, Inbound::MessageReceived);
    connect(m_core, &Core::roomAdded, this,
            [this](const MucData &room) { m_bus->notify(Inbound::RoomAdded, room, true); });
}

void CoreNotifier::announceConnection(bool connected)
{
    // First the flag: the plug-in reads it while it handles the event.
    m_settings->setConnected(connected);
    m_bus->notify(Inbound::ConnectionChanged, connected);
    if (connected)
        announcePresence();
    else
        m_bus->notify(Inbound::AllOffline);
}

void CoreNotifier::announcePresence()
{
    m_bus->notify(Inbound::PresenceChanged, m_core->allPresence());
}

void CoreNotifier::startSession()
{
    m_bus->notify(Inbound::LoginChanged, true);
    m_bus->notify(Inbound::ConnectionChanged, m_core->isConnected());
    m_core->requestGroups(true);
    m_core->requestGroups(false);
    m_contactsDue = true;
    if (m_core->isConnected())
        announcePresence();

    const QList<MucData> rooms = m_core->rooms();
    for (const MucData &room : rooms)
        m_bus->notify(Inbound::RoomAdded, room, false);
    if (rooms.isEmpty())
        m_bus->notify(Inbound::NoRooms);
}

#include "host/corenotifier.h"

#include "common/cserversettings.h"
#include "host/hostbus.h"

#include "host/messagingcore.h"
#include "hostapi/applicationcontext.h"
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

CoreNotifier::CoreNotifier(MessagingCore *core, HostBus *bus, ApplicationContext *context,
                           QObject *parent)
    : QObject(parent), m_core(core), m_bus(bus), m_context(context)
{
    m_context->serverSettings()->setConnected(core->isConnected());
    m_handled.setSingleShot(true);
    connect(&m_handled, &QTimer::timeout, m_core, &Core::clearBacklog);
    connect(core, &Core::connectionChanged, this, &CoreNotifier::announceConnection);
    forwardRoster();
    forwardProfiles();
    forwardRooms();
    forwardChannels();
    forwardMessages();
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
    row(&Core::roomMuted, Inbound::RoomMuted);
    row(&Core::roomHeadChanged, Inbound::RoomHeadChanged);
    row(&Core::localRoomAdded, Inbound::LocalRoomAdded);
    connect(m_core, &Core::roomAdded, this,
            [this](const MucData &room) { m_bus->notify(Inbound::RoomAdded, room, true); });
    connect(m_core, &Core::roomMembersChanged, this, [this](const QString &roomJid) {
        m_bus->notify(Inbound::RoomMembersChanged,
                      QString::number(m_core->roomMembers(roomJid).size()), roomJid);
    });
}

void CoreNotifier::forwardChannels()
{
    forward(m_core, m_bus, &Core::channelAdded, Inbound::ChannelAdded);
    forward(m_core, m_bus, &Core::channelRemoved, Inbound::ChannelRemoved);
    connect(m_core, &Core::channelHeadChanged, this, [this](const QString &id) {
        CSChannelData channel;
        if (m_core->channel(id, &channel))
            m_bus->notify(Inbound::ChannelHeadChanged, id, m_context->headPath(channel.photoName));
    });
}

void CoreNotifier::forwardMessages()
{
    connect(m_core, &Core::messageReceived, this,
            [this](bool received, const MessageData &message) {
                if (!m_started)
                    return;
                m_bus->notify(Inbound::MessageReceived, received, message);
                // Behind the end of this turn of the event loop, where the plug-in stores it.
                m_handled.start(0);
            });
}

void CoreNotifier::deliverBacklog()
{
    if (!m_started || !m_core->isConnected())
        return;
    const MessagingCore::Backlog backlog = m_core->backlog();
    QHash<QString, MessageData> newest;
    for (const MessageData &message : backlog.messages) {
        m_bus->notify(Inbound::MessageReceived, message.fromJid != m_core->ownJid(), message);
        newest.insert(message.sessionJid, message);
    }
    for (const QString &session : backlog.readSessions)
        m_bus->notify(Inbound::LatestContactChanged, session, newest.value(session).body,
                      newest.value(session).time);
    m_handled.start(0);
}

void CoreNotifier::announceConnection(bool connected)
{
    // First the flag: the plug-in reads it while it handles the event.
    m_context->serverSettings()->setConnected(connected);
    m_bus->notify(Inbound::ConnectionChanged, connected);
    if (!connected) {
        m_bus->notify(Inbound::AllOffline);
        return;
    }
    announcePresence();
    deliverBacklog();
}

void CoreNotifier::announcePresence()
{
    m_bus->notify(Inbound::PresenceChanged, m_core->allPresence());
}

void CoreNotifier::announceServices()
{
    if (m_started && m_core->isConnected())
        m_bus->notify(Inbound::ConnectionChanged, true);
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
    const QList<CSChannelData> channels = m_core->channels();
    for (const CSChannelData &channel : channels)
        m_bus->notify(Inbound::ChannelAdded, channel);
    m_started = true;
    deliverBacklog();
}

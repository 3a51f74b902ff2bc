#include "host/requesttable.h"

#include "host/hostactions.h"
#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "hostapi/eventcodes.h"

#include <tuple>
#include <vector>

namespace {

struct Services
{
    MessagingCore *core;
    HostActions *actions;

    operator MessagingCore *() const { return core; }
    operator HostActions *() const { return actions; }
};

using Call = std::function<bool(const Services &, const QByteArray &)>;

// Reads one argument after the other as the payload's order demands.
template <class... Args> bool readAll(const QByteArray &payload, std::tuple<Args...> &arguments)
{
    QDataStream stream(payload);
    std::apply([&stream](auto &...each) { (RecordStream::read(stream, each), ...); }, arguments);
    return stream.status() == QDataStream::Ok;
}

// The function's parameters are the payload.
template <class Target, class... Args> Call calls(void (Target::*function)(Args...))
{
    return [function](const Services &services, const QByteArray &payload) {
        std::tuple<std::decay_t<Args>...> arguments;
        if (!readAll(payload, arguments))
            return false;
        Target *target = services;
        std::apply([&](const auto &...each) { (target->*function)(each...); }, arguments);
        return true;
    };
}

// For payloads that are not a function's parameters as they stand.
template <class... Args> Call reads(void (*function)(const Services &, Args...))
{
    return [function](const Services &services, const QByteArray &payload) {
        std::tuple<std::decay_t<Args>...> arguments;
        if (!readAll(payload, arguments))
            return false;
        std::apply([&](const auto &...each) { function(services, each...); }, arguments);
        return true;
    };
}

void addContact(const Services &services, const QString &jid, const QString &validation,
                const QString &groupId, const QString &remark, qint32)
{
    services.core->addContact(jid, validation, groupId, remark);
}

struct RequestRow
{
    qint32 code;
    Call call;
};

const std::vector<RequestRow> &requestRows()
{
    static const std::vector<RequestRow> rows{
        // Roster
        {Outbound::RefreshGroups, calls(&MessagingCore::requestGroups)},
        {Outbound::CreateGroup, calls(&MessagingCore::createGroup)},
        {Outbound::DeleteGroup, calls(&MessagingCore::deleteGroup)},
        {Outbound::RenameGroup, calls(&MessagingCore::renameGroup)},
        {Outbound::MoveContact, calls(&MessagingCore::moveContact)},
        {Outbound::DeleteContact, calls(&MessagingCore::removeContact)},
        {Outbound::SetRemark, calls(&MessagingCore::setRemark)},
        {Outbound::RequestProfile, calls(&MessagingCore::requestProfile)},
        {Outbound::AddContact, reads(&addContact)},
        {Outbound::RequestPolicyOf, calls(&MessagingCore::requestPolicy)},
        {Outbound::AddContacts, calls(&MessagingCore::addContacts)},
        {Outbound::StoreOwnProfile, calls(&MessagingCore::storeOwnProfile)},
        {Outbound::SearchExternalPeople, calls(&HostActions::searchExternalPeople)},
        {Outbound::AddExternalContact, calls(&HostActions::addExternalContact)},
        {Outbound::ConfirmExternalContact, calls(&HostActions::confirmExternalContact)},
        {Outbound::BlacklistExternalContact, calls(&HostActions::blacklistExternalContact)},
        // Chat
        {Outbound::OpenChat, calls(&HostActions::openChat)},
        {Outbound::SendFile, calls(&HostActions::sendFile)},
        {Outbound::OpenHistory, calls(&HostActions::openHistory)},
        {Outbound::CreateGroupChat, calls(&HostActions::createGroupChat)},
        {Outbound::CancelTransfers, calls(&HostActions::cancelTransfers)},
        {Outbound::PinConversation, calls(&HostActions::pinConversation)},
        {Outbound::ShowPicture, calls(&HostActions::showPicture)},
        {Outbound::OpenTopicPage, calls(&HostActions::openTopicPage)},
        {Outbound::PickTeamMembers, calls(&HostActions::pickTeamMembers)},
        // Rooms
        {Outbound::RenameRoom, calls(&MessagingCore::renameRoom)},
        {Outbound::QuitRoom, calls(&MessagingCore::quitRoom)},
        {Outbound::DismissRoom, calls(&MessagingCore::dismissRoom)},
        {Outbound::ManageRoom, calls(&HostActions::manageRoom)},
        {Outbound::ClassifyRoom, calls(&MessagingCore::classifyRoom)},
        // Mail
        {Outbound::WriteMail, calls(&HostActions::writeMail)},
    };
    return rows;
}

} // namespace

void installRequestHandlers(HostBus &bus, MessagingCore &core, HostActions &actions)
{
    const Services services{&core, &actions};
    for (const RequestRow &row : requestRows()) {
        bus.setHandler(row.code, [call = row.call, services](const QByteArray &payload) {
            return call(services, payload);
        });
    }
}

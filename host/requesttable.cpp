#include "host/requesttable.h"

#include "host/externalcontacts.h"
#include "host/hostactions.h"
#include "host/hostbus.h"
#include "host/messagingcore.h"
#include "host/personpictures.h"
#include "hostapi/eventcodes.h"

#include <functional>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Call = std::function<bool(const RequestTargets &, const QByteArray &)>;

// Reads one argument after the other as the payload's order demands.
template <class... Args> bool readAll(const QByteArray &payload, std::tuple<Args...> &arguments)
{
    QDataStream stream(payload);
    std::apply([&stream](auto &...each) { (RecordStream::read(stream, each), ...); }, arguments);
    return stream.status() == QDataStream::Ok;
}

MessagingCore *targetFor(const RequestTargets &targets, MessagingCore *)
{
    return targets.core;
}
HostActions *targetFor(const RequestTargets &targets, HostActions *)
{
    return targets.actions;
}
ExternalContacts *targetFor(const RequestTargets &targets, ExternalContacts *)
{
    return targets.external;
}

// The function's parameters are the payload.
template <class Target, class... Args> Call calls(void (Target::*function)(Args...))
{
    return [function](const RequestTargets &targets, const QByteArray &payload) {
        std::tuple<std::decay_t<Args>...> arguments;
        if (!readAll(payload, arguments))
            return false;
        if (Target *target = targetFor(targets, static_cast<Target *>(nullptr)))
            std::apply([&](const auto &...each) { (target->*function)(each...); }, arguments);
        return true;
    };
}

template <class Tuple, class Function, size_t... Places>
void withoutLast(const Tuple &arguments, const Function &function, std::index_sequence<Places...>)
{
    function(std::get<Places>(arguments)...);
}

// The same of two targets; the payload's last argument says whether it is the core's.
template <class... Args>
Call either(void (MessagingCore::*inner)(Args...), void (ExternalContacts::*outer)(Args...))
{
    return [inner, outer](const RequestTargets &targets, const QByteArray &payload) {
        std::tuple<std::decay_t<Args>..., bool> arguments;
        if (!readAll(payload, arguments))
            return false;
        const auto send = [&](const auto &...each) {
            if (std::get<bool>(arguments))
                (targets.core->*inner)(each...);
            else if (targets.external)
                (targets.external->*outer)(each...);
        };
        withoutLast(arguments, send, std::index_sequence_for<Args...>());
        return true;
    };
}

// For payloads that are not a function's parameters as they stand.
template <class... Args> Call reads(void (*function)(const RequestTargets &, Args...))
{
    return [function](const RequestTargets &targets, const QByteArray &payload) {
        std::tuple<std::decay_t<Args>...> arguments;
        if (!readAll(payload, arguments))
            return false;
        std::apply([&](const auto &...each) { function(targets, each...); }, arguments);
        return true;
    };
}

void addContact(const RequestTargets &targets, const QString &jid, const QString &validation,
                const QString &groupId, const QString &remark, qint32)
{
    targets.core->addContact(jid, validation, groupId, remark);
}

void refreshGroups(const RequestTargets &targets, bool inner)
{
    if (inner)
        targets.core->requestGroups(true);
    else if (targets.external)
        targets.external->requestGroups();
}

void setRemark(const RequestTargets &targets, const QString &jid, const QString &remark)
{
    FriendData contact;
    if (targets.external && targets.core->contact(jid, &contact) && contact.outside != 0)
        targets.external->setRemark(jid, remark);
    else
        targets.core->setRemark(jid, remark);
}

void storeOwnProfile(const RequestTargets &targets, const VcardInfo &profile)
{
    if (targets.pictures)
        targets.pictures->storeOwnProfile(profile);
    else
        targets.core->storeOwnProfile(profile);
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
        {Outbound::RefreshGroups, reads(&refreshGroups)},
        {Outbound::CreateGroup,
         either(&MessagingCore::createGroup, &ExternalContacts::createGroup)},
        {Outbound::DeleteGroup,
         either(&MessagingCore::deleteGroup, &ExternalContacts::deleteGroup)},
        {Outbound::RenameGroup,
         either(&MessagingCore::renameGroup, &ExternalContacts::renameGroup)},
        {Outbound::MoveContact,
         either(&MessagingCore::moveContact, &ExternalContacts::moveContact)},
        {Outbound::DeleteContact,
         either(&MessagingCore::removeContact, &ExternalContacts::removeContact)},
        {Outbound::SetRemark, reads(&setRemark)},
        {Outbound::RequestProfile, calls(&MessagingCore::requestProfile)},
        {Outbound::AddContact, reads(&addContact)},
        {Outbound::RequestPolicyOf, calls(&MessagingCore::requestPolicy)},
        {Outbound::AddContacts, calls(&MessagingCore::addContacts)},
        {Outbound::StoreOwnProfile, reads(&storeOwnProfile)},
        {Outbound::SearchExternalPeople, calls(&ExternalContacts::searchPeople)},
        {Outbound::AddExternalContact, calls(&ExternalContacts::add)},
        {Outbound::ConfirmExternalContact, calls(&ExternalContacts::confirm)},
        {Outbound::BlacklistExternalContact, calls(&ExternalContacts::blacklist)},
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

void installRequestHandlers(HostBus &bus, const RequestTargets &targets)
{
    for (const RequestRow &row : requestRows()) {
        bus.setHandler(row.code, [call = row.call, targets](const QByteArray &payload) {
            return call(targets, payload);
        });
    }
}

#include "plugin/inboundtable.h"

#include "hostapi/eventcodes.h"
#include "plugin/directhandlers.h"
#include "plugin/payloadreader.h"

#include <algorithm>
#include <iterator>

namespace {

using Hub = FriendUISignalSender;

enum class Needs
{
    Nothing,
    Pane
};

struct Row
{
    qint32 code;
    void (*handle)(BaseEvent &);
    Needs needs = Needs::Nothing;
};

// clang-format off
constexpr Row rows[] = {
    {Inbound::ContactRemoved, DirectHandlers::contactRemoved},
    {Inbound::ContactCleared, emits<&Hub::signal_clearFriend>},
    {Inbound::ProfileReceived, emits<&Hub::signal_FriendVcardInfo>},
    {Inbound::FullProfileReceived, emits<&Hub::signal_FriendFullVcardInfo>},
    {Inbound::HeadChanged, emits<&Hub::signal_UpdateFrdHead>},
    {Inbound::PeopleFound, emits<&Hub::signal_SearchFriendRecv>},
    {Inbound::ContactRequested, emits<&Hub::signal_requestAddFriend>},
    {Inbound::ContactAdded, emits<&Hub::signal_addFriend>},
    {Inbound::ContactList, emits<&Hub::signal_addAllFriend>},
    {Inbound::PresenceChanged, emits<&Hub::signal_updateFriendPresence>},
    {Inbound::GroupCreated, emits<&Hub::signal_addGroup>},
    {Inbound::GroupList, emits<&Hub::signal_addAllGroup>},
    {Inbound::GroupDeleted, emits<&Hub::signal_delGroup>},
    {Inbound::ContactMoved, emits<&Hub::signal_moveitem>},
    {Inbound::OwnProfileStored, emits<&Hub::signal_myProfileRecv>},
    {Inbound::ContactRemovalFailed, emits<&Hub::signal_delFriendFail>},
    {Inbound::ContactRequestAnswered, emits<&Hub::signal_addsucess>},
    {Inbound::RequestPolicy, emits<&Hub::signal_configreceived>},
    {Inbound::GroupRenamed, emits<&Hub::signal_changeGroupName>},
    {Inbound::ConnectionChanged, DirectHandlers::connectionChanged},
    {Inbound::RoomSubjectChanged, emits<&Hub::signal_roomSubjectChanged>},
    {Inbound::RoomHeadChanged, emits<&Hub::signal_mucChatHeadChanged>},
    {Inbound::EmployeeProfile, emits<&Hub::signal_EmployeeInfo>},
    {Inbound::ContactAdditionFailed, emits<&Hub::signal_addFriendFail>},
    {Inbound::BatchAdditionFailed, emits<&Hub::signal_BatchAddFriendFial>},
    {Inbound::ServiceNumberUpdated, emits<&Hub::signal_notifyUpdateServiceNum>},
    {Inbound::Ignored4179, DirectHandlers::nothing},
    {Inbound::MayAddContact, DirectHandlers::mayAddContact},
    {Inbound::HideOfflineInitialised, DirectHandlers::hideOfflineInitialised, Needs::Pane},
    {Inbound::LoginChanged, DirectHandlers::loginChanged},
    {Inbound::RoomLeft, emits<&Hub::signal_removedRoom>},
    {Inbound::ShowContactCard, DirectHandlers::showContactCard},
    {Inbound::HideContactCard, DirectHandlers::hideContactCard},
    {Inbound::OpenContactDetail, DirectHandlers::openContactDetail},
    {Inbound::ProfileFailed, emits<&Hub::signal_GetVcardFail>},
    {Inbound::AllOffline, DirectHandlers::allOffline},
    {Inbound::MessageReceived, emits<&Hub::signal_latestFriend>},
    {Inbound::StrangerRemoved, emits<&Hub::signal_delStranger>},
    {Inbound::RoomMembersChanged, emits<&Hub::signal_updateRoomMembers>},
    {Inbound::RoomAdded, emits<&Hub::signal_addMuc>},
    {Inbound::RoomDismissed, emits<&Hub::signal_deleteMucRoon>},
    {Inbound::RoomMuted, emits<&Hub::signal_setForbiddenIcon>},
    {Inbound::NoRooms, emits<&Hub::signal_roomIsNull>},
    {Inbound::OwnStatusChanged, emits<&Hub::signal_myStatusChanged>},
    {Inbound::GroupListFailed, emits<&Hub::signal_getGroupFail>},
    {Inbound::SkinChanged, emits<&Hub::signal_SkinChange>},
    {Inbound::RoomClassified, emits<&Hub::siganl_mucClassifyChanged>},
    {Inbound::HideContactCardAlso, DirectHandlers::hideContactCard},
    {Inbound::MissedCallReceived, emits<&Hub::siganl_recvMissingCall>},
    {Inbound::MissedCallRemoved, emits<&Hub::siganl_delMissingCall>},
    {Inbound::ShowAllRooms, emits<&Hub::signal_showAllRoom>},
    {Inbound::OpenLeaderDetail, emits<&Hub::signal_openLeaderDetail>},
    {Inbound::LocalRoomAdded, emits<&Hub::signal_localMucAdded>},
    {Inbound::LatestContactChanged, emits<&Hub::signal_updateLatestContact>},
    {Inbound::ServiceNumberSubscribed, emits<&Hub::signal_notifySubServiceNum>},
    {Inbound::ServiceNumberCancelled, emits<&Hub::signal_notifyCancelSubServiceNum>},
    {Inbound::ServiceIconStored, emits<&Hub::signal_notifyDownloadServiceIconResult>},
    {Inbound::ServiceNumbersAdded, emits<&Hub::signal_notifyAddServiceNum>},
    {Inbound::ApplicationsFailed, emits<&Hub::signal_notifyGetMyAPPFail>},
    {Inbound::ProfileUnchanged, emits<&Hub::signal_GetVcardSuccessNoChange>},
    {Inbound::OpenContactDetailAlso, DirectHandlers::openContactDetail},
    {Inbound::LocateInOrganisation, emits<&Hub::signal_position_orgstruct>},
    {Inbound::OpenServiceNumber, DirectHandlers::openServiceNumber, Needs::Pane},
    {Inbound::ReloadChannels, DirectHandlers::reloadChannels, Needs::Pane},
    {Inbound::CooperationChanged, emits<&Hub::signal_notifyCooperate>},
    {Inbound::RemarkChanged, emits<&Hub::signal_notifyFriendRemarkName>},
    {Inbound::ChannelRemoved, emits<&Hub::signal_notifyRemoveChannel>},
    {Inbound::ChannelAdded, emits<&Hub::signal_notifyAddChannel>},
    {Inbound::VirtualTeamsChanged, DirectHandlers::virtualTeamsChanged},
    {Inbound::VirtualTeamRefresh, emits<&Hub::signal_refresh_virtualTeam>},
    {Inbound::VirtualTeamMembersPicked, emits<&Hub::signal_addMembersToVirtualTeam>},
    {Inbound::OpenServiceNumberSearch, DirectHandlers::openServiceNumberSearch, Needs::Pane},
    {Inbound::OpenOwnDetail, DirectHandlers::openOwnDetail},
    {Inbound::ExternalContactAnswer, DirectHandlers::externalContactAnswer, Needs::Pane},
    {Inbound::OrganisationChanged, emits<&Hub::signal_refreshOrganization>},
    {Inbound::LocateContact, DirectHandlers::locateContact, Needs::Pane},
    {Inbound::ChannelHeadChanged, emits<&Hub::signal_notifyUpdateChannelHead>},
};
// clang-format on

// The lookup searches by halves; std::is_sorted is not constexpr before C++20.
constexpr bool rowsAreSorted()
{
    for (size_t i = 1; i < std::size(rows); ++i) {
        if (rows[i - 1].code >= rows[i].code)
            return false;
    }
    return true;
}
static_assert(rowsAreSorted(), "the table stands in the order of its codes");

} // namespace

void handleInbound(BaseEvent &event, bool hasPane)
{
    const auto row = std::lower_bound(
        std::begin(rows), std::end(rows), event.code,
        [](const Row &candidate, qint32 wanted) { return candidate.code < wanted; });
    if (row == std::end(rows) || row->code != event.code)
        return;
    if (row->needs == Needs::Pane && !hasPane)
        DirectHandlers::drop(event);
    else
        row->handle(event);
}

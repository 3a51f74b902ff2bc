// The numbers of all events on the bus, each with its payload and its purpose.
//
// Every list is a table of rows
//     X(code, name, "payload in wire order", "purpose")
// from which the constants below, the catalogue (eventcatalogue.h) and the page
// docs/host-events.md are made. Types in a payload are those of QDataStream and
// of hostrecords.h; "int" is 32 bits wide.
#pragma once

#include <QtGlobal>

// clang-format off

// From the host to the plug-in.
#define FRIENDUI_INBOUND_EVENTS(X) \
    X(4101, ContactRemoved, "QString jid, bool inner", "a contact was removed; inner false: an external contact") \
    X(4102, ContactCleared, "QString jid", "the conversation data of a contact was cleared") \
    X(4105, ProfileReceived, "QString jid, VcardInfo profile", "the short profile of a contact") \
    X(4106, FullProfileReceived, "QString jid, VcardInfo profile", "the full profile of a contact") \
    X(4107, HeadChanged, "QString jid, QString imagePath", "a contact's picture was stored at a local path") \
    X(4109, PeopleFound, "QList<SearchFriendResultData> results, int count", "the answer to a people search; count -1: it failed") \
    X(4111, ContactRequested, "QString jid, QString statusText, QString time", "somebody asks to become a contact") \
    X(4114, ContactAdded, "QString jid", "a contact was added to the roster") \
    X(4115, ContactList, "QList<FriendData> contacts", "the roster's contacts; merged into what is shown") \
    X(4117, PresenceChanged, "QMap<QString,PresenceData> presence", "the presence of any number of contacts") \
    X(4118, GroupCreated, "QString groupId, QString name, bool success, bool inner", "the answer to a group creation") \
    X(4119, GroupList, "QList<GroupData> groups, bool inner", "the roster's groups; merged into what is shown") \
    X(4120, GroupDeleted, "bool success, QString groupId, bool inner", "the answer to a group deletion") \
    X(4121, ContactMoved, "bool success, QString jid, QString oldGroupId, QString newGroupId, bool inner", "the answer to a move") \
    X(4122, OwnProfileStored, "", "the own profile was stored or changed") \
    X(4128, ContactRemovalFailed, "QString jid, bool inner", "a contact could not be removed") \
    X(4129, ContactRequestAnswered, "QString jid, bool added, QString time", "the other side accepted or refused") \
    X(4133, RequestPolicy, "QString jid, QString config, QString moveToGroup, QString displayName, bool openDialog", "how a person takes contact requests") \
    X(4134, GroupRenamed, "QString groupId, QString newName, bool success, bool inner", "the answer to a group rename") \
    X(4135, ConnectionChanged, "bool connected", "the connection to the messaging server") \
    X(4149, RoomSubjectChanged, "QString roomJid, QString subject, QString modifier", "a room was renamed") \
    X(4150, RoomHeadChanged, "QString roomJid, QString imagePath", "a room's picture changed") \
    X(4160, EmployeeProfile, "QString jid, VcardInfo profile", "the company-side profile of a person") \
    X(4165, ContactAdditionFailed, "QString jid", "a contact could not be added") \
    X(4166, BatchAdditionFailed, "QStringList uids", "those of a batch that could not be added") \
    X(4169, ServiceNumberUpdated, "QString jid, CServiceNumData serviceNumber", "a service number's record changed") \
    X(4179, Ignored4179, "", "accepted, nothing is done") \
    X(4200, MayAddContact, "QString jid", "synchronous query; the answer, a bool, replaces the payload") \
    X(4202, HideOfflineInitialised, "bool hide", "whether offline contacts start hidden") \
    X(4209, LoginChanged, "bool loggedIn", "the user logged in or out") \
    X(4253, RoomLeft, "QString roomJid", "the own user left a room") \
    X(4268, ShowContactCard, "QString jid, int x, int y, int width, bool preferLeft", "show the floating card beside a place on the screen") \
    X(4269, HideContactCard, "QString jid", "the pointer has left the place: hide the floating card of this person after a moment, unless the pointer is on it; an empty jid: hide it at once, whoever it shows") \
    X(4275, OpenContactDetail, "QString jid", "open the contact-information dialog") \
    X(4281, ProfileFailed, "QString jid", "a profile could not be had") \
    X(4355, AllOffline, "", "every contact is offline from now on") \
    X(4398, MessageReceived, "bool received, MessageData message", "a chat message was received or sent; also one of an earlier time that the plug-in has missed") \
    X(4403, StrangerRemoved, "QString jid", "a person who is no contact was removed") \
    X(4430, RoomMembersChanged, "QString member, QString roomJid", "a room's members changed; member: their number, as text") \
    X(4431, RoomAdded, "MucData room, bool add", "a room was added or delivered") \
    X(4452, RoomDismissed, "QString roomJid", "a room was dismissed") \
    X(4453, RoomMuted, "QString roomJid, bool forbidden", "the user may no longer write in a room, or may again") \
    X(4460, NoRooms, "", "the user has no rooms") \
    X(4497, OwnStatusChanged, "", "the own presence changed") \
    X(4500, GroupListFailed, "", "the groups could not be had") \
    X(4524, SkinChanged, "SysUIData skin", "the skin's colours") \
    X(4541, RoomClassified, "QString roomJid, int classify", "a room's classification changed") \
    X(4543, HideContactCardAlso, "QString jid", "as HideContactCard") \
    X(4562, MissedCallReceived, "", "a call was missed") \
    X(4564, MissedCallRemoved, "", "a missed call was seen") \
    X(4593, ShowAllRooms, "bool all", "whether all rooms are shown") \
    X(4594, OpenLeaderDetail, "QString jid", "open the card of a person's superior") \
    X(4596, LocalRoomAdded, "QString roomJid, QString source", "a room that was not listed has become a local one, which the context knows; source: why, such as auto_save for a message that came in it") \
    X(4606, LatestContactChanged, "QString jid, QString lastContent, QString lastTime", "the newest entry of a conversation, which the user has read up to it; an empty content or time: as known") \
    X(4624, ServiceNumberSubscribed, "QString code, QString groupId, bool success, QString errorCode", "the answer to a subscription") \
    X(4625, ServiceNumberCancelled, "QString code, QString groupId, bool success", "the answer to a cancellation") \
    X(4629, ServiceIconStored, "QString appCode, QString iconPath", "a service number's icon was stored") \
    X(4630, ServiceNumbersAdded, "QList<CServiceNumData> serviceNumbers", "service numbers to add to the subscriptions") \
    X(4635, ApplicationsFailed, "", "the applications could not be had") \
    X(4637, ProfileUnchanged, "QString userName", "a profile was asked for and has not changed") \
    X(4669, OpenContactDetailAlso, "QString jid", "as OpenContactDetail") \
    X(4683, OpenServiceNumber, "QString code", "open the detail of a service number") \
    X(4686, ReloadChannels, "", "show and reload the customer-service page") \
    X(4711, CooperationChanged, "QMap<QString,bool> relations", "who is a cooperating contact") \
    X(4748, RemarkChanged, "QString jid, QString remark", "a contact's remark was stored") \
    X(4802, ChannelRemoved, "QString channelId", "a customer-service channel was removed") \
    X(4803, ChannelAdded, "CSChannelData channel", "a customer-service channel was added") \
    X(4842, VirtualTeamsChanged, "QString ids, QString data", "teams that changed, ids separated by commas; data: empty, or a JSON object with type (audit, join: open that window; else the teams are loaded again), vtId and member") \
    X(4843, VirtualTeamRefresh, "QString teamId", "one team is to be loaded again") \
    X(4845, VirtualTeamMembersPicked, "QString teamId, QStringList userIds, int groupId", "people picked for a team's group") \
    X(4887, OpenServiceNumberSearch, "", "open the service-number search") \
    X(4889, OpenOwnDetail, "", "open the own contact-information window") \
    X(4890, ExternalContactAnswer, "QString jid, bool success, int code, int action", "the answer to, or the arrival of, an external-contact request") \
    X(4892, OrganisationChanged, "", "the organisation is to be loaded again") \
    X(4898, LocateContact, "QString jid", "select a contact in the friend tree") \
    X(4899, ChannelHeadChanged, "QString channelId, QString iconPath", "a channel's picture changed")

// A broadcast that the plug-in sends and also receives.
#define FRIENDUI_BOTH_WAYS_EVENTS(X) \
    X(4674, LocateInOrganisation, "QString uid, bool isOrganisation", "show a person or a department in the organisation tree")

// To the roster plug-in.
#define FRIENDUI_REQUESTS_TO_ROSTER(X) \
    X(4157, DeleteContact, "QString jid, bool inner", "delete a contact") \
    X(4167, SetRemark, "QString jid, QString remark", "change a contact's remark") \
    X(4326, RequestProfile, "QString jid, bool full", "deliver a profile") \
    X(4337, AddContact, "QString jid, QString validation, QString groupId, QString remark, int mode", "ask a person to become a contact") \
    X(4338, RequestPolicyOf, "QString jid", "tell how a person takes contact requests") \
    X(4350, AddContacts, "QStringList uids, QString groupId", "add several people") \
    X(4354, StoreOwnProfile, "VcardInfo profile", "write the own profile") \
    X(4356, RefreshGroups, "bool inner", "deliver the groups again") \
    X(4358, MoveContact, "QString jid, QString oldGroupId, QString newGroupId, bool inner", "move a contact to another group") \
    X(4360, CreateGroup, "QString name, bool inner", "create a group") \
    X(4361, DeleteGroup, "QString groupId, bool inner", "delete a group") \
    X(4362, RenameGroup, "QString groupId, QString newName, bool inner", "rename a group") \
    X(4379, AddExternalContact, "QString jid, QString validation, QString client", "ask an external person to become a contact") \
    X(4380, ConfirmExternalContact, "QString jid, int agree, QString client", "answer an external person's request") \
    X(4397, BlacklistExternalContact, "QString jid", "blacklist an external person") \
    X(4424, Roster4424, "", "reserved; the payload is the caller's") \
    X(4626, Roster4626, "", "reserved; the payload is the caller's") \
    X(4627, Roster4627, "", "reserved; the payload is the caller's") \
    X(4628, Roster4628, "", "reserved; the payload is the caller's") \
    X(4631, Roster4631, "", "reserved; the payload is the caller's") \
    X(4632, Roster4632, "", "reserved; the payload is the caller's") \
    X(4633, Roster4633, "", "reserved; the payload is the caller's") \
    X(4799, Roster4799, "", "reserved; the payload is the caller's") \
    X(4804, Roster4804, "", "reserved; the payload is the caller's") \
    X(4896, SearchExternalPeople, "QString key", "find people outside the company by name, account or mobile number; answered by PeopleFound")

// To the chat plug-in.
#define FRIENDUI_REQUESTS_TO_CHAT(X) \
    X(4251, OpenChat, "QString jid, int kind", "open a chat: 0 person, 1 room, 2 service number, 3 channel") \
    X(4264, SendFile, "QStringList jids, int kind", "send a file") \
    X(4330, OpenHistory, "QString jid, int kind", "show the message history") \
    X(4393, CreateGroupChat, "QStringList jids", "create a group chat; no jid: just the dialog") \
    X(4394, CancelTransfers, "QString jid", "cancel the file transfers with somebody") \
    X(4396, PinConversation, "QString jid, bool top", "pin a conversation, or take the pin away") \
    X(4408, ShowPicture, "QString jid, QString path", "show a picture large") \
    X(4427, Chat4427, "", "reserved; the payload is the caller's") \
    X(4455, Chat4455, "", "reserved; the payload is the caller's") \
    X(4456, Chat4456, "", "reserved; the payload is the caller's") \
    X(4493, Chat4493, "", "reserved; the payload is the caller's") \
    X(4664, OpenTopicPage, "QString pluginId, QString jid", "open a person's topic page in the plug-in named") \
    X(4708, Chat4708, "", "reserved; the payload is the caller's") \
    X(4844, PickTeamMembers, "QString teamId, int groupId, QStringList presentIds", "open the member picker for a team") \
    X(4895, Chat4895, "", "reserved; the payload is the caller's")

// To the group-chat plug-in.
#define FRIENDUI_REQUESTS_TO_ROOMS(X) \
    X(4421, RenameRoom, "QString roomJid, QString subject", "rename a room") \
    X(4423, QuitRoom, "QString roomJid", "leave a room") \
    X(4425, DismissRoom, "QString roomJid", "dismiss a room") \
    X(4426, ManageRoom, "QString roomJid", "hand over or manage a room") \
    X(4429, Rooms4429, "", "reserved; the payload is the caller's") \
    X(4540, ClassifyRoom, "QString roomJid, int classify", "change a room's classification") \
    X(4542, Rooms4542, "", "reserved; the payload is the caller's") \
    X(4595, Rooms4595, "", "reserved; the payload is the caller's")

// To the mail plug-in.
#define FRIENDUI_REQUESTS_TO_MAIL(X) \
    X(4233, WriteMail, "QStringList jids", "write a mail")

// To every plug-in. Those without a payload are numbers that the sibling plug-ins
// agree on among themselves; the pane knows them so that it can send them on.
#define FRIENDUI_REQUESTS_TO_EVERYBODY(X) \
    X(4158, Broadcast4158, "", "reserved; the payload is the caller's") \
    X(4159, Broadcast4159, "", "reserved; the payload is the caller's") \
    X(4187, Broadcast4187, "", "reserved; the payload is the caller's") \
    X(4191, Broadcast4191, "", "reserved; the payload is the caller's") \
    X(4203, Broadcast4203, "", "reserved; the payload is the caller's") \
    X(4204, Broadcast4204, "", "reserved; the payload is the caller's") \
    X(4245, Broadcast4245, "", "reserved; the payload is the caller's") \
    X(4249, Broadcast4249, "", "reserved; the payload is the caller's") \
    X(4277, Broadcast4277, "", "reserved; the payload is the caller's") \
    X(4278, Broadcast4278, "", "reserved; the payload is the caller's") \
    X(4309, Broadcast4309, "", "reserved; the payload is the caller's") \
    X(4324, Broadcast4324, "", "reserved; the payload is the caller's") \
    X(4328, Broadcast4328, "", "reserved; the payload is the caller's") \
    X(4329, Broadcast4329, "", "reserved; the payload is the caller's") \
    X(4331, Broadcast4331, "", "reserved; the payload is the caller's") \
    X(4336, Broadcast4336, "", "reserved; the payload is the caller's") \
    X(4364, Broadcast4364, "", "reserved; the payload is the caller's") \
    X(4366, Broadcast4366, "", "reserved; the payload is the caller's") \
    X(4368, Broadcast4368, "", "reserved; the payload is the caller's") \
    X(4371, Broadcast4371, "", "reserved; the payload is the caller's") \
    X(4372, Broadcast4372, "", "reserved; the payload is the caller's") \
    X(4381, Broadcast4381, "", "reserved; the payload is the caller's") \
    X(4382, Broadcast4382, "", "reserved; the payload is the caller's") \
    X(4383, Broadcast4383, "", "reserved; the payload is the caller's") \
    X(4385, Broadcast4385, "", "reserved; the payload is the caller's") \
    X(4386, Broadcast4386, "", "reserved; the payload is the caller's") \
    X(4388, Broadcast4388, "", "reserved; the payload is the caller's") \
    X(4391, Broadcast4391, "", "reserved; the payload is the caller's") \
    X(4392, Broadcast4392, "", "reserved; the payload is the caller's") \
    X(4412, Broadcast4412, "", "reserved; the payload is the caller's") \
    X(4419, Broadcast4419, "", "reserved; the payload is the caller's") \
    X(4428, Broadcast4428, "", "reserved; the payload is the caller's") \
    X(4437, Broadcast4437, "", "reserved; the payload is the caller's") \
    X(4451, Broadcast4451, "", "reserved; the payload is the caller's") \
    X(4462, Broadcast4462, "", "reserved; the payload is the caller's") \
    X(4467, Broadcast4467, "", "reserved; the payload is the caller's") \
    X(4501, Broadcast4501, "", "reserved; the payload is the caller's") \
    X(4525, Broadcast4525, "", "reserved; the payload is the caller's") \
    X(4563, Broadcast4563, "", "reserved; the payload is the caller's") \
    X(4579, Broadcast4579, "", "reserved; the payload is the caller's") \
    X(4580, Broadcast4580, "", "reserved; the payload is the caller's") \
    X(4612, Broadcast4612, "", "reserved; the payload is the caller's") \
    X(4613, Broadcast4613, "", "reserved; the payload is the caller's") \
    X(4639, Broadcast4639, "", "reserved; the payload is the caller's") \
    X(4640, Broadcast4640, "", "reserved; the payload is the caller's") \
    X(4662, Broadcast4662, "", "reserved; the payload is the caller's") \
    X(4663, Broadcast4663, "", "reserved; the payload is the caller's") \
    X(4710, Broadcast4710, "", "reserved; the payload is the caller's") \
    X(4800, Broadcast4800, "", "reserved; the payload is the caller's") \
    X(4888, Broadcast4888, "", "reserved; the payload is the caller's") \
    X(4891, Broadcast4891, "", "reserved; the payload is the caller's") \
    X(4894, Broadcast4894, "", "reserved; the payload is the caller's") \
    X(4918, Broadcast4918, "", "reserved; the payload is the caller's")

// clang-format on

namespace PluginId {
constexpr char FriendUi[] = "{77CCE3F9-79F5-C5E8-17E7-F6B7389AAA6E}"; // this plug-in
constexpr char Roster[] = "{7123C2B9-E89C-0CC5-5B1E-9496BB7427C8}";
constexpr char Chat[] = "{FE9829B7-5267-D9AA-3917-514F39C709F0}";
constexpr char Rooms[] = "{2172813C-E314-727B-CD3B-E3A469DA945C}";
constexpr char Mail[] = "{8732B5E7-2377-4061-937E-B3D7A27B6483}";
constexpr char Topics[] = "{4188F242-B145-4416-8499-DC0257271F60}"; // named inside a payload
constexpr char Everybody[] = "";
} // namespace PluginId

#define FRIENDUI_EVENT_CONSTANT(code, name, payload, purpose) name = code,

// Codes that the plug-in accepts.
namespace Inbound {
enum Code : qint32
{
    FRIENDUI_INBOUND_EVENTS(FRIENDUI_EVENT_CONSTANT)
        FRIENDUI_BOTH_WAYS_EVENTS(FRIENDUI_EVENT_CONSTANT)
};
} // namespace Inbound

// Codes that the plug-in sends.
namespace Outbound {
enum Code : qint32
{
    FRIENDUI_REQUESTS_TO_ROSTER(FRIENDUI_EVENT_CONSTANT)
        FRIENDUI_REQUESTS_TO_CHAT(FRIENDUI_EVENT_CONSTANT)
            FRIENDUI_REQUESTS_TO_ROOMS(FRIENDUI_EVENT_CONSTANT)
                FRIENDUI_REQUESTS_TO_MAIL(FRIENDUI_EVENT_CONSTANT)
                    FRIENDUI_REQUESTS_TO_EVERYBODY(FRIENDUI_EVENT_CONSTANT)
                        FRIENDUI_BOTH_WAYS_EVENTS(FRIENDUI_EVENT_CONSTANT)
};
} // namespace Outbound

#undef FRIENDUI_EVENT_CONSTANT

#include "plugin/frienduieventprocess.h"

#include "common/logging.h"
#include "common/sessionsettings.h"
#include "hostapi/baseevent.h"
#include "hostapi/eventcatalogue.h"
#include "plugin/frienduimessageprocess.h"
#include "plugin/frienduisignalsender.h"

namespace {
// What the external-contact services are told about the kind of client.
QString clientType()
{
    return QStringLiteral("pc");
}
} // namespace

bool FriendUIEventProcess::send(qint32 code, const QByteArray &payload)
{
    const EventInfo *info = EventCatalogue::find(EventInfo::FromPlugin, code);
    if (!info) {
        LOG_ERROR("request " << QString::number(code) << " refused: it has no receiver");
        return false;
    }
    BaseEvent event(code, payload, QString::fromLatin1(PluginId::FriendUi),
                    QString::fromLatin1(info->receiver));
    FriendUIMessageProcess::instance()->sendToHost(&event);
    return true;
}

void FriendUIEventProcess::refreshGroups(bool inner)
{
    request(Outbound::RefreshGroups, inner);
}

void FriendUIEventProcess::createGroup(const QString &name, bool inner)
{
    request(Outbound::CreateGroup, name, inner);
}

void FriendUIEventProcess::deleteGroup(const QString &groupId, bool inner)
{
    request(Outbound::DeleteGroup, groupId, inner);
}

void FriendUIEventProcess::renameGroup(const QString &groupId, const QString &newName, bool inner)
{
    request(Outbound::RenameGroup, groupId, newName, inner);
}

void FriendUIEventProcess::moveContact(const QString &jid, const QString &oldGroupId,
                                       const QString &newGroupId, bool inner)
{
    request(Outbound::MoveContact, jid, oldGroupId, newGroupId, inner);
}

void FriendUIEventProcess::deleteContact(const QString &jid, bool inner)
{
    request(Outbound::DeleteContact, jid, inner);
}

void FriendUIEventProcess::setRemark(const QString &jid, const QString &remark)
{
    request(Outbound::SetRemark, jid, remark);
}

void FriendUIEventProcess::addContact(const QString &jid, const QString &validation,
                                      const QString &groupId, const QString &remark, int mode)
{
    request(Outbound::AddContact, jid, validation, groupId, remark, mode);
}

void FriendUIEventProcess::requestPolicy(const QString &jid)
{
    request(Outbound::RequestPolicyOf, jid);
}

void FriendUIEventProcess::addContacts(const QStringList &uids, const QString &groupId)
{
    request(Outbound::AddContacts, uids, groupId);
}

void FriendUIEventProcess::requestProfile(const QString &jid, bool full)
{
    request(Outbound::RequestProfile, jid, full);
}

void FriendUIEventProcess::storeOwnProfile(const VcardInfo &profile)
{
    request(Outbound::StoreOwnProfile, profile);
}

void FriendUIEventProcess::searchExternalPeople(const QString &key)
{
    request(Outbound::SearchExternalPeople, key);
}

void FriendUIEventProcess::addExternalContact(const QString &jid, const QString &validation)
{
    request(Outbound::AddExternalContact, jid, validation, clientType());
}

void FriendUIEventProcess::confirmExternalContact(const QString &jid, bool agree)
{
    request(Outbound::ConfirmExternalContact, jid, qint32(agree ? 1 : 0), clientType());
}

void FriendUIEventProcess::blacklistExternalContact(const QString &jid)
{
    request(Outbound::BlacklistExternalContact, jid);
}

void FriendUIEventProcess::openChat(const QString &jid, MessageData::Kind kind)
{
    emit FriendUISignalSender::instance()->signal_paintDelegateMsgCount(jid);
    request(Outbound::OpenChat, jid, kind);
}

void FriendUIEventProcess::sendFile(const QStringList &jids, MessageData::Kind kind)
{
    request(Outbound::SendFile, jids, kind);
}

void FriendUIEventProcess::openHistory(const QString &jid, MessageData::Kind kind)
{
    request(Outbound::OpenHistory, jid, kind);
}

void FriendUIEventProcess::createGroupChat(const QStringList &jids)
{
    request(Outbound::CreateGroupChat, jids);
}

void FriendUIEventProcess::cancelTransfers(const QString &jid)
{
    request(Outbound::CancelTransfers, jid);
}

void FriendUIEventProcess::pinConversation(const QString &jid, bool top)
{
    // Before the lists ask: they may not have read this conversation's row yet.
    SessionSettings::setPinned(jid, top);
    request(Outbound::PinConversation, jid, top);
    emit FriendUISignalSender::instance()->signal_latestSessionReceived();
}

void FriendUIEventProcess::showPicture(const QString &jid, const QString &path)
{
    request(Outbound::ShowPicture, jid, path);
}

void FriendUIEventProcess::openTopicPage(const QString &jid)
{
    request(Outbound::OpenTopicPage, QString::fromLatin1(PluginId::Topics), jid);
}

void FriendUIEventProcess::writeMail(const QStringList &jids)
{
    request(Outbound::WriteMail, jids);
}

void FriendUIEventProcess::renameRoom(const QString &roomJid, const QString &subject)
{
    request(Outbound::RenameRoom, roomJid, subject);
}

void FriendUIEventProcess::quitRoom(const QString &roomJid)
{
    request(Outbound::QuitRoom, roomJid);
}

void FriendUIEventProcess::dismissRoom(const QString &roomJid)
{
    request(Outbound::DismissRoom, roomJid);
}

void FriendUIEventProcess::manageRoom(const QString &roomJid)
{
    request(Outbound::ManageRoom, roomJid);
}

void FriendUIEventProcess::classifyRoom(const QString &roomJid, MucData::MucClassify classify)
{
    request(Outbound::ClassifyRoom, roomJid, classify);
}

void FriendUIEventProcess::locateInOrganisation(const QString &id, bool isOrganisation)
{
    request(Outbound::LocateInOrganisation, id, isOrganisation);
}

void FriendUIEventProcess::pickTeamMembers(const QString &teamId, int groupId,
                                           const QStringList &presentIds)
{
    request(Outbound::PickTeamMembers, teamId, groupId, presentIds);
}

#include "contacts/rooms/roomcommands.h"

#include "common/context.h"
#include "common/logging.h"
#include "contacts/rooms/mucmodel.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "http/httpmgr.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"

namespace {
constexpr int LongestSubject = 200; // characters
}

RoomCommands::RoomCommands(const MucModel *rooms, QWidget *view)
    : QObject(view), m_rooms(rooms), m_view(view)
{
}

bool RoomCommands::isKnown(const QString &jid) const
{
    if (m_rooms->find(jid))
        return true;
    LOG_DEBUG("there is no group chat " << logText(jid));
    return false;
}

void RoomCommands::openChat(const QString &jid)
{
    if (isKnown(jid))
        FriendUIEventProcess::openChat(jid, MessageData::Room);
}

void RoomCommands::sendFile(const QString &jid)
{
    if (isKnown(jid))
        FriendUIEventProcess::sendFile({jid}, MessageData::Room);
}

void RoomCommands::writeMail(const QString &jid)
{
    if (isKnown(jid))
        FriendUIEventProcess::writeMail({jid});
}

void RoomCommands::openHistory(const QString &jid)
{
    if (isKnown(jid))
        FriendUIEventProcess::openHistory(jid, MessageData::Room);
}

void RoomCommands::rename(const QString &jid)
{
    if (!isKnown(jid))
        return;
    if (!isOnline()) {
        TipBox::tell(m_view, QObject::tr("cannotChangeThemeForSelfOffLine"));
        return;
    }
    if (m_renameBox)
        m_renameBox->reject();
    // A longer name that is confirmed as the box shows it has not been changed.
    const QString preset = m_rooms->find(jid)->name.left(LongestSubject);
    m_renamedRoom = jid;
    m_renameBox = InputBox::ask(m_view, QObject::tr("modifyGroupName"), QObject::tr("name"), preset,
                                {}, [this, jid, preset](const QString &subject) {
                                    if (subject.trimmed() != preset.trimmed())
                                        sendSubject(jid, subject.trimmed());
                                });
    m_renameBox->setMaximumLength(LongestSubject);
}

void RoomCommands::sendSubject(const QString &jid, const QString &subject)
{
    if (subject.isEmpty() || !isKnown(jid) || m_rooms->find(jid)->name == subject)
        return;
    if (!isOnline())
        TipBox::tell(m_view, QObject::tr("cannotChangeThemeForSelfOffLine"));
    else
        FriendUIEventProcess::renameRoom(jid, subject);
}

void RoomCommands::dismiss(const QString &jid)
{
    if (!isKnown(jid))
        return;
    TipBox::ask(m_view, QObject::tr("sureToDismissTheGroup"), [this, jid] {
        if (isKnown(jid))
            FriendUIEventProcess::dismissRoom(jid);
    });
}

void RoomCommands::quit(const QString &jid)
{
    if (!isKnown(jid))
        return;
    const auto askToLeave = [this, jid](bool transferring) {
        TipBox::ask(m_view, QObject::tr("sureToSignOutTheGroup"), [this, jid, transferring] {
            if (!isKnown(jid))
                return;
            // The request may end this object.
            if (transferring)
                FriendUIEventProcess::cancelTransfers(jid);
            FriendUIEventProcess::quitRoom(jid);
        });
    };
    if (!ctx().isTransferring(jid)) {
        askToLeave(false);
        return;
    }
    // Nothing is broken off before both questions are answered.
    TipBox::ask(
        m_view, QObject::tr("quitfiletransfer"), [askToLeave] { askToLeave(true); },
        QObject::tr("fileTransfer"));
}

void RoomCommands::manage(const QString &jid)
{
    if (isKnown(jid))
        FriendUIEventProcess::manageRoom(jid);
}

void RoomCommands::setInAddressBook(const QString &jid, bool inAddressBook)
{
    if (isKnown(jid))
        FriendUIEventProcess::classifyRoom(jid, inAddressBook ? MucData::AddressBookRoom
                                                              : MucData::LocalRoom);
}

void RoomCommands::pin(const QString &jid, bool top)
{
    if (isKnown(jid))
        FriendUIEventProcess::pinConversation(jid, top);
}

void RoomCommands::setSilent(const QString &jid, bool silent)
{
    if (isKnown(jid))
        HttpMgr::instance()->setSessionMsgConfig(jid, silent);
}

void RoomCommands::roomRemoved(const QString &jid)
{
    if (m_renameBox && m_renamedRoom == jid)
        m_renameBox->reject();
}

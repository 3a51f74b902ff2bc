// The embedded core's rooms.
#include "host/core/embeddedcore.h"
#include "host/core/roombook.h"
#include "host/core/rosterbook.h"

// --- Reads --------------------------------------------------------------------

QList<MucData> EmbeddedCore::rooms() const
{
    return m_rooms->rooms();
}

bool EmbeddedCore::room(const QString &jid, MucData *out) const
{
    return m_rooms->room(jid, out);
}

QList<MucMemberData> EmbeddedCore::roomMembers(const QString &jid) const
{
    return m_rooms->members(jid);
}

int EmbeddedCore::roomRole(const QString &jid) const
{
    return m_rooms->role(jid, ownJid());
}

// --- Rooms --------------------------------------------------------------------

void EmbeddedCore::createRoom(const QStringList &jids, const QString &subject)
{
    later(CreateRoom, [this, jids, subject](bool may) {
        QStringList all{ownJid()};
        for (const QString &jid : jids)
            all.append(fullJid(jid));
        all.removeDuplicates();
        MucData made;
        if (may && m_rooms->create(subject, membersOf(all), &made))
            emit roomAdded(made);
        else
            emit requestFailed(QStringLiteral("createRoom"), QString());
    });
}

void EmbeddedCore::renameRoom(const QString &roomJid, const QString &subject)
{
    later(RenameRoom, [this, roomJid, subject](bool may) {
        if (may && m_rooms->rename(roomJid, ownJid(), subject))
            emit roomRenamed(roomJid, subject.trimmed(), displayName(ownJid()));
        else
            emit requestFailed(QStringLiteral("renameRoom"), roomJid);
    });
}

void EmbeddedCore::quitRoom(const QString &roomJid)
{
    later(QuitRoom, [this, roomJid](bool may) {
        if (may && m_rooms->quit(roomJid, ownJid()))
            emit roomLeft(roomJid);
        else
            emit requestFailed(QStringLiteral("quitRoom"), roomJid);
    });
}

void EmbeddedCore::dismissRoom(const QString &roomJid)
{
    later(DismissRoom, [this, roomJid](bool may) {
        if (may && m_rooms->dismiss(roomJid, ownJid()))
            emit roomDismissed(roomJid);
        else
            emit requestFailed(QStringLiteral("dismissRoom"), roomJid);
    });
}

void EmbeddedCore::classifyRoom(const QString &roomJid, MucData::MucClassify classify)
{
    later(ClassifyRoom, [this, roomJid, classify](bool may) {
        if (may && m_rooms->classify(roomJid, classify))
            emit roomClassified(roomJid, classify);
        else
            emit requestFailed(QStringLiteral("classifyRoom"), roomJid);
    });
}

QList<MucMemberData> EmbeddedCore::membersOf(const QStringList &jids) const
{
    QList<MucMemberData> members;
    for (const QString &jid : jids) {
        VcardInfo known;
        if (m_roster->profile(jid, &known))
            members.append({jid, known.nickName, 0});
    }
    return members;
}

void EmbeddedCore::changeMembers(Operation operation, const QString &request,
                                 const QString &roomJid, std::function<bool()> change)
{
    later(operation, [this, request, roomJid, change = std::move(change)](bool may) {
        if (may && change())
            emit roomMembersChanged(roomJid);
        else
            emit requestFailed(request, roomJid);
    });
}

void EmbeddedCore::addRoomMembers(const QString &roomJid, const QStringList &jids)
{
    changeMembers(AddRoomMembers, QStringLiteral("addRoomMembers"), roomJid,
                  [=] { return m_rooms->addMembers(roomJid, ownJid(), membersOf(jids)); });
}

void EmbeddedCore::removeRoomMember(const QString &roomJid, const QString &jid)
{
    changeMembers(RemoveRoomMember, QStringLiteral("removeRoomMember"), roomJid,
                  [=] { return m_rooms->removeMember(roomJid, ownJid(), jid); });
}

void EmbeddedCore::setRoomManager(const QString &roomJid, const QString &jid, bool manager)
{
    changeMembers(SetRoomManager, QStringLiteral("setRoomManager"), roomJid,
                  [=] { return m_rooms->setManager(roomJid, ownJid(), jid, manager); });
}

void EmbeddedCore::handOverRoom(const QString &roomJid, const QString &jid)
{
    changeMembers(HandOverRoom, QStringLiteral("handOverRoom"), roomJid,
                  [=] { return m_rooms->handOver(roomJid, ownJid(), jid); });
}

// --- What others do -----------------------------------------------------------

bool EmbeddedCore::renameByOthers(const QString &roomJid, const QString &subject)
{
    const QList<MucMemberData> members = m_rooms->members(roomJid);
    for (const MucMemberData &member : members) {
        if (member.jid == ownJid() || !m_rooms->rename(roomJid, member.jid, subject))
            continue;
        whenConnected([this, roomJid, subject, name = member.name] {
            emit roomRenamed(roomJid, subject.trimmed(), name);
        });
        return true;
    }
    return false;
}

bool EmbeddedCore::addMemberByOthers(const QString &roomJid, const QString &jid)
{
    const QList<MucMemberData> members = m_rooms->members(roomJid);
    if (members.isEmpty() || !m_rooms->addMembers(roomJid, members.first().jid, membersOf({jid})))
        return false;
    whenConnected([this, roomJid] { emit roomMembersChanged(roomJid); });
    return true;
}

bool EmbeddedCore::setRoomForbidden(const QString &roomJid, bool forbidden)
{
    if (!m_rooms->setForbidden(roomJid, forbidden))
        return false;
    whenConnected([=] { emit roomMuted(roomJid, forbidden); });
    return true;
}

bool EmbeddedCore::setRoomHead(const QString &roomJid, const QString &imagePath)
{
    if (!m_rooms->setHead(roomJid, imagePath))
        return false;
    whenConnected([=] { emit roomHeadChanged(roomJid, imagePath); });
    return true;
}

bool EmbeddedCore::removeFromRoom(const QString &roomJid)
{
    if (!m_rooms->isMember(roomJid, ownJid()) || !m_rooms->forget(roomJid))
        return false;
    whenConnected([=] { emit roomLeft(roomJid); });
    return true;
}

QString EmbeddedCore::makeRoomOfOthers(const QString &subject, const QStringList &jids)
{
    QStringList all = jids;
    all.append(ownJid());
    all.removeDuplicates();
    MucData made;
    if (jids.isEmpty() || !m_rooms->create(subject, membersOf(all), &made) ||
        !m_rooms->setListed(made.roomJid, false))
        return QString();
    return made.roomJid;
}

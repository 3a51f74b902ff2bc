// The embedded core's rooms and messages.
#include "host/core/embeddedcore.h"
#include "host/core/roombook.h"
#include "host/core/rosterbook.h"

#include <QDateTime>

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

QList<MessageData> EmbeddedCore::messages(const QString &jid, int limit) const
{
    return m_rooms->messages(jid, limit);
}

// --- Rooms --------------------------------------------------------------------

void EmbeddedCore::createRoom(const QStringList &jids, const QString &subject)
{
    later(CreateRoom, [this, jids, subject](bool may) {
        QStringList all{ownJid()};
        for (const QString &jid : jids)
            all.append(fullJid(jid));
        all.removeDuplicates();
        QList<MucMemberData> members;
        for (const QString &jid : qAsConst(all)) {
            VcardInfo known;
            if (m_roster->profile(jid, &known))
                members.append({jid, known.nickName, 0});
        }
        MucData made;
        if (may && m_rooms->create(subject, members, &made))
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

// --- Messages -----------------------------------------------------------------

namespace {
MessageData newMessage(const QString &session, const QString &from, const QString &to,
                       const QString &body, MessageData::Kind kind)
{
    MessageData message;
    message.sessionJid = session;
    message.fromJid = from;
    message.toJid = to;
    message.body = body;
    message.kind = kind;
    message.time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    return message;
}
} // namespace

void EmbeddedCore::sendMessage(const QString &jid, MessageData::Kind kind, const QString &body)
{
    later(SendMessage, [this, jid, kind, body](bool may) {
        MessageData message = newMessage(jid, ownJid(), jid, body, kind);
        VcardInfo person;
        MucData target;
        bool known = !jid.isEmpty();
        if (kind == MessageData::Person) {
            known = m_roster->profile(jid, &person);
            message.displayName = displayName(jid);
        } else if (kind == MessageData::Room) {
            known = m_rooms->room(jid, &target) && !target.forbidden;
            message.displayName = target.roomName;
        }
        if (may && known && !body.isEmpty() && m_rooms->addMessage(message))
            emit messageReceived(false, message);
        else
            emit requestFailed(QStringLiteral("sendMessage"), jid);
    });
}

void EmbeddedCore::receiveMessage(const QString &fromJid, const QString &sessionJid,
                                  const QString &body)
{
    if (!m_connected) {
        m_whenConnected.append([=] { receiveMessage(fromJid, sessionJid, body); });
        return;
    }
    MucData target;
    const bool inRoom = m_rooms->room(sessionJid, &target);
    MessageData message = newMessage(sessionJid, fromJid, inRoom ? sessionJid : ownJid(), body,
                                     inRoom ? MessageData::Room : MessageData::Person);
    message.displayName = inRoom ? target.roomName : displayName(fromJid);
    if (m_rooms->addMessage(message))
        emit messageReceived(true, message);
}

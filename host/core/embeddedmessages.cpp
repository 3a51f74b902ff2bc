// The embedded core's messages, channels and service numbers.
#include "host/core/channelbook.h"
#include "host/core/corestore.h"
#include "host/core/embeddedcore.h"
#include "host/core/messagebook.h"
#include "host/core/roombook.h"
#include "host/core/rosterbook.h"
#include "host/core/samplemessages.h"
#include "sample/samplechannels.h"

#include <QDateTime>

#include <algorithm>

// --- Reads --------------------------------------------------------------------

QList<MessageData> EmbeddedCore::messages(const QString &jid, int limit) const
{
    return m_messages->newest(jid, limit);
}

QList<CSChannelData> EmbeddedCore::channels() const
{
    return m_channels->channels();
}

bool EmbeddedCore::channel(const QString &id, CSChannelData *out) const
{
    return m_channels->find(id, out);
}

bool EmbeddedCore::serviceNumber(const QString &jid, CServiceNumData *out) const
{
    return ChannelBook::serviceNumber(jid, out);
}

QString EmbeddedCore::productTeamJid() const
{
    return sampleProductTeam();
}

MessagingCore::Backlog EmbeddedCore::backlog() const
{
    Backlog backlog;
    backlog.messages = m_messages->undelivered();
    // The user reads elsewhere in the evening what came during the day.
    QMap<QString, QString> newest;
    for (const MessageData &message : qAsConst(backlog.messages))
        newest.insert(message.sessionJid, message.time);
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    for (auto at = newest.constBegin(); at != newest.constEnd(); ++at) {
        if (at.value() < today)
            backlog.readSessions.append(at.key());
    }
    return backlog;
}

void EmbeddedCore::clearBacklog()
{
    m_messages->setDelivered();
}

// --- Messages -----------------------------------------------------------------

MessageData EmbeddedCore::messageOf(const QString &session, const QString &from,
                                    const QString &body, const QDateTime &time) const
{
    MessageData message;
    message.sessionJid = session;
    message.fromJid = from;
    message.toJid = from == ownJid() ? session : ownJid();
    message.body = body;
    message.time = time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    MucData room;
    CSChannelData channel;
    CServiceNumData number;
    if (m_rooms->room(session, &room)) {
        message.kind = MessageData::Room;
        message.toJid = session;
        message.displayName = room.roomName;
    } else if (m_channels->find(session, &channel)) {
        message.kind = MessageData::Channel;
        message.displayName = channel.name;
    } else if (ChannelBook::serviceNumber(session, &number)) {
        message.kind = MessageData::ServiceNumber;
        message.displayName = number.name;
        message.appKey = number.code;
    } else {
        message.kind = MessageData::Person;
        message.displayName = displayName(session);
    }
    return message;
}

bool EmbeddedCore::seedMessages()
{
    if (m_messages->isSeeded())
        return true;
    QList<MessageData> messages;
    const auto lines = m_options.sampleFriends
                           ? SampleMessages::history(m_sample, QDateTime::currentDateTime())
                           : QList<SampleMessages::Line>();
    for (const SampleMessages::Line &line : lines) {
        QStringList others;
        for (const MucMemberData &member : m_rooms->members(line.session)) {
            if (member.jid != ownJid())
                others.append(member.jid);
        }
        const bool isRoom = line.session.endsWith(RoomBook::roomDomain());
        if (isRoom && others.isEmpty()) // too small a company for this room
            continue;
        const QString other = isRoom ? others.at(line.speaker % others.size()) : line.session;
        messages.append(
            messageOf(line.session, line.isOwn ? ownJid() : other, line.body, line.time));
    }
    return m_messages->seed(messages);
}

void EmbeddedCore::sendMessage(const QString &jid, MessageData::Kind kind, const QString &body)
{
    later(SendMessage, [this, jid, kind, body](bool may) {
        const MessageData message = messageOf(jid, ownJid(), body, QDateTime::currentDateTime());
        VcardInfo person;
        MucData room;
        const bool isPerson = kind == MessageData::Person;
        const bool known = isPerson ? m_roster->profile(jid, &person)
                                    : message.kind == kind && message.kind != MessageData::Person;
        const bool forbidden = m_rooms->room(jid, &room) && room.forbidden;
        if (may && known && !forbidden && !body.isEmpty() && m_messages->add(message))
            emit messageReceived(false, message);
        else
            emit requestFailed(QStringLiteral("sendMessage"), jid);
    });
}

void EmbeddedCore::announce(const MessageData &message)
{
    MucData room;
    if (m_rooms->room(message.sessionJid, &room) && !room.localExist &&
        m_rooms->setListed(message.sessionJid, true))
        emit localRoomAdded(message.sessionJid, QStringLiteral("auto_save"));
    emit messageReceived(message.fromJid != ownJid(), message);
}

void EmbeddedCore::receiveMessages(const QList<Incoming> &incoming)
{
    whenConnected([this, incoming] {
        QList<MessageData> messages;
        const QDateTime now = QDateTime::currentDateTime();
        for (const Incoming &each : incoming)
            messages.append(messageOf(each.sessionJid, each.fromJid, each.body, now));
        const bool stored = m_store->inTransaction([&] {
            return std::all_of(messages.cbegin(), messages.cend(),
                               [this](const MessageData &each) { return m_messages->add(each); });
        });
        if (!stored)
            return;
        for (const MessageData &message : qAsConst(messages))
            announce(message);
    });
}

void EmbeddedCore::receiveMessage(const QString &fromJid, const QString &sessionJid,
                                  const QString &body)
{
    receiveMessages({{fromJid, sessionJid, body}});
}

// --- Channels -------------------------------------------------------------------

bool EmbeddedCore::removeChannel(const QString &id)
{
    if (!m_channels->remove(id))
        return false;
    whenConnected([this, id] { emit channelRemoved(id); });
    return true;
}

QString EmbeddedCore::restoreChannel()
{
    const QString id = m_channels->removedOne();
    CSChannelData restored;
    if (!m_channels->restore(id) || !m_channels->find(id, &restored))
        return QString();
    whenConnected([this, restored] { emit channelAdded(restored); });
    return id;
}

bool EmbeddedCore::setChannelPicture(const QString &id, const QString &photoName)
{
    if (!m_channels->setPicture(id, photoName))
        return false;
    whenConnected([this, id] { emit channelHeadChanged(id); });
    return true;
}

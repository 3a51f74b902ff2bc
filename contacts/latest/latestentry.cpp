#include "contacts/latest/latestentry.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "contacts/latest/latesttime.h"
#include "controls/pictures.h"
#include "messages/messagebody.h"

namespace {
constexpr int MaximumContent = 1000; // characters of the table's column
constexpr int MaximumShown = 200;    // more than any row has room for
// In the place of the application key that only service numbers have.
constexpr char ChannelMark[] = "channel:";
constexpr char RoomMark[] = "room:";

QString bareJid(const QString &jid)
{
    return jid.section(QLatin1Char('/'), 0, 0);
}

bool isOwn(const QString &jid)
{
    const QString own = ctx().ownJid();
    return !own.isEmpty() && bareJid(jid).compare(own, Qt::CaseInsensitive) == 0;
}

bool isRoom(const QString &jid)
{
    MucData room;
    return ctx().mucData(jid, &room) ||
           jid.section(QLatin1Char('@'), 1).startsWith(QLatin1String("conference."));
}

QString peerOf(bool received, const MessageData &message)
{
    if (!message.sessionJid.isEmpty())
        return message.sessionJid;
    const bool fromOther = ctx().ownJid().isEmpty() ? received : !isOwn(message.fromJid);
    return bareJid(fromOther ? message.fromJid : message.toJid);
}

QString firstShown(const QString &first, const QString &second, const QString &third)
{
    for (const QString &text : {first, second}) {
        const QString shown = displayText(text);
        if (!shown.trimmed().isEmpty())
            return shown;
    }
    return displayText(third);
}

// Who wrote in a room, whose jid may stand before the writer's name.
QString senderName(const QString &roomJid, const MessageData &message)
{
    if (isOwn(message.fromJid))
        return QStringLiteral("");
    if (bareJid(message.fromJid) == roomJid)
        return displayText(message.fromJid.section(QLatin1Char('/'), 1));
    return latestPersonName(bareJid(message.fromJid), QString());
}

QString nameOf(const QString &jid, MessageData::Kind kind, const QString &given)
{
    MucData room;
    if (kind == MessageData::Person)
        return latestPersonName(jid, given);
    if (kind == MessageData::Room && ctx().mucData(jid, &room))
        return firstShown(room.roomName, given, jidUser(jid));
    return firstShown(given, QString(), jidUser(jid));
}

// A message may name a picture, or its file. A file of another machine is not opened.
QString givenIcon(const QString &icon)
{
    if (icon.isEmpty())
        return QStringLiteral("");
    const QString known = ctx().headPath(icon);
    return known.isEmpty() ? localPicture(icon) : known;
}
} // namespace

bool isOwnMessage(const MessageData &message)
{
    return isOwn(message.fromJid);
}

QString latestPersonName(const QString &jid, const QString &otherwise, const VcardInfo *profile)
{
    FriendData contact;
    VcardInfo known;
    ctx().friendData(jid, &contact);
    ctx().vcard(jid, &known);
    contact.jid = jid;
    if (displayText(contact.nickName).trimmed().isEmpty())
        contact.nickName = otherwise;
    return contactDisplayName(contact, profile ? *profile : known);
}

QString latestIcon(const QString &jid, MessageData::Kind kind)
{
    const QString path = ctx().headPath(jid);
    if (!path.isEmpty())
        return path;
    FriendData contact;
    MucData room;
    if (kind == MessageData::Person && ctx().friendData(jid, &contact))
        return contact.headPath;
    if (kind == MessageData::Room && ctx().mucData(jid, &room))
        return ctx().headPath(room.headImage);
    return QStringLiteral("");
}

MessageData::Kind latestKind(const DBFriendData &row)
{
    if (row.isSystemNotice)
        return MessageData::System;
    if (row.appKey == QLatin1String(RoomMark))
        return MessageData::Room;
    if (row.appKey == QLatin1String(ChannelMark))
        return MessageData::Channel;
    if (!row.appKey.isEmpty())
        return MessageData::ServiceNumber;
    return isRoom(row.jid) ? MessageData::Room : MessageData::Person;
}

QString storableContent(const QString &body)
{
    if (body.size() <= MaximumContent)
        return body.isNull() ? QStringLiteral("") : body;
    MessageBody message = readMessageBody(body);
    message.url.clear();
    message.parts.clear();
    QString shorter;
    for (const int length : {MaximumContent, MaximumShown}) {
        for (QString *text : {&message.text, &message.title, &message.name, &message.sender}) {
            const bool splits = text->size() > length && text->at(length - 1).isHighSurrogate();
            text->truncate(splits ? length - 1 : length);
        }
        shorter = writeMessageBody(message);
        if (shorter.size() <= MaximumContent)
            return shorter;
    }
    return messageSummary(message);
}

DBFriendData latestRowOf(bool received, const MessageData &message, const QDateTime &now)
{
    DBFriendData row;
    row.jid = peerOf(received, message);
    if (row.jid.isEmpty())
        return row;
    MessageData::Kind kind = message.kind;
    if (kind == MessageData::Person && isRoom(row.jid))
        kind = MessageData::Room;
    // A message that the user wrote may carry the user's own name.
    const bool namesPeer = received || kind != MessageData::Person;
    row.displayName = nameOf(row.jid, kind, namesPeer ? message.displayName : QString());
    row.icon = latestIcon(row.jid, kind);
    if (row.icon.isEmpty() && namesPeer)
        row.icon = givenIcon(message.icon);
    row.lastContent = storableContent(message.body);
    row.time = storableTime(message.time, now);
    row.isSystemNotice = kind == MessageData::System ? 1 : 0;
    row.isLocalSession = 1;
    FriendData contact;
    if (kind == MessageData::Person && ctx().friendData(row.jid, &contact)) {
        row.accountNo = contact.account;
        row.signature = contact.sign;
        row.onJob = contact.onJob;
    } else if (kind == MessageData::Room) {
        row.appKey = QLatin1String(RoomMark);
        row.signature = received ? senderName(row.jid, message) : QStringLiteral("");
    } else if (kind == MessageData::ServiceNumber) {
        row.appKey = message.appKey.isEmpty() ? jidUser(row.jid) : message.appKey;
    } else if (kind == MessageData::Channel) {
        row.appKey = QLatin1String(ChannelMark);
    }
    return row;
}

void setLatestTime(LatestEntry *entry, const QString &stored, const QDateTime &now)
{
    entry->row.time = stored;
    entry->order = timeOrder(stored, now);
}

LatestEntry makeLatestEntry(const DBFriendData &row, const QDateTime &now)
{
    LatestEntry entry;
    entry.row = row;
    entry.kind = latestKind(row);
    setLatestTime(&entry, row.time, now);
    entry.row.displayName = nameOf(row.jid, entry.kind, row.displayName);
    const QString icon = latestIcon(row.jid, entry.kind);
    if (!icon.isEmpty())
        entry.row.icon = icon;
    entry.row.isTop = ctx().isSessionTop(row.jid) ? 1 : 0;
    FriendData contact;
    MucData room;
    if (entry.kind == MessageData::Person) {
        entry.knowsPresence = ctx().friendData(row.jid, &contact);
        if (entry.knowsPresence)
            entry.row.onJob = contact.onJob;
        entry.presence = ctx().presence(row.jid);
        ctx().cooperates(row.jid, &entry.cooperates);
        entry.outside = isExternal(row.jid);
    } else if (entry.kind == MessageData::Room && ctx().mucData(row.jid, &room)) {
        entry.forbidden = room.forbidden;
    }
    return entry;
}

QString latestContentText(const LatestEntry &entry)
{
    const QString summary = messageSummary(entry.row.lastContent);
    if (entry.kind != MessageData::Room || entry.row.signature.isEmpty() || summary.isEmpty())
        return summary;
    return displayText(entry.row.signature) + QLatin1String(": ") + summary;
}

// What the host tells of those who are listed: names, pictures, presence.
#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "common/logging.h"
#include "contacts/latest/latestlist.h"
#include "contacts/latest/mylatestfriendwidget.h"
#include "controls/avatarstore.h"

// --- Rooms, service numbers, channels ----------------------------------------------

void MyLatestFriendWidget::rename(const QString &jid, const QString &name)
{
    const LatestEntry *entry = m_list->find(jid);
    const QString shown = displayText(name);
    if (entry && !shown.trimmed().isEmpty() && entry->row.displayName != shown)
        m_list->change(
            jid, [&shown](LatestEntry &renamed) { renamed.row.displayName = shown; },
            LatestWriter::Name);
}

void MyLatestFriendWidget::setIcon(const QString &jid, const QString &file)
{
    // The file may be the same with another picture in it.
    AvatarStore::instance().refresh(file);
    m_list->change(
        jid, [&file](LatestEntry &entry) { entry.row.icon = file; }, LatestWriter::Icon);
}

void MyLatestFriendWidget::slot_updateRoomSubject(QString roomjid, QString roomsubject,
                                                  QString strModifier)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_updateRoomSubject(QString roomjid, QString roomsubject, "
              "QString strModifier)");
    Q_UNUSED(strModifier)
    rename(roomjid, roomsubject);
}

void MyLatestFriendWidget::slot_updateRoomHeadImage(QString strRootJid, QString strHeadPath)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_updateRoomHeadImage(QString strRootJid, QString "
              "strHeadPath)");
    setIcon(strRootJid, strHeadPath);
}

void MyLatestFriendWidget::slot_addMucItem(MucData room, bool bAdd)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_addMucItem(MucData data, bool bAdd)");
    Q_UNUSED(bAdd)
    const LatestEntry *entry = m_list->find(room.roomJid);
    if (!entry)
        return;
    rename(room.roomJid, room.roomName);
    const QString icon = latestIcon(room.roomJid, MessageData::Room);
    if (!icon.isEmpty() && icon != entry->row.icon)
        setIcon(room.roomJid, icon);
    if (entry->forbidden != room.forbidden || entry->kind != MessageData::Room)
        m_list->change(room.roomJid, [&room](LatestEntry &changed) {
            changed.kind = MessageData::Room;
            changed.forbidden = room.forbidden;
        });
}

void MyLatestFriendWidget::slot_notifyDownloadServiceIconResult(QString strServiceCode,
                                                                QString strIconPath)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_notifyDownloadServiceIconResult(QString strServiceCode, "
              "QString strIconPath)");
    AvatarStore::instance().refresh(strIconPath);
    m_list->changeEach(
        [&](LatestEntry &entry) {
            const bool meant =
                entry.kind == MessageData::ServiceNumber &&
                (jidUser(entry.row.jid) == strServiceCode || entry.row.appKey == strServiceCode);
            if (meant)
                entry.row.icon = strIconPath;
            return meant;
        },
        LatestWriter::Icon);
}

void MyLatestFriendWidget::slot_notifyUpdateChannelHead(QString strChannelId, QString strIconPath)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_notifyUpdateChannelHead(QString strChannelId, QString "
              "strIconPath)");
    setIcon(strChannelId, strIconPath);
}

// --- People ------------------------------------------------------------------------

// The roster may come when the list has been read.
void MyLatestFriendWidget::updateContacts(const QList<FriendData> &contacts)
{
    for (const FriendData &contact : contacts) {
        const LatestEntry *entry = m_list->find(contact.jid);
        if (!entry || entry->kind != MessageData::Person)
            continue;
        rename(contact.jid, latestPersonName(contact.jid, entry->row.displayName));
        const QString icon = latestIcon(contact.jid, MessageData::Person);
        if (!icon.isEmpty() && icon != entry->row.icon)
            setIcon(contact.jid, icon);
        m_list->change(contact.jid, [&contact](LatestEntry &person) {
            person.knowsPresence = true;
            person.presence = ctx().presence(contact.jid);
            person.row.onJob = contact.onJob;
            person.outside = isExternal(contact.jid);
        });
    }
}

void MyLatestFriendWidget::clearContent(const QString &jid)
{
    const auto apply = [](LatestEntry &entry) {
        entry.row.lastContent = QStringLiteral("");
        entry.row.unread = 0;
    };
    m_list->changeStored(jid, apply, LatestWriter::Row);
}

void MyLatestFriendWidget::slot_delFriend(QString friendJid)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_delFriend(QString friendJid)");
    // What was written stays; whether the person is there is nobody's business now.
    m_list->change(friendJid, [&friendJid](LatestEntry &entry) {
        entry.knowsPresence = false;
        entry.presence = PresenceData();
        entry.cooperates = false;
        entry.outside = isExternal(friendJid);
    });
}

void MyLatestFriendWidget::slot_updateFriend(QString friendJid, VcardInfo v_info)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_updateFriend(QString friendJid, VcardInfo v_info)");
    const LatestEntry *entry = m_list->find(friendJid);
    if (!entry || entry->kind != MessageData::Person)
        return;
    rename(friendJid, latestPersonName(friendJid, entry->row.displayName, &v_info));
    const QString icon = ctx().headPath(v_info.photoName);
    if (!icon.isEmpty() && icon != entry->row.icon)
        setIcon(friendJid, icon);
}

void MyLatestFriendWidget::slot_updateFriendRemarkName(QString strJid, QString strName)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_updateFriendRemarkName(QString strJid, QString strName)");
    // Without a remark the person's own name comes back.
    if (!displayText(strName).trimmed().isEmpty()) {
        rename(strJid, strName);
        return;
    }
    FriendData contact;
    VcardInfo profile;
    ctx().friendData(strJid, &contact);
    ctx().vcard(strJid, &profile);
    contact.jid = strJid;
    contact.remark.clear();
    rename(strJid, contactDisplayName(contact, profile));
}

void MyLatestFriendWidget::slot_updateFriendPresence(QMap<QString, PresenceData> presencDataMap)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_updateFriendPresence(QMap<QString,PresenceData> "
              "presencDataMap)");
    for (auto at = presencDataMap.cbegin(); at != presencDataMap.cend(); ++at) {
        const LatestEntry *entry = m_list->find(at.key());
        if (entry && entry->kind == MessageData::Person && !(entry->presence == at.value()))
            m_list->change(at.key(), [&at](LatestEntry &person) { person.presence = at.value(); });
    }
}

void MyLatestFriendWidget::slot_doAllOffline()
{
    LOG_SCOPE("MyLatestFriendWidget::slot_doAllOffline()");
    m_list->changeEach([](LatestEntry &entry) {
        const bool changes = entry.presence.isOnline();
        entry.presence = PresenceData();
        return changes;
    });
}

void MyLatestFriendWidget::slot_notifyCooperate(QMap<QString, bool> mapCooperateRelation)
{
    LOG_SCOPE("MyLatestFriendWidget::slot_notifyCooperate(QMap<QString,bool> "
              "mapCooperateRelation)");
    for (auto at = mapCooperateRelation.cbegin(); at != mapCooperateRelation.cend(); ++at)
        m_list->change(at.key(), [&at](LatestEntry &entry) {
            entry.cooperates = at.value();
            entry.outside = entry.kind == MessageData::Person && isExternal(at.key());
        });
}

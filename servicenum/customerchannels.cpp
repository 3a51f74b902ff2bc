#include "servicenum/customerchannels.h"

#include "common/context.h"
#include "common/localdatabase.h"
#include "common/logging.h"
#include "controls/avatarstore.h"
#include "plugin/frienduisignalsender.h"

namespace {
QString knownPicture(const CSChannelData &data)
{
    const QString file = data.photoName.isEmpty() ? QString() : ctx().headPath(data.photoName);
    return file.isEmpty() ? ctx().headPath(data.id) : file;
}

// What the list of latest contacts has stored in an earlier session, or while the
// channel was away.
int storedUnread(const QString &id)
{
    LocalDatabase &database = LocalDatabase::instance();
    QSqlQuery query =
        database.prepared(QStringLiteral("SELECT unread FROM latestunread WHERE jid = ?"));
    query.bindValue(0, id);
    const bool known =
        database.isOpen() && database.run(&query, "CustomerChannels::add") && query.next();
    const int unread = known ? qMax(0, query.value(0).toInt()) : 0;
    query.finish();
    return unread;
}
} // namespace

CustomerChannels &CustomerChannels::instance()
{
    static auto *channels = new CustomerChannels;
    return *channels;
}

CustomerChannels::CustomerChannels()
{
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_notifyAddChannel, this, &CustomerChannels::add);
    connect(hub, &Hub::signal_notifyRemoveChannel, this, &CustomerChannels::remove);
    connect(hub, &Hub::signal_notifyUpdateChannelHead, this, &CustomerChannels::setPicture);
    connect(hub, &Hub::signal_latestFriend, this, &CustomerChannels::messageCame);
    connect(hub, &Hub::signal_logout, this, &CustomerChannels::clear);
    const auto read = [this](const QString &jid) { setUnread(jid, 0); };
    connect(hub, &Hub::signal_paintDelegateMsgCount, this, read);
    connect(hub, &Hub::signal_updateLatestContact, this, read);
}

const CustomerChannels::Channel *CustomerChannels::find(const QString &id) const
{
    const auto channel = m_channels.constFind(id);
    return channel == m_channels.constEnd() ? nullptr : &channel.value();
}

QVector<CustomerChannels::Channel> CustomerChannels::channels() const
{
    return QVector<Channel>(m_channels.begin(), m_channels.end());
}

void CustomerChannels::add(const CSChannelData &data)
{
    if (data.id.isEmpty()) {
        LOG_ERROR("a channel without an id was delivered");
        return;
    }
    const auto known = m_channels.find(data.id);
    if (known == m_channels.end()) {
        m_channels.insert(data.id,
                          {data, knownPicture(data), m_delivered++, storedUnread(data.id)});
    } else if (known->data == data) {
        return;
    } else {
        if (known->data.photoName != data.photoName)
            known->picture = knownPicture(data);
        known->data = data;
    }
    emit changed(data.id);
}

void CustomerChannels::remove(const QString &id)
{
    const QString gone = id; // may be a part of what is removed
    if (m_channels.remove(gone) > 0)
        emit removed(gone);
}

void CustomerChannels::setPicture(const QString &id, const QString &file)
{
    const auto channel = m_channels.find(id);
    if (channel == m_channels.end())
        return;
    // Also under the name it had: the file was written anew.
    AvatarStore::instance().refresh(file);
    channel->picture = file;
    emit changed(id);
}

void CustomerChannels::clear()
{
    m_channels.clear();
    m_delivered = 0;
    emit cleared();
}

void CustomerChannels::messageCame(bool received, const MessageData &message)
{
    if (message.kind != MessageData::Channel)
        return;
    const Channel *channel = find(message.sessionJid);
    if (channel)
        setUnread(message.sessionJid, received ? channel->unread + 1 : 0);
}

void CustomerChannels::setUnread(const QString &id, int unread)
{
    const auto channel = m_channels.find(id);
    if (channel == m_channels.end() || channel->unread == unread)
        return;
    channel->unread = unread;
    emit changed(id);
}

#include "host/core/channelbook.h"

#include "host/core/corestore.h"
#include "sample/samplechannels.h"
#include "sample/samplecompany.h"

#include <QDateTime>

#include <algorithm>

namespace {
const QString RemovedKey = QStringLiteral("channelsRemoved");
constexpr QLatin1Char Separator(',');

QString pictureKey(const QString &id)
{
    return QStringLiteral("channelPicture:") + id;
}

// Today, in ms since the epoch; 0 when it is always open.
qint64 momentOf(const SampleChannel &channel, int hour)
{
    if (channel.opens == channel.closes)
        return 0;
    return QDateTime(QDate::currentDate(), QTime(hour, 0)).toMSecsSinceEpoch();
}

CSChannelData recordOf(const SampleChannel &sample)
{
    CSChannelData channel;
    channel.id = sample.id;
    channel.name = sample.name;
    channel.photoName = sample.pictureName;
    channel.version = QStringLiteral("1");
    channel.workgroups = sample.workGroups;
    channel.openTime = momentOf(sample, sample.opens);
    channel.closeTime = momentOf(sample, sample.closes);
    channel.isAgent = sample.isAgent;
    channel.isOpen = sample.isOpen;
    return channel;
}
} // namespace

ChannelBook::ChannelBook(CoreStore *store) : m_store(store) {}

void ChannelBook::load()
{
    m_channels.clear();
    for (const SampleChannel &sample : sampleChannels()) {
        CSChannelData channel = recordOf(sample);
        const QString picture = m_store->meta(pictureKey(sample.id));
        if (!picture.isEmpty())
            channel.photoName = picture;
        m_channels.append(channel);
    }
    m_removed = m_store->meta(RemovedKey).split(Separator, Qt::SkipEmptyParts);
}

int ChannelBook::placeOf(const QString &id) const
{
    const auto found = std::find_if(m_channels.begin(), m_channels.end(),
                                    [&](const CSChannelData &channel) { return channel.id == id; });
    return found == m_channels.end() ? -1 : int(found - m_channels.begin());
}

QList<CSChannelData> ChannelBook::channels() const
{
    QList<CSChannelData> present;
    for (const CSChannelData &channel : m_channels) {
        if (!m_removed.contains(channel.id))
            present.append(channel);
    }
    return present;
}

bool ChannelBook::find(const QString &id, CSChannelData *out) const
{
    const int place = placeOf(id);
    if (place < 0 || m_removed.contains(id))
        return false;
    *out = m_channels.at(place);
    return true;
}

QString ChannelBook::removedOne() const
{
    return m_removed.value(0);
}

bool ChannelBook::storeRemoved()
{
    return m_store->setMeta(RemovedKey, m_removed.join(Separator));
}

bool ChannelBook::remove(const QString &id)
{
    if (placeOf(id) < 0 || m_removed.contains(id))
        return false;
    m_removed.append(id);
    return storeRemoved();
}

bool ChannelBook::restore(const QString &id)
{
    return m_removed.removeOne(id) && storeRemoved();
}

bool ChannelBook::setPicture(const QString &id, const QString &photoName)
{
    const int place = placeOf(id);
    if (place < 0 || !m_store->setMeta(pictureKey(id), photoName))
        return false;
    m_channels[place].photoName = photoName;
    return true;
}

QString ChannelBook::serviceNumberJid(const QString &code)
{
    return code + QLatin1Char('@') + SampleCompany::domain();
}

bool ChannelBook::serviceNumber(const QString &codeOrJid, CServiceNumData *out)
{
    for (const SampleServiceNumber &sample : sampleServiceNumbers()) {
        if (codeOrJid != sample.code && codeOrJid != serviceNumberJid(sample.code))
            continue;
        *out = CServiceNumData();
        out->code = sample.code;
        out->name = sample.name;
        out->description = sample.description;
        if (sample.hasIcon)
            out->icon = sample.code + QStringLiteral(".png");
        out->subType = sample.kind;
        out->isSub = sample.isSubscribed;
        out->isInteractive = sample.isInteractive;
        out->subject = sample.subject;
        out->contactWay = sample.contact;
        out->fold = sample.isFolded;
        return true;
    }
    return false;
}

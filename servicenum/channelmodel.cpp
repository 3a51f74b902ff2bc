#include "servicenum/channelmodel.h"

#include "common/displaytext.h"
#include "servicenum/customerserverroles.h"

#include <utility>

namespace {

// More work groups than anybody reads in a line.
constexpr int MaximumGroups = 20;

QString nameOf(const CSChannelData &data)
{
    const QString name = displayText(data.name);
    return name.trimmed().isEmpty() ? displayText(data.id) : name;
}

QString stateOf(const CSChannelData &data)
{
    return data.isOpen ? QObject::tr("channelOpen") : QObject::tr("channelClosed");
}

QStringList workGroups(const CSChannelData &data)
{
    QStringList shown;
    for (const QString &group : data.workgroups) {
        const QString name = displayText(group);
        if (!name.trimmed().isEmpty())
            shown.append(name);
        if (shown.size() == MaximumGroups)
            break;
    }
    return shown;
}

QString secondLine(const CSChannelData &data)
{
    const QString groups = workGroups(data).join(QObject::tr("listSeparator"));
    const QString state = stateOf(data);
    return groups.isEmpty() ? state : state + QString::fromUtf8(" · ") + groups;
}

QString toolTip(const CSChannelData &data)
{
    return toolTipText(
        (QStringList{nameOf(data), stateOf(data)} + workGroups(data)).join(QLatin1Char('\n')));
}

// What a screen reader says of a row.
QString spoken(const ChannelRow &row)
{
    QStringList parts{nameOf(row.channel.data), secondLine(row.channel.data)};
    if (row.pin > 0)
        parts.append(QObject::tr("channelPinned"));
    if (row.channel.unread > 0) {
        QString unread = QObject::tr("channelUnread");
        parts.append(unread.replace(QLatin1String("%1"), QString::number(row.channel.unread)));
    }
    return parts.join(QStringLiteral(", "));
}

} // namespace

void ChannelModel::load()
{
    const CustomerChannels &delivered = CustomerChannels::instance();
    QStringList gone;
    forEach([&](const ChannelRow &row) {
        if (!delivered.find(row.channel.data.id))
            gone.append(row.channel.data.id);
    });
    for (const QString &id : qAsConst(gone))
        remove(id);
    const QVector<CustomerChannels::Channel> channels = delivered.channels();
    QVector<ChannelRow> rows;
    rows.reserve(channels.size());
    for (const CustomerChannels::Channel &channel : channels)
        rows.append({channel, pinOf(channel.data.id)});
    putAll(rows);
}

void ChannelModel::update(const QString &id)
{
    if (const CustomerChannels::Channel *channel = CustomerChannels::instance().find(id))
        put({*channel, pinOf(id)});
    else
        remove(id);
}

int ChannelModel::pinOf(const QString &id) const
{
    const int at = m_pins.indexOf(id);
    return at < 0 ? 0 : m_pins.size() - at;
}

void ChannelModel::repin(const QString &id)
{
    const ChannelRow *row = find(id);
    const int pin = pinOf(id);
    if (row && row->pin != pin)
        change(id, [pin](ChannelRow &changed) { changed.pin = pin; });
}

void ChannelModel::setPins(const QStringList &pins)
{
    const QStringList before = std::exchange(m_pins, pins);
    for (const QString &id : before + pins)
        repin(id);
}

QVariant ChannelModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const ChannelRow &row = at(index.row());
    const CSChannelData &data = row.channel.data;
    switch (role) {
    case Qt::DisplayRole:
    case ChannelRole::Name:
        return nameOf(data);
    case ChannelRole::Id:
        return data.id;
    case ChannelRole::Picture:
        return row.channel.picture;
    case ChannelRole::State:
        return data.isOpen;
    case ChannelRole::SortKey:
        return index.row();
    case ChannelRole::Second:
        return secondLine(data);
    case ChannelRole::Unread:
        return row.channel.unread;
    case ChannelRole::Pinned:
        return row.pin > 0;
    case Qt::ToolTipRole:
        return toolTip(data);
    case Qt::AccessibleTextRole:
        return spoken(row);
    default:
        return QVariant();
    }
}

void ChannelModel::retranslate()
{
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1));
}

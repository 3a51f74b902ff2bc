#include "host/eventmonitor/eventmodel.h"

#include "host/eventmonitor/payloaddecoder.h"

#include <QDateTime>
#include <QJsonObject>

namespace {

const EventInfo *infoOf(const EventRecord &record)
{
    return EventCatalogue::find(record.direction, record.code);
}

QString timeText(qint64 time)
{
    return QDateTime::fromMSecsSinceEpoch(time).toString(QStringLiteral("hh:mm:ss.zzz"));
}

} // namespace

EventModel::EventModel(QObject *parent, int capacity)
    : RecordModel(parent), m_capacity(qMax(1, capacity))
{
}

void EventModel::record(const EventRecord &record)
{
    m_pending.push_back(record);
    m_pendingBytes += record.payload.size();
    while (m_pending.size() > size_t(m_capacity) ||
           (m_pendingBytes > MaximumBytes && m_pending.size() > 1)) {
        m_pendingBytes -= m_pending.front().payload.size();
        m_pending.pop_front();
        ++m_dropped;
    }
}

// Removes from the front what the pending events push out.
void EventModel::makeRoom()
{
    int surplus = 0;
    qint64 bytes = m_bytes + m_pendingBytes;
    const int most = m_capacity - int(m_pending.size());
    while (surplus < int(m_rows.size()) &&
           (int(m_rows.size()) - surplus > most || bytes > MaximumBytes)) {
        bytes -= m_rows[size_t(surplus)].record.payload.size();
        ++surplus;
    }
    if (surplus == 0)
        return;
    beginRemoveRows(QModelIndex(), 0, surplus - 1);
    m_rows.erase(m_rows.begin(), m_rows.begin() + surplus);
    endRemoveRows();
    m_bytes = bytes - m_pendingBytes;
    m_dropped += surplus;
}

void EventModel::flush()
{
    if (m_pending.empty())
        return;
    makeRoom();
    const int first = int(m_rows.size());
    beginInsertRows(QModelIndex(), first, first + int(m_pending.size()) - 1);
    for (EventRecord &record : m_pending)
        m_rows.push_back({std::move(record), QString()});
    m_bytes += m_pendingBytes;
    m_pending.clear();
    m_pendingBytes = 0;
    endInsertRows();
}

void EventModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_pending.clear();
    m_bytes = m_pendingBytes = m_dropped = 0;
    endResetModel();
}

int EventModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int EventModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QString EventModel::nameOf(const EventRecord &record)
{
    const EventInfo *info = infoOf(record);
    return info ? QString::fromLatin1(info->name) : QStringLiteral("?");
}

const QString &EventModel::summary(const Row &row) const
{
    if (row.summary.isNull()) {
        row.summary =
            PayloadDecoder::decode(infoOf(row.record), row.record.payload, PayloadDecoder::Brief)
                .summary();
        if (row.summary.isNull())
            row.summary = QLatin1String("");
    }
    return row.summary;
}

QString EventModel::text(const Row &row, int column) const
{
    switch (Column(column)) {
    case Time:
        return timeText(row.record.time);
    case Direction:
        return row.record.direction == EventInfo::ToPlugin ? tr("→ plug-in") : tr("← plug-in");
    case Code:
        return QString::number(row.record.code);
    case Name:
        return nameOf(row.record);
    case Sender:
        return EventCatalogue::receiverName(row.record.sender);
    case Receiver:
        return EventCatalogue::receiverName(row.record.receiver);
    case Payload:
        return summary(row);
    case ColumnCount:
        break;
    }
    return QString();
}

QVariant EventModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const Row &row = m_rows[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return text(row, index.column());
    case Qt::TextAlignmentRole:
        return index.column() == Code ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter))
                                      : QVariant();
    case Qt::ToolTipRole: {
        if (index.column() != Name)
            return QVariant();
        const EventInfo *info = infoOf(row.record);
        return info ? QString::fromLatin1(info->purpose) : QVariant();
    }
    case CodeRole:
        return row.record.code;
    case DirectionRole:
        return int(row.record.direction);
    default:
        return QVariant();
    }
}

QVariant EventModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (Column(section)) {
    case Time:
        return tr("Time");
    case Direction:
        return tr("Direction");
    case Code:
        return tr("Code");
    case Name:
        return tr("Name");
    case Sender:
        return tr("Sender");
    case Receiver:
        return tr("Receiver");
    case Payload:
        return tr("Payload");
    case ColumnCount:
        break;
    }
    return QVariant();
}

QString EventModel::asText(const QVector<int> &rows) const
{
    QStringList lines;
    for (int row : rows) {
        QStringList cells;
        for (int column = 0; column < ColumnCount; ++column)
            cells.append(text(m_rows[size_t(row)], column).simplified());
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

QJsonArray EventModel::asJson(const QVector<int> &rows) const
{
    QJsonArray array;
    for (int row : rows) {
        const EventRecord &record = at(row);
        const DecodedPayload decoded =
            PayloadDecoder::decode(infoOf(record), record.payload, PayloadDecoder::Full);
        QJsonObject object{
            {QStringLiteral("time"),
             QDateTime::fromMSecsSinceEpoch(record.time).toString(Qt::ISODateWithMs)},
            {QStringLiteral("direction"), record.direction == EventInfo::ToPlugin
                                              ? QStringLiteral("toPlugin")
                                              : QStringLiteral("fromPlugin")},
            {QStringLiteral("code"), record.code},
            {QStringLiteral("name"), nameOf(record)},
            {QStringLiteral("sender"), record.sender},
            {QStringLiteral("receiver"), record.receiver},
            {QStringLiteral("payload"), decoded.json()}};
        if (decoded.status != DecodedPayload::Complete)
            object.insert(QStringLiteral("problem"), decoded.statusText());
        array.append(object);
    }
    return array;
}

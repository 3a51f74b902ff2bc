#include "host/eventmonitor/webrequestmodel.h"

#include "common/displaytext.h"
#include "host/eventmonitor/webmask.h"

namespace {
constexpr int LongestMethod = 16;
constexpr int LongestTime = 32;
constexpr int DateLength = 11; // "yyyy-MM-dd "
} // namespace

WebRequestModel::WebRequestModel(QObject *parent, int capacity)
    : RecordModel(parent), m_capacity(qMax(1, capacity))
{
}

void WebRequestModel::record(const WebRequestRecord &record)
{
    WebRequestRecord kept = record;
    kept.method = record.method.simplified().left(LongestMethod);
    kept.time = record.time.simplified().left(LongestTime);
    kept.address = WebMask::address(record.address);
    kept.error = WebMask::text(record.error);
    m_pending.push_back(kept);
    if (m_pending.size() > size_t(m_capacity)) {
        m_pending.pop_front();
        ++m_dropped;
    }
}

void WebRequestModel::flush()
{
    if (m_pending.empty())
        return;
    const int surplus = int(m_rows.size() + m_pending.size()) - m_capacity;
    if (surplus > 0 && !m_rows.empty()) {
        beginRemoveRows(QModelIndex(), 0, surplus - 1);
        m_rows.erase(m_rows.begin(), m_rows.begin() + surplus);
        endRemoveRows();
        m_dropped += surplus;
    }
    const int first = int(m_rows.size());
    beginInsertRows(QModelIndex(), first, first + int(m_pending.size()) - 1);
    m_rows.insert(m_rows.end(), m_pending.begin(), m_pending.end());
    m_pending.clear();
    endInsertRows();
}

void WebRequestModel::clear()
{
    beginResetModel();
    m_rows.clear();
    m_pending.clear();
    m_dropped = 0;
    endResetModel();
}

int WebRequestModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int WebRequestModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QString WebRequestModel::text(const WebRequestRecord &record, int column)
{
    switch (Column(column)) {
    case Time:
        return record.time;
    case Method:
        return record.method;
    case Status:
        return record.status == 0 ? QString::fromUtf8("–") : QString::number(record.status);
    case Duration:
        return QString::number(record.duration);
    case Sent:
        return QString::number(record.sent);
    case Received:
        return QString::number(record.received);
    case Address:
        return record.address;
    case Error:
        return record.error;
    case ColumnCount:
        break;
    }
    return QString();
}

QVariant WebRequestModel::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return QVariant();
    const WebRequestRecord &row = m_rows[size_t(index.row())];
    const int column = index.column();
    const bool isNumber = column >= Status && column <= Received;
    switch (role) {
    case Qt::DisplayRole:
        return column == Time ? row.time.mid(DateLength) : text(row, column);
    case Qt::TextAlignmentRole:
        return isNumber ? QVariant(int(Qt::AlignRight | Qt::AlignVCenter)) : QVariant();
    case Qt::ToolTipRole:
        return column == Address || column == Error ? toolTipText(text(row, column)) : QVariant();
    default:
        return QVariant();
    }
}

QVariant WebRequestModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (Column(section)) {
    case Time:
        return tr("Time");
    case Method:
        return tr("Method");
    case Status:
        return tr("Status");
    case Duration:
        return tr("ms");
    case Sent:
        return tr("Bytes sent");
    case Received:
        return tr("Bytes received");
    case Address:
        return tr("Address");
    case Error:
        return tr("Error");
    case ColumnCount:
        break;
    }
    return QVariant();
}

QString WebRequestModel::asText(const QVector<int> &rows) const
{
    QStringList lines;
    for (int row : rows) {
        QStringList cells;
        for (int column = 0; column < ColumnCount; ++column)
            cells.append(text(m_rows[size_t(row)], column));
        lines.append(cells.join(QLatin1Char('\t')));
    }
    return lines.join(QLatin1Char('\n'));
}

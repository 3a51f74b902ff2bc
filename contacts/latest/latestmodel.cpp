#include "contacts/latest/latestmodel.h"

#include "common/displaytext.h"
#include "contacts/latest/latestcontactstable.h"
#include "contacts/latest/latestroles.h"
#include "contacts/latest/latesttime.h"
#include "controls/outsidemark.h"
#include "controls/presencetext.h"

LatestModel::LatestModel(QObject *parent)
    : KeyedListModel(parent), m_clock(&QDateTime::currentDateTime)
{
}

bool LatestModel::isShown(const LatestEntry &entry) const
{
    return LatestContactsTable::isListable(entry.row, entry.muted);
}

QString LatestModel::timeText(const LatestEntry &entry) const
{
    return latestTimeText(readStoredTime(entry.row.time), m_clock());
}

QVariant LatestModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const LatestEntry &entry = at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case LatestRole::Name:
        return entry.row.displayName;
    case LatestRole::Id:
        return entry.row.jid;
    case LatestRole::Icon:
        return entry.row.icon;
    case LatestRole::Presence:
        return int(entry.presence.pcShow);
    case LatestRole::MobilePresence:
        return entry.presence.mobile;
    case LatestRole::ShowsPresence:
        return entry.knowsPresence || entry.presence.isOnline();
    case LatestRole::Cooperate:
        return entry.cooperates;
    case LatestRole::Outside:
        return entry.outside;
    case LatestRole::Content:
        return latestContentText(entry);
    case LatestRole::Time:
        return entry.row.time;
    case LatestRole::TimeText:
        return timeText(entry);
    case LatestRole::Kind:
        return int(entry.kind);
    case LatestRole::Muted:
        return entry.forbidden;
    case LatestRole::Unread:
        return entry.row.unread;
    case LatestRole::Pinned:
        return entry.row.isTop != 0;
    case Qt::ToolTipRole:
        return toolTipText(entry.row.displayName + QLatin1Char('\n') +
                           (entry.outside ? outsideText() + QLatin1Char('\n') : QString()) +
                           entry.row.time);
    case Qt::AccessibleTextRole:
        return accessibleText(entry);
    default:
        return QVariant();
    }
}

void LatestModel::timeTextsChanged()
{
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1),
                         {LatestRole::TimeText, Qt::AccessibleTextRole});
}

QString LatestModel::accessibleText(const LatestEntry &entry) const
{
    QStringList parts{entry.row.displayName};
    if (entry.outside)
        parts.append(outsideText());
    if (entry.knowsPresence || entry.presence.isOnline())
        parts.append(presenceText(entry.presence));
    if (entry.row.unread > 0)
        parts.append(QObject::tr("unreadMessages").arg(entry.row.unread));
    if (entry.row.isTop)
        parts.append(QObject::tr("pinned"));
    if (entry.forbidden)
        parts.append(QObject::tr("mayNotWrite"));
    parts.append(timeText(entry));
    parts.append(latestContentText(entry));
    parts.removeAll(QString());
    return parts.join(QStringLiteral(", "));
}

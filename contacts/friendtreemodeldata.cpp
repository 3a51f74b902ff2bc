// What views read from the friend tree's model.
#include "common/context.h"
#include "common/displaytext.h"
#include "contacts/friendtreemodel.h"
#include "controls/outsidemark.h"
#include "controls/presencetext.h"

#include <QTimer>

QModelIndex FriendTreeModel::indexOf(const Group *group) const
{
    return createIndex(group->row, 0, nullptr);
}

QModelIndex FriendTreeModel::indexOf(const Contact *contact) const
{
    if (contact->hidden || !contact->group)
        return QModelIndex();
    return createIndex(FriendTreeOrder::rowOf(contact->group->rows, contact), 0, contact->group);
}

QModelIndex FriendTreeModel::contactIndex(const QString &jid) const
{
    const Contact *contact = find(jid);
    return contact ? indexOf(contact) : QModelIndex();
}

QModelIndex FriendTreeModel::groupIndex(const QString &id) const
{
    const Group *known = group(id);
    return known ? indexOf(known) : QModelIndex();
}

// A contact's index points to its group, a group's index to nothing.
QModelIndex FriendTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (column != 0 || row < 0 || row >= rowCount(parent))
        return QModelIndex();
    return createIndex(row, 0, parent.isValid() ? m_groups[size_t(parent.row())].get() : nullptr);
}

QModelIndex FriendTreeModel::parent(const QModelIndex &child) const
{
    const auto *group = static_cast<const Group *>(child.internalPointer());
    return group ? indexOf(group) : QModelIndex();
}

int FriendTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return int(m_groups.size());
    if (parent.internalPointer() || parent.column() != 0)
        return 0;
    return int(m_groups[size_t(parent.row())]->rows.size());
}

int FriendTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

bool FriendTreeModel::hasChildren(const QModelIndex &parent) const
{
    return rowCount(parent) > 0;
}

Qt::ItemFlags FriendTreeModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
    const auto *group = static_cast<const Group *>(index.internalPointer());
    if (group) {
        flags |= Qt::ItemNeverHasChildren;
        if (group->rows[size_t(index.row())].contact != m_ownContact)
            flags |= Qt::ItemIsDragEnabled;
    }
    return flags;
}

QStringList FriendTreeModel::mimeTypes() const
{
    return {QStringLiteral("application/x-friendui-contacts")};
}

QVariant FriendTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const auto *group = static_cast<const Group *>(index.internalPointer());
    return group ? contactData(*group->rows[size_t(index.row())].contact, role)
                 : groupData(*m_groups[size_t(index.row())], role);
}

QVariant FriendTreeModel::groupData(const Group &group, int role) const
{
    switch (role) {
    case Qt::DisplayRole:
        return displayText(group.name);
    case FriendTreeRole::Name:
        return group.name;
    case FriendTreeRole::Id:
        return group.id;
    case FriendTreeRole::SortKey:
        return FriendTreeSort::groupKey(group.name);
    case FriendTreeRole::Kind:
        return int(GroupRow);
    case FriendTreeRole::OnlineCount:
        return group.online;
    case FriendTreeRole::TotalCount:
        return group.total();
    case Qt::AccessibleTextRole:
        return QStringLiteral("%1, %2/%3")
            .arg(displayText(group.name), QString::number(group.online),
                 QString::number(group.total()));
    default:
        return QVariant();
    }
}

// Read when it is shown: the record does not tell it, and a list has few rows on screen.
QString FriendTreeModel::companyOf(const Contact &contact) const
{
    VcardInfo profile;
    if (m_contactKind == ExternalContactRow && ctx().vcard(contact.record.jid, &profile))
        return displayText(profile.companyName);
    return QString();
}

// What sets external contacts off from everybody else.
QStringList FriendTreeModel::externalTexts(const Contact &contact) const
{
    QStringList texts;
    if (m_contactKind == ExternalContactRow) {
        texts.append(outsideText());
        const QString company = companyOf(contact);
        if (!company.isEmpty())
            texts.append(company);
    }
    return texts;
}

QVariant FriendTreeModel::contactData(const Contact &contact, int role) const
{
    const FriendData &record = contact.record;
    switch (role) {
    case Qt::DisplayRole:
    case FriendTreeRole::Name:
        return contactDisplayName(record);
    case FriendTreeRole::Id:
        return record.jid;
    case FriendTreeRole::HeadPath:
        return record.headPath;
    case FriendTreeRole::Presence:
        return m_presenceUnknown ? int(PresenceData::Available) : int(contact.pcShow);
    case FriendTreeRole::MobilePresence:
        return m_presenceUnknown ? QVariant() : QVariant(int(contact.mobile));
    case FriendTreeRole::SortKey:
        return FriendTreeSort::contactKey(
            FriendTreeSort::block(record, contact.presence(), &contact == m_ownContact),
            contactDisplayName(record));
    case FriendTreeRole::Cooperate:
        return contact.cooperates;
    case FriendTreeRole::Kind:
        return int(m_contactKind);
    case FriendTreeRole::Sign:
        return record.sign;
    case FriendTreeRole::OnJob:
        return record.onJob != 0;
    case FriendTreeRole::Company:
        return companyOf(contact);
    case Qt::ToolTipRole:
        return toolTipText((QStringList(contactDisplayName(record)) + externalTexts(contact))
                               .join(QLatin1Char('\n')));
    case Qt::AccessibleTextRole:
        return (QStringList{contactDisplayName(record), presenceText(contact.presence()),
                            displayText(contact.group->name)} +
                externalTexts(contact))
            .join(QStringLiteral(", "));
    default:
        return QVariant();
    }
}

void FriendTreeModel::contactChanged(const Contact *contact)
{
    const QModelIndex index = indexOf(contact);
    if (index.isValid())
        emit dataChanged(index, index);
}

void FriendTreeModel::profileChanged(const QString &jid)
{
    const Contact *contact = find(jid);
    if (contact && m_contactKind == ExternalContactRow)
        contactChanged(contact);
}

// A header's counts change with every contact's presence, so the views hear of it
// once in a round of the event loop.
void FriendTreeModel::groupChanged(Group *group)
{
    if (group->changed)
        return;
    group->changed = true;
    if (m_changedGroups.empty())
        QTimer::singleShot(0, this, &FriendTreeModel::announceChangedGroups);
    m_changedGroups.push_back(group);
}

void FriendTreeModel::announceChangedGroups()
{
    const std::vector<Group *> changed = std::exchange(m_changedGroups, {});
    for (Group *group : changed)
        group->changed = false;
    for (const Group *group : changed) {
        const QModelIndex index = indexOf(group);
        emit dataChanged(index, index);
    }
}

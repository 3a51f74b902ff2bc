// Presence in the friend tree's model, and the hiding of who is offline.
#include "contacts/friendtreemodel.h"

namespace {
// A larger batch of presence changes in one group is sorted at once instead of
// moved row by row.
constexpr size_t SortInsteadOfMoving = 24;
} // namespace

bool FriendTreeModel::changePresence(Contact *contact, const PresenceData &presence)
{
    const PresenceData old = contact->presence();
    contact->setPresence(presence);
    if (contact->presence() == old)
        return false;
    contact->group->online += int(contact->presence().isOnline()) - int(old.isOnline());
    return true;
}

void FriendTreeModel::setPresence(const QMap<QString, PresenceData> &presence)
{
    m_allOffline = false;
    QHash<Group *, Contacts> changed;
    for (auto at = presence.constBegin(); at != presence.constEnd(); ++at) {
        Contact *contact = find(at.key());
        if (!contact)
            m_presenceOfStrangers.insert(at.key(), at.value());
        else if (!changePresence(contact, at.value()))
            continue;
        else if (presence.size() == 1)
            presenceChanged(contact);
        else
            changed[contact->group].push_back(contact);
    }
    for (auto at = changed.constBegin(); at != changed.constEnd(); ++at)
        presenceChanged(at.key(), at.value());
}

void FriendTreeModel::presenceChanged(Contact *contact)
{
    groupChanged(contact->group);
    contactUpdated(contact, true);
}

void FriendTreeModel::presenceChanged(Group *group, const Contacts &changed)
{
    if (changed.size() < SortInsteadOfMoving || m_hideOffline || m_orderFrozen) {
        for (Contact *contact : changed)
            presenceChanged(contact);
        return;
    }
    sortGroup(group);
    for (const Contact *contact : changed)
        contactChanged(contact);
    groupChanged(group);
}

void FriendTreeModel::setAllOffline()
{
    QMap<QString, PresenceData> offline;
    for (const auto &entry : m_contacts)
        offline.insert(entry.first, PresenceData());
    m_presenceOfStrangers.clear();
    setPresence(offline);
    m_allOffline = true;
}

void FriendTreeModel::setPresenceUnknown(bool unknown)
{
    m_presenceUnknown = unknown;
    for (const auto &entry : m_contacts)
        contactChanged(&entry.second);
}

void FriendTreeModel::setCooperation(const QMap<QString, bool> &relations)
{
    for (auto at = relations.constBegin(); at != relations.constEnd(); ++at) {
        Contact *contact = find(at.key());
        if (contact && contact->cooperates != at.value()) {
            contact->cooperates = at.value();
            contactChanged(contact);
        }
    }
}

int FriendTreeModel::onlineCount() const
{
    int count = 0;
    for (const auto &group : m_groups)
        count += group->online;
    return count;
}

void FriendTreeModel::setHideOffline(bool hide)
{
    if (hide == m_hideOffline)
        return;
    m_hideOffline = hide;
    for (const auto &group : m_groups) {
        if (hide)
            hideRows(group.get());
        else
            showRows(group.get());
    }
}

void FriendTreeModel::hideRows(Group *group)
{
    Rows &rows = group->rows;
    for (int last = int(rows.size()) - 1; last >= 0; --last) {
        if (!shouldHide(rows[size_t(last)].contact))
            continue;
        int first = last;
        while (first > 0 && shouldHide(rows[size_t(first) - 1].contact))
            --first;
        beginRemoveRows(indexOf(group), first, last);
        for (int row = first; row <= last; ++row) {
            rows[size_t(row)].contact->hidden = true;
            group->hidden.push_back(rows[size_t(row)]);
        }
        rows.erase(rows.begin() + first, rows.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
    FriendTreeOrder::sort(group->hidden);
}

void FriendTreeModel::showRows(Group *group)
{
    const Rows shown = std::exchange(group->hidden, Rows());
    for (const FriendTreeRow &row : shown)
        row.contact->hidden = false;
    insertRuns(group, shown);
}

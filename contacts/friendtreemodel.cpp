#include "contacts/friendtreemodel.h"

#include "common/context.h"
#include "common/displaytext.h"

#include <algorithm>

namespace {
// Arrivals that fall into more gaps between the rows of a group are appended and
// sorted in, so that views get two signals instead of one for each gap.
constexpr int MaximumInsertions = 64;
} // namespace

FriendTreeModel::FriendTreeModel(RowKind contactKind, QObject *parent)
    : QAbstractItemModel(parent), m_contactKind(contactKind)
{
}

FriendTreeModel::~FriendTreeModel() = default;

void FriendTreeModel::setOwnJid(const QString &jid)
{
    if (jid == m_ownJid)
        return;
    Contact *old = find(m_ownJid);
    Contact *now = find(jid);
    m_ownJid = jid;
    m_ownContact = now;
    for (Contact *contact : {old, now}) {
        if (contact) {
            contactUpdated(contact);
        }
    }
}

// --- Contacts ----------------------------------------------------------------

FriendTreeContact *FriendTreeModel::find(const QString &jid) const
{
    const auto at = m_contacts.find(jid);
    return at == m_contacts.end() ? nullptr : &at->second;
}

void FriendTreeModel::setUp(Contact *contact, const FriendData &record)
{
    contact->record = record;
    if (record.jid == m_ownJid)
        m_ownContact = contact;
    const PresenceData presence = presenceFor(record.jid);
    contact->setPresence(presence);
    bool cooperates = false;
    contact->cooperates = ctx().cooperates(record.jid, &cooperates) && cooperates;
}

PresenceData FriendTreeModel::presenceFor(const QString &jid)
{
    if (!m_presenceOfStrangers.isEmpty() && m_presenceOfStrangers.contains(jid))
        return m_presenceOfStrangers.take(jid);
    return m_allOffline ? PresenceData() : ctx().presence(jid);
}

void FriendTreeModel::mergeContacts(const QList<FriendData> &contacts)
{
    m_contacts.reserve(m_contacts.size() + size_t(std::count_if(contacts.cbegin(), contacts.cend(),
                                                                [this](const auto &record) {
                                                                    return isMine(record);
                                                                })));
    QList<FriendData> repeated;
    for (const FriendData &record : contacts) {
        if (record.jid.isEmpty())
            continue;
        if (!isMine(record)) {
            const Contact *known = find(record.jid);
            if (known && known->arriving)
                repeated.append(record);
            else if (known)
                removeContact(record.jid);
            continue;
        }
        const auto [at, isNew] = m_contacts.try_emplace(record.jid);
        Contact *contact = &at->second;
        if (isNew) {
            setUp(contact, record);
            arrive(contact, groupFor(record));
        } else if (contact->arriving) {
            repeated.append(record);
        } else {
            applyRecord(contact, record);
        }
    }
    for (size_t i = 0; i < m_groups.size(); ++i)
        attachArrivals(m_groups[i].get());
    // A new jid that stands twice in one batch is what its last record says.
    for (const FriendData &record : qAsConst(repeated)) {
        Contact *contact = find(record.jid);
        if (!isMine(record))
            removeContact(record.jid);
        else if (contact)
            applyRecord(contact, record);
        else
            mergeContacts({record});
    }
}

bool FriendTreeModel::isMine(const FriendData &record) const
{
    return (record.outside != 0) == (m_contactKind == ExternalContactRow);
}

void FriendTreeModel::arrive(Contact *contact, Group *group)
{
    contact->arriving = true;
    contact->group = group;
    contact->place = placeOf(contact);
    contact->hidden = shouldHide(contact);
    (contact->hidden ? group->hiddenArrivals : group->arrivals)
        .push_back(FriendTreeOrder::rowFor(contact));
    group->online += contact->presence().isOnline() ? 1 : 0;
}

void FriendTreeModel::attachArrivals(Group *group)
{
    if (group->arrivals.empty() && group->hiddenArrivals.empty())
        return;
    for (const Rows *rows : {&group->arrivals, &group->hiddenArrivals}) {
        for (const FriendTreeRow &row : *rows)
            row.contact->arriving = false;
    }
    Rows &hidden = group->hidden;
    hidden.insert(hidden.end(), group->hiddenArrivals.begin(), group->hiddenArrivals.end());
    FriendTreeOrder::sort(hidden);
    Rows().swap(group->hiddenArrivals);
    FriendTreeOrder::sort(group->arrivals);
    insertRuns(group, group->arrivals);
    Rows().swap(group->arrivals);
    groupChanged(group);
}

void FriendTreeModel::insertRuns(Group *group, const Rows &sorted)
{
    Rows &rows = group->rows;
    if (sorted.size() > 1)
        rows.reserve(rows.size() + sorted.size());
    if (!m_orderFrozen &&
        FriendTreeOrder::runCount(rows, sorted, MaximumInsertions + 1) > MaximumInsertions) {
        // Between the two signals rows are found by number only.
        const int at = int(rows.size());
        beginInsertRows(indexOf(group), at, at + int(sorted.size()) - 1);
        rows.insert(rows.end(), sorted.begin(), sorted.end());
        endInsertRows();
        sortGroup(group);
        return;
    }
    for (size_t first = 0; first < sorted.size();) {
        const FriendTreeRow &head = sorted[first];
        const int at = FriendTreeOrder::placeFor(rows, head.prefix, head.contact->place,
                                                 head.contact->record.jid);
        const size_t last = FriendTreeOrder::runEnd(rows, at, sorted, first);
        beginInsertRows(indexOf(group), at, at + int(last - first) - 1);
        rows.insert(rows.begin() + at, sorted.begin() + std::ptrdiff_t(first),
                    sorted.begin() + std::ptrdiff_t(last));
        endInsertRows();
        first = last;
    }
}

void FriendTreeModel::applyRecord(Contact *contact, const FriendData &record)
{
    if (sameFields(contact->record, record))
        return;
    contact->record = record;
    Group *group = groupFor(record);
    if (group != contact->group) {
        transfer(contact, group);
        return;
    }
    contactUpdated(contact);
}

bool FriendTreeModel::changeContact(const QString &jid,
                                    const std::function<void(FriendData &)> &change)
{
    Contact *contact = find(jid);
    if (!contact)
        return false;
    FriendData record = contact->record;
    change(record);
    record.jid = jid;
    applyRecord(contact, record);
    return true;
}

bool FriendTreeModel::removeContact(const QString &jid)
{
    Contact *contact = find(jid);
    if (!contact)
        return false;
    detach(contact);
    m_outOfPlace.erase(std::remove(m_outOfPlace.begin(), m_outOfPlace.end(), contact),
                       m_outOfPlace.end());
    if (contact == m_ownContact)
        m_ownContact = nullptr;
    m_contacts.erase(jid);
    return true;
}

bool FriendTreeModel::moveContact(const QString &jid, const QString &groupId)
{
    Contact *contact = find(jid);
    Group *target = group(groupId);
    if (!contact || !target)
        return false;
    if (contact->group != target) {
        contact->record.groupId = groupId;
        transfer(contact, target);
    }
    return true;
}

bool FriendTreeModel::hasContact(const QString &jid) const
{
    return find(jid) != nullptr;
}

bool FriendTreeModel::contact(const QString &jid, FriendData *out) const
{
    const Contact *contact = find(jid);
    if (!contact)
        return false;
    *out = contact->record;
    out->groupId = contact->group->id;
    out->groupName = contact->group->name;
    return true;
}

QString FriendTreeModel::groupOf(const QString &jid) const
{
    const Contact *contact = find(jid);
    return contact ? contact->group->id : QString();
}

QStringList FriendTreeModel::contactsOfGroup(const QString &groupId) const
{
    QStringList jids;
    if (const Group *wanted = group(groupId)) {
        for (const Rows *rows : {&wanted->rows, &wanted->hidden}) {
            for (const FriendTreeRow &row : *rows)
                jids.append(row.contact->record.jid);
        }
    }
    return jids;
}

// --- Places ------------------------------------------------------------------

FriendTreePlace FriendTreeModel::placeOf(const Contact *contact) const
{
    return {contactDisplayName(contact->record), blockOf(contact)};
}

FriendTreeSort::Block FriendTreeModel::blockOf(const Contact *contact) const
{
    return FriendTreeSort::block(contact->record, contact->presence(), contact == m_ownContact);
}

bool FriendTreeModel::shouldHide(const Contact *contact) const
{
    return m_hideOffline && !contact->presence().isOnline() && contact != m_ownContact;
}

void FriendTreeModel::detach(Contact *contact)
{
    Group *group = contact->group;
    Rows &rows = group->list(contact->hidden);
    const int row = FriendTreeOrder::rowOf(rows, contact);
    if (contact->hidden) {
        rows.erase(rows.begin() + row);
    } else {
        beginRemoveRows(indexOf(group), row, row);
        rows.erase(rows.begin() + row);
        endRemoveRows();
    }
    group->online -= contact->presence().isOnline() ? 1 : 0;
    contact->group = nullptr;
    groupChanged(group);
}

void FriendTreeModel::attach(Contact *contact, Group *group)
{
    contact->group = group;
    contact->hidden = shouldHide(contact);
    contact->place = placeOf(contact);
    Rows &rows = group->list(contact->hidden);
    const FriendTreeRow made = FriendTreeOrder::rowFor(contact);
    const int row =
        FriendTreeOrder::placeFor(rows, made.prefix, contact->place, contact->record.jid);
    if (contact->hidden) {
        rows.insert(rows.begin() + row, made);
    } else {
        beginInsertRows(indexOf(group), row, row);
        rows.insert(rows.begin() + row, made);
        endInsertRows();
    }
    group->online += contact->presence().isOnline() ? 1 : 0;
    groupChanged(group);
}

// As a move, so that views keep the row selected and current.
void FriendTreeModel::transfer(Contact *contact, Group *target)
{
    if (contact->hidden || shouldHide(contact)) {
        detach(contact);
        attach(contact, target);
        return;
    }
    Group *source = contact->group;
    const FriendTreePlace place = placeOf(contact);
    const FriendTreeRow moved{FriendTreeSort::prefix(place.block, place.name), contact};
    const int from = FriendTreeOrder::rowOf(source->rows, contact);
    const int to =
        FriendTreeOrder::placeFor(target->rows, moved.prefix, place, contact->record.jid);
    beginMoveRows(indexOf(source), from, from, indexOf(target), to);
    source->rows.erase(source->rows.begin() + from);
    contact->group = target;
    contact->place = place;
    target->rows.insert(target->rows.begin() + to, moved);
    endMoveRows();
    const int online = contact->presence().isOnline() ? 1 : 0;
    source->online -= online;
    target->online += online;
    groupChanged(source);
    groupChanged(target);
    emit groupOfContactChanged();
}

void FriendTreeModel::contactUpdated(Contact *contact, bool sameName)
{
    if (m_orderFrozen) {
        if (!contact->outOfPlace) {
            contact->outOfPlace = true;
            m_outOfPlace.push_back(contact);
        }
        contactChanged(contact);
        return;
    }
    Group *group = contact->group;
    if (contact->hidden != shouldHide(contact)) {
        detach(contact);
        attach(contact, group);
        return;
    }
    const int row =
        moveWithin(contact, sameName ? FriendTreePlace{contact->place.name, blockOf(contact)}
                                     : placeOf(contact));
    if (!contact->hidden) {
        const QModelIndex index = createIndex(row, 0, group);
        emit dataChanged(index, index);
    }
}

int FriendTreeModel::moveWithin(Contact *contact, const FriendTreePlace &place)
{
    Rows &rows = contact->group->list(contact->hidden);
    const FriendTreeSort::Prefix old =
        FriendTreeSort::prefix(contact->place.block, contact->place.name);
    const int from = FriendTreeOrder::rowOf(rows, contact, old);
    const bool sameName = place.name == contact->place.name;
    if (sameName && place.block == contact->place.block)
        return from;
    const FriendTreeSort::Prefix prefix =
        sameName ? old.inBlock(place.block) : FriendTreeSort::prefix(place.block, place.name);
    const int to = FriendTreeOrder::placeFor(rows, prefix, place, contact->record.jid);
    const bool stays = to == from || to == from + 1;
    if (!stays && !contact->hidden) {
        const QModelIndex parent = indexOf(contact->group);
        beginMoveRows(parent, from, from, parent, to);
    }
    contact->place = place;
    rows[size_t(from)].prefix = prefix;
    if (stays)
        return from;
    const auto begin = rows.begin();
    if (to > from)
        std::rotate(begin + from, begin + from + 1, begin + to);
    else
        std::rotate(begin + to, begin + from, begin + from + 1);
    if (!contact->hidden)
        endMoveRows();
    return to > from ? to - 1 : to;
}

// Sorts again after contacts have changed their place in any number.
void FriendTreeModel::sortGroup(Group *group)
{
    const QList<QPersistentModelIndex> parents{indexOf(group)};
    emit layoutAboutToBeChanged(parents, QAbstractItemModel::VerticalSortHint);
    QModelIndexList before;
    Contacts held;
    const QModelIndexList persistent = persistentIndexList();
    for (const QModelIndex &index : persistent) {
        if (index.internalPointer() == group) {
            before.append(index);
            held.push_back(group->rows[size_t(index.row())].contact);
        }
    }
    for (FriendTreeRow &row : group->rows) {
        row.contact->place = placeOf(row.contact);
        row = FriendTreeOrder::rowFor(row.contact);
    }
    FriendTreeOrder::sort(group->rows);
    QModelIndexList after;
    for (const Contact *contact : held)
        after.append(indexOf(contact));
    changePersistentIndexList(before, after);
    emit layoutChanged(parents, QAbstractItemModel::VerticalSortHint);
}

void FriendTreeModel::setOrderFrozen(bool frozen)
{
    m_orderFrozen = frozen;
    if (frozen)
        return;
    const Contacts waiting = std::exchange(m_outOfPlace, Contacts());
    for (Contact *contact : waiting) {
        contact->outOfPlace = false;
        contactUpdated(contact);
    }
}

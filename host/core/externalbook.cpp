// The external contacts of the roster: as the web services said last.
#include "host/core/corestore.h"
#include "host/core/rosterbook.h"

#include <QSet>

#include <algorithm>

namespace {
const char RenameGroup[] = "UPDATE rostergroups SET name=? WHERE id=? AND isInner=0";
const char DeleteGroup[] = "DELETE FROM rostergroups WHERE id=? AND isInner=0";

QString defaultGroup()
{
    return QString::fromLatin1("");
}
} // namespace

bool ExternalChange::isEmpty() const
{
    return createdGroups.isEmpty() && renamedGroups.isEmpty() && deletedGroups.isEmpty() &&
           added.isEmpty() && removed.isEmpty() && altered.isEmpty() && remarked.isEmpty() &&
           moved.isEmpty();
}

// The default group leads; of two with one id the first counts.
bool RosterBook::replaceGroups(const QList<GroupData> &groups, ExternalChange *change)
{
    GroupTable wanted;
    wanted.append({defaultGroup(), defaultGroupName()});
    for (const GroupData &group : groups) {
        const QString id = normalGroupId(group.id);
        if (id.isEmpty() && !group.name.isEmpty())
            wanted.rename(id, group.name);
        else if (!wanted.names.contains(id))
            wanted.append({id, group.name});
    }
    for (const GroupData &group : qAsConst(m_outer.list)) {
        if (wanted.names.contains(group.id))
            continue;
        if (!m_store->run(QString::fromLatin1(DeleteGroup), {group.id}))
            return false;
        change->deletedGroups.append(group.id);
    }
    for (const GroupData &group : qAsConst(wanted.list)) {
        const auto known = m_outer.names.constFind(group.id);
        if (known == m_outer.names.constEnd()) {
            if (!insertGroup(group.id, group.name, false))
                return false;
            change->createdGroups.append(group);
        } else if (*known != group.name) {
            if (!m_store->run(QString::fromLatin1(RenameGroup), {group.name, group.id}))
                return false;
            change->renamedGroups.append(group);
        }
    }
    m_outer = wanted;
    return true;
}

bool RosterBook::removeAbsent(const QList<FriendData> &contacts, ExternalChange *change)
{
    QSet<QString> wanted;
    for (const FriendData &contact : contacts)
        wanted.insert(contact.jid);
    for (const FriendData &contact : qAsConst(m_contacts)) {
        if (contact.outside != 0 && !wanted.contains(contact.jid))
            change->removed.append(contact.jid);
    }
    return std::all_of(change->removed.cbegin(), change->removed.cend(),
                       [this](const QString &jid) { return remove(jid, false); });
}

// What the services do not tell of a person: as it was, else as the sample has it.
void RosterBook::fillIn(FriendData *contact, const FriendData *known) const
{
    FriendData base;
    const SamplePerson person =
        m_sample->company().find(contact->jid.section(QLatin1Char('@'), 0, 0));
    if (known)
        base = *known;
    else if (person.index >= 0)
        base = contactOf(person);
    for (QString FriendData::*field : {&FriendData::account, &FriendData::sign, &FriendData::spell,
                                       &FriendData::headPath, &FriendData::companyCode}) {
        if ((contact->*field).isEmpty())
            contact->*field = base.*field;
    }
    if (contact->remark.isNull()) // not told
        contact->remark = base.remark;
    contact->subscription = base.subscription;
    contact->onJob = base.onJob;
}

bool RosterBook::replaceContact(FriendData contact, ExternalChange *change)
{
    const FriendData *known = find(contact.jid);
    if (contact.jid.isEmpty() || (known && known->outside == 0))
        return true; // a colleague stays one
    fillIn(&contact, known);
    contact.outside = 1;
    contact.groupId = normalGroupId(contact.groupId);
    if (!hasGroup(contact.groupId, false))
        contact.groupId = defaultGroup();
    contact.groupName = groupName(contact.groupId, false);
    if (!known) {
        change->added.append(contact.jid);
        return put(contact);
    }
    const FriendData before = *known;
    if (sameFields(before, contact))
        return true;
    FriendData elsewhere = before; // as it would be with nothing but these changes
    elsewhere.groupId = contact.groupId;
    elsewhere.groupName = contact.groupName;
    elsewhere.remark = contact.remark;
    if (before.groupId != contact.groupId)
        change->moved.append({contact.jid, before.groupId, contact.groupId});
    if (before.remark != contact.remark)
        change->remarked.append(contact);
    if (!sameFields(elsewhere, contact))
        change->altered.append(contact);
    return put(contact);
}

bool RosterBook::replaceExternal(const QList<GroupData> &groups, const QList<FriendData> &contacts,
                                 ExternalChange *change)
{
    *change = ExternalChange();
    const bool done = m_store->inTransaction([&] {
        return replaceGroups(groups, change) && removeAbsent(contacts, change) &&
               std::all_of(contacts.cbegin(), contacts.cend(), [&](const FriendData &contact) {
                   return replaceContact(contact, change);
               });
    });
    if (!done) {
        *change = ExternalChange();
        load(true); // what was changed in memory goes
    }
    return done;
}

#include "backend/friends/friendstart.h"

#include "sample/sampleroster.h"

#include <algorithm>

namespace {
// In the order of the roster. The large department knows nobody outside.
std::vector<Friend> contactsOf(const SampleCompany &company, const QString &uid)
{
    std::vector<Friend> contacts;
    if (company.find(uid).index < 0)
        return contacts;
    const SampleRoster roster(company, uid);
    for (int i = 0; i < roster.count(false); ++i) {
        const SampleContact contact = roster.contact(i, false);
        contacts.push_back({contact.person.uid, contact.groupId.toLongLong(), contact.remark});
    }
    return contacts;
}

const Friend *find(const std::vector<Friend> &contacts, const QString &uid)
{
    const auto found = std::find_if(contacts.begin(), contacts.end(),
                                    [&uid](const Friend &each) { return each.uid == uid; });
    return found == contacts.end() ? nullptr : &*found;
}
} // namespace

void FriendStart::provideGroups(const QString &uid)
{
    if (m_store.start(uid) != FriendStore::Untouched)
        return;
    m_store.setStart(uid, FriendStore::HasGroups);
    for (const SampleGroup &group : SampleCompany::outsiderGroups()) {
        if (!group.id.isEmpty())
            m_store.addGroup(uid, {group.id.toLongLong(), group.name});
    }
}

void FriendStart::provide(const QString &uid)
{
    if (m_store.start(uid) == FriendStore::HasContacts)
        return;
    provideGroups(uid);
    m_store.setStart(uid, FriendStore::HasContacts);
    for (const Friend &contact : contactsOf(m_people.company(), uid)) {
        const std::vector<Friend> known = contactsOf(m_people.company(), contact.uid);
        const Friend *own = find(known, uid);
        const bool isProvided = m_store.start(contact.uid) == FriendStore::HasContacts;
        // Both had their rows from the other one's start, and may have parted since.
        if (isProvided && own)
            continue;
        provideGroups(contact.uid);
        m_store.add(uid, contact.uid, contact.group);
        m_store.add(contact.uid, uid, own ? own->group : 0);
        if (isProvided)
            m_events.tell({contact.uid}, EventType::Friends, QString(), uid);
    }
}

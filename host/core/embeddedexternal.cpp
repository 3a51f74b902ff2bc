// What the embedded core keeps of what the web services say.
#include "host/core/embeddedcore.h"
#include "host/core/rosterbook.h"

bool EmbeddedCore::keepExternal(const QList<GroupData> &groups, const QList<FriendData> &contacts)
{
    ExternalChange change;
    if (!m_roster->replaceExternal(groups, contacts, &change) || change.isEmpty())
        return false;
    for (const QString &jid : qAsConst(change.removed))
        m_presence.remove(jid);
    for (const QString &jid : qAsConst(change.added)) {
        const PresenceData presence = presenceAtStart(*m_roster->find(jid));
        if (presence.isOnline())
            m_presence.insert(jid, presence);
    }
    tellExternalChange(change);
    return true;
}

// Groups come before who is in them, and go after.
void EmbeddedCore::tellExternalChange(const ExternalChange &change)
{
    for (const GroupData &group : change.createdGroups)
        emit groupCreated(group.id, group.name, true, false);
    for (const GroupData &group : change.renamedGroups)
        emit groupRenamed(group.id, group.name, true, false);
    for (const QString &jid : change.removed)
        emit contactRemoved(jid, false);
    for (const ExternalChange::Move &move : change.moved)
        emit contactMoved(true, move.jid, move.from, move.to, false);
    for (const QString &jid : change.added)
        emit contactAdded(jid);
    for (const FriendData &contact : change.remarked)
        emit remarkChanged(contact.jid, contact.remark);
    if (!change.altered.isEmpty())
        emit contactsReceived(contacts());
    for (const QString &id : change.deletedGroups)
        emit groupDeleted(id, true, false);
}

bool EmbeddedCore::keepPicture(const QString &jid, const QString &photoName, const QString &file)
{
    VcardInfo known;
    if (!m_roster->profile(jid, &known))
        return false;
    if (known.photoName != photoName) {
        known.photoName = photoName;
        if (!m_roster->putProfile(known))
            return false;
    }
    const FriendData *contact = m_roster->find(jid);
    if (!contact || contact->headPath == file)
        return true;
    FriendData changed = *contact;
    changed.headPath = file;
    return m_roster->put(changed);
}

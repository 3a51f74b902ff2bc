// The embedded core's roster requests.
#include "host/core/corestore.h"
#include "host/core/embeddedcore.h"
#include "host/core/rosterbook.h"

#include <QDateTime>
#include <QTimer>

namespace {
QString now()
{
    return QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss"));
}
} // namespace

// --- Reads --------------------------------------------------------------------

QList<GroupData> EmbeddedCore::groups(bool inner) const
{
    return m_roster->groups(inner);
}

QList<FriendData> EmbeddedCore::contacts() const
{
    return m_roster->contacts();
}

bool EmbeddedCore::contact(const QString &jid, FriendData *out) const
{
    const FriendData *found = m_roster->find(jid);
    if (found)
        *out = *found;
    return found;
}

bool EmbeddedCore::cooperates(const QString &jid, bool *value) const
{
    const FriendData *found = m_roster->find(jid);
    if (!found || found->outside == 0)
        return false;
    *value = !found->companyCode.isEmpty(); // a personal account belongs to no partner
    return true;
}

bool EmbeddedCore::profile(const QString &jid, VcardInfo *out) const
{
    return m_roster->profile(jid, out);
}

// --- Groups -------------------------------------------------------------------

void EmbeddedCore::requestGroups(bool inner)
{
    later(RequestGroups, [this, inner](bool may) {
        if (may)
            emit groupsReceived(groups(inner), inner);
        else
            emit groupsFailed(inner);
    });
}

void EmbeddedCore::requestContacts()
{
    later(RequestContacts, [this](bool may) {
        if (may)
            emit contactsReceived(contacts());
        else
            emit requestFailed(QStringLiteral("requestContacts"), QString());
    });
}

void EmbeddedCore::createGroup(const QString &name)
{
    later(CreateGroup, [this, name](bool may) {
        QString id;
        const bool done = may && m_roster->createGroup(name, &id);
        emit groupCreated(id, name.trimmed(), done, true);
    });
}

void EmbeddedCore::renameGroup(const QString &groupId, const QString &name)
{
    later(RenameGroup, [this, groupId, name](bool may) {
        const bool done = may && m_roster->renameGroup(groupId, name);
        emit groupRenamed(groupId, name.trimmed(), done, true);
    });
}

void EmbeddedCore::deleteGroup(const QString &groupId)
{
    later(DeleteGroup, [this, groupId](bool may) {
        emit groupDeleted(groupId, may && m_roster->deleteGroup(groupId), true);
    });
}

// --- Contacts -----------------------------------------------------------------

void EmbeddedCore::moveContact(const QString &jid, const QString &oldGroupId,
                               const QString &newGroupId)
{
    later(MoveContact, [=](bool may) {
        const bool done = may && m_roster->move(jid, oldGroupId, newGroupId);
        emit contactMoved(done, jid, oldGroupId, newGroupId, true);
    });
}

void EmbeddedCore::removeContact(const QString &jid)
{
    later(RemoveContact, [this, jid](bool may) {
        if (!may || jid == ownJid() || !m_roster->remove(jid, true)) {
            emit contactRemovalFailed(jid, true);
            return;
        }
        m_presence.remove(jid);
        emit contactRemoved(jid, true);
    });
}

void EmbeddedCore::setRemark(const QString &jid, const QString &remark)
{
    later(SetRemark, [this, jid, remark](bool may) {
        if (may && m_roster->setRemark(jid, remark.trimmed()))
            emit remarkChanged(jid, remark.trimmed());
        else
            emit requestFailed(QStringLiteral("setRemark"), jid);
    });
}

// --- Adding -------------------------------------------------------------------

SampleCompany::Policy EmbeddedCore::policyOf(const QString &jid, bool *known) const
{
    const QString uid = jid.section(QLatin1Char('@'), 0, 0);
    *known = jid.section(QLatin1Char('@'), 1) == serverDomain();
    const int index = m_company.indexOf(uid);
    if (index >= 0)
        return m_company.policy(index);
    *known = *known && SampleCompany::outsiderIndexOf(uid) >= 0;
    return SampleCompany::AsksFirst;
}

void EmbeddedCore::requestPolicy(const QString &jid)
{
    later(RequestPolicy, [this, jid](bool may) {
        bool known = false;
        const SampleCompany::Policy policy = policyOf(fullJid(jid), &known);
        if (!may || !known) {
            emit requestFailed(QStringLiteral("requestPolicy"), jid);
            return;
        }
        const char *texts[] = {"ACCEPT_ALL", "NEED_CONFIRM", "DENY_ALL"};
        emit policyReceived(jid, QString::fromLatin1(texts[policy]), displayName(fullJid(jid)));
    });
}

bool EmbeddedCore::addNow(const QString &jid, const QString &groupId, const QString &remark)
{
    const QString uid = jid.section(QLatin1Char('@'), 0, 0);
    const SamplePerson person = m_company.find(uid);
    FriendData added = m_roster->contactOf(person);
    added.groupId = groupId;
    added.remark = remark.trimmed();
    if (person.index < 0 || !m_roster->put(added))
        return false;
    const PresenceData presence = presenceAtStart(added);
    if (presence.isOnline())
        m_presence.insert(jid, presence);
    emit contactAdded(jid);
    return true;
}

void EmbeddedCore::addContact(const QString &jid, const QString &validation, const QString &groupId,
                              const QString &remark)
{
    Q_UNUSED(validation) // nobody reads it here
    later(AddContact, [this, jid = fullJid(jid), groupId, remark](bool may) {
        bool known = false;
        policyOf(jid, &known);
        if (!may || !known || jid == ownJid())
            emit additionFailed(jid);
        else if (m_roster->find(jid))
            emit requestAnswered(jid, true, now());
        else
            answerRequest(jid, groupId, remark);
    });
}

void EmbeddedCore::answerRequest(const QString &jid, const QString &groupId, const QString &remark)
{
    bool known = false;
    switch (policyOf(jid, &known)) {
    case SampleCompany::AcceptsAll:
        requestAccepted(jid, groupId, remark);
        break;
    case SampleCompany::RefusesAll:
        emit requestAnswered(jid, false, now());
        break;
    case SampleCompany::AsksFirst:
        if (m_roster->hasGroup(RosterBook::normalGroupId(groupId), true))
            confirmLater(jid, groupId, remark);
        else
            emit additionFailed(jid);
        break;
    }
}

// Who is asked again before the answer answers once.
void EmbeddedCore::confirmLater(const QString &jid, const QString &groupId, const QString &remark)
{
    const bool isAsked = m_asked.contains(jid);
    m_asked.insert(jid, {groupId, remark});
    if (isAsked)
        return;
    QTimer::singleShot(m_confirmationDelay, this, [=] {
        if (m_connected)
            confirm(jid);
        else
            m_whenConnected.append([=] { confirm(jid); });
    });
}

void EmbeddedCore::confirm(const QString &jid)
{
    const Filing filing = m_asked.take(jid);
    if (m_refusal.isEmpty()) {
        // The group may have been deleted while the person thought it over.
        const bool isThere = m_roster->hasGroup(RosterBook::normalGroupId(filing.groupId), true);
        requestAccepted(jid, isThere ? filing.groupId : QStringLiteral(""), filing.remark);
        return;
    }
    emit requestAnswered(jid, false, now());
    emit requestRefused(jid, m_refusal);
}

void EmbeddedCore::requestAccepted(const QString &jid, const QString &groupId,
                                   const QString &remark)
{
    if (m_roster->find(jid) || addNow(jid, groupId, remark))
        emit requestAnswered(jid, true, now());
    else
        emit additionFailed(jid);
}

void EmbeddedCore::addContacts(const QStringList &uids, const QString &groupId)
{
    later(AddContacts, [this, uids, groupId](bool may) {
        QStringList failed;
        for (const QString &uid : uids) {
            const QString jid = fullJid(uid);
            bool known = false;
            const bool refuses = policyOf(jid, &known) == SampleCompany::RefusesAll;
            const bool possible = may && known && !refuses && jid != ownJid();
            if (possible && (m_roster->find(jid) || addNow(jid, groupId, QString())))
                continue;
            failed.append(uid);
        }
        if (!failed.isEmpty())
            emit batchAdditionFailed(failed);
    });
}

void EmbeddedCore::receiveContactRequest(const QString &jid, const QString &text)
{
    if (m_connected)
        emit contactRequested(jid, text, now());
    else
        m_whenConnected.append([=] { emit contactRequested(jid, text, now()); });
}

// --- Profiles -----------------------------------------------------------------

void EmbeddedCore::requestProfile(const QString &jid, bool full)
{
    later(RequestProfile, [this, jid, full](bool may) {
        VcardInfo found;
        if (may && m_roster->profile(jid, &found))
            emit profileReceived(jid, found, full);
        else
            emit profileFailed(jid);
    });
}

void EmbeddedCore::storeOwnProfile(const VcardInfo &profile)
{
    later(StoreOwnProfile, [this, profile](bool may) {
        VcardInfo stored = profile;
        stored.jid = ownJid();
        ++stored.version;
        FriendData own;
        const bool listed = contact(ownJid(), &own);
        own.nickName = stored.nickName;
        own.sign = stored.sign;
        const bool done = may && m_roster->putProfile(stored) && (!listed || m_roster->put(own));
        if (done)
            emit ownProfileStored();
        else
            emit requestFailed(QStringLiteral("storeOwnProfile"), ownJid());
    });
}

// --- Import -------------------------------------------------------------------

bool EmbeddedCore::importOne(const ImportedContact &imported, ImportCounts *counts)
{
    FriendData wanted = imported.contact;
    const FriendData *present = m_roster->find(wanted.jid);
    // The user's own arrangement counts, unless the file's changed since.
    const bool sameCategory = m_roster->importedCategory(wanted.jid) == imported.group;
    if (present && sameCategory)
        wanted.groupId = present->groupId;
    else if (!m_roster->ensureGroup(imported.group, &wanted.groupId))
        return false;
    VcardInfo profile = imported.profile;
    profile.jid = wanted.jid;
    if (present) {
        wanted.remark = present->remark;
        wanted.groupName = present->groupName;
        VcardInfo old;
        m_roster->profile(wanted.jid, &old);
        if (sameCategory && sameFields(wanted, *present) && old == profile) {
            ++counts->unchanged;
            return true;
        }
        ++counts->updated;
    } else {
        ++counts->added;
    }
    return m_roster->put(wanted) && m_roster->putProfile(profile) &&
           m_roster->setImportedCategory(wanted.jid, imported.group);
}

bool EmbeddedCore::importContacts(const QList<ImportedContact> &imported, ImportCounts *counts)
{
    *counts = ImportCounts();
    const bool done = m_store->inTransaction([&] {
        for (const ImportedContact &one : imported) {
            if (!importOne(one, counts))
                return false;
        }
        return true;
    });
    if (!done) {
        *counts = ImportCounts();
        m_roster->load(m_options.sampleFriends); // what was changed in memory goes
        return false;
    }
    for (const ImportedContact &one : imported) {
        const PresenceData presence = presenceAtStart(one.contact);
        if (presence.isOnline() && !m_presence.contains(one.contact.jid))
            m_presence.insert(one.contact.jid, presence);
    }
    emit groupsReceived(groups(true), true);
    emit contactsReceived(contacts());
    return true;
}

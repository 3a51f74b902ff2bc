#include "host/core/rosterbook.h"

#include "host/core/corestore.h"
#include "host/core/recordsql.h"

namespace {
const char ContactColumns[] = "jid,remark,groupId,groupName,subscription,nickName,headPath,onJob,"
                              "account,companyCode,outside,sign,spell";
const char ProfileColumns[] =
    "jid,userName,photoName,nickName,sign,status,sex,bday,locality,empStatus,orgCount,"
    "employeeCode,duty,mobile,otherPhone,personalMobile,email,orgId,orgName,companyName,"
    "isAdmin,leaderId,version,leaderName";
const char ReadGroups[] = "SELECT id,name,isInner FROM rostergroups ORDER BY rowid";
const char InsertGroup[] = "INSERT INTO rostergroups(id,name,isInner) VALUES(?,?,?)";
const char RenameGroup[] = "UPDATE rostergroups SET name=? WHERE id=? AND isInner=?";
const char DeleteGroup[] = "DELETE FROM rostergroups WHERE id=? AND isInner=?";
const char EmptyGroup[] = "UPDATE contacts SET groupId='' WHERE groupId=? AND outside=0";
const char DeleteContact[] = "DELETE FROM contacts WHERE jid=?";
const char ReadCategory[] = "SELECT category FROM imported WHERE jid=?";
const char WriteCategory[] = "INSERT OR REPLACE INTO imported(jid,category) VALUES(?,?)";

const QString GroupCounter = QStringLiteral("group");
const QString SeededKey = QStringLiteral("seeded");
constexpr int FirstFreeGroupNumber = 1000; // behind the sample company's own ids
} // namespace

void RosterBook::GroupTable::append(const GroupData &group)
{
    list.append(group);
    names.insert(group.id, group.name);
    ids.insert(group.name, group.id);
}

void RosterBook::GroupTable::remove(const QString &id)
{
    list.removeOne({id, names.value(id)});
    ids.remove(names.take(id));
}

void RosterBook::GroupTable::rename(const QString &id, const QString &name)
{
    list[list.indexOf({id, names.value(id)})].name = name;
    ids.remove(names.value(id));
    names.insert(id, name);
    ids.insert(name, id);
}

RosterBook::RosterBook(CoreStore *store, const SampleRoster *sample)
    : m_store(store), m_sample(sample)
{
}

QString RosterBook::defaultGroupName()
{
    return QString::fromUtf8("我的好友");
}

QString RosterBook::frequentGroupName()
{
    return QString::fromUtf8("常用联系人");
}

QString RosterBook::normalGroupId(const QString &id)
{
    return id == QLatin1String("0") ? QString::fromLatin1("") : id;
}

// --- Loading ------------------------------------------------------------------

bool RosterBook::load(bool sampleFriends)
{
    if (m_store->meta(SeededKey).isEmpty() &&
        !m_store->inTransaction([this, sampleFriends] { return seed(sampleFriends); }))
        return false;

    m_inner = GroupTable();
    m_outer = GroupTable();
    QSqlQuery groups = m_store->prepared(QString::fromLatin1(ReadGroups));
    if (!m_store->run(&groups))
        return false;
    while (groups.next())
        table(groups.value(2).toBool())
            .append({groups.value(0).toString(), groups.value(1).toString()});

    m_contacts.clear();
    m_rows.clear();
    QSqlQuery contacts = m_store->prepared(RecordSql::selectStatement("contacts", ContactColumns));
    if (!m_store->run(&contacts))
        return false;
    while (contacts.next()) {
        FriendData contact;
        RecordSql::read(contacts, &contact);
        contact.groupName = groupName(contact.groupId, contact.outside == 0);
        m_rows.insert(contact.jid, m_contacts.size());
        m_contacts.append(contact);
    }

    m_profiles.clear();
    QSqlQuery profiles = m_store->prepared(RecordSql::selectStatement("profiles", ProfileColumns));
    if (!m_store->run(&profiles))
        return false;
    while (profiles.next()) {
        VcardInfo profile;
        RecordSql::read(profiles, &profile);
        m_profiles.insert(profile.jid, profile);
    }
    return true;
}

bool RosterBook::seed(bool sampleFriends)
{
    const auto insertGroups = [this](const QVector<SampleGroup> &groups, bool inner) {
        for (const SampleGroup &group : groups) {
            if (!insertGroup(group.id, group.name, inner))
                return false;
        }
        return true;
    };
    const QVector<SampleGroup> groups = m_sample->groups(true);
    const QVector<SampleGroup> outer = m_sample->groups(false);
    if (!insertGroups(sampleFriends ? groups : groups.mid(0, 1), true) ||
        !insertGroups(sampleFriends ? outer : outer.mid(0, 1), false))
        return false;

    QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("contacts", ContactColumns));
    const auto insertContacts = [&](int count, bool inner) {
        for (int i = 0; i < count; ++i) {
            const SampleContact seat = m_sample->contact(i, inner);
            FriendData contact = contactOf(seat.person);
            contact.groupId = seat.groupId;
            contact.remark = seat.remark;
            RecordSql::bind(&insert, contact);
            if (!m_store->run(&insert))
                return false;
        }
        return true;
    };
    // The own user is always there.
    if (!insertContacts(sampleFriends ? m_sample->count(true) : 1, true) ||
        !insertContacts(sampleFriends ? m_sample->count(false) : 0, false))
        return false;
    return m_store->setMeta(SeededKey, QStringLiteral("1"));
}

FriendData RosterBook::contactOf(const SamplePerson &person) const
{
    FriendData contact;
    contact.jid = person.uid + QLatin1Char('@') + SampleCompany::domain();
    contact.subscription = QStringLiteral("both");
    contact.nickName = person.name;
    contact.onJob = person.onJob ? 1 : 0;
    contact.account = person.account;
    contact.companyCode = person.companyCode;
    contact.outside = m_sample->isColleague(person) ? 0 : 1;
    contact.sign = person.sign;
    contact.spell = person.spell;
    return contact;
}

VcardInfo RosterBook::profileOf(const SamplePerson &person) const
{
    VcardInfo profile;
    profile.jid = person.uid + QLatin1Char('@') + SampleCompany::domain();
    profile.userName = person.account;
    profile.photoName = SampleCompany::pictureOf(person.uid);
    profile.nickName = person.name;
    profile.sign = person.sign;
    profile.sex = person.sex;
    profile.bday = person.birthday;
    profile.locality = person.locality;
    profile.empStatus = person.onJob ? 1 : 0;
    profile.orgCount = person.departmentId.isEmpty() ? 0 : 1;
    profile.employeeCode = person.employeeCode;
    profile.duty = person.duty;
    profile.mobile = person.mobile;
    profile.otherPhone = person.otherPhone;
    profile.personalMobile = person.personalMobile;
    profile.email = person.email;
    profile.orgId = person.departmentId;
    profile.orgName = person.departmentName;
    profile.companyName = person.companyName;
    profile.isAdmin = person.isAdmin ? 1 : 0;
    profile.version = 1;
    const SamplePerson leader = m_sample->company().find(person.leaderUid);
    profile.leaderId = leader.uid;
    profile.leaderName = leader.name;
    return profile;
}

// --- Reading ------------------------------------------------------------------

const FriendData *RosterBook::find(const QString &jid) const
{
    const int row = m_rows.value(jid, -1);
    return row < 0 ? nullptr : &m_contacts.at(row);
}

bool RosterBook::profile(const QString &jid, VcardInfo *out) const
{
    const auto stored = m_profiles.constFind(jid);
    if (stored != m_profiles.constEnd()) {
        *out = *stored;
        return true;
    }
    const QString uid = jid.section(QLatin1Char('@'), 0, 0);
    SamplePerson person;
    if (jid.section(QLatin1Char('@'), 1) == SampleCompany::domain())
        person = m_sample->company().find(uid);
    if (person.index >= 0) {
        *out = profileOf(person);
        return true;
    }
    const FriendData *contact = find(jid);
    if (!contact)
        return false;
    *out = VcardInfo();
    out->jid = jid;
    out->userName = contact->account;
    out->nickName = contact->nickName;
    out->sign = contact->sign;
    return true;
}

// --- Changing groups ----------------------------------------------------------

bool RosterBook::nameIsFree(const QString &name) const
{
    return !name.isEmpty() && name != defaultGroupName() && name != frequentGroupName() &&
           !m_inner.ids.contains(name);
}

bool RosterBook::isFixed(const QString &id) const
{
    return id.isEmpty() || groupName(id, true) == frequentGroupName();
}

bool RosterBook::insertGroup(const QString &id, const QString &name, bool inner)
{
    return m_store->run(QString::fromLatin1(InsertGroup), {id, name, inner});
}

bool RosterBook::createGroup(const QString &name, QString *id)
{
    const QString trimmed = name.trimmed();
    return nameIsFree(trimmed) && appendGroup(trimmed, id);
}

bool RosterBook::ensureGroup(const QString &name, QString *id)
{
    const QString trimmed = name.trimmed();
    if (!trimmed.isEmpty() && !m_inner.ids.contains(trimmed))
        return appendGroup(trimmed, id);
    *id = trimmed.isEmpty() ? QString::fromLatin1("") : m_inner.ids.value(trimmed);
    return true;
}

bool RosterBook::appendGroup(const QString &name, QString *id)
{
    const qint64 number = m_store->nextNumber(GroupCounter, FirstFreeGroupNumber);
    if (number == 0 || !insertGroup(QString::number(number), name, true))
        return false;
    *id = QString::number(number);
    m_inner.append({*id, name});
    return true;
}

bool RosterBook::renameGroup(const QString &id, const QString &name)
{
    const QString trimmed = name.trimmed();
    if (isFixed(id) || !hasGroup(id, true))
        return false;
    if (groupName(id, true) == trimmed)
        return true;
    if (!nameIsFree(trimmed) ||
        !m_store->run(QString::fromLatin1(RenameGroup), {trimmed, id, true}))
        return false;
    m_inner.rename(id, trimmed);
    for (FriendData &contact : m_contacts) {
        if (contact.groupId == id && contact.outside == 0)
            contact.groupName = trimmed;
    }
    return true;
}

bool RosterBook::deleteGroup(const QString &id)
{
    if (isFixed(id) || !hasGroup(id, true))
        return false;
    const bool done = m_store->inTransaction([&] {
        return m_store->run(QString::fromLatin1(EmptyGroup), {id}) &&
               m_store->run(QString::fromLatin1(DeleteGroup), {id, true});
    });
    if (!done)
        return false;
    m_inner.remove(id);
    const QString name = groupName(QString::fromLatin1(""), true);
    for (FriendData &contact : m_contacts) {
        if (contact.groupId == id && contact.outside == 0) {
            contact.groupId = QString::fromLatin1("");
            contact.groupName = name;
        }
    }
    return true;
}

// --- Changing contacts --------------------------------------------------------

bool RosterBook::write(const FriendData &contact)
{
    QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("contacts", ContactColumns));
    RecordSql::bind(&insert, contact);
    return m_store->run(&insert);
}

bool RosterBook::put(FriendData contact)
{
    const bool inner = contact.outside == 0;
    contact.groupId = normalGroupId(contact.groupId);
    if (contact.jid.isEmpty() || !hasGroup(contact.groupId, inner))
        return false;
    contact.groupName = groupName(contact.groupId, inner);
    if (!write(contact))
        return false;
    const int row = m_rows.value(contact.jid, -1);
    if (row >= 0) {
        m_contacts[row] = contact;
    } else {
        m_rows.insert(contact.jid, m_contacts.size());
        m_contacts.append(contact);
    }
    return true;
}

bool RosterBook::move(const QString &jid, const QString &oldGroup, const QString &newGroup)
{
    const FriendData *contact = find(jid);
    if (!contact || contact->outside != 0 || contact->groupId != normalGroupId(oldGroup))
        return false;
    FriendData moved = *contact;
    moved.groupId = normalGroupId(newGroup);
    return put(moved);
}

bool RosterBook::setRemark(const QString &jid, const QString &remark)
{
    const FriendData *contact = find(jid);
    if (!contact)
        return false;
    FriendData changed = *contact;
    changed.remark = remark;
    return put(changed);
}

bool RosterBook::remove(const QString &jid, bool inner)
{
    const FriendData *contact = find(jid);
    if (!contact || (contact->outside == 0) != inner ||
        !m_store->run(QString::fromLatin1(DeleteContact), {jid}))
        return false;
    // The last one takes the place: nothing depends on the order.
    const int row = m_rows.take(jid);
    if (row != m_contacts.size() - 1) {
        m_contacts[row] = m_contacts.constLast();
        m_rows[m_contacts.at(row).jid] = row;
    }
    m_contacts.removeLast();
    return true;
}

bool RosterBook::putProfile(const VcardInfo &profile)
{
    if (profile.jid.isEmpty())
        return false;
    QSqlQuery insert = m_store->prepared(RecordSql::insertStatement("profiles", ProfileColumns));
    RecordSql::bind(&insert, profile);
    if (!m_store->run(&insert))
        return false;
    m_profiles.insert(profile.jid, profile);
    return true;
}

QString RosterBook::importedCategory(const QString &jid) const
{
    return m_store->value(QString::fromLatin1(ReadCategory), {jid}).toString();
}

bool RosterBook::setImportedCategory(const QString &jid, const QString &category)
{
    return m_store->run(QString::fromLatin1(WriteCategory), {jid, category});
}

#include "backend/friends/friends.h"

#include "backend/refusal.h"
#include "backend/textcheck.h"
#include "sample/samplecompany.h"

#include <QDateTime>

#include <optional>

bool isOutside(const User &user, const User &other)
{
    return user.uid != other.uid &&
           (user.companyCode.isEmpty() || user.companyCode != other.companyCode);
}

qint64 oldestOpenRequest()
{
    return QDateTime::currentSecsSinceEpoch() - FriendLimit::Lifetime;
}

namespace {
bool isOpen(const std::optional<FriendRequest> &request)
{
    return request && request->time > oldestOpenRequest();
}
} // namespace

Friends::Friends(Transaction &transaction, const People &people, const FriendLimits &limits,
                 const QString &uid)
    : m_store(transaction),
      m_events(transaction),
      m_start(transaction, people),
      m_people(people),
      m_limits(limits),
      m_caller(people.find(uid).value_or(User()))
{
    if (m_caller.uid.isEmpty()) // the people have become fewer since the log-in
        throw Refusal(ReplyCode::Illegal);
    m_start.provide(uid);
}

User Friends::outsidePerson(const QString &uid)
{
    const std::optional<User> user = m_people.find(uid);
    if (!user || !isOutside(m_caller, *user))
        throw Refusal(ReplyCode::Illegal);
    m_start.provide(uid);
    return *user;
}

void Friends::requireRoom(const QString &uid, int refusal)
{
    if (m_store.count(uid) >= m_limits.of(uid))
        throw Refusal(refusal);
}

void Friends::requireGroup(qint64 group, int refusal)
{
    if (group != 0 && !m_store.group(m_caller.uid, group))
        throw Refusal(refusal);
}

void Friends::tell(const QStringList &uids)
{
    m_events.tell(uids, EventType::Friends, QString(), m_caller.uid);
}

// `request`: of the other one.
void Friends::join(const QString &uid, qint64 group, const FriendRequest &request)
{
    requireRoom(m_caller.uid, FriendCode::OwnLimit);
    requireRoom(uid, FriendCode::OtherLimit);
    const bool groupIsThere = m_store.group(uid, request.group).has_value();
    m_store.removeRequest(m_caller.uid, uid);
    m_store.removeRequest(uid, m_caller.uid);
    m_store.add(m_caller.uid, uid, group);
    m_store.add(uid, m_caller.uid, groupIsThere ? request.group : 0);
    tell({m_caller.uid, uid});
}

void Friends::request(const QString &uid, const QString &reason, qint64 group)
{
    outsidePerson(uid);
    const QString checked = checkedText(reason, 0, FriendLimit::Reason);
    requireGroup(group, ReplyCode::Illegal);
    if (m_store.find(m_caller.uid, uid))
        return;
    if (m_store.hasBlocked(uid, m_caller.uid))
        throw Refusal(FriendCode::Blocked);
    if (const std::optional<FriendRequest> crossing = m_store.request(uid, m_caller.uid);
        isOpen(crossing)) {
        join(uid, group, *crossing);
        return;
    }
    requireRoom(m_caller.uid, FriendCode::OwnLimit);
    requireRoom(uid, FriendCode::OtherLimit);
    m_store.setBlocked(m_caller.uid, uid, false);
    m_store.putRequest({m_caller.uid, uid, checked, group, QDateTime::currentSecsSinceEpoch()});
    m_events.tell({uid}, EventType::FriendRequest, m_caller.uid, m_caller.uid);
}

void Friends::accept(const QString &uid, qint64 group)
{
    outsidePerson(uid);
    requireGroup(group, ReplyCode::Illegal);
    if (m_store.find(m_caller.uid, uid))
        return;
    const std::optional<FriendRequest> request = m_store.request(uid, m_caller.uid);
    if (!isOpen(request))
        throw Refusal(FriendCode::Expired);
    join(uid, group, *request);
}

// Both sides; false: they were no contacts.
bool Friends::part(const QString &uid)
{
    if (!m_store.find(m_caller.uid, uid))
        return false;
    m_store.remove(m_caller.uid, uid);
    m_store.remove(uid, m_caller.uid);
    return true;
}

void Friends::block(const QString &uid)
{
    outsidePerson(uid);
    const bool wereContacts = part(uid);
    m_store.removeRequest(uid, m_caller.uid);
    m_store.removeRequest(m_caller.uid, uid);
    m_store.setBlocked(m_caller.uid, uid, true);
    tell(wereContacts ? QStringList{m_caller.uid, uid} : QStringList{m_caller.uid});
}

void Friends::remove(const QString &uid)
{
    outsidePerson(uid);
    if (!part(uid))
        throw Refusal(ReplyCode::Illegal);
    tell({m_caller.uid, uid});
}

FriendStatus Friends::status(const QString &uid)
{
    outsidePerson(uid);
    if (m_store.find(m_caller.uid, uid))
        return FriendStatus::Accepted;
    if (m_store.hasBlocked(m_caller.uid, uid) || m_store.hasBlocked(uid, m_caller.uid))
        return FriendStatus::Blocked;
    const std::optional<FriendRequest> incoming = m_store.request(uid, m_caller.uid);
    const std::optional<FriendRequest> outgoing = m_store.request(m_caller.uid, uid);
    if (!incoming && !outgoing)
        throw Refusal(ReplyCode::Illegal);
    return isOpen(incoming) || isOpen(outgoing) ? FriendStatus::Open : FriendStatus::Expired;
}

void Friends::move(const QString &uid, qint64 oldGroup, qint64 newGroup)
{
    const std::optional<Friend> contact = m_store.find(m_caller.uid, uid);
    if (!contact)
        throw Refusal(ReplyCode::Illegal);
    requireGroup(oldGroup, FriendCode::UnknownGroup);
    requireGroup(newGroup, FriendCode::UnknownGroup);
    if (contact->group != oldGroup)
        throw Refusal(ReplyCode::Blocked);
    if (oldGroup == newGroup)
        return;
    m_store.setGroup(m_caller.uid, uid, newGroup);
    tell({m_caller.uid});
}

void Friends::setRemark(const QString &uid, const QString &remark)
{
    if (!m_store.find(m_caller.uid, uid))
        throw Refusal(ReplyCode::Illegal);
    m_store.setRemark(m_caller.uid, uid, checkedText(remark, 0));
    tell({m_caller.uid});
}

QString Friends::checkedGroupName(const QString &name, qint64 besides)
{
    const QString checked = checkedText(name, 1);
    if (checked == groups().front().name || m_store.hasGroupNamed(m_caller.uid, checked, besides))
        throw Refusal(ReplyCode::Illegal);
    return checked;
}

qint64 Friends::addGroup(const QString &name)
{
    const QString checked = checkedGroupName(name, 0);
    if (m_store.groups(m_caller.uid).size() >= FriendLimit::Groups)
        throw Refusal(FriendCode::TooManyGroups);
    const qint64 id = m_store.addGroup(m_caller.uid, {0, checked});
    tell({m_caller.uid});
    return id;
}

void Friends::renameGroup(qint64 group, const QString &name)
{
    if (!m_store.group(m_caller.uid, group))
        throw Refusal(FriendCode::UnknownGroup);
    m_store.renameGroup(m_caller.uid, group, checkedGroupName(name, group));
    tell({m_caller.uid});
}

void Friends::removeGroup(qint64 group)
{
    if (!m_store.group(m_caller.uid, group))
        throw Refusal(FriendCode::UnknownGroup);
    m_store.removeGroup(m_caller.uid, group);
    tell({m_caller.uid});
}

std::vector<FriendGroup> Friends::groups()
{
    std::vector<FriendGroup> groups{{0, SampleCompany::outsiderGroups().first().name}};
    for (FriendGroup &group : m_store.groups(m_caller.uid))
        groups.push_back(std::move(group));
    return groups;
}

std::vector<Friend> Friends::friends()
{
    return m_store.friends(m_caller.uid);
}

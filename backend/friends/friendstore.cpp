#include "backend/friends/friendstore.h"

namespace {
constexpr int MostRequests = 1000;  // that are read at once
constexpr qint64 FirstGroup = 1000; // behind the ids of the sample's groups

std::vector<FriendRequest> allRequests(Statement *rows)
{
    std::vector<FriendRequest> requests;
    while (rows->next())
        requests.push_back(
            {rows->text(0), rows->text(1), rows->text(2), rows->number(3), rows->number(4)});
    return requests;
}
} // namespace

void FriendStore::add(const QString &uid, const QString &other, qint64 group)
{
    m_transaction.prepare("INSERT OR IGNORE INTO friend (uid, other, groupId) VALUES (?, ?, ?)")
        .bind(uid)
        .bind(other)
        .bind(group)
        .run();
}

std::optional<Friend> FriendStore::find(const QString &uid, const QString &other)
{
    Statement row =
        m_transaction.prepare("SELECT groupId, remark FROM friend WHERE uid = ? AND other = ?");
    row.bind(uid).bind(other);
    if (!row.next())
        return std::nullopt;
    return Friend{other, row.number(0), row.text(1)};
}

std::vector<Friend> FriendStore::friends(const QString &uid)
{
    Statement rows = m_transaction.prepare(
        "SELECT other, groupId, remark FROM friend WHERE uid = ? ORDER BY number");
    rows.bind(uid);
    std::vector<Friend> friends;
    while (rows.next())
        friends.push_back({rows.text(0), rows.number(1), rows.text(2)});
    return friends;
}

int FriendStore::count(const QString &uid)
{
    Statement row = m_transaction.prepare("SELECT COUNT(*) FROM friend WHERE uid = ?");
    row.bind(uid);
    return row.next() ? int(row.number(0)) : 0;
}

void FriendStore::remove(const QString &uid, const QString &other)
{
    m_transaction.prepare("DELETE FROM friend WHERE uid = ? AND other = ?")
        .bind(uid)
        .bind(other)
        .run();
}

void FriendStore::setGroup(const QString &uid, const QString &other, qint64 group)
{
    m_transaction.prepare("UPDATE friend SET groupId = ? WHERE uid = ? AND other = ?")
        .bind(group)
        .bind(uid)
        .bind(other)
        .run();
}

void FriendStore::setRemark(const QString &uid, const QString &other, const QString &remark)
{
    m_transaction.prepare("UPDATE friend SET remark = ? WHERE uid = ? AND other = ?")
        .bind(remark)
        .bind(uid)
        .bind(other)
        .run();
}

qint64 FriendStore::addGroup(const QString &uid, const FriendGroup &group)
{
    m_transaction.prepare("INSERT INTO friendGroup (uid, groupId, name) VALUES (?, ?, ?)")
        .bind(uid)
        .bind(group.id)
        .bind(group.name)
        .run();
    if (group.id != 0)
        return group.id;
    const qint64 number = m_transaction.lastId();
    const qint64 id = FirstGroup + number;
    m_transaction.prepare("UPDATE friendGroup SET groupId = ? WHERE number = ?")
        .bind(id)
        .bind(number)
        .run();
    return id;
}

std::optional<FriendGroup> FriendStore::group(const QString &uid, qint64 id)
{
    Statement row =
        m_transaction.prepare("SELECT name FROM friendGroup WHERE uid = ? AND groupId = ?");
    row.bind(uid).bind(id);
    if (!row.next())
        return std::nullopt;
    return FriendGroup{id, row.text(0)};
}

std::vector<FriendGroup> FriendStore::groups(const QString &uid)
{
    Statement rows = m_transaction.prepare(
        "SELECT groupId, name FROM friendGroup WHERE uid = ? ORDER BY number");
    rows.bind(uid);
    std::vector<FriendGroup> groups;
    while (rows.next())
        groups.push_back({rows.number(0), rows.text(1)});
    return groups;
}

bool FriendStore::hasGroupNamed(const QString &uid, const QString &name, qint64 besides)
{
    Statement row = m_transaction.prepare(
        "SELECT 1 FROM friendGroup WHERE uid = ? AND name = ? AND groupId <> ?");
    row.bind(uid).bind(name).bind(besides);
    return row.next();
}

void FriendStore::renameGroup(const QString &uid, qint64 id, const QString &name)
{
    m_transaction.prepare("UPDATE friendGroup SET name = ? WHERE uid = ? AND groupId = ?")
        .bind(name)
        .bind(uid)
        .bind(id)
        .run();
}

void FriendStore::removeGroup(const QString &uid, qint64 id)
{
    m_transaction.prepare("UPDATE friend SET groupId = 0 WHERE uid = ? AND groupId = ?")
        .bind(uid)
        .bind(id)
        .run();
    m_transaction.prepare("DELETE FROM friendGroup WHERE uid = ? AND groupId = ?")
        .bind(uid)
        .bind(id)
        .run();
}

void FriendStore::putRequest(const FriendRequest &request)
{
    m_transaction
        .prepare("INSERT OR REPLACE INTO friendRequest (asker, asked, reason, groupId, time)"
                 " VALUES (?, ?, ?, ?, ?)")
        .bind(request.asker)
        .bind(request.asked)
        .bind(request.reason)
        .bind(request.group)
        .bind(request.time)
        .run();
}

std::optional<FriendRequest> FriendStore::request(const QString &asker, const QString &asked)
{
    Statement row = m_transaction.prepare("SELECT asker, asked, reason, groupId, time"
                                          " FROM friendRequest WHERE asker = ? AND asked = ?");
    row.bind(asker).bind(asked);
    const std::vector<FriendRequest> found = allRequests(&row);
    return found.empty() ? std::nullopt : std::make_optional(found.front());
}

std::vector<FriendRequest> FriendStore::requestsTo(const QString &uid, qint64 after)
{
    Statement rows =
        m_transaction.prepare("SELECT asker, asked, reason, groupId, time FROM friendRequest"
                              " WHERE asked = ? AND time > ? ORDER BY time, asker LIMIT ?");
    rows.bind(uid).bind(after).bind(MostRequests);
    return allRequests(&rows);
}

void FriendStore::removeRequest(const QString &asker, const QString &asked)
{
    m_transaction.prepare("DELETE FROM friendRequest WHERE asker = ? AND asked = ?")
        .bind(asker)
        .bind(asked)
        .run();
}

bool FriendStore::ageRequest(const QString &asker, const QString &asked, qint64 seconds)
{
    m_transaction.prepare("UPDATE friendRequest SET time = time - ? WHERE asker = ? AND asked = ?")
        .bind(seconds)
        .bind(asker)
        .bind(asked)
        .run();
    return m_transaction.changes() > 0;
}

void FriendStore::setBlocked(const QString &uid, const QString &other, bool blocked)
{
    m_transaction
        .prepare(blocked ? "INSERT OR IGNORE INTO friendBlock (uid, other) VALUES (?, ?)"
                         : "DELETE FROM friendBlock WHERE uid = ? AND other = ?")
        .bind(uid)
        .bind(other)
        .run();
}

bool FriendStore::hasBlocked(const QString &uid, const QString &other)
{
    Statement row = m_transaction.prepare("SELECT 1 FROM friendBlock WHERE uid = ? AND other = ?");
    row.bind(uid).bind(other);
    return row.next();
}

FriendStore::Start FriendStore::start(const QString &uid)
{
    Statement row = m_transaction.prepare("SELECT hasContacts FROM friendStart WHERE uid = ?");
    row.bind(uid);
    if (!row.next())
        return Untouched;
    return row.number(0) != 0 ? HasContacts : HasGroups;
}

void FriendStore::setStart(const QString &uid, Start start)
{
    m_transaction.prepare("INSERT OR REPLACE INTO friendStart (uid, hasContacts) VALUES (?, ?)")
        .bind(uid)
        .bind(qint64(start == HasContacts))
        .run();
}

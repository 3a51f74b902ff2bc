// The tables of the external contacts. It knows no rule: who may do what is the business
// of Friends. Lives within a transaction; every function throws DatabaseError.
#pragma once

#include "backend/database.h"
#include "backend/friends/friend.h"

#include <optional>
#include <vector>

class FriendStore
{
public:
    explicit FriendStore(Transaction &transaction) : m_transaction(transaction) {}

    // One side. Who is a contact already stays as he is.
    void add(const QString &uid, const QString &other, qint64 group);
    std::optional<Friend> find(const QString &uid, const QString &other);
    std::vector<Friend> friends(const QString &uid); // in the order in which they came
    int count(const QString &uid);
    void remove(const QString &uid, const QString &other);
    void setGroup(const QString &uid, const QString &other, qint64 group);
    void setRemark(const QString &uid, const QString &other, const QString &remark);

    // Id 0: one that the user never had.
    qint64 addGroup(const QString &uid, const FriendGroup &group);
    std::optional<FriendGroup> group(const QString &uid, qint64 id);
    std::vector<FriendGroup> groups(const QString &uid); // in the order of their making
    bool hasGroupNamed(const QString &uid, const QString &name, qint64 besides);
    void renameGroup(const QString &uid, qint64 id, const QString &name);
    void removeGroup(const QString &uid, qint64 id); // its contacts go to the default group

    // Takes the place of an earlier one.
    void putRequest(const FriendRequest &request);
    std::optional<FriendRequest> request(const QString &asker, const QString &asked);
    // To the user, made after a time.
    std::vector<FriendRequest> requestsTo(const QString &uid, qint64 after);
    void removeRequest(const QString &asker, const QString &asked);
    // As if it had been made so much earlier; false: there is none.
    bool ageRequest(const QString &asker, const QString &asked, qint64 seconds);

    void setBlocked(const QString &uid, const QString &other, bool blocked);
    bool hasBlocked(const QString &uid, const QString &other);

    // Whether the user's contacts, or at least the groups, have rows.
    enum Start
    {
        Untouched,
        HasGroups,
        HasContacts
    };
    Start start(const QString &uid);
    void setStart(const QString &uid, Start start);

private:
    Transaction &m_transaction;
};

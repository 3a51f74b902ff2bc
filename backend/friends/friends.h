// The rules of the external contacts: what one user may do about people outside the own
// company and what comes of it.
//
//     none -> requested -> contacts, on both sides
//                       -> expired, a week later; may be requested again
//     any  -> blocked: no contact any more, and the other one cannot ask
//     blocked, contacts -> none
//
// Who asks somebody who has asked him accepts. Whoever is concerned is told by an event.
// Lives within a transaction that is to be kept, even when it only reads; throws Refusal
// when a rule says no, and the transaction is then to be given up.
#pragma once

#include "backend/eventlog.h"
#include "backend/friends/friendstart.h"
#include "backend/friends/friendstore.h"
#include "backend/people.h"
#include "backend/reply.h"

#include <vector>

namespace FriendCode {
// Of requests and their acceptance.
constexpr int OwnLimit = 10001;
constexpr int OtherLimit = 10002;
constexpr int Expired = 10003;
constexpr int Blocked = 10004;
// Of groups.
constexpr int UnknownGroup = 10002;
constexpr int TooManyGroups = 10003;
} // namespace FriendCode

class Friends
{
public:
    // `uid`: who acts.
    Friends(Transaction &transaction, const People &people, const FriendLimits &limits,
            const QString &uid);

    void request(const QString &uid, const QString &reason, qint64 group);
    void accept(const QString &uid, qint64 group);
    void block(const QString &uid);
    void remove(const QString &uid);
    FriendStatus status(const QString &uid); // of the request between the two
    void move(const QString &uid, qint64 oldGroup, qint64 newGroup);
    void setRemark(const QString &uid, const QString &remark);

    qint64 addGroup(const QString &name);
    void renameGroup(qint64 group, const QString &name);
    void removeGroup(qint64 group);

    std::vector<FriendGroup> groups(); // the default group leads
    std::vector<Friend> friends();

private:
    User outsidePerson(const QString &uid);
    void requireRoom(const QString &uid, int refusal);
    void requireGroup(qint64 group, int refusal);
    QString checkedGroupName(const QString &name, qint64 besides);
    void join(const QString &uid, qint64 group, const FriendRequest &request);
    bool part(const QString &uid);
    void tell(const QStringList &uids);

    FriendStore m_store;
    EventLog m_events;
    FriendStart m_start;
    const People &m_people;
    const FriendLimits &m_limits;
    User m_caller;
};

// Whether the second is outside the first one's company.
bool isOutside(const User &user, const User &other);

// Those made before this time cannot be answered any more. In s since the epoch.
qint64 oldestOpenRequest();

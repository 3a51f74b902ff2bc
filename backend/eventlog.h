// What users are told, numbered in the order in which it happened. Of the events of one
// type about one subject a user is told only the newest. Kept for a day. Lives within a
// transaction; who waits is woken by EventBell.
#pragma once

#include "backend/database.h"

#include <QStringList>

#include <vector>

namespace EventType {
// About a team, which is the subject.
constexpr char Update[] = "update"; // something about the team has changed
constexpr char Audit[] = "audit";   // somebody wants to make it
constexpr char Join[] = "join";     // somebody of another company invites into it
// What became of it, for the applicant.
constexpr char Agreed[] = "agreed";
constexpr char Refused[] = "refused";
// The subject is who asks to become an external contact.
constexpr char FriendRequest[] = "friendRequest";
// The user's external contacts, their groups, or who has asked.
constexpr char Friends[] = "friends";
// Of the person who is the subject, to everybody.
constexpr char Picture[] = "picture";
// The service numbers that the user has subscribed to.
constexpr char Services[] = "services";
} // namespace EventType

struct Event
{
    qint64 number = 0;
    QString type;
    QString subject;
    QString member;   // who caused it; the applicant of "audit" and "join"
    QString teamName; // empty: it is about none, or that is gone
};

class EventLog
{
public:
    explicit EventLog(Transaction &transaction) : m_transaction(transaction) {}

    void tell(const QStringList &uids, const char *type, const QString &subject,
              const QString &member);
    void tell(const QStringList &uids, const char *type, qint64 team, const QString &member);
    // An update, for all members of now.
    void tellMembers(qint64 team, const QString &member);
    void tellEverybody(const char *type, const QString &subject);

    // Those with a higher number, oldest first, MaximumRead at most.
    std::vector<Event> after(const QString &uid, qint64 number);
    qint64 last(); // number of the newest there ever was; 0: none
    // Whether some after this number may be kept no more, or it was never given out.
    bool isForgotten(qint64 number);

    static constexpr int MaximumRead = 1000;

private:
    void tidy();

    Transaction &m_transaction;
};

// What users are told about their teams, numbered in the order in which it happened.
// Of the events of one type about one team a user is told only the newest. Kept for a
// day. Lives within a transaction.
#pragma once

#include "backend/database.h"

#include <QStringList>

#include <vector>

namespace TeamEventType {
constexpr char Update[] = "update"; // something about the team has changed
constexpr char Audit[] = "audit";   // somebody wants to make it
constexpr char Join[] = "join";     // somebody of another company invites into it
// What became of it, for the applicant.
constexpr char Agreed[] = "agreed";
constexpr char Refused[] = "refused";
} // namespace TeamEventType

struct TeamEvent
{
    qint64 number;
    QString type;
    qint64 team;
    QString member; // who caused it; the applicant of "audit" and "join"
    QString name;   // of the team; empty: it is gone
};

class TeamEventLog
{
public:
    explicit TeamEventLog(Transaction &transaction) : m_transaction(transaction) {}

    void tell(const QStringList &uids, const char *type, qint64 team, const QString &member);
    // An update, for all members of now.
    void tellMembers(qint64 team, const QString &member);

    // Those with a higher number, oldest first, MaximumRead at most.
    std::vector<TeamEvent> after(const QString &uid, qint64 number);
    qint64 last(); // number of the newest there ever was; 0: none
    // Whether some after this number may be kept no more, or it was never given out.
    bool isForgotten(qint64 number);

    static constexpr int MaximumRead = 1000;

private:
    void tidy();

    Transaction &m_transaction;
};

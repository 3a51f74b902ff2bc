// Who is logged in. Tickets are random; the database keeps only their digests and
// when they expire, so that a restart of the back end logs nobody out. All functions
// may be called from any thread and throw DatabaseError.
#pragma once

#include <QString>

class Database;

namespace Cookie {
constexpr char AuthId[] = "imAuthId"; // who calls; lives for hours
constexpr char Ticket[] = "IMTGC";    // exchanged for a fresh auth id; for a month
constexpr char RememberMe[] = "im_ids_r_me";
} // namespace Cookie

struct Caller
{
    enum State
    {
        Unknown, // no ticket, or one that was never given out
        Expired,
        LoggedIn
    };
    State state = Unknown;
    QString uid; // empty when unknown
};

class Sessions
{
public:
    enum Kind
    {
        AuthId = 1,
        LongTicket = 2,
        RememberMe = 3
    };

    explicit Sessions(Database &database) : m_database(database) {}

    // A new ticket for the user.
    QString issue(Kind kind, const QString &uid);
    Caller find(Kind kind, const QString &ticket);

    // The user's tickets of this kind are from now on expired, or unknown.
    void expire(Kind kind, const QString &uid);
    void forget(const QString &uid);
    // Drops what expired long ago.
    void tidy();

private:
    Database &m_database;
};

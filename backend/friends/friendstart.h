// The external contacts that people have before anybody changes anything: those of the
// sample company, on both sides. They get their rows when one of the two is first heard
// of: a large company would have a million of them. Lives within a transaction.
#pragma once

#include "backend/eventlog.h"
#include "backend/friends/friendstore.h"
#include "backend/people.h"

class FriendStart
{
public:
    FriendStart(Transaction &transaction, const People &people)
        : m_store(transaction), m_events(transaction), m_people(people)
    {
    }

    // From now on the user's rows are all there is to know.
    void provide(const QString &uid);

private:
    void provideGroups(const QString &uid);

    FriendStore m_store;
    EventLog m_events;
    const People &m_people;
};

// A team of any size, for lists and measurements.
#pragma once

#include "backend/people.h"
#include "backend/teams/team.h"

class Transaction;

struct SampleTeam
{
    static QString name();

    QString owner;
    int members = 0; // the owner included
    int groups = 0;  // of the root, over which all others are spread; 0: all in the root

    // The people of the company, then those of the large department. 0: there are not
    // that many.
    qint64 make(Transaction &transaction, const People &people) const;
};
